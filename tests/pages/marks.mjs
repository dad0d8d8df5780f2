// By the keyboard a reader comes to each chart and through all of its marks, each of which is told in words with its
// figures.

import { marksOf } from "./document.mjs";

/** Goes to a drawing, and on with the arrow until the first mark is told again. */
async function walk(page, figure) {
  const drawing = figure.locator(".drawing");
  await figure.locator(".save").focus();
  await page.keyboard.press("Shift+Tab");
  const isReached = await drawing.evaluate((element) => document.activeElement === element);
  if (!isReached) return null;
  const told = [];
  for (;;) {
    await page.keyboard.press("ArrowRight");
    const [words, isFirst] = await drawing.evaluate((element) => {
      const marks = Array.from(element.querySelectorAll("svg [role=img]"))
        .filter((mark) => mark.getClientRects().length);
      return [document.querySelector("[role=status]").textContent, marks[0].classList.contains("at")];
    });
    if (isFirst && told.length > 0) return told;
    told.push(words);
    if (told.length > 10_000) return told;
  }
}

const sort = (list) => Array.from(list).sort();

/** Whether a text holds a number that is this one, rounded to the digits that it has. */
const holds = (text, figure) => Array.from(text.matchAll(/[-\u2212]?(?:\d[\d,]*)?\.?\d+(?:E[-+]?\d+)?/g), ([word]) => {
  const typed = word.replace("\u2212", "-").replaceAll(",", "");
  const [, digits = "", exponent = "0"] = /^-?\d*\.?(\d*)(?:E(.*))?$/.exec(typed) ?? [];
  return Math.abs(Number(typed) - figure) <= 0.500001 * 10 ** (Number(exponent) - digits.length);
}).some(Boolean);

/** Returns how many marks were gone to, and faults. */
export async function checkMarks(page, items) {
  let count = 0;
  const faults = [];
  for (const { anchor, picture } of items.filter((item) => item.kind === "chart" && item.picture)) {
    const marks = marksOf(picture);
    const told = await walk(page, page.locator(`figure[id="${anchor}"]`)) ?? [];
    count += told.length;
    const [found, expected] = [sort(told), sort(marks.map(({ tip }) => tip))];
    const place = expected.findIndex((tip, at) => tip !== found[at]);
    if (told.length !== marks.length) faults.push(`${anchor}: ${told.length} steps for ${marks.length} marks`);
    else if (place >= 0) faults.push(`${anchor}: "${found[place]}" is told, not "${expected[place]}"`);
    const silent = marks.find(({ tip, figures }) => !figures.every((figure) => holds(tip, figure)));
    if (silent) faults.push(`${anchor}: ${JSON.stringify(silent.tip)} does not tell ${silent.figures}`);
  }
  await page.keyboard.press("Escape");
  return [count, faults];
}
