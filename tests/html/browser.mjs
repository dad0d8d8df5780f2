// Judges pages by a browser:
//   node browser.mjs CHROMIUM PAGE.html...
//   node browser.mjs CHROMIUM --samples FOLDER   the hand-made pages of a folder, of which more is known

import { readdirSync } from "node:fs";
import { basename, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { judgeAll, launch, load, open } from "../support/browser.mjs";
import * as charts from "./charts.mjs";
import * as checks from "./checks.mjs";
import { sampleChecks } from "./samples.mjs";

const [chromium, ...operands] = process.argv.slice(2);
const browser = await launch(chromium);
const { HtmlValidate, StaticConfigLoader } = load("html-validate");
const axeSource = load("axe-core").source;

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

/** Notes what the page does that it should not: errors, requests, reports of its policy, dialogs. */
function watch(page, url, faults) {
  page.on("console", (message) => faults.push(`console: ${message.text()}`));
  page.on("pageerror", (error) => faults.push(`error: ${error.message}`));
  page.on("dialog", (dialog) => { faults.push(`dialog: ${dialog.message()}`); dialog.dismiss(); });
  page.on("request", (request) => {
    if (request.url() !== url && !request.url().startsWith("data:")) faults.push(`request: ${request.url()}`);
  });
}

const isSamples = operands[0] === "--samples";
const folder = isSamples ? operands[1] : "";
const names = isSamples ? readdirSync(folder).filter((name) => name.endsWith(".html")) : operands;

await judgeAll(browser, names, async (name) => {
  const path = resolve(folder, name);
  const url = pathToFileURL(path).href;
  const faults = checkValidity(path);
  const page = await open(browser, url, (opened) => watch(opened, url, faults));
  for (const check of Object.values({ ...charts, ...checks })) faults.push(...await check(page, axeSource));
  if (isSamples) faults.push(...await sampleChecks[basename(name, ".html")]?.(page, browser, url) ?? []);
  await page.context().close();
  return faults;
});
