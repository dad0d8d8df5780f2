// What holds of every chart on a page. Each check gives a list of faults.

import { readFileSync } from "node:fs";

/** Lets what was done be drawn, and the page hear of it: that it was scrolled, say, which takes tips away. */
const settle = (page) =>
  page.evaluate(() => new Promise((done) => { requestAnimationFrame(() => requestAnimationFrame(done)); }));

const hasScript = (page) => page.evaluate(() => document.querySelector("script") !== null);

/** Each figure has a name and one picture that is seen, whose title stands there once; no id stands twice. */
export async function checkDrawn(page) {
  return page.evaluate(() => {
    const faults = [];
    const isSeen = (element) => element.getClientRects().length > 0;
    for (const figure of document.querySelectorAll("figure.chart")) {
      const name = document.getElementById(figure.getAttribute("aria-labelledby"))?.textContent;
      if (figure.getAttribute("role") !== "group" || !name) faults.push(`#${figure.id} has no name`);
      const sentence = figure.getAttribute("aria-describedby");
      const isDescribed = !sentence || document.getElementById(sentence)?.textContent;
      if (!isDescribed) faults.push(`#${figure.id} is described by nothing`);
      const pictures = Array.from(figure.querySelectorAll(".drawing > svg"));
      const seen = pictures.filter(isSeen);
      const isShown = seen.length === 1 && seen[0].getBoundingClientRect().height > 0;
      if (!isShown) faults.push(`#${figure.id} shows ${seen.length} pictures`);
      const counts = new Set(pictures.map((picture) => picture.querySelectorAll("title, [role=img], .m").length));
      if (counts.size > 1) faults.push(`the marks of #${figure.id} are ${[...counts]}`);
      const isTitled = figure.classList.contains("titled");
      const isHidden = figure.querySelector(".title").offsetWidth === 1;
      if (isTitled !== isHidden) faults.push(`#${figure.id} has two titles or none`);
    }
    const ids = Array.from(document.querySelectorAll("[id]"), ({ id }) => id);
    const known = new Set();
    for (const id of ids) known.has(id) ? faults.push(`two elements are #${id}`) : known.add(id);
    return faults;
  });
}

/** The arrow keys lead through the marks, and each one's tip is a text, to the letter, which is read out. */
async function walk(page, drawing) {
  const expected = await drawing.evaluate((element) =>
    element.querySelector("svg.desk [role=img]")?.getAttribute("aria-label"));
  if (!expected) return [];
  const faults = [];
  await drawing.focus();
  await page.keyboard.press("ArrowRight");
  const [shown, read, parts] = await page.evaluate(() => {
    const tip = document.querySelector(".tip");
    return [tip.hidden ? "" : tip.textContent, document.querySelector("[role=status]").textContent, tip.childElementCount];
  });
  if (shown !== expected) faults.push(`the tip is ${JSON.stringify(shown)}, not ${JSON.stringify(expected)}`);
  if (read !== expected) faults.push(`${JSON.stringify(read)} is read out, not ${JSON.stringify(expected)}`);
  if (parts > 0) faults.push(`the tip ${expected} holds elements`);
  await page.keyboard.press("ArrowLeft");
  const last = await drawing.evaluate((element) =>
    Array.from(element.querySelectorAll("svg.desk [role=img]")).at(-1).classList.contains("at"));
  if (!last) faults.push("the way from the first mark does not lead to the last");
  await page.keyboard.press("Escape");
  if (await page.locator(".tip").isVisible()) faults.push("the tip stays");
  return faults;
}

/** Pointing at an entry of a legend sets off what it explains, and nothing else. */
async function pointAtEntry(page, drawing) {
  const entry = drawing.locator("svg.desk [data-e]").first();
  if (await entry.count() === 0) return [];
  await entry.scrollIntoViewIfNeeded();
  await settle(page);
  await entry.locator("> *").first().hover({ force: true });
  const [wrong, dimmed] = await entry.evaluate((element) => {
    const keys = element.dataset.e.split(" ");
    const marks = Array.from(element.ownerSVGElement.querySelectorAll("[data-k]"));
    const isExplained = (mark) => mark.dataset.k.split(" ").some((key) => keys.includes(key));
    return [marks.filter((mark) => mark.classList.contains("on") !== isExplained(mark)).length,
      marks.every((mark) => isExplained(mark) === (getComputedStyle(mark).opacity === "1"))];
  });
  await page.mouse.move(0, 0);
  return [...wrong > 0 ? [`a legend sets off ${wrong} marks wrongly`] : [], ...dimmed ? [] : ["a legend dims nothing"]];
}

/** Pointing at a mark shows its tip. */
async function pointAtMark(page, drawing) {
  const mark = drawing.locator("svg.desk [role=img]").last();
  if (await mark.count() === 0) return [];
  await mark.scrollIntoViewIfNeeded();
  await settle(page);
  await mark.hover({ force: true });
  const text = await page.locator(".tip").evaluate((tip) => (tip.hidden ? "" : tip.textContent));
  const isTip = await drawing.evaluate((element, tip) =>
    Array.from(element.querySelectorAll("svg.desk [role=img]"), (one) => one.getAttribute("aria-label")).includes(tip), text);
  await page.mouse.move(0, 0);
  return isTip ? [] : [`the tip of a mark is ${JSON.stringify(text)}`];
}

/** A tip stays while the pointer is there, and Escape takes it away. */
async function pointAtTip(page) {
  const mark = page.locator(".drawing svg [role=img]").filter({ visible: true }).last();
  if (await mark.count() === 0) return [];
  await mark.scrollIntoViewIfNeeded();
  await settle(page);
  await mark.hover({ force: true });
  const tip = page.locator(".tip");
  const { x, y, width, height } = await tip.boundingBox();
  await page.mouse.move(x + width / 2, y + height / 2);
  await page.waitForTimeout(500);  // more than a tip has time to be reached
  const stays = await tip.isVisible();
  await page.keyboard.press("Escape");
  const isLeft = await tip.isVisible();
  await page.mouse.move(0, 0);
  return [...stays ? [] : ["a tip does not stay below the pointer"], ...isLeft ? ["Escape leaves a tip"] : []];
}

/** With Shift the arrows lead through the legend's entries, each of which is read out and sets off what it explains. */
async function walkLegend(page, drawing) {
  const expected = await drawing.evaluate((element) => {
    const picture = Array.from(element.children).find((one) => one.getClientRects().length);
    return Array.from(picture.querySelectorAll("[data-e]"), ({ textContent }) => textContent);
  });
  if (expected.length === 0) return [];
  await drawing.focus();
  await page.keyboard.press("Shift+ArrowRight");
  const read = await page.locator("[role=status]").textContent();
  const isLit = await drawing.locator(".lit").count() > 0;
  await page.keyboard.press("Escape");
  return [...read === expected[0] ? [] : [`"${read}" is read out of a legend, not "${expected[0]}"`],
    ...isLit ? [] : ["the keyboard sets off nothing by a legend"]];
}

export async function checkTips(page) {
  if (!await hasScript(page)) return [];
  const faults = [];
  for (const drawing of (await page.locator(".drawing").all()).slice(0, 20)) {
    for (const check of [walk, walkLegend, pointAtEntry, pointAtMark]) faults.push(...await check(page, drawing));
  }
  const isLeft = page.locator(".lit").waitFor({ state: "detached", timeout: 5000 }).then(() => true, () => false);
  return [...faults, ...await isLeft ? [] : ["what the pointer has left stays lit"], ...await pointAtTip(page)];
}

/** No word of a picture is cut off at its edge. */
async function findWordsOutside(page) {
  return page.evaluate(() => {
    const reach = 1.5;  // pixels that a letter may go beyond its measured place
    const isOutside = (text, frame) => text.left < frame.left - reach || text.right > frame.right + reach
      || text.top < frame.top - reach || text.bottom > frame.bottom + reach;
    const seen = Array.from(document.querySelectorAll(".drawing svg")).filter((picture) => picture.getClientRects().length);
    const cutOff = seen.flatMap((picture) => {
      const frame = picture.getBoundingClientRect();
      return Array.from(picture.querySelectorAll("text"))
        .filter((text) => text.textContent && isOutside(text.getBoundingClientRect(), frame));
    });
    return cutOff.slice(0, 5).map((text) => `"${text.textContent}" goes beyond its picture`);
  });
}

/** On a phone no picture is wider than the page, none that was laid out for it is shrunk, and its marks have names. */
async function checkOnPhone(page, isNamed) {
  return page.evaluate(async (named) => {
    const faults = [];
    for (const drawing of document.querySelectorAll(".drawing")) {
      if (drawing.closest(".many")) {  // laid out, and its marks named, when it comes into view
        drawing.scrollIntoView();
        for (let frame = 0; frame < 3; ++frame) await new Promise((resolve) => { requestAnimationFrame(resolve); });
      }
      const picture = Array.from(drawing.children).find((one) => one.getClientRects().length);
      const { left, right, width } = picture.getBoundingClientRect();
      if (left < 0 || right > innerWidth) faults.push(`a picture reaches from ${left} to ${right} px on a phone`);
      const natural = Number(picture.getAttribute("width"));
      if (natural <= 340 && Math.abs(width - natural) > 0.1) faults.push(`a picture of ${natural} px is ${width} px wide`);
      const namesIn = (one) =>
        Array.from(one.querySelectorAll("[role=img]"), (mark) => mark.getAttribute("aria-label")).join("|");
      if (named && namesIn(picture) !== namesIn(drawing.firstElementChild)) faults.push("marks have other names on a phone");
    }
    return faults;
  }, isNamed);
}

/** On paper each picture is the one for a desk. */
const checkOnPaper = (page) => page.evaluate(() =>
  Array.from(document.querySelectorAll(".drawing .desk")).some((picture) => !picture.getClientRects().length)
    ? ["a picture for a phone is printed"] : []);

/** In the dark words of pictures are as those around them. */
const checkInTheDark = (page) => page.evaluate(() =>
  Array.from(document.querySelectorAll(".drawing .f1, .drawing .f1 *"))
    .some((one) => getComputedStyle(one).fill !== getComputedStyle(document.body).color) ? ["words are dark in the dark"] : []);

/** Pictures fit everywhere. */
export async function checkPlaces(page) {
  const faults = await findWordsOutside(page);
  await page.setViewportSize({ width: 360, height: 740 });
  await settle(page);
  faults.push(...await checkOnPhone(page, await hasScript(page)), ...await findWordsOutside(page));
  await page.setViewportSize({ width: 1280, height: 900 });
  await page.emulateMedia({ media: "print" });
  faults.push(...await checkOnPaper(page));
  await page.emulateMedia({ media: null, colorScheme: "dark" });
  faults.push(...await checkInTheDark(page));
  await page.emulateMedia({ colorScheme: null });
  return faults;
}

/** The words of a picture's file. */
function wordsOf(svg) {
  const entities = { "&amp;": "&", "&lt;": "<", "&gt;": ">", "&nbsp;": "\u00a0" };
  return Array.from(svg.matchAll(/<text[^>]*>(.*?)<\/text>/gs),
    ([, words]) => words.replace(/&\w+;/g, (entity) => entities[entity]));
}

/** Each picture can be saved as a file that stands by itself. */
export async function checkSaved(page) {
  const buttons = page.locator(".save").filter({ visible: true });
  const drawn = await hasScript(page) ? await page.locator(".drawing").count() : 0;
  if (await buttons.count() !== drawn) return [`${await buttons.count()} of ${drawn} pictures can be saved`];
  if (drawn === 0) return [];
  const [download] = await Promise.all([page.waitForEvent("download"), buttons.first().click()]);
  const name = download.suggestedFilename();
  const file = readFileSync(await download.path(), "utf8");
  const shown = await page.locator(`#${name.replace(/\.svg$/, "")} .desk text`).allTextContents();
  const saved = wordsOf(file);
  const stands = /^<svg xmlns="[^"]+" [^>]*><title>[^<]*<\/title><desc>[^<]*<\/desc><rect /.test(file);
  return [...shown.join("|") === saved.join("|") ? [] : [`${name} says ${saved}, not ${shown}`],
    ...stands ? [] : [`${name} begins ${file.slice(0, 300)}`]];
}
