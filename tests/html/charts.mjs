// What holds of every chart on a page. Each check gives a list of faults.

import { readFileSync } from "node:fs";

/** Every view is drawn, or said to have failed where that is what the page is about; each figure has a name, and no id
 * stands twice. */
export async function checkDrawn(page) {
  const drawn = () => Array.from(document.querySelectorAll(".drawing"))
    .every((drawing) => drawing.querySelector("svg, canvas, p"));
  const isDone = await page.waitForFunction(drawn, null, { timeout: 60000 }).then(() => true, () => false);
  return page.evaluate((done) => {
    const faults = done ? [] : ["a chart is neither drawn nor said to have failed"];
    for (const figure of document.querySelectorAll("figure.chart")) {
      const name = document.getElementById(figure.getAttribute("aria-labelledby"))?.textContent;
      if (figure.getAttribute("role") !== "group" || !name) faults.push(`#${figure.id} has no name`);
      const sentence = figure.getAttribute("aria-describedby");
      if (sentence && !document.getElementById(sentence)?.textContent) faults.push(`#${figure.id} is described by nothing`);
      const drawing = figure.querySelector(".drawing");
      const isToFail = document.title === "Charts that fail";
      const failure = drawing?.querySelector("p")?.textContent;
      if (isToFail && failure !== "This chart could not be drawn.") faults.push(`#${figure.id} does not tell that it failed`);
      if (!isToFail && drawing && !drawing.querySelector("svg")?.getBoundingClientRect().width && !drawing.querySelector("canvas")) {
        faults.push(`#${figure.id} is not drawn: ${drawing.textContent.slice(0, 80)}`);
      }
      const isTitled = Boolean(drawing) && !isToFail && figure.classList.contains("titled");
      if (isTitled !== (figure.querySelector(".title").offsetWidth === 1)) faults.push(`#${figure.id} has two titles or none`);
    }
    const ids = Array.from(document.querySelectorAll("[id]"), ({ id }) => id);
    for (const id of ids.filter((one, place) => ids.indexOf(one) !== place)) faults.push(`two elements are #${id}`);
    return faults;
  }, isDone);
}

/** The arrow keys lead through the marks, and each one's tip is a text, to the letter. */
export async function checkTips(page) {
  const faults = [];
  for (const drawing of await page.locator(".drawing[tabindex]").all()) {
    const expected = await drawing.evaluate((element) => Array.from(element.querySelectorAll("svg [aria-label]"))
      .map(({ __data__: item }) => (Array.isArray(item) ? item[0] : item)?.tooltip).find((tip) => tip));
    if (!expected) continue;
    await drawing.focus();
    await page.keyboard.press("ArrowRight");
    const tip = page.locator(".tip");
    const shown = await tip.isVisible() ? await tip.textContent() : "";
    if (shown !== expected) faults.push(`the tip is ${JSON.stringify(shown)}, not ${JSON.stringify(expected)}`);
    if (await tip.locator("*").count() > 0) faults.push(`the tip ${expected} holds elements`);
    await page.keyboard.press("Escape");
    if (await tip.isVisible()) faults.push("the tip stays");
  }
  return faults;
}

/** No word of a picture is cut off at its edge. */
export async function checkWords(page) {
  return page.evaluate(() => {
    const reach = 1.5;  // pixels that a letter may go beyond its measured place
    const isOutside = (text, frame) => text.left < frame.left - reach || text.right > frame.right + reach
      || text.top < frame.top - reach || text.bottom > frame.bottom + reach;
    const cutOff = Array.from(document.querySelectorAll(".drawing svg"), (picture) => {
      const frame = picture.getBoundingClientRect();
      return Array.from(picture.querySelectorAll("text"))
        .filter((text) => text.textContent && isOutside(text.getBoundingClientRect(), frame));
    }).flat();
    return cutOff.slice(0, 5).map((text) => `"${text.textContent}" goes beyond its picture`);
  });
}

/** The words of a picture's file. */
function wordsOf(svg) {
  const entities = { "&amp;": "&", "&lt;": "<", "&gt;": ">", "&nbsp;": "\u00a0" };
  return Array.from(svg.matchAll(/<text.*?>(.*?)<\/text>/gs),
    ([, words]) => words.replace(/<.*?>/gs, "").replace(/&\w+;/g, (entity) => entities[entity]));
}

/** A picture can be saved where there is one: as an SVG file of the same words, or as what its canvas shows. */
export async function checkSaved(page) {
  const buttons = page.locator(".save").filter({ visible: true });
  const drawn = await page.locator(".drawing:has(svg, canvas)").count();
  if (await buttons.count() !== drawn) return [`${await buttons.count()} of ${drawn} pictures can be saved`];
  if (drawn === 0) return [];
  const [download] = await Promise.all([page.waitForEvent("download"), buttons.first().click()]);
  const name = download.suggestedFilename();
  const file = readFileSync(await download.path());
  if (name.endsWith(".png")) return file.subarray(1, 4).toString() === "PNG" ? [] : [`${name} is no image`];
  const shown = await page.locator(`#${name.replace(/\.svg$/, "")} .drawing text`).allTextContents();
  const saved = wordsOf(file.toString());
  return shown.join("|") === saved.join("|") ? [] : [`${name} says ${saved}, not ${shown}`];
}
