// A table as Markdown.

import { asLines, nameColumns, spellRows } from "./rows.js";
import { markdown, spell } from "./spelling.js";

export const asMarkdown = (table) => {
  const line = (fields) => `| ${fields.join(" | ")} |`;
  const begin = /^(\d+(?=[.)])|(?=[-+=:#]))/;  // of a list, a rule or a heading
  return asLines([
    `**${spell(table.title, markdown)}**\n`,
    line(nameColumns(table, markdown)),
    `|${asLines(table.areTexts.map((isText) => (isText ? ":---" : "---:")), "|")}`,
    ...spellRows(table.rows, (cell) => spell(cell, markdown)).map(line),
    ...table.notes.map((note) => `\n${spell(note, markdown).replace(begin, "$1\\")}`),
  ]);
};
