// What holds of every page. Each check gives a list of faults, empty for a good page.

import { existsSync } from "node:fs";
import { resize, sizes } from "../support/browser.mjs";

/** Nothing but our own script and style, and no element that a text could have smuggled in. */
export const checkElements = (page) => page.evaluate(() => {
  const allowed = new Set(("html head meta title link style body a header h1 h2 h3 h4 h5 h6 ul ol li nav details summary " +
    "main section figure figcaption div span p strong table caption colgroup thead tbody tr th td sup br wbr bdi footer " +
    "script button dl dt dd label input").split(" "));
  const shapes = new Set("svg g path rect circle text title".split(" "));
  const strange = Array.from(document.querySelectorAll("*")).filter((element) =>
    !(element.closest("svg") ? shapes : allowed).has(element.localName)
      || element.getAttributeNames().some((name) => name.startsWith("on")));
  const scripts = document.scripts.length - (document.body.dataset.copy ? 1 : 0);
  return [...strange.slice(0, 5).map(({ outerHTML }) => `${outerHTML.slice(0, 200)} has no place on a page`),
    ...scripts === 0 ? [] : [`${scripts} scripts more than one`]];
});

/** Every link leads to something on the page; those of an index also to a file beside it. */
export async function checkLinks(page) {
  const [links, isIndex] = await page.evaluate(() => [
    Array.from(document.querySelectorAll("a"), (link) => link.getAttribute("href"))
      .filter((href) => !href.startsWith("#") || !document.getElementById(href.slice(1))),
    document.body.className === "index",
  ]);
  return links.filter((href) => !isIndex || !existsSync(new URL(href, page.url())))
    .map((href) => `${href} leads nowhere`);
}

/** The numbers of a column stand below one another at the decimal sign, to half a pixel. */
export const checkAlignment = (page) => page.evaluate(() => {
  const placeOf = ({ firstChild: node }) => {
    const range = document.createRange();
    range.setStart(node, node.data.lastIndexOf("."));
    range.setEnd(node, range.startOffset + 1);
    return range.getBoundingClientRect().left;
  };
  return Array.from(document.querySelectorAll("table")).flatMap((table) => {
    const byColumn = new Map();
    // Folded cells have no place.
    const figures = Array.from(table.querySelectorAll("tbody td:not(.t)")).filter((cell) =>
      cell.offsetParent && /^[-\u2212<]?\d*\.\d+$/.test(cell.firstChild?.data));
    return figures.filter((cell) => {
      const key = cell.parentElement.cells.length - cell.cellIndex;  // row headers differ in number, data do not
      const first = byColumn.get(key) ?? byColumn.set(key, placeOf(cell)).get(key);
      return Math.abs(placeOf(cell) - first) > 0.5;
    });
  }).slice(0, 5).map((cell) => `${cell.textContent} stands beside its column`);
});

/** A note mark scrolls with its table and is cut off with it, also that of a redundant row. */
export const checkMarks = (page) => page.evaluate(() => {
  const boxes = Array.from(document.querySelectorAll(".switch input:not(.paper)"));
  for (const box of boxes) box.checked = true;
  const leaving = Array.from(document.querySelectorAll(".scroll sup"))
    .filter((mark) => mark.getClientRects().length > 0 && !mark.offsetParent?.closest(".scroll"));
  for (const box of boxes) box.checked = false;
  return leaving.slice(0, 5).map((mark) => `the mark ${mark.textContent} leaves the frame of its table`);
});

/**
 * The page itself never scrolls sideways; what is wide does so in a frame of its own, in which the first figures of a row
 * are in view from the beginning.
 */
export async function checkPhone(page) {
  await resize(page, sizes.phone);
  const faults = await page.evaluate(() => {
    const isBeyond = (frame) => {
      const figure = frame.querySelector("tbody tr:last-child > th:last-of-type + td:not(.t)");
      if (!figure?.offsetParent) return false;
      const [inner, outer] = [figure.getBoundingClientRect(), frame.getBoundingClientRect()];
      const hidden = document.dir === "rtl" ? outer.left - inner.right : inner.left - outer.right;
      return hidden + Math.min(inner.width, 40) > 1;
    };
    const frames = Array.from(document.querySelectorAll(".table .scroll")).filter(isBeyond);
    const width = document.documentElement.scrollWidth;
    return [...frames.slice(0, 3).map((frame) => `no figure of ${frame.ariaLabel} is in view on a phone`),
      ...width > innerWidth ? [`${width} px wide on a phone of ${innerWidth}`] : []];
  });
  await resize(page, sizes.desk);
  return faults;
}

/** No finding of axe, with a menu open and all that can be opened. The dark differs by its colours alone. */
export async function checkByAxe(page, axeSource) {
  await page.evaluate(axeSource);
  await page.evaluate(() => {  // what is out of sight has no places of its own yet
    for (const figure of document.querySelectorAll("figure")) figure.style.contentVisibility = "visible";
    for (const fold of document.querySelectorAll("details")) fold.open = true;
  });
  const faults = [];
  for (const [size, place] of [["phone", -1], ["desk", 0]]) {
    await resize(page, sizes[size]);
    const more = page.locator(".more").filter({ visible: true });
    if (await more.count() > 0) await more.nth(place).click();
    for (const colorScheme of ["light", "dark"]) {
      await page.emulateMedia({ colorScheme });
      const violations = await page.evaluate(async (isDark) => {
        const chosen = isDark ? { runOnly: ["color-contrast"] } : { rules: { "target-size": { enabled: true } } };
        return (await globalThis.axe.run(document, { resultTypes: ["violations"], ...chosen })).violations;
      }, colorScheme === "dark");
      faults.push(...violations
        .map(({ id, nodes }) => `${id}, ${size}, ${colorScheme}: ${nodes[0].html.slice(0, 200)}`));
    }
    await page.keyboard.press("Escape");
  }
  await page.emulateMedia({ colorScheme: null });
  await page.reload();
  return faults;
}
