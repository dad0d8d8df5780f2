// A table as it is shown.

import { all, isShown } from "../shared/elements.js";

export const notesOf = (figure) => all("figcaption p:not(.switch)", figure).filter(isShown);

// The cell in each place of the rows that are shown.
const gridOf = (section) => {
  const rows = Array.from(section?.rows ?? []);
  const grid = rows.map(() => []);
  rows.forEach((row, index) => {
    let column = 0;
    for (const cell of row.cells) {
      while (grid[index][column]) ++column;
      for (const line of grid.slice(index, index + cell.rowSpan)) {
        for (let beside = 0; beside < cell.colSpan; ++beside) line[column + beside] = cell;
      }
    }
  });
  return grid.filter((line, index) => isShown(rows[index]));
};

export const readTable = (figure) => {
  const { caption, tHead, tBodies, dataset: { fields } } = figure.querySelector("table");
  const groups = Array.from(tBodies, gridOf).filter((grid) => grid.length);
  const rows = groups.flat();
  const levels = rows.reduce((most, row) => Math.max(most, row.findLastIndex((cell) => cell.matches("th")) + 1), 0);
  const areTexts = rows[0].map((cell, column) => column < levels || rows.some((row) => row[column].matches(".t")));
  return { title: caption.firstChild, head: gridOf(tHead), groups, rows, levels, areTexts, fields, notes: notesOf(figure) };
};
