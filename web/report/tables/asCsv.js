// A table as CSV.

import { asLines, nameColumns, spellRows } from "./rows.js";
import { asTyped, whole, wordsOf } from "./spelling.js";

// A figure has all its digits where the page knows more than it shows; a missing one is an empty field. Names and labels
// that are not shown stand ready as fields.
export const asCsv = (table) => {
  const { fields, rows, levels } = table;
  const write = (cell) => {
    const words = wordsOf(cell, whole);
    if (cell.localName === "th") return asTyped(words).replace(" \u2013 ", " - ");  // between levels that are compared
    return cell.dataset.value ?? (words === "." ? "" : asTyped(words));
  };
  const quote = (field) => (/[",\r\n]/.test(field) ? `"${field.replaceAll("\"", "\"\"")}"` : field);
  const records = spellRows(rows, write).map((record, index) => {
    const labels = rows[index].at(-1).parentElement.dataset.fields;
    const known = record.map(quote);
    return (labels === undefined ? known : [labels, ...known.slice(levels)]).join() || "\"\"";
  });
  return asLines([fields ?? nameColumns(table, whole).map(quote).join(), ...records]);
};
