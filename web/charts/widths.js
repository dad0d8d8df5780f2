// How wide texts are. One table serves the page, the static pictures and whoever lays a view out, so that a chart is the
// same everywhere; a browser's own fonts may differ a little.
import table from "../text-widths.json";

const thousand = 1000;
const bold = 600;

const isWithin = (ranges, code) => ranges.some(([first, last]) => code >= first && code <= last);

const placeOf = (code) => {
  let before = 0;
  for (const [first, last] of table.ranges) {
    if (code >= first && code <= last) return before + code - first;
    before += last - first + 1;
  }
  return -1;
};

const widthOf = (code, widths) => {
  const place = placeOf(code);
  if (place >= 0) return widths[place];
  if (isWithin(table.zero, code)) return 0;
  return isWithin(table.wide, code) ? thousand : table.other;
};

/** The width of a text mark's line in pixels, at most the mark's limit. */
export function textWidth(item, line) {
  const isBold = item.fontWeight === "bold" || item.fontWeight >= bold;
  const widths = isBold ? table.bold : table.regular;
  let width = 0;
  for (const character of String(line ?? "").trim()) width += widthOf(character.codePointAt(0), widths);
  const pixels = width * (item.fontSize ?? 11) / thousand;
  return item.limit > 0 ? Math.min(pixels, item.limit) : pixels;
}
