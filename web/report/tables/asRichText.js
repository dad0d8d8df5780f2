// A table as other programs paste it.

import { all, isMirrored } from "../shared/elements.js";
import { notesOf } from "./readTable.js";
import { asTyped } from "./spelling.js";

const rule = "1px solid #000";
const styleOf = (cell, textAlign) => {
  const row = cell.parentElement;
  const section = row.parentElement;
  const isHead = section.localName === "thead";
  let end = row;
  for (let below = 1; below < cell.rowSpan; ++below) end = end.nextElementSibling ?? end;
  const isLast = !end.nextElementSibling && (isHead || !section.nextElementSibling);
  return `padding:2px 6px;text-align:${textAlign};vertical-align:${isHead ? "bottom" : "top"};`
    + `font-weight:${isHead ? "bold" : "normal"}`
    + (row.previousElementSibling || section.previousElementSibling ? "" : `;border-top:${rule}`)
    + (isLast ? `;border-bottom:${rule}` : "");
};

// What a copy needs of a style, in words that all programs know.
const pick = ({ display, direction, textAlign }) =>
  ({ display, direction, textAlign: textAlign !== "start" ? textAlign : isMirrored ? "right" : "left" });

// What is shown of an element, with styles of its own.
const copyOf = (element) => {
  const copy = element.cloneNode(true);
  const originals = all("*", element).map((original) => getComputedStyle(original));
  const styled = all("*", copy).map((part, index) => ({ part, ...pick(originals[index]) }));
  for (const { part, display } of styled) {
    if (display === "none" || part.matches("caption, colgroup")) part.remove();
    else if (part.matches("a, bdi:not([dir]), span")) part.replaceWith(...part.childNodes);
  }
  for (const { part, textAlign, direction } of styled) {
    for (const name of part.getAttributeNames()) if (!/span$|^dir$/.test(name)) part.removeAttribute(name);
    if (!part.matches("th, td") || !copy.contains(part)) continue;
    part.style.cssText = styleOf(part, textAlign);
    if (isMirrored && direction === "ltr") part.dir = direction;
    const text = part.firstChild;
    if (text?.data) text.data = asTyped(text.data);
  }
  return copy;
};

export const asRichText = (figure) => {
  const table = copyOf(figure.querySelector("table"));
  table.style.borderCollapse = "collapse";
  const html = `<p><b>${copyOf(figure.querySelector("caption")).innerHTML}</b></p>${table.outerHTML}`
    + notesOf(figure).map((note) => `<p>${copyOf(note).innerHTML}</p>`).join("");
  return isMirrored ? `<div dir="rtl">${html}</div>` : html;
};
