// How long a page takes until its last chart is drawn, from its load event and from navigation on, beside a page with one
// empty chart:
//   node bench/charts.mjs build/release/bin/hierfit "$(which chromium)" FILE.json [COUNT]
// FILE.json is a saved document; COUNT of its charts (15 by default, repeated if there are fewer) make the page. Medians of
// five loads, in milliseconds.

import { spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

const [program, chromium, source, count = 15] = process.argv.slice(2);
const require = createRequire(new URL("../web/package.json", import.meta.url));
const { chromium: browserType } = require("playwright-core");
const loads = 5;

function* chartsOf(items) {
  for (const item of items) {
    if (item.kind === "heading") yield* chartsOf(item.items);
    if (item.kind === "chart" && Object.keys(item.view).length > 0) yield item;
  }
}

const saved = JSON.parse(readFileSync(source, "utf8"));
const charts = [...chartsOf(saved.items)];
if (charts.length === 0) throw new Error(`${source} holds no charts`);
const empty = { ...charts[0], view: { description: "Nothing", mark: "point", data: { values: [] }, encoding: {} } };
const work = mkdtempSync(join(tmpdir(), "charts-"));

function writePage(name, items) {
  const json = join(work, `${name}.json`);
  const page = join(work, `${name}.html`);
  writeFileSync(json, JSON.stringify({ ...saved, items }));
  const { status, stderr } = spawnSync(program, ["render", "-o", page, json], { encoding: "utf8" });
  if (status !== 0) throw new Error(stderr);
  return pathToFileURL(page).href;
}

async function measure(browser, url, expected) {
  const times = [];
  for (let load = 0; load < loads; ++load) {
    const page = await browser.newPage();
    await page.addInitScript((drawn) => {
      new MutationObserver(() => {
        const pictures = document.querySelectorAll(".drawing svg, .drawing canvas").length;
        if (pictures === drawn) globalThis.drawnAt ??= performance.now();
      }).observe(document, { childList: true, subtree: true });
    }, expected);
    await page.goto(url);
    await page.waitForFunction(() => globalThis.drawnAt);
    times.push(await page.evaluate(() => {
      const [{ loadEventStart }] = performance.getEntriesByType("navigation");
      return { load: globalThis.drawnAt - loadEventStart, navigation: globalThis.drawnAt };
    }));
    await page.close();
  }
  return times;
}

const median = (times, since) => times.map((time) => time[since]).sort((a, b) => a - b)[loads >> 1].toFixed(0);
const tell = (what, times) =>
  console.log(`${what}: ${median(times, "load")} ms from the load event, ${median(times, "navigation")} ms from navigation`);

const many = Array.from({ length: Number(count) }, (_, place) => charts[place % charts.length]);
const browser = await browserType.launch({ executablePath: chromium, args: ["--headless", "--no-sandbox", "--disable-gpu"] });
const without = await measure(browser, writePage("empty", [empty]), 1);
const drawn = await measure(browser, writePage("charts", many), many.length);
await browser.close();
rmSync(work, { recursive: true });
tell("one empty chart", without);
tell(`${many.length} charts`, drawn);
