// The browser that judges pages, and how to wait for it. A test whose tools are missing ends with status 77, skipped.

import { existsSync } from "node:fs";
import { createRequire } from "node:module";
import { fileURLToPath } from "node:url";

const web = fileURLToPath(new URL("../../web/", import.meta.url));
const flags = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
  "--disable-background-networking", "--disable-component-update", "--disable-sync"];

/** Loads a package of web/, which come by `npm ci` there. */
export const load = createRequire(`${web}package.json`);

export function launch(chromium, ...more) {
  if (!existsSync(`${web}node_modules/playwright-core`) || !existsSync(chromium)) {
    console.log("skipped: there is no browser, or no `npm ci` in web/");
    process.exit(77);
  }
  return load("playwright-core").chromium.launch({ executablePath: chromium, args: [...flags, ...more] });
}

/** A page as most readers see it, in a context of its own, which may use the clipboard. */
export async function open(browser, url, prepare = () => {}) {
  const permissions = ["clipboard-read", "clipboard-write"];
  const context = await browser.newContext({ viewport: sizes.desk, permissions });
  const page = await context.newPage();
  prepare(page);
  await page.goto(url);
  return page;
}

export const sizes = { desk: { width: 1280, height: 900 }, phone: { width: 360, height: 740 } };

/** Lets what was done be drawn, and the page hear of it: that it was scrolled, say, which takes tips away. */
export const settle = (page) =>
  page.evaluate(() => new Promise((done) => { requestAnimationFrame(() => requestAnimationFrame(done)); }));

/** Where an element stands when nothing moves any more: what comes into view is laid out then, and may push it. */
export async function findStill(page, element) {
  await element.scrollIntoViewIfNeeded();
  let box = await element.boundingBox();
  for (let before = {}; JSON.stringify(box) !== JSON.stringify(before);) {
    await settle(page);
    [before, box] = [box, await element.boundingBox()];
  }
  return box;
}

/** The page knows of its new size when this is over, and has laid itself out. */
export async function resize(page, size) {
  await page.setViewportSize(size);
  await page.waitForFunction(({ width, height }) => innerWidth === width && innerHeight === height, size);
  await settle(page);
}

/** Ends with the faults that a judge finds by name. */
export async function judgeAll(browser, names, judge) {
  let faulty = 0;
  for (const name of names) {
    const faults = await judge(name);
    for (const fault of faults) console.error(`${name}: ${fault}`);
    faulty += faults.length > 0 ? 1 : 0;
  }
  await browser.close();
  console.log(`${names.length} pages, ${faulty} with faults`);
  process.exit(faulty > 0 || names.length === 0 ? 1 : 0);
}
