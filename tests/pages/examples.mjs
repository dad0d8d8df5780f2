// Judges the pages of the examples by a browser, against their documents:
//   node examples.mjs PROGRAM CHROMIUM EXAMPLES WORK [NAME...]

import { existsSync, mkdirSync, readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { gzipSync } from "node:zlib";
import { launch, load, open } from "../support/browser.mjs";
import { checkCopies } from "./copies.mjs";
import { readItems, run, tablesOf } from "./document.mjs";
import { checkHeaders } from "./headers.mjs";
import { checkMarks } from "./marks.mjs";
import { checkStates } from "./states.mjs";

const [program, chromium, examples, work, ...chosen] = process.argv.slice(2);
const browser = await launch(chromium, "--force-renderer-accessibility");
const axeSource = load("axe-core").source;

// The page of an example that others are measured by: bytes, and compressed.
const limits = { oats: [400_000, 80_000] };

function checkSize(name, path) {
  const content = readFileSync(path);
  const actual = [content.length, gzipSync(content).length];
  const isTooLarge = (limits[name] ?? []).some((limit, at) => actual[at] > limit);
  return isTooLarge ? [`${actual} bytes, at most ${limits[name]}`] : [];
}

async function judge(name) {
  const path = join(work, `${name}.html`);
  run(program, "report", "-o", path, join(examples, name));
  run(program, "report", "-f", "csv", "-o", join(work, name), join(examples, name));
  const items = readItems(program, join(examples, name));
  const page = await open(browser, pathToFileURL(path).href);
  await page.evaluate(() => {  // as for a reader who has opened what can be opened
    for (const fold of document.querySelectorAll("details")) fold.open = true;
    for (const box of document.querySelectorAll(".switch input:not(.paper)")) box.checked = true;
  });
  const [cells, ofHeaders] = await checkHeaders(page, tablesOf(items));
  const [records, ofCopies] = await checkCopies(page,
    (anchor) => readFileSync(join(work, name, `${anchor}.csv`), "utf8"));
  const [marks, ofMarks] = await checkMarks(page, items);
  const ofStates = await checkStates(page, axeSource);
  await page.context().close();
  console.log(`${name}: ${cells} cells, ${records} records, ${marks} marks`);
  return [...checkSize(name, path), ...ofHeaders, ...ofCopies, ...ofMarks, ...ofStates];
}

mkdirSync(work, { recursive: true });
const names = chosen.length > 0 ? chosen
  : readdirSync(examples).filter((name) => existsSync(join(examples, name, "model.pmml")));
let faulty = 0;
for (const name of names) {
  const faults = await judge(name);
  for (const fault of faults) console.error(`${name}: ${fault}`);
  faulty += faults.length > 0 ? 1 : 0;
}
await browser.close();
console.log(`${names.length} pages, ${faulty} with faults`);
process.exit(faulty > 0 || names.length === 0 ? 1 : 0);
