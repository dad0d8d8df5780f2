// The tables and charts of a document in its JSON form, as pages have to show them.

import { spawnSync } from "node:child_process";

export function run(program, ...operands) {
  const { status, stdout, stderr } = spawnSync(program, operands, { encoding: "utf8", maxBuffer: 2 ** 28 });
  if (status !== 0) throw new Error(`${operands.join(" ")}: ${stderr}`);
  return stdout;
}

/** Items in their order, each with its name; headings and messages are among them. */
export function readItems(program, example) {
  const { items } = JSON.parse(run(program, "report", "-f", "json", example));
  const flatten = (list) => list.flatMap((item) => [item, ...item.kind === "heading" ? flatten(item.items) : []]);
  const names = JSON.parse(run(program, "list", "-f", "json", example));
  return flatten(items).map((item, place) => ({ ...item, anchor: names[place].name }));
}

const leavesOf = (members, above = []) => members.flatMap((member) => {
  const path = [...above, member.label];
  return member.kind === "group" ? leavesOf(member.members, path) : [[member.id, path]];
});

/** The dimensions of the rows (0) or of the columns (1), outermost first. */
function sideOf({ dimensions, cells }, place) {
  const sorted = dimensions.map((dimension, at) => ({ ...dimension, at }))
    .filter((dimension) => dimension.place === place)
    .sort((one, other) => other.index - one.index);
  return sorted.map(({ at, name, flags: [hidesName, hidesLabels], members }) => {
    const paths = new Map(leavesOf(members));
    const used = new Set(cells.map((cell) => cell.at[at]));
    const depths = Array.from(paths).filter(([id]) => used.has(id)).map(([, path]) => path.length);
    return { at, name, hidesName, hidesLabels, paths, depth: Math.max(0, ...depths) };
  }).filter(({ depth }) => depth > 0);
}

/** A figure's minus, the dash between what is compared, and probabilities are those of printed text. */
export function wordsOf(text, column) {
  const { text: words, from } = text;
  const isProbability = ["Sig.", "Adj. Sig."].includes(column?.from.string) && typeof from.number === "number";
  if (isProbability && from.number < 0.0005) return "<.001";
  if (isProbability) return from.number.toFixed(3).replace(/^0/, "");
  if (("number" in from || "value" in from) && /^-[\d.,]/.test(words)) return words.replace("-", "\u2212");
  const fillings = (from.arguments ?? []).flatMap((argument) => argument.sublist ?? [argument]);
  const filled = fillings.reduce((shown, filling) => shown.replace(filling.text, () => wordsOf(filling)), words);
  return from.pattern === "^1 - ^2" ? filled.replace(" - ", " \u2013 ") : filled;
}

/** What is shown of a table: how many levels of labels its rows have, and each cell with the labels that lead to it. */
function shownOf(table) {
  const [rows, columns] = [0, 1].map((place) => sideOf(table, place).filter(({ hidesLabels }) => !hidesLabels));
  const labelsOf = (side, at, isNamed) => side.flatMap((dimension) =>
    [...isNamed && !dimension.hidesName ? [dimension.name] : [], ...dimension.paths.get(at[dimension.at]) ?? []]);
  const cells = table.cells.map(({ at, content }) => {
    const headers = [...labelsOf(rows, at, false), ...labelsOf(columns, at, true)];
    return { headers: headers.map((label) => wordsOf(label)), words: wordsOf(content, headers.at(-1)) };
  });
  return { levels: rows.reduce((sum, { depth }) => sum + depth, 0), cells };
}

/** The values of a chart as a table: keys lead to a cell, and the column's name. */
const valuesOf = ({ columns, keys = 0, rows }) => ({
  levels: keys,
  cells: rows.flatMap((row) => row.slice(keys).map((words, place) => ({
    headers: [...row.slice(0, keys), columns[keys + place]],
    words,
  }))),
});

/** Every table that a page shows, in its order; `anchor` is that of its item. */
export function tablesOf(items) {
  return items.flatMap((item) => {
    const { anchor } = item;
    if (item.kind === "table" && item.cells.length > 0) return [{ anchor, ...shownOf(item) }];
    const values = (item.picture?.tables ?? []).filter(({ columns, rows }) => columns.length > 0 && rows.length > 0);
    return values.map((table) => ({ anchor, ...valuesOf(table) }));
  });
}

/** Everything in a picture that is told in words, with the figures that it stands for. */
export function marksOf(picture) {
  const names = picture.kind === "scatter" ? ["x", "y"] : ["value", "low", "high", "count"];
  const find = (part) => {
    if (typeof part !== "object" || part === null) return [];
    const figures = names.map((name) => part[name]).filter((figure) => typeof figure === "number");
    return [...part.tip === undefined ? [] : [{ tip: part.tip, figures }], ...Object.values(part).flatMap(find)];
  };
  return find(picture);
}
