// Writes what the fuzzer begins with, from the project's examples: node seeds.mjs FOLDER
// FOLDER/seeds/TARGET holds inputs, FOLDER/TARGET.dict words that are worth trying and that no input holds: names are
// taken over from other inputs.

import { existsSync, mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const root = join(dirname(fileURLToPath(import.meta.url)), "..");
const folder = process.argv[2];

const largestPair = 35_000;
const largestItem = 60_000;
const largestSaved = 25_000;
const largestPicture = 20_000;
const hostile = [
  "", "0", "-1", "1", "2147483647", "2147483648", "-2147483648", "4294967296", "9223372036854775807", "1e308", "-1e400",
  "1e-320", "1.7976931348623157e308", "-1.7976931348623157e+308", "nan", "inf", "NaN", "-Infinity", "0x1p3", "50000000",
  "__MISSING__", "\\\"", "\"a b", "^1", "^0", "^99", "[*1]", "&lt;", "&#10;", "]]>", "<![CDATA[", "-->", "\u202e", "\u00ad",
  "e\u0301", "\ufeff", "\u{1f600}", "\u{10ffff}", "\u4e00",
];

const read = (...path) => readFileSync(join(root, ...path), "utf8");
const allMatches = (text, pattern) => [...text.matchAll(pattern)].map((match) => match[1]);

function quoted(word) {
  const bytes = [...Buffer.from(word)];
  const escape = (byte) => `\\x${byte.toString(16).padStart(2, "0")}`;
  const isPlain = (byte) => byte > 0x20 && byte < 0x7f && byte !== 0x22 && byte !== 0x5c;
  return `"${bytes.map((byte) => (isPlain(byte) ? String.fromCharCode(byte) : escape(byte))).join("")}"`;
}

function writeTarget(target, seeds, words = []) {
  const place = join(folder, "seeds", target);
  mkdirSync(place, { recursive: true });
  seeds.forEach(([name, input]) => writeFileSync(join(place, name.replaceAll(/[^\w.-]/g, "_")), input));
  const all = [...new Set([...hostile, ...words].filter((word) => word !== ""))];
  writeFileSync(join(folder, `${target}.dict`), all.map((word) => quoted(word) + "\n").join(""));
}

// A document is the faster the less it holds, so each comes twice: whole, and with one table of means in place of all.
const withoutIndent = (text) => text.replaceAll(/\n\s+/g, "\n");
function withOneTable(statXml, index) {
  const tables = statXml.match(/<DataGroup description="customEmmeans">[^]*?<\/DataGroup>\n/g) ?? [];
  const kept = index % Math.max(tables.length, 1);
  return tables.reduce((text, table, at) => (at === kept ? text : text.replace(table, "")), statXml);
}
const examples = readdirSync(join(root, "examples"))
  .filter((name) => existsSync(join(root, "examples", name, "model.pmml")))
  .map((name) => [name, ...["model.pmml", "model.statxml"].map((file) => withoutIndent(read("examples", name, file)))]);
writeTarget(
  "documents",
  examples.flatMap(([name, pmml, statXml], index) => [
    [name, `${pmml}\x04${statXml}`],
    [`${name}-short`, `${pmml}\x04${withOneTable(statXml, index)}`],
  ]).filter(([, input]) => input.length < largestPair),
);

// The smallest item of each kind, table and chart, and the largest that is not too large.
const items = new Map();
function collect(item) {
  const name = item.kind === "table" ? item.subtype.text : item.kind === "chart" ? item.template : item.kind;
  const size = JSON.stringify(item).length;
  const keep = (key, isBetter) => {
    if (!items.has(key) || isBetter(items.get(key).size)) items.set(key, { item, size });
  };
  keep(`${name}-small`, (other) => size < other);
  if (size < largestItem) keep(`${name}-large`, (other) => size > other);
  if (item.kind === "heading") item.items.forEach(collect);
}
const saved = readdirSync(join(root, "tests/golden/approved")).filter((name) => name.endsWith(".json"));
const documents = saved.map((name) => JSON.parse(read("tests/golden/approved", name)));
documents.forEach((document) => document.items.forEach(collect));
const [frame] = documents;
const smallDocuments = [
  ["small", read("tests/json/small.json")],
  ["messages", read("tests/golden/approved/messages-only.json")],
  ...[...items].filter(([, { size }]) => size < largestSaved)
    .map(([name, { item }]) => [name, JSON.stringify({ ...frame, items: [item] })]),
];
const savedWords = ["x_text[datum.value]", "datum.side", "\\u004eaN", "\\ud800"];
writeTarget("saved", smallDocuments, savedWords);

// The same for papers, in each style, and one whose words are what is markup there.
const markup = [
  "|", "\\|", "\\", "\\\\|",
  "\n| a |\n|---|", "{", "}", "\\end{document}", "%", "$x_1^2$", "#", "~", "=1+1", "@SUM(A1)", "+1", "\t=1", "\u0001",
  "\u0000", "\u001b[1m", "\ufffe", "\u202e abc", "\u05d0\u05d1", "\u0627\u0644",
  "\r\n", "\r", "\"\"", "\"", ",", "</w:t>", "]]>", "```", "`", "<b>",
  "[a](b)", "---", "1. a", "_x000D_", "&amp;", "\u2028", "\ud83d\ude00", "e\u0301",
  "w".repeat(1000), "*a*_b_", "a  ", "\u00a0", "",
];
let count = 0;
const markedItems = ["FixedCoefficients", "CovarianceParameters", "Classification", "GLMMEmMeans", "heading", "message"]
  .map((name) => items.get(`${name}-small`).item);
const marked = JSON.parse(JSON.stringify({ ...frame, items: markedItems }), (key, value) =>
  (key === "text" ? markup[count++ % markup.length] + (count % 3 ? "" : value) : value));
writeTarget(
  "papers",
  [...smallDocuments, ["markup", JSON.stringify(marked)]].map(([name, document], index) =>
    [name, `${markup[index % markup.length].replaceAll(/[\0-\b]/g, "")}${String.fromCharCode(index % 9)}${document}`]),
  [...savedWords, ...markup],
);

/// The histogram within a diagram as a chart of its own, once for each distribution.
function histograms({ xml }) {
  const [, chart, stream] = xml.match(/<inset[^>]*>\s*(<chart[^]*<\/chart>)\s*<stream>([^]*)<\/stream>/) ?? [];
  if (!chart) return [];
  return ["normal", "gamma", "gaussianinverse", "binomialnegative", "poisson"].map((distribution) => [
    `histogram-${distribution}`,
    `${stream}\x04label\x00${chart.replace('"normal"', `"${distribution}" parameter="2.5" secondaryParameter="0.4"`)}`,
  ]);
}
const charts = [...items].filter(([, { item }]) => item.kind === "chart");
writeTarget(
  "charts",
  [
    ...charts.map(([name, { item }]) => [name, `${JSON.stringify(item.data)}\x04label\x01${item.xml}`]),
    ...charts.flatMap(([, { item }]) => histograms(item)),
    ...readdirSync(join(root, "template")).map((name) => [`template-${name}`, `[]\x00\x00${read("template", name)}`]),
  ],
  allMatches(read("docs/chart.rng"), /<value>([^<]+)</g),
);

// Each template by itself and with its parts in fragments. The markers are its place among the names, and an example.
const templates = readdirSync(join(root, "template")).sort();
const withFragments = (xml) => {
  const [whole, open, inner, close] = xml.match(/^([^]*?<plot[^>]*>)([^]*)(<\/plot>[^]*)$/) ?? [];
  if (!whole) return `${xml}\x00\x00`;
  const second = "<fragment><points/><use fragment=\"one\"/></fragment>";
  return `${open}<use fragment="one"/><use fragment="two"></use>${close}\x00<fragment>${inner}</fragment>\x00${second}`;
};
writeTarget(
  "templates",
  templates.flatMap((name, index) => {
    const mark = String.fromCharCode(index);
    const xml = read("template", name);
    const parts = withFragments(xml).split("\x00");
    return [0, 1, 2].flatMap((example) => {
      const other = String.fromCharCode(example);
      return [[`${name}-${example}`, `${xml}${mark}${other}`],
        [`${name}-fragments-${example}`, `${parts[0]}${mark}${parts[1]}${other}${parts[2]}`]];
    });
  }),
  ["<use fragment=\"one\"/>", "<use fragment=\"two\"/>", ...allMatches(read("docs/chart.rng"), /<value>([^<]+)</g)],
);

// The smallest picture of each chart, the largest that is not too large, the histogram of a diagram by itself, and more
// marks or panels than are drawn in full.
const pictures = charts.map(([name, { item }]) => [name, item.picture]);
const many = (length, make) => Array.from({ length }, (_, index) => make(index));
const crowds = [
  ["points", { kind: "scatter", x: {}, y: {}, points: many(1100, (x) => ({ x, y: x % 9, tip: "p" })) }],
  ["marks", { kind: "levels", levels: ["a"], marks: many(2001, (index) => ({ level: 0, value: index % 9 })) }],
  ["panels", {
    kind: "levels", isContrast: true, levels: many(200, () => "a"), panels: { across: many(150, () => "p") },
    marks: many(150, (index) => ({ panel: [index, 0], level: index, value: 1 })),
  }],
];
const smallPictures = [
  ...pictures.filter(([, picture]) => JSON.stringify(picture).length < largestPicture),
  ...pictures.filter(([, { histogram }]) => histogram).map(([name, { histogram }]) =>
    [`${name}-histogram`, { kind: "histogram", ...histogram }]),
];
writeTarget(
  "pictures",
  [...smallPictures, ...crowds].map(([name, picture]) => [name, JSON.stringify(picture)]),
  savedWords,
);
writeTarget(
  "crowds",
  smallPictures.map(([name, picture], index) => [name, `${String.fromCharCode(index % 6)}${JSON.stringify(picture)}`]),
  savedWords,
);

writeTarget(
  "labels",
  hostile.map((label, index) => [`label${index}`, label]),
  [...allMatches(read("tests/chart/PatchedCharts.cpp"), /^ {4,}"((?:[^"\\]|\\.)+)",$/gm).map((word) => word.replaceAll("\\", "")), "\ufffe", "\xff"],
);

// Command lines, an argument a line: each option of the command with a value of its kind.
const source = ["Interface", "Options"].map((name) => read(`program/arguments/${name}.cpp`)).join("");
const options = allMatches(source, /"(-[-\w,]*)"/g).flatMap((names) => names.split(","));
const words = allMatches(source, /\{"(\w+)", /g);
const formats = allMatches(read("report/formats/Format.cpp"), /\{"(\w+)", Format/g);
const lines = [
  ...options.map((option) => ["report", "m", option, "1"]),
  ...formats.map((format) => ["report", "a.pmml", "b.statxml", "-f", format, "-o", "x"]),
  ...["apa", "ama", "plain"].map((style, index) => ["render", "-", `--style=${style}`, "--digits", `${index * 7}`]),
  ["report", "m", "--only", "GrandMeans-1, FixedEffects", "--only", "CovarianceParameters", "-f", "csv"],
  ["report", "m", "--lang", "C", "--title", "\u202e", "--author", "", "--scale", "0.5", "--standalone", "-o", "x.tex"],
  ["batch", "-o", "x", "-f", "svg", "--jobs", "3", "--force", "a", "b"],
  ["check", "--strict", "m"],
  ["list", "-f", "json", "m.json"],
  ["--complete", "1", "re"], ["--complete", "2", "report", "--sty"],
  ["--help"], ["report", "--help"], ["--version"], [""], ["report", "--", "-o"],
];
writeTarget(
  "commands",
  lines.map((line, index) => [`line${index}`, line.join("\n")]),
  [...options, ...words, ...formats, ...items.keys(), "report", "render", "check", "list", "batch", "=",
    "de", ".html", ".tex"],
);
