// What holds of every page. Each check gives a list of faults, empty for a good page.

import { existsSync } from "node:fs";

/** Nothing but our own script and style, and no element that a text could have smuggled in. */
export async function checkElements(page) {
  return page.evaluate(() => {
    const allowed = new Set(("html head meta title link style body a header h1 h2 h3 h4 h5 h6 ul ol li nav details " +
      "summary main section figure figcaption div span p strong table caption colgroup thead tbody tr th td sup br wbr bdi " +
      "footer script button dl dt dd label input").split(" "));
    const shapes = new Set("svg g path rect circle text title".split(" "));
    const faults = [];
    for (const element of document.querySelectorAll("*")) {
      const names = element.closest("svg") ? shapes : allowed;
      if (!names.has(element.localName)) faults.push(`<${element.localName}> has no place on a page`);
      for (const { name } of element.attributes) {
        if (name.startsWith("on")) faults.push(`<${element.localName} ${name}> runs code`);
      }
    }
    const { length } = document.scripts;
    const expected = document.body.dataset.copy ? 1 : 0;
    if (length !== expected) faults.push(`${length} scripts, not ${expected}`);
    return faults;
  });
}

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

/** A data cell's headers are the header cells that stand in its row and column. */
export async function checkHeaders(page) {
  return page.evaluate(() => {
    const faults = [];
    for (const table of document.querySelectorAll("table")) {
      const covered = Array.from(table.rows, () => []);  // by row and column, the cell that stands there
      Array.from(table.rows, (row, top) => {
        let left = 0;
        for (const cell of row.cells) {
          while (covered[top][left]) ++left;
          for (let y = top; y < top + cell.rowSpan; ++y) {
            for (let x = left; x < left + cell.colSpan; ++x) {
              if (!covered[y] || covered[y][x]) faults.push(`a cell too many at row ${y}, column ${x}`);
              else covered[y][x] = cell;
            }
          }
        }
      });
      if (covered.some((row) => row.length !== covered[0].length)) faults.push("rows differ in length");
      const levels = Math.max(covered.findIndex((row) => row.at(-1).closest("tbody")), 0);
      covered.slice(levels).forEach((row, index) => row.forEach((cell, x) => {
        if (!cell.headers) return;
        const around = new Set([...row.filter((other) => other.localName === "th"),
          ...covered.slice(0, levels).map((head) => head[x]).filter((other) => other.localName === "th")]);
        const named = cell.headers.split(" ").map((id) => document.getElementById(id));
        if (new Set(named).size !== around.size || named.some((header) => !around.has(header))) {
          faults.push(`headers="${cell.headers}" of row ${index}, column ${x} are not those around it`);
        }
      }));
    }
    return faults.slice(0, 5);
  });
}

/** The numbers of a column stand below one another at the decimal sign, to half a pixel. */
export async function checkAlignment(page) {
  return page.evaluate(() => {
    const signPlace = ({ firstChild: node }) => {
      if (node?.nodeType !== Node.TEXT_NODE || !/^[-\u2212<]?\d*\.\d+$/.test(node.data)) return null;
      const range = document.createRange();
      range.setStart(node, node.data.lastIndexOf("."));
      range.setEnd(node, range.startOffset + 1);
      return range.getBoundingClientRect().left;
    };
    const faults = [];
    for (const table of document.querySelectorAll("table")) {
      const byColumn = new Map();
      for (const cell of table.querySelectorAll("tbody td:not(.t)")) {
        if (!cell.offsetParent) continue;  // folded
        const place = signPlace(cell);
        if (place === null) continue;
        const key = cell.parentElement.cells.length - cell.cellIndex;  // row headers differ in number, data do not
        const first = byColumn.get(key) ?? byColumn.set(key, place).get(key);
        if (Math.abs(place - first) > 0.5) faults.push(`${cell.textContent} stands ${place - first} px off`);
      }
    }
    return faults.slice(0, 5);
  });
}

/** A note mark scrolls with its table and is cut off with it. */
export async function checkMarks(page) {
  return page.evaluate(() => Array.from(document.querySelectorAll(".scroll sup"))
    .filter((mark) => mark.offsetParent?.closest(".scroll") === null)
    .slice(0, 5).map((mark) => `the mark ${mark.textContent} leaves the frame of its table`));
}

/**
 * The page itself never scrolls sideways; what is wide does so in a frame of its own, in which the first figures of a row
 * are in view from the beginning.
 */
export async function checkPhone(page) {
  await page.setViewportSize({ width: 360, height: 740 });
  const [width, hidden] = await page.evaluate(() => {
    const isBeyond = (frame) => {
      const figure = frame.querySelector("tbody tr:last-child > th:last-of-type + td:not(.t)");
      if (!figure?.offsetParent) return false;
      const [inner, outer] = [figure.getBoundingClientRect(), frame.getBoundingClientRect()];
      const hidden = document.dir === "rtl" ? outer.left - inner.right : inner.left - outer.right;
      return hidden + Math.min(inner.width, 40) > 1;
    };
    const frames = Array.from(document.querySelectorAll(".table .scroll")).filter(isBeyond);
    return [document.documentElement.scrollWidth, frames.map((frame) => frame.ariaLabel)];
  });
  await page.setViewportSize({ width: 1280, height: 900 });
  const faults = hidden.slice(0, 3).map((table) => `no figure of ${table} is in view on a phone`);
  return width > 360 ? [...faults, `${width} px wide on a phone of 360`] : faults;
}

/** No finding of axe, in both colour schemes and with a menu open. Its code comes by the debugger's door, which the page's policy leaves open. */
export async function checkAccessibility(page, axeSource) {
  const faults = [];
  const more = page.locator(".more").filter({ visible: true });
  if (await more.count() > 0) await more.first().click();
  for (const colorScheme of ["light", "dark"]) {
    await page.emulateMedia({ colorScheme });
    await page.evaluate(axeSource);
    const { violations } = await page.evaluate(() => globalThis.axe.run(document, { resultTypes: ["violations"] }));
    for (const { id, help, nodes } of violations) {
      faults.push(`${id} (${colorScheme}): ${help}: ${nodes.length} times, first ${nodes[0].html.slice(0, 200)}`);
    }
  }
  await page.emulateMedia({ colorScheme: null });
  await page.keyboard.press("Escape");
  return faults;
}
