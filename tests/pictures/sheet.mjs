// Puts pictures of two builds side by side, to be looked at:
//   node sheet.mjs CHROMIUM BEFORE AFTER FOLDER EXAMPLE...
// BEFORE and AFTER are programs. FOLDER gets NAME-VIEW.png for each example: every chart before and after, as the desk, the
// phone and the dark show it; and NAME-paper-N.pdf, the printed page of each. BEFORE may be "-": then AFTER stands alone.

import { execFileSync } from "node:child_process";
import { mkdirSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { basename, join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

const [chromium, before, after, folder, ...examples] = process.argv.slice(2);
const require = createRequire(new URL("../../web/package.json", import.meta.url));
const { chromium: browserType } = require("playwright-core");

const views = {
  desk: { viewport: { width: 1280, height: 900 } },
  phone: { viewport: { width: 360, height: 740 } },
  dark: { viewport: { width: 1280, height: 900 }, colorScheme: "dark" },
};

const work = mkdtempSync(join(tmpdir(), "sheet-"));

function makePage(program, example, name) {
  const path = join(work, name);
  execFileSync(program, ["report", "-o", path, example], { stdio: ["ignore", "ignore", "ignore"] });
  return path;
}

/** Pictures of all charts of a page, by the charts' anchors, as data addresses. */
async function takeCharts(browser, path, view) {
  const context = await browser.newContext(views[view]);
  const page = await context.newPage();
  await page.goto(pathToFileURL(path).href);
  await page.waitForTimeout(1500);  // for builds that draw by script
  const taken = new Map();
  for (const figure of await page.$$("figure.chart")) {
    const drawing = await figure.$(".drawing svg:visible, .drawing canvas") ?? await figure.$(".drawing");
    const shot = await drawing.screenshot();
    taken.set(await figure.getAttribute("id"), `data:image/png;base64,${shot.toString("base64")}`);
  }
  await context.close();
  return taken;
}

async function print(browser, path, name) {
  const page = await browser.newPage();
  await page.goto(pathToFileURL(path).href);
  await page.pdf({ path: join(folder, name), format: "A4", preferCSSPageSize: true });
  await page.close();
}

const cell = (image) => `<td>${image ? `<img src="${image}">` : "none"}</td>`;

async function writeSheet(browser, name, view, columns) {
  const anchors = [...new Set(columns.flatMap((column) => [...column.keys()]))];
  const rows = anchors.map((anchor) => `<tr><th>${anchor}</th>${columns.map((c) => cell(c.get(anchor))).join("")}</tr>`);
  const path = join(work, "sheet.html");
  writeFileSync(path, `<meta charset="utf-8"><style>body{font:12px sans-serif;background:#888}td{vertical-align:top;padding:4px}`
    + `</style><table>${rows.join("\n")}</table>`);
  const page = await browser.newPage({ viewport: { width: view === "phone" ? 900 : 1700, height: 900 } });
  await page.goto(pathToFileURL(path).href);
  await page.screenshot({ path: join(folder, `${name}-${view}.png`), fullPage: true });
  await page.close();
}

mkdirSync(folder, { recursive: true });
const browser = await browserType.launch({ executablePath: chromium,
  args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
    "--disable-component-update", "--disable-sync"] });
for (const example of examples) {
  const programs = before === "-" ? [after] : [before, after];
  const pages = programs.map((program, index) => makePage(program, example, `${index}.html`));
  for (const view of Object.keys(views)) {
    const columns = [];
    for (const page of pages) columns.push(await takeCharts(browser, page, view));
    await writeSheet(browser, basename(example), view, columns);
  }
  for (const [index, page] of pages.entries()) await print(browser, page, `${basename(example)}-paper-${index}.pdf`);
}
await browser.close();
rmSync(work, { recursive: true });
