// What holds of single pages among the hand-made ones. Each check gives a list of faults.

import { findStill, open, sizes } from "../support/browser.mjs";
import * as copies from "./copies.mjs";
import { differ, tellAfter } from "./copies.mjs";

/** Compares those members of an object that are expected. */
const compare = (actual, expected) =>
  Object.entries(expected).flatMap(([what, value]) => differ(what, actual[what], value));

// Reads the clipboard as another page would, one without our policy, which a browser applies to what is pasted as well.
async function readClipboard(page) {
  const other = await page.context().newPage();
  await other.goto(import.meta.url);
  await other.bringToFront();
  const copied = await other.evaluate(async () => {
    const [item] = await navigator.clipboard.read();
    const html = await (await item.getType("text/html")).text();
    const text = await (await item.getType("text/plain")).text();
    const { body } = new DOMParser().parseFromString(html, "text/html");
    const table = body.querySelector("table");
    const texts = (root, selector) => Array.from(root.querySelectorAll(selector), (element) => element.textContent);
    return {
      text: /\u2212/.test(table.textContent) ? "a minus in the table" : text,
      lines: texts(body, "p").join("\n"),
      letters: texts(table, "sup").join(" "),
      cellsByRow: Array.from(table.rows, (row) => row.cells.length).join(" "),
      spans: Array.from(table.querySelectorAll("[rowspan], [colspan]"),
        (cell) => `${cell.textContent} ${cell.rowSpan}x${cell.colSpan}`).join(", "),
      styles: ["thead th", "tbody th", "tbody td"].map((cell) => table.querySelector(cell).style.textAlign).join(" "),
      strange: body.querySelectorAll("a, button, script, [class], [id], [data-pad]").length,
    };
  });
  await other.close();
  return copied;
}

const coefficients = {
  status: "Copied",
  text: `\t\t\t\t\t95% Confidence Interval\t
Model Term\tCoefficient\tStd. Error\tt\tSig.\tLower\tUpper
Intercept\t-2.978\t0.5123\t-5.812\t<.001\t-4.006\t-1.950
period=1\t1.580\t0.4321\t3.656\t.001\t0.713\t2.447
period=2\t0.588\t0.4511\t1.304\t.198\t-0.317\t1.493
period=3\t3.21E-05\t0.4701\t0.000\t.999\t-0.943\t0.943
[period=4]\t0.000\t.\t.\t.\t.\t.
`,
  lines: `Fixed Coefficients
Target: Number of new serological cases/Herd size
Figures that would show as zero are given with three significant digits.
Reference levels, whose coefficients are zero: period=4
a Redundant.\nb Reference category.The last one.`,
  letters: "a, b a a",
  cellsByRow: "6 3 7 7 7 7 7",
  spans: "Coefficient 2x1, Std. Error 2x1, t 2x1, Sig. 2x1, 95% Confidence Interval 1x2",
  styles: "right left right",
  strange: 0,
};

const folded = { letters: "", cellsByRow: "6 3 7 7 7 7", lines: coefficients.lines.replace(/\na [^]*/, "") };

async function copyTable(page, anchor) {
  const button = page.locator(`#${anchor} .copy`);
  await page.bringToFront();
  const status = await tellAfter(page, () => button.click());
  return { status, ...await readClipboard(page) };
}

/** Rows behind the switch are printed if it is on, or the one for paper beside it. */
async function checkPrinted(page) {
  const [shown, printed] = [page.locator(".switch input").first(), page.locator(".switch .paper")];
  const row = page.locator("#FixedCoefficients-1 tr.z");
  const faults = [];
  for (const [isShown, isPrinted] of [[false, true], [true, true], [true, false], [false, false]]) {
    await shown.setChecked(isShown);
    await printed.setChecked(isPrinted);
    const onScreen = await row.isVisible();
    await page.emulateMedia({ media: "print" });
    faults.push(...compare({ onScreen, onPaper: await row.isVisible() },
      { onScreen: isShown, onPaper: isShown || isPrinted }));
    await page.emulateMedia({ media: null });
  }
  return faults;
}

async function checkCopies(page) {
  const faults = compare(await copyTable(page, "FixedCoefficients-1"), folded);
  faults.push(...await checkPrinted(page));
  await page.locator(".switch input").first().check();
  return [...faults, ...compare(await copyTable(page, "FixedCoefficients-1"), coefficients)];
}

/** By the keyboard: a section is folded, a link of the contents opens it again, and a link before it leads back. */
async function checkFolds(page) {
  const isSeen = () => page.locator("#FixedCoefficients-1 table").isVisible();
  await page.locator("#Fixed-Effects-1 summary").focus();
  await page.keyboard.press("Enter");
  const folded = await isSeen();
  await page.locator("nav a[href='#Fixed-Effects-1']").focus();
  await page.keyboard.press("Enter");
  await page.waitForFunction(() => document.querySelector("#Fixed-Effects-1 details").open);
  const unfolded = await isSeen();
  await page.locator("#Fixed-Effects-1 summary").focus();
  await page.keyboard.press("Shift+Tab");
  await page.keyboard.press("Enter");
  await page.keyboard.press("Tab");
  const back = await page.evaluate(() => document.activeElement.closest("nav") !== null);
  await page.locator("#Random-1").evaluate((section) => section.scrollIntoView());
  const isCurrent = await page.locator("nav [href='#Chart-1'][aria-current]").waitFor().then(() => true, () => false);
  return compare({ folded, unfolded, back, isCurrent }, { folded: false, unfolded: true, back: true, isCurrent: true });
}

/** Where a browser wants a selection for its event, copying goes by its clipboard; else the page says so. */
async function checkFallbacks(browser, url) {
  const page = await open(browser, url);
  await page.evaluate(() => { document.execCommand = () => false; });
  const copied = await copyTable(page, "Classification-1");
  await page.evaluate(() => { navigator.clipboard.write = () => Promise.reject(new Error("refused")); });
  const status = await tellAfter(page, () => page.locator("#Classification-1 .copy").click());
  await page.context().close();
  return compare({ ...copied, status }, { cellsByRow: "2 4 4 3 4 3", lines: "Classification", status: "Not copied" });
}

/** Labels stand on the page as they are. What HTML cannot show stands there as symbols. */
async function checkHostile(page) {
  const labels = ["<img src=x onerror=alert(1)>", "</script><script>alert(2)</script>", "\" onmouseover=\"alert(3)\" x='",
    "&lt;b&gt; &amp; &#60;i&#62;", "</td></table><h1>out</h1>", "\u{FFFD}gpj.exe\u{FFFD} \u{FFFD}isolate",
    "nul␀bell␇␛[31mred", "broken \u{FFFD}( \u{FFFD}\u{FFFD} UTF-8", "W".repeat(10000)];
  return page.evaluate((expected) => {
    const places = { headings: "h2", captions: "caption", rows: "tbody th", columns: "thead th", sources: ".facts dd",
      lines: ".caption", remarks: ".remark", charts: ".chart .title" };
    return Object.entries(places).flatMap(([place, selector]) => {
      const found = Array.from(document.querySelectorAll(selector), (element) => element.textContent);
      return expected.filter((label) => !found.some((text) => text.startsWith(label)))
        .map((label) => `${label.slice(0, 60)} is not among the ${place}`);
    });
  }, labels);
}

/** A large table keeps its header in view, and the labels of its rows. */
const checkScrolling = (page) => page.locator(".scroll").first().evaluate((frame) => {
  frame.scrollTo(200, 500);
  const boxOf = (selector) => frame.querySelector(selector).getBoundingClientRect();
  const outer = frame.getBoundingClientRect();
  const distances = [boxOf("thead th:last-child").bottom - outer.top, boxOf("tbody th").left - outer.left];
  return distances.every((distance) => distance >= 0 && distance < 80) ? []
    : [`what should stay in view is ${distances} px off`];
});

/** On a page from right to left, contents, labels and shadows stand at the right, and figures read as ever. */
async function checkMirrored(page) {
  await page.locator(".drawing").focus();
  await page.keyboard.press("ArrowRight");
  const actual = await page.evaluate(() => {
    const box = (selector) => document.querySelector(selector).getBoundingClientRect();
    const placeOf = (node, part) => {
      const range = document.createRange();
      range.setStart(node, node.data.indexOf(part));
      range.setEnd(node, range.startOffset + part.length);
      return range.getBoundingClientRect().left;
    };
    const isOrdered = (node, ...parts) => placeOf(node, parts[0]) < placeOf(node, parts[1]);
    const label = (words) => Array.from(document.querySelectorAll("tbody th bdi"), ({ firstChild }) => firstChild)
      .find(({ data }) => data === words);
    const isAtEdge = () => Math.abs(box("tbody th").right - box(".table .scroll").right) < 1;
    const places = [isAtEdge()];
    for (const header of document.querySelectorAll("tbody th")) header.style.whiteSpace = "nowrap";
    document.querySelector(".table .scroll").scrollTo(-200, 0);
    return [...places, isAtEdge(), box("nav").left > box("main").right,
      box("thead th:last-child").left < box("tbody th").left, box(".table .copy").left < box("caption span").left,
      isOrdered(document.querySelector("tbody td").firstChild, "\u2212", "1.23"),
      isOrdered(document.querySelector(".tip").firstChild, "-", "2.978"), isOrdered(label("0.2 - 0.4"), "0.2", "0.4"),
      isOrdered(label("a+b=1"), "a", "1"), isOrdered(label("p < .001"), "p", ".001")];
  });
  return differ("places on a page from right to left", String(actual), String(actual.map(() => true)));
}

/** A finger shows the tip of the mark that it touches, in the layout for a phone, until another place is touched. */
async function checkTouch(browser, url) {
  const page = await browser.newPage({ viewport: sizes.phone, hasTouch: true });
  await page.goto(url);
  const tip = page.locator(".tip");
  const shown = [];
  for (const place of [1, 0]) {
    const mark = page.locator(".drawing svg").filter({ visible: true }).nth(place).locator("[role=img]").first();
    const { x, y, width, height } = await findStill(page, mark);
    await page.touchscreen.tap(x + width / 2, y + height / 2);
    shown.push(await tip.textContent() === await mark.getAttribute("aria-label"), await tip.isVisible());
  }
  const { x, y } = await page.locator(".drawing").first().boundingBox();
  await page.touchscreen.tap(x + 1, y + 1);
  shown.push(await tip.isVisible());
  await page.close();
  return differ("tips", String(shown), "true,true,true,true,false");
}

/** Marks of a crowd, whose titles are but what differs, have their whole tips as names. */
const checkCrowd = (page) => page.locator("svg.desk").evaluateAll((pictures) => {
  const crowd = pictures.find((one) => one.querySelectorAll("[role=img]").length === 3000);
  const names = Array.from(crowd?.querySelectorAll("[role=img]") ?? [], (mark) => mark.getAttribute("aria-label"));
  const isNamed = crowd && names.every((name) => /^x{100}\nMean: \d+\.\d+\nMark: \d+$/.test(name));
  return isNamed && !crowd.querySelector("title, desc") ? [] : [`marks of a crowd are named as ${names[0]}`];
});

/** By name of the page. */
export const sampleChecks = {
  report: async (page, browser, url) => [...await checkCopies(page), ...await copies.checkMarkdown(page, url),
    ...await copies.checkFormats(page), ...await copies.checkPng(page), ...await copies.checkKeyboard(page),
    ...await copies.checkPointer(page), ...await checkFolds(page), ...await checkFallbacks(browser, url)],
  nested: (page, browser, url) => copies.checkMarkdown(page, url),
  hostile: async (page) => [...await checkHostile(page), ...await copies.checkHostileCopies(page)],
  large: async (page, browser, url) => [...await checkScrolling(page), ...await copies.checkOnPhone(browser, url)],
  mirrored: (page) => checkMirrored(page),
  charts: async (page, browser, url) => [...await checkCrowd(page), ...await checkTouch(browser, url),
    ...await copies.checkOnPhone(browser, url)],
};
