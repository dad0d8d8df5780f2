// What holds of every chart on a page. Each check gives a list of faults.

import { readFileSync } from "node:fs";
import { findStill, resize, sizes } from "../support/browser.mjs";

const hasScript = (page) => page.evaluate(() => document.querySelector("script") !== null);

/** Each figure shows one picture, whose title stands there once; the layout for a phone has the same marks. */
export const checkDrawn = (page) => page.locator("figure.chart").evaluateAll((figures) => figures.flatMap((figure) => {
  const pictures = Array.from(figure.querySelectorAll(".drawing > svg"));
  const seen = pictures.filter((picture) => picture.getBoundingClientRect().height > 0);
  const counts = new Set(pictures.map((picture) => picture.querySelectorAll("title, [role=img], .m").length));
  const isHidden = figure.querySelector(".title").offsetWidth === 1;
  return [...seen.length === 1 ? [] : [`#${figure.id} shows ${seen.length} pictures`],
    ...counts.size === 1 ? [] : [`the marks of #${figure.id} are ${[...counts]}`],
    ...isHidden === figure.classList.contains("titled") ? [] : [`#${figure.id} has two titles or none`]];
}));

/** Presses a key in a drawing, and gives what is read out then, what the tip says, and what is lit and marked. */
async function press(page, drawing, key) {
  await drawing.focus();
  await page.keyboard.press(key);
  return drawing.evaluate((element) => {
    const tip = document.querySelector(".tip");
    const marks = Array.from(element.querySelectorAll("svg.desk [role=img]"));
    return {
      told: document.querySelector("[role=status]").textContent,
      tip: tip.hidden ? "" : tip.childElementCount > 0 ? tip.innerHTML : tip.textContent,
      isLit: element.querySelector(".lit") !== null,
      place: marks.findIndex((mark) => mark.classList.contains("at")),
    };
  });
}

/** The arrow keys lead through the marks, with Shift through the legend; each is told to the letter. */
async function walk(page, drawing) {
  const [names, entries] = await drawing.evaluate((element) => {
    const [picture] = Array.from(element.children).filter((one) => one.getClientRects().length);
    return [Array.from(picture.querySelectorAll("[role=img]"), (mark) => mark.getAttribute("aria-label")),
      Array.from(picture.querySelectorAll("[data-e]"), ({ textContent }) => textContent)];
  });
  const faults = [];
  if (names.length > 0) {
    const first = await press(page, drawing, "ArrowRight");
    if (first.tip !== names[0]) faults.push(`the tip is ${first.tip}, not ${names[0]}`);
    if (first.told !== names[0]) faults.push(`${first.told} is read out, not ${names[0]}`);
    const { place } = await press(page, drawing, "ArrowLeft");
    if (place !== names.length - 1) faults.push("the way from the first mark does not lead to the last");
  }
  if (entries.length > 0) {
    const entry = await press(page, drawing, "Shift+ArrowRight");
    if (entry.told !== entries[0]) faults.push(`${entry.told} is read out of a legend, not ${entries[0]}`);
    if (!entry.isLit) faults.push("the keyboard sets off nothing by a legend");
  }
  const left = await press(page, drawing, "Escape");
  return left.tip || left.isLit ? [...faults, "the tip stays"] : faults;
}

async function pointAt(page, element) {
  await findStill(page, element);
  await element.hover({ force: true });
}

/** Pointing at an entry of a legend sets off what it explains, and nothing else. */
async function pointAtEntry(page, drawing) {
  const entry = drawing.locator("svg.desk [data-e]").first();
  if (await entry.count() === 0) return [];
  await pointAt(page, entry.locator("> *").first());
  const isRight = await entry.evaluate((element) => {
    const keys = element.dataset.e.split(" ");
    return Array.from(element.ownerSVGElement.querySelectorAll("[data-k]")).every((mark) => {
      const isExplained = mark.dataset.k.split(" ").some((key) => keys.includes(key));
      return mark.classList.contains("on") === isExplained && (getComputedStyle(mark).opacity === "1") === isExplained;
    });
  });
  await page.mouse.move(0, 0);
  return isRight ? [] : ["a legend sets off marks wrongly"];
}

/** Pointing at a mark shows its tip, which stays below the pointer until Escape takes it away. */
async function pointAtTip(page) {
  const mark = page.locator(".drawing svg [role=img]").filter({ visible: true }).last();
  if (await mark.count() === 0) return [];
  await pointAt(page, mark);
  const tip = page.locator(".tip");
  const box = await tip.boundingBox();
  if (!box) return ["a mark has no tip"];
  const [text, names] = await page.evaluate(() => [document.querySelector(".tip").textContent,
    Array.from(document.querySelectorAll(".drawing [role=img]"), (one) => one.getAttribute("aria-label"))]);
  await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
  await page.waitForTimeout(500);  // more than a tip has time to be reached
  const stays = await tip.isVisible();
  await page.keyboard.press("Escape");
  const isLeft = await tip.isVisible();
  await page.mouse.move(0, 0);
  return [...names.includes(text) ? [] : [`the tip of a mark is ${text}`],
    ...stays ? [] : ["a tip does not stay below the pointer"], ...isLeft ? ["Escape leaves a tip"] : []];
}

export async function checkTips(page) {
  if (!await hasScript(page)) return [];
  const faults = [];
  for (const drawing of (await page.locator(".drawing").all()).slice(0, 20)) {
    faults.push(...await walk(page, drawing), ...await pointAtEntry(page, drawing));
  }
  const isLeft = await page.locator(".lit").waitFor({ state: "detached" }).then(() => true, () => false);
  return [...faults, ...isLeft ? [] : ["what the pointer has left stays lit"], ...await pointAtTip(page)];
}

/** On a phone no picture is wider than the page, none that was laid out for it is shrunk, and its marks have names. */
const checkOnPhone = (page, script) => page.evaluate(async (named) => {
  const faults = [];
  for (const drawing of document.querySelectorAll(".drawing")) {
    drawing.scrollIntoView();
    const find = () => Array.from(drawing.children).find((one) => one.getClientRects().length);
    const namesIn = (one) =>
      Array.from(one?.querySelectorAll("[role=img]") ?? [], (mark) => mark.getAttribute("aria-label")).join("|");
    const isNamed = () => !find().hasAttribute("role") && namesIn(find()) === namesIn(drawing.firstElementChild);
    const isReady = () => find() && (!named || isNamed());
    // What comes into view is laid out in the next frame, and its marks are named behind that.
    for (let frame = 0; frame < 100 && !isReady(); ++frame) await new Promise(requestAnimationFrame);
    if (!isReady()) faults.push("marks have other names on a phone");
    const { left, right, width } = find().getBoundingClientRect();
    if (left < 0 || right > innerWidth) faults.push(`a picture reaches from ${left} to ${right} px on a phone`);
    const natural = Number(find().getAttribute("width"));
    if (natural <= 340 && Math.abs(width - natural) > 0.1) faults.push(`${natural} px are drawn ${width} px wide`);
  }
  return faults;
}, script);

/** Pictures fit everywhere: on paper each is the one for a desk, and in the dark its words are as those around them. */
export async function checkPlaces(page) {
  await resize(page, sizes.phone);
  const faults = await checkOnPhone(page, await hasScript(page));
  await resize(page, sizes.desk);
  await page.emulateMedia({ media: "print" });
  const printed = await page.locator(".drawing").evaluateAll((all) =>
    all.every((drawing) => drawing.querySelector(".desk").getClientRects().length));
  await page.emulateMedia({ media: null, colorScheme: "dark" });
  const isLight = await page.locator(".drawing .f1, .drawing .f1 *").evaluateAll((all) =>
    all.every((one) => getComputedStyle(one).fill === getComputedStyle(document.body).color));
  await page.emulateMedia({ colorScheme: null });
  return [...faults, ...printed ? [] : ["a picture for a phone is printed"],
    ...isLight ? [] : ["words are dark in the dark"]];
}

/** Each picture can be saved as a file that stands by itself. */
export async function checkSaved(page) {
  const buttons = page.locator(".save").filter({ visible: true });
  const drawn = await hasScript(page) ? await page.locator(".drawing").count() : 0;
  if (await buttons.count() !== drawn) return [`${await buttons.count()} of ${drawn} pictures can be saved`];
  if (drawn === 0) return [];
  const [download] = await Promise.all([page.waitForEvent("download"), buttons.first().click()]);
  const file = readFileSync(await download.path(), "utf8");
  const [saved, shown] = await page.evaluate(([svg, anchor]) => {
    const wordsIn = (root) => Array.from(root.querySelectorAll("text"), (text) => text.textContent).join("|");
    const parsed = new DOMParser().parseFromString(svg, "image/svg+xml");
    return [parsed, document.querySelector(`#${anchor} .desk`)].map(wordsIn);
  }, [file, download.suggestedFilename().replace(/\.svg$/, "")]);
  const stands = /^<svg xmlns="[^"]+" [^>]*><title>[^<]*<\/title><desc>[^<]*<\/desc><rect /.test(file);
  return [...saved === shown ? [] : [`a file says ${saved}, not ${shown}`],
    ...stands ? [] : [`a file begins ${file.slice(0, 300)}`]];
}
