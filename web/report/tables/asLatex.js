// A table as LaTeX, with the rules of booktabs.

import { asLines, isHeader, layOut } from "./rows.js";
import { latex, lettersOf, spell, wordsOf } from "./spelling.js";

export const asLatex = ({ title, head, groups, areTexts, notes }) => {
  const write = (cell) => {
    const { pad } = cell.dataset;
    const letters = lettersOf(cell, latex);
    const words = wordsOf(cell, latex) + (letters && cell.matches("td:not(.t)") ? `\\rlap{${letters}}` : letters)
      + (pad ? `\\phantom{${latex.text(pad)}}` : "");
    if (!words || cell.colSpan === 1) return words;
    return `\\multicolumn{${cell.colSpan}}{${isHeader(cell) ? "c" : "l"}}{${words}}`;
  };
  // What begins a line must not be taken for an option of the end of the one before.
  const lay = (grid) => layOut(grid, " & ", write).map((line) => `${line.replace(/^[[*]/, "{$&}")} \\\\`);
  const underline = (row, next) => row.map((cell, column) =>
    (cell.scope === "colgroup" && cell !== row[column - 1] && cell !== next?.[column] && next
      ? `\\cmidrule(lr){${column + 1}-${column + cell.colSpan}}` : "")).join("");
  return asLines([
    `% \\usepackage{booktabs}${areTexts.length > 8 ? "; wide: \\small, or landscape of pdflscape" : ""}`,
    "\\begin{table}\n\\centering",
    `\\caption{${spell(title, latex)}}`,
    `\\begin{tabular}{${areTexts.map((isText) => (isText ? "l" : "r")).join("")}}\n\\toprule`,
    ...lay(head).flatMap((line, index) => [line, underline(head[index], head[index + 1])]),
    head.length ? "\\midrule" : "",
    groups.map((grid) => lay(grid).join("\n")).join("\n\\addlinespace\n"),
    "\\bottomrule\n\\end{tabular}",
    notes.length ? "\\par\\smallskip\\footnotesize" : "",
    ...notes.map((note) => `${spell(note, latex)}\\par`),
    "\\end{table}",
  ].filter(Boolean));
};
