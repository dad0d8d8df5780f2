// Judges pages by a browser:
//   node browser.mjs CHROMIUM PAGE.html...
//   node browser.mjs CHROMIUM --samples FOLDER   the hand-made pages of a folder, of which more is known
// Exit status 77 where the tools are missing, for a test that is skipped.

import { existsSync, readFileSync, readdirSync } from "node:fs";
import { createRequire } from "node:module";
import { basename, join, resolve } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import * as charts from "./charts.mjs";
import * as checks from "./checks.mjs";
import { sampleChecks } from "./samples.mjs";

const [chromium, ...operands] = process.argv.slice(2);
const web = fileURLToPath(new URL("../../web/", import.meta.url));

function skip(reason) {
  console.log(`skipped: ${reason}`);
  process.exit(77);
}

if (!existsSync(join(web, "node_modules", "playwright-core"))) skip("run `npm ci` in web/ first");
if (!existsSync(chromium)) skip("there is no chromium");

const require = createRequire(join(web, "package.json"));
const { chromium: browserType } = require("playwright-core");
const { HtmlValidate, StaticConfigLoader } = require("html-validate");
const axeSource = require("axe-core").source;

const flags = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
  "--disable-background-networking", "--disable-component-update", "--disable-sync"];

// Titles are the document's, and those of a hostile one are long.
const validator = new HtmlValidate(new StaticConfigLoader({
  extends: ["html-validate:recommended"],
  rules: { "long-title": "off" },
}));

function checkValidity(path) {
  const { results } = validator.validateFileSync(path);
  return results.flatMap(({ messages }) => messages.slice(0, 5).map(
    ({ line, column, ruleId, message }) => `${line}:${column}: ${message} (${ruleId})`));
}

/** What the page does that it should not: errors, requests, reports of its policy, dialogs. */
function watch(page, url) {
  const faults = [];
  page.on("console", (message) => faults.push(`console: ${message.text()}`));
  page.on("pageerror", (error) => faults.push(`error: ${error.message}`));
  page.on("dialog", (dialog) => { faults.push(`dialog: ${dialog.message()}`); dialog.dismiss(); });
  page.on("request", (request) => {
    if (request.url() !== url && !request.url().startsWith("data:")) faults.push(`request: ${request.url()}`);
  });
  return faults;
}

async function judge(browser, path, sampleCheck) {
  const url = pathToFileURL(path).href;
  const context = await browser.newContext({ viewport: { width: 1280, height: 900 },
    permissions: ["clipboard-read", "clipboard-write"] });
  const page = await context.newPage();
  const faults = watch(page, url);
  await page.goto(url);
  faults.push(...checkValidity(path));
  for (const check of [charts.checkDrawn, charts.checkPlaces, charts.checkTips, charts.checkSaved, checks.checkElements,
    checks.checkLinks, checks.checkHeaders, checks.checkAlignment, checks.checkMarks, checks.checkPhone]) {
    faults.push(...await check(page));
  }
  faults.push(...await checks.checkAccessibility(page, axeSource));
  if (sampleCheck) faults.push(...await sampleCheck(page, browser, url));
  await context.close();
  return faults;
}

const isSamples = operands[0] === "--samples";
const folder = operands[1];
const names = isSamples ? readdirSync(folder).filter((name) => name.endsWith(".html")) : operands;
const pages = names.map((name) => resolve(isSamples ? folder : "", name));

const browser = await browserType.launch({ executablePath: chromium, args: flags });
let faulty = 0;
for (const path of pages) {
  const faults = await judge(browser, path, isSamples ? sampleChecks[basename(path, ".html")] : undefined);
  for (const fault of faults) console.error(`${path}: ${fault}`);
  faulty += faults.length > 0 ? 1 : 0;
}
await browser.close();
console.log(`${pages.length} pages, ${faulty} with faults`);
process.exit(faulty > 0 || pages.length === 0 ? 1 : 0);
