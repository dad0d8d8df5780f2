// A table between tabs.

import { asLines, layOut } from "./rows.js";
import { asTyped, spell, whole } from "./spelling.js";

export const asText = ({ head, groups }) => asLines([head, ...groups].flatMap((grid) => layOut(grid, "\t", (cell) => {
  const words = asTyped(spell(cell, whole).replace(/\s+/g, " ").trim());
  return words && words + "\t".repeat(cell.colSpan - 1);
})));
