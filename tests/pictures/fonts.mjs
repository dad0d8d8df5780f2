// Draws every picture of every example, for a desk and for a phone, with each of the fonts alone, and judges the words:
//   node fonts.mjs CHROMIUM PROGRAM SCENES EXAMPLES
// No word stands beyond the picture's edge, and no two overlap. Exit status 77 where a tool or a font is missing, for a
// test that is skipped.

import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, mkdtempSync, readdirSync, readFileSync, rmSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { fileURLToPath } from "node:url";

const [chromium, program, scenes, examples] = process.argv.slice(2);
const web = fileURLToPath(new URL("../../web/", import.meta.url));
const fonts = { "DejaVu Sans": "DejaVuSans.ttf", "Liberation Sans": "LiberationSans-Regular.ttf" };
const tolerance = 0.5;

function skip(reason) {
  console.log(`skipped: ${reason}`);
  process.exit(77);
}

if (!existsSync(join(web, "node_modules", "playwright-core"))) skip("run `npm ci` in web/ first");
if (!existsSync(chromium)) skip("there is no browser");
const installed = execFileSync("fc-list", [":", "file"], { encoding: "utf8" });
for (const name of Object.values(fonts)) if (!installed.includes(`/${name}:`)) skip(`there is no ${name}`);

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
  'DejaVu Sans: sample: "mmmmmmmm" stands out',
  'DejaVu Sans: sample: "one" and "other" overlap',
  'Liberation Sans: sample: "one" and "other" overlap',
];

const names = readdirSync(examples).filter((name) => existsSync(join(examples, name, "model.pmml")));
const all = names.flatMap(draw);
const pictures = [sample, ...new Map(all.map((picture) => [picture.svg, picture])).values()];

const browser = await browserType.launch({ executablePath: chromium,
  args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
const page = await browser.newPage();
const faults = [];
for (const font of Object.keys(fonts)) {
  const found = await page.evaluate(findWords, { pictures, font, tolerance });
  faults.push(...found.map((fault) => `${font}: ${fault}`));
}
await browser.close();
rmSync(work, { recursive: true });

const wrong = [...faults.filter((fault) => !expected.includes(fault)),
  ...expected.filter((fault) => !faults.includes(fault)).map((fault) => `not found: ${fault}`)];
if (wrong.length > 0) console.error(wrong.join("\n"));
console.log(`${pictures.length} pictures, ${wrong.length} faults`);
process.exit(wrong.length > 0 || all.length === 0 ? 1 : 0);
