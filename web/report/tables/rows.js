// Rows of a table, as formats lay them out.

import { lettersOf, wordsOf } from "./spelling.js";

export const asLines = (list, end = "\n") => list.map((line) => line + end).join("");
export const isHeader = (cell) => cell.closest("thead");

// As rows are laid out, what is several rows high stands in the first, a header in the last, right above its data.
export const layOut = (grid, divider, write) => grid.map((row, index) => row.flatMap((cell, column) => {
  if (cell === row[column - 1]) return [];
  const words = cell === grid[index + (isHeader(cell) ? 1 : -1)]?.[column] ? "" : write(cell);
  return [words || divider.repeat(cell.colSpan - 1)];
}).join(divider));

// Where nothing spans: names from the outermost inwards, labels in every row.
export const nameColumns = ({ head, rows, levels }, spelling) => rows[0].map((first, column) => {
  const cells = Array.from(new Set(head.map((row) => row[column])));
  const name = cells.map((cell) => wordsOf(cell, spelling)).filter(Boolean).join(", ");
  const level = name && column < levels ? column - head.at(-1).indexOf(cells.at(-1)) : 0;
  return name + (level ? ` ${level + 1}` : "") + cells.map((cell) => lettersOf(cell, spelling)).join("");
});

export const spellRows = (rows, write) =>
  rows.map((row) => row.map((cell, column) => (cell === row[column - 1] ? "" : write(cell))));
