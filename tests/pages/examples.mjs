// Judges the pages of the examples by a browser, against their documents:
//   node examples.mjs PROGRAM CHROMIUM EXAMPLES WORK [NAME...]

import { existsSync, mkdirSync, readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { gzipSync } from "node:zlib";
import { judgeAll, launch, open } from "../support/browser.mjs";
import { checkCopies } from "./copies.mjs";
import { readItems, run, tablesOf } from "./document.mjs";
import { checkHeaders } from "./headers.mjs";
import { checkMarks } from "./marks.mjs";
import { checkStates } from "./states.mjs";

const [program, chromium, examples, work, ...chosen] = process.argv.slice(2);
const browser = await launch(chromium, "--force-renderer-accessibility");

/** The page that others are measured by is short, as it is and compressed. */
function checkSize(name, path) {
  const content = readFileSync(path);
  const [bytes, compressed] = [content.length, gzipSync(content).length];
  return name === "oats" && (bytes > 400_000 || compressed > 80_000) ? [`${bytes} bytes, ${compressed} compressed`] : [];
}

/** As for a reader who has opened what can be opened. */
async function openPage(path) {
  const page = await open(browser, pathToFileURL(path).href);
  await page.evaluate(() => {
    for (const fold of document.querySelectorAll("details")) fold.open = true;
    for (const box of document.querySelectorAll(".switch input:not(.paper)")) box.checked = true;
  });
  return page;
}

async function judge(name) {
  const [example, path, styled] = [join(examples, name), join(work, `${name}.html`), join(work, `${name}-apa.html`)];
  run(program, "report", "-o", path, example);
  run(program, "report", "--style", "apa", "-o", styled, example);
  run(program, "report", "-f", "csv", "-o", join(work, name), example);
  const items = readItems(program, example);
  const page = await openPage(path);
  const [cells, ofHeaders] = await checkHeaders(page, tablesOf(items));
  const [marks, ofMarks] = await checkMarks(page, items);
  const ofStates = await checkStates(page);
  await page.context().close();
  const other = await openPage(styled);
  const [tables, ofCopies] = await checkCopies(other,
    (anchor) => readFileSync(join(work, name, `${anchor}.csv`), "utf8"));
  await other.context().close();
  console.log(`${name}: ${cells} cells, ${marks} marks, ${tables} copies`);
  return [...checkSize(name, path), ...ofHeaders, ...ofCopies, ...ofMarks, ...ofStates];
}

mkdirSync(work, { recursive: true });
const names = chosen.length > 0 ? chosen
  : readdirSync(examples).filter((name) => existsSync(join(examples, name, "model.pmml")));
await judgeAll(browser, names, judge);
