// Pages as readers set them: dark, narrow or enlarged, with words further apart, by the keyboard alone.

import { resize, sizes } from "../support/browser.mjs";

/** At 400 % nothing but tables, which have frames of their own, is wider than the window. */
async function checkEnlarged(page) {
  await resize(page, { width: 320, height: 256 });
  return page.evaluate(() => {
    const beyond = Array.from(document.querySelectorAll("body *")).filter((element) => {
      const { right, width } = element.getBoundingClientRect();
      return right > innerWidth + 1 && width > 1 && !element.closest(".scroll, svg, .skip");
    });
    return [...document.documentElement.scrollWidth > innerWidth ? ["the page scrolls sideways"] : [],
      ...beyond.slice(0, 3).map((element) => `${element.localName}.${element.className} goes beyond`)];
  });
}

/**
 * With lines, words and letters further apart no words are cut off. What is not for eyes is; so are long titles in the
 * contents and above long tables, which stand whole elsewhere.
 */
async function checkSpacing(page, size) {
  await resize(page, size);
  return page.evaluate(() => {
    const sheet = new CSSStyleSheet();
    sheet.replaceSync("* { line-height: 1.5 !important; letter-spacing: .12em !important; "
      + "word-spacing: .16em !important } p { margin-bottom: 2em !important }");
    document.adoptedStyleSheets = [sheet];
    const cut = Array.from(document.querySelectorAll("body *")).filter((element) => {
      const { overflowX, overflowY } = getComputedStyle(element);
      return ((overflowX === "hidden" && element.scrollWidth > element.clientWidth + 1)
        || (overflowY === "hidden" && element.scrollHeight > element.clientHeight + 1))
        && element.offsetWidth > 1 && !element.closest(".unseen, .skip, .long caption")
        && element.textContent.length < 100;
    });
    document.adoptedStyleSheets = [];
    return cut.slice(0, 3).map((element) => `${element.localName} cuts off "${element.textContent}"`);
  });
}

/**
 * Marks stand out by 3:1 against the ground, words of pictures by 4.5:1, as they are painted. Where paleness is what is
 * shown, as that of fewer records, of many lines that are not set off, or of a band behind marks, it may go below.
 */
async function checkContrast(page) {
  const faults = [];
  for (const colorScheme of ["light", "dark"]) {
    await page.emulateMedia({ colorScheme });
    const found = await page.evaluate(() => {
      const channelsOf = (color) => /rgba?\((.*)\)/.exec(color)?.[1].split(",").slice(0, 3).map(Number);
      const curve = (value) => (value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4);
      const luminanceOf = (channels) => channels.reduce((sum, channel, at) =>
        sum + [0.2126, 0.7152, 0.0722][at] * curve(channel / 255), 0);
      const ground = channelsOf(getComputedStyle(document.body).backgroundColor);
      const opacityOf = (element) => (element.localName === "div" ? 1
        : getComputedStyle(element).opacity * opacityOf(element.parentElement));
      const contrastOf = (element, paint) => {
        const channels = channelsOf(getComputedStyle(element)[paint]);
        if (!channels) return 1;
        const opacity = opacityOf(element);
        const painted = channels.map((channel, at) => channel * opacity + ground[at] * (1 - opacity));
        const [dark, light] = [luminanceOf(painted), luminanceOf(ground)].sort((a, b) => a - b);
        return (light + 0.05) / (dark + 0.05);
      };
      const best = (element) => Math.max(...[element, ...element.querySelectorAll("*")].flatMap((part) =>
        [contrastOf(part, "fill"), contrastOf(part, "stroke")]));
      const seen = (selector) => Array.from(document.querySelectorAll(`.drawing svg ${selector}`))
        .filter((element) => element.getClientRects().length > 0);
      const faint = seen("[role=img]")
        .filter((mark) => !/\n.*\nFrequency: /.test(mark.ariaLabel) && best(mark) < 2.995);
      const pale = seen("text").filter((text) => contrastOf(text, "fill") < 4.5);
      return [...faint.slice(0, 3), ...pale.slice(0, 3)]
        .map((element) => `${element.closest("figure").id}: ${element.ariaLabel ?? element.textContent} is pale`);
    });
    faults.push(...found.map((fault) => `${fault} (${colorScheme})`));
  }
  await page.emulateMedia({ colorScheme: null });
  return faults;
}

/** By the keyboard each place is seen, has an outline, and something of it is on top. */
async function checkFocus(page) {
  await page.evaluate(() => scrollTo(0, 0));
  const faults = [];
  for (let stop = 0; stop < 120 && faults.length < 3; ++stop) {
    await page.keyboard.press("Tab");
    const [name, isGood] = await page.evaluate(() => {
      const element = document.activeElement;
      const { left, top, width, height } = element.getBoundingClientRect();
      const parts = [0.02, 0.25, 0.5, 0.75, 0.98];
      const isSeen = parts.some((x) => parts.some((y) => {
        const at = document.elementFromPoint(left + x * width, top + y * height);
        return at && (element.contains(at) || at.contains(element));
      }));
      return [`${element.localName}.${element.className} ${element.textContent.slice(0, 40)}`,
        isSeen && getComputedStyle(element).outlineStyle !== "none"];
    });
    if (name.startsWith("body")) break;
    if (!isGood) faults.push(`${name} has focus and is not seen, or has no outline`);
  }
  return faults;
}

export async function checkStates(page) {
  return [...await checkEnlarged(page), ...await checkSpacing(page, sizes.phone),
    ...await checkSpacing(page, sizes.desk), ...await checkContrast(page), ...await checkFocus(page)];
}
