// What the menus beside tables and charts do. Each check gives a list of faults.

import { readFileSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { sizes } from "../support/browser.mjs";

/** Acts, and gives the word that is read out then, which goes soon. */
export async function tellAfter(page, act) {
  await page.locator("[role=status]").evaluate((status) => {
    globalThis.told = new Promise((done) => {
      new MutationObserver(() => status.textContent && done(status.textContent)).observe(status, { childList: true });
      setTimeout(done, 20_000);
    });
  });
  await act();
  return page.evaluate(() => globalThis.told);
}

export const differ = (what, actual, expected) =>
  (actual === expected ? [] : [`${what}:\n--- expected\n${expected}\n--- actual\n${actual}`]);

async function choose(page, anchor, name) {
  await page.locator(`#${anchor} > .tools .more`).click();
  await page.getByRole("menuitem", { name, exact: true }).click();
}

async function copy(page, anchor, name) {
  await page.bringToFront();
  const told = await tellAfter(page, () => choose(page, anchor, name));
  return told === "Copied" ? page.evaluate(() => navigator.clipboard.readText()) : told;
}

async function save(page, anchor, name) {
  const [download] = await Promise.all([page.waitForEvent("download"), choose(page, anchor, name)]);
  return { name: download.suggestedFilename(), content: readFileSync(await download.path()) };
}

/** Markdown is what the program writes, which lies beside the page, and remarks that stand on the page alone. */
export async function checkMarkdown(page, url) {
  const written = readFileSync(fileURLToPath(url).replace(/html$/, "md"), "utf8");
  const faults = [];
  const tables = page.locator("figure.table:has(.tools)");
  for (const anchor of await tables.evaluateAll((figures) => figures.map(({ id }) => id))) {
    const copied = await copy(page, anchor, "Copy as Markdown");
    const expected = copied.replace(/^(Figures that would|Reference levels,).*\n\n?/gm, "").trim();
    if (!copied.startsWith("**") || !written.includes(expected)) faults.push(`the program does not write\n${copied}`);
  }
  return faults;
}

const classification = String.raw`% \usepackage{booktabs}
\begin{table}
\centering
\caption{Classification}
\begin{tabular}{llrr}
\toprule
 &  & \multicolumn{2}{c}{Predicted} \\
\cmidrule(lr){3-4}
Observed &  & No & Yes \\
\midrule
No & Count & 12 & 31 \\
 & \% within Observed & 27.9\% & 72.1\% \\
\addlinespace
Yes & Count & 9 & 168 \\
 & \% within Observed & 5.1\% & 94.9\% \\
\bottomrule
\end{tabular}
\end{table}
`;

// Marks hang over, and what begins a line is no option of the one before.
const lastRow = String.raw`{[}period=4]\textsuperscript{a}\textsuperscript{b} & 0.000\rlap{\textsuperscript{a}}\phantom{E-05}`
  + String.raw` & .\rlap{\textsuperscript{a}}\phantom{0000} & .\phantom{000} & .\phantom{000} & .\phantom{000} & .\phantom{000} \\`;

/** Spans, groups and notes; rows behind the switch are copied as they are shown. */
export async function checkFormats(page) {
  const faults = [];
  faults.push(...differ("LaTeX", await copy(page, "Classification-1", "Copy as LaTeX"), classification));
  const anchor = "FixedCoefficients-1";
  await page.locator(".switch input").first().uncheck();
  const folded = await copy(page, anchor, "Copy as CSV");
  await page.locator(".switch input").first().check();
  const { name, content } = await save(page, anchor, "Save as CSV");
  faults.push(...differ(name, content.toString(), `${folded}[period=4],0.000,,,,,\n`));
  faults.push(...differ("file", name, `${anchor}.csv`));
  const latex = await copy(page, anchor, "Copy as LaTeX");
  faults.push(...differ("last row", latex.split("\n").find((line) => line.includes("period=4]")), lastRow));
  if (!latex.includes(String.raw`\textsuperscript{b} Reference category. The last one.\par`)) faults.push("no note b");
  faults.push(...differ("values", await copy(page, "Chart-1", "Copy values as CSV"), "Covariances,Mean\nCovariances,1.50\n,\n"));
  return faults;
}

/** Whatever texts are, they are one field, and no markup. */
export async function checkHostileCopies(page) {
  const quotes = `"" onmouseover=""alert(3)"" x='`;
  const cases = [
    ["\" onmouseover", "Copy as CSV", `"${quotes}","${quotes}, ${quotes}, `],
    ["two", "Copy as CSV", "\"two\nlines\ttab  two blanks\",\"two\nlines"],
    ["&lt;b&gt;", "Copy as LaTeX", String.raw`\caption{\&lt;b\&gt; \&amp; \&\#60;i\&\#62;}`],
  ];
  const faults = [];
  for (const [title, name, expected] of cases) {
    const anchor = await page.locator("figure.table").evaluateAll((figures, begin) =>
      figures.find((figure) => figure.querySelector("caption").textContent.startsWith(begin)).id, title);
    const copied = await copy(page, anchor, name);
    if (!copied.includes(expected)) faults.push(`${name} gives ${copied}`);
  }
  return faults;
}

/** A picture in pixels has two to each of the page. */
export async function checkPng(page) {
  const { name, content } = await save(page, "Chart-1", "Save as PNG");
  const [width, height] = [content.readUInt32BE(16), content.readUInt32BE(20)];
  const natural = await page.locator("#Chart-1 .desk").evaluate((picture) =>
    [picture.width.baseVal.value, picture.height.baseVal.value].map((length) => 2 * Math.round(length)).join());
  const isPng = content.subarray(1, 4).toString() === "PNG";
  return [...differ(name, `${width},${height}`, natural), ...isPng ? [] : [`${name} is no PNG`]];
}

/** The menu by the keyboard: open, round, away and back. */
export async function checkKeyboard(page) {
  const more = page.locator("#Classification-1 .more");
  await more.focus();
  const steps = [
    ["ArrowDown", "Copy as table"], ["ArrowUp", "Save as CSV"], ["ArrowDown", "Copy as table"], ["End", "Save as CSV"],
    ["Home", "Copy as table"], ["ArrowDown", "Copy as Markdown"], ["Escape", "more"], ["Enter", "Copy as table"],
    ["Shift+Tab", "copy"], ["Tab", "more"], ["Space", "Copy as table"], ["Tab", "skip"],
  ];
  const faults = [];
  for (const [key, place] of steps) {
    await page.keyboard.press(key);
    const at = await page.evaluate(() => document.activeElement.className || document.activeElement.textContent);
    const isOpen = [await more.getAttribute("aria-expanded") === "true", await page.getByRole("menu").count() === 1];
    faults.push(...differ(`focus after ${key}, and a menu`, `${at}, ${isOpen}`,
      `${place}, ${isOpen.map(() => / as /.test(place))}`));
  }
  return faults;
}

/** By the pointer: the button closes it, too, as does a click elsewhere. Nothing moves, and nothing of it is printed. */
export async function checkPointer(page) {
  const more = page.locator("#Classification-1 .more");
  const menu = page.getByRole("menu");
  const measure = () => page.evaluate(() => [document.documentElement.scrollHeight, document.documentElement.scrollWidth,
    ...Array.from(document.querySelectorAll("figure"), (figure) => figure.offsetTop + figure.offsetHeight)].join());
  const faults = [];
  await more.scrollIntoViewIfNeeded();
  const before = await measure();
  await more.click();
  faults.push(...differ("places", await measure(), before));
  await page.emulateMedia({ media: "print" });
  if (await menu.isVisible() || await more.isVisible()) faults.push("the menu is printed");
  await page.emulateMedia({ media: null });
  await page.evaluate(() => dispatchEvent(new Event("beforeprint")));
  await page.evaluate(() => dispatchEvent(new Event("afterprint")));
  for (const close of [() => {}, () => more.click(), () => page.locator("h1").click()]) {
    await close();
    if (await menu.count() > 0) faults.push(`${close} leaves the menu`);
    await more.click();
  }
  const items = page.getByRole("menuitem");
  await items.first().evaluate((item) => item.dispatchEvent(new FocusEvent("focusout", { bubbles: true })));
  if (await menu.count() > 0) faults.push("the menu stays when the window loses the focus");
  return faults;
}

/** On a phone every menu is within the page and on top, and a finger does not miss what it aims at. */
export async function checkOnPhone(browser, url) {
  const page = await browser.newPage({ viewport: sizes.phone, hasTouch: true, isMobile: true });
  await page.goto(url);
  const faults = [];
  for (const more of await page.locator(".more").filter({ visible: true }).all()) {
    await more.tap();
    faults.push(...await page.getByRole("menuitem").evaluateAll((items) => items.flatMap((item) => {
      item.scrollIntoView({ block: "nearest" });
      const { left, right, top, bottom, height } = item.getBoundingClientRect();
      const isOnTop = document.elementFromPoint((left + right) / 2, (top + bottom) / 2) === item;
      const isGood = left >= 0 && right <= innerWidth && height >= 36 && isOnTop;
      return isGood ? [] : [`${item.textContent}: ${left} to ${right}, ${height} high`];
    })));
    await page.keyboard.press("Escape");
  }
  await page.close();
  return faults;
}
