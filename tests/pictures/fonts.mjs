// Draws every picture of every example, for a desk and for a phone, with each of the fonts alone, and judges the words:
//   node fonts.mjs CHROMIUM RSVG_CONVERT PROGRAM SCENES EXAMPLES
// No word stands beyond the picture's edge, and no two overlap. Exit status 77 where a tool or a font is missing, for a
// test that is skipped.

import { execFileSync } from "node:child_process";
import { copyFileSync, existsSync, mkdirSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { basename, join } from "node:path";
import { fileURLToPath } from "node:url";

const [chromium, rsvg, program, scenes, examples] = process.argv.slice(2);
const web = fileURLToPath(new URL("../../web/", import.meta.url));
const fonts = {
  "DejaVu Sans": ["DejaVuSans.ttf", "DejaVuSans-Bold.ttf"],
  "Liberation Sans": ["LiberationSans-Regular.ttf", "LiberationSans-Bold.ttf"],
};
const border = 60;  // what is looked at around a picture, in pixels
const tolerance = 0.5;
const tallestSheet = 12000;

function skip(reason) {
  console.log(`skipped: ${reason}`);
  process.exit(77);
}

if (!existsSync(join(web, "node_modules", "playwright-core"))) skip("run `npm ci` in web/ first");
for (const tool of [chromium, rsvg]) if (!existsSync(tool)) skip(`there is no ${tool}`);
const installed = execFileSync("fc-list", [":", "file"], { encoding: "utf8" }).split("\n").map((line) => line.replace(/: *$/, ""));
const fileOf = (name) => installed.find((path) => basename(path) === name);
for (const name of Object.values(fonts).flat()) if (!fileOf(name)) skip(`there is no ${name}`);

const { chromium: browserType } = createRequire(join(web, "package.json"))("playwright-core");
const work = mkdtempSync(join(tmpdir(), "fonts-"));
const quiet = { stdio: ["ignore", "pipe", "ignore"], maxBuffer: 1 << 28 };

/** The pictures of an example, by name. */
function draw(example) {
  const folder = join(work, example);
  mkdirSync(folder);
  const saved = join(work, `${example}.json`);
  execFileSync(program, ["report", "-f", "json", "-o", saved, join(examples, example)], quiet);
  execFileSync(scenes, ["--svg", folder, saved], quiet);
  return readdirSync(folder).map((name) => ({ name: `${example}/${name}`, svg: readFileSync(join(folder, name), "utf8") }));
}

/** Pictures below each other in files, each with the border around it and covered itself: what is seen stands out. */
function makeSheets(pictures) {
  const sheets = [];
  for (const { name, svg } of pictures) {
    const [, width, height] = /width="([\d.]+)" height="([\d.]+)"/.exec(svg).map(Number);
    if (!(sheets.at(-1)?.height < tallestSheet)) sheets.push({ width: 0, height: 0, body: "", cells: [] });
    const sheet = sheets.at(-1);
    const top = sheet.height;
    sheet.cells.push({ name, top, height: Math.ceil(height) + 2 * border });
    sheet.height += sheet.cells.at(-1).height;
    sheet.width = Math.max(sheet.width, Math.ceil(width) + 2 * border);
    const place = `x="${border - tolerance}" y="${top + border - tolerance}"`;
    const size = `width="${width + 2 * tolerance}" height="${height + 2 * tolerance}"`;
    sheet.body += svg.replace("<svg", `<svg x="${border}" y="${top + border}" overflow="visible"`)
      .replace('<rect width="100%" height="100%" fill="#ffffff"/>', "") + `<rect ${place} ${size} fill="#ffffff"/>`;
  }
  return sheets;
}

/** A PNG of a sheet by rsvg-convert, which sees the files of one font alone. */
function convert({ width, height, body }, font) {
  const folder = join(work, font);
  const configuration = join(work, `${font}.conf`);
  if (!existsSync(folder)) {
    mkdirSync(folder);
    for (const name of fonts[font]) copyFileSync(fileOf(name), join(folder, name));
    writeFileSync(configuration, `<fontconfig><dir>${folder}</dir><cachedir>${folder}</cachedir></fontconfig>`);
  }
  const input = `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}">${body}</svg>`;
  return execFileSync(rsvg, ["--unlimited"], { input, maxBuffer: 1 << 28, env: { ...process.env, FONTCONFIG_FILE: configuration } });
}

/** Pictures of a sheet that leave their cover. Runs in the page. */
async function findInk({ png, width, cells }) {
  const image = new Image();
  image.src = `data:image/png;base64,${png}`;
  await image.decode();
  const faults = [];
  const white = 0xffffff;  // the edge of a cover may be half clear
  for (const { name, top, height } of cells) {
    const context = new OffscreenCanvas(width, height).getContext("2d", { willReadFrequently: true });
    context.drawImage(image, 0, -top);
    const values = new Uint32Array(context.getImageData(0, 0, width, height).data.buffer);
    if (values.some((value) => value !== 0 && value % 0x1000000 !== white)) faults.push(`${name}: stands out`);
  }
  return faults;
}

/** Words that stand out or overlap, as the browser sets them. Runs in the page. */
function findWords({ pictures, font, tolerance: slack }) {
  const faults = [];

  // The corners of a text, as high as layouts take it, wherever it is turned.
  const cornersOf = (text) => {
    const box = text.getBBox();
    const baseline = text.getStartPositionOfChar(0).y;
    const size = parseFloat(getComputedStyle(text).fontSize);
    const matrix = text.getCTM();
    const [top, bottom] = [baseline - 0.93 * size, baseline + 0.24 * size];
    return [[box.x, top], [box.x + box.width, top], [box.x + box.width, bottom], [box.x, bottom]]
      .map(([x, y]) => new DOMPoint(x, y).matrixTransform(matrix));
  };
  const spanOf = (corners, x, y) => {
    const values = corners.map((corner) => corner.x * x + corner.y * y);
    return [Math.min(...values), Math.max(...values)];
  };
  // Two boxes are apart where a line along a side of either separates them.
  const areApart = (one, other) => [one, other].some((box) => [1, 3].some((next) => {
    const [x, y] = [box[next].x - box[0].x, box[next].y - box[0].y];
    const length = Math.hypot(x, y) || 1;
    const [[from, to], [begin, end]] = [one, other].map((corners) => spanOf(corners, x / length, y / length));
    return to - slack <= begin || end - slack <= from;
  }));

  for (const { name, svg } of pictures) {
    document.body.innerHTML = svg;
    const picture = document.body.firstElementChild;
    picture.setAttribute("font-family", `'${font}'`);
    const [width, height] = [picture.width.baseVal.value, picture.height.baseVal.value];
    const words = Array.from(picture.querySelectorAll("text"), (text) => ({ text: text.textContent, box: cornersOf(text) }));
    for (const [index, { text, box }] of words.entries()) {
      const isInside = box.every(({ x, y }) => x >= -slack && y >= -slack && x <= width + slack && y <= height + slack);
      if (!isInside) faults.push(`${name}: "${text}" stands out`);
      for (const other of words.slice(index + 1)) {
        if (!areApart(box, other.box)) faults.push(`${name}: "${text}" and "${other.text}" overlap`);
      }
    }
  }
  return faults;
}

// What must be found: words that overlap, and words that stand out in the wider of the fonts alone.
const sample = {
  name: "sample",
  svg: '<svg xmlns="http://www.w3.org/2000/svg" width="88" height="60" viewBox="0 0 88 60" fill="#000000" font-size="12" ' +
    `font-family="Helvetica,Arial,'Liberation Sans','DejaVu Sans',sans-serif"><text x="1" y="15">mmmmmmmm</text>` +
    '<text x="1" y="55">one</text><text x="15" y="50">other</text></svg>',
};
const expected = [
  'DejaVu Sans, browser: sample: "mmmmmmmm" stands out',
  'DejaVu Sans, browser: sample: "one" and "other" overlap',
  "DejaVu Sans, rsvg-convert: sample: stands out",
  'Liberation Sans, browser: sample: "one" and "other" overlap',
];

const names = readdirSync(examples).filter((name) => existsSync(join(examples, name, "model.pmml")));
const all = names.flatMap(draw);
const pictures = [sample, ...new Map(all.map((picture) => [picture.svg, picture])).values()];
const sheets = makeSheets(pictures);

const browser = await browserType.launch({ executablePath: chromium,
  args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
const page = await browser.newPage();
const faults = [];
for (const font of Object.keys(fonts)) {
  const tell = (by, found) => faults.push(...found.map((fault) => `${font}, ${by}: ${fault}`));
  tell("browser", await page.evaluate(findWords, { pictures, font, tolerance }));
  for (const sheet of sheets) {
    const png = convert(sheet, font).toString("base64");
    tell("rsvg-convert", await page.evaluate(findInk, { png, width: sheet.width, cells: sheet.cells }));
  }
}
await browser.close();
rmSync(work, { recursive: true });

const wrong = [...faults.filter((fault) => !expected.includes(fault)),
  ...expected.filter((fault) => !faults.includes(fault)).map((fault) => `not found: ${fault}`)];
if (wrong.length > 0) console.error(wrong.join("\n"));
console.log(`${pictures.length} pictures, ${wrong.length} faults`);
process.exit(wrong.length > 0 || all.length === 0 ? 1 : 0);
