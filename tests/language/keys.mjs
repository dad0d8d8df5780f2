// Checks that the catalogues hold what the program asks for, and that what they give can be shown: node keys.mjs PROJECT
//
// In the code of the procedure, a text is for the reader when it is passed to a translating operation, or when it looks
// like words: it begins with a capital or a mark and is no name, such as LabelX. Diagnostics begin small.

import { readFileSync, readdirSync } from "node:fs";
import { basename, join } from "node:path";

const project = process.argv[2];

/** The marks that the texts behind keys may use. */
const marksOfKeys = {
  "Deviation Higher": 3, "Deviation Lower": 3, "Deviation Same": 3, "Horizontal Line Deviation": 3,
  "Simple Higher": 3, "Simple Lower": 3, "Simple Same": 3, "Horizontal Line Simple": 3,
  VarOfEffect: 1, kGLMM_C19_1: 1, kGLMM_C22: 1, kGLMM_C27: 1,
};

/** Sources that hold the names of the results' document, which look like words too. */
const readers = /^(HFITParseOutXML|SettingTexts|XmlReading)/;

/** Keys that come with a model's results and stand nowhere in the code. */
const documentKeys = [
  "UN (^1,^2)", "AR1 diagonal", "AR1 rho", "ARMA11 diagonal", "ARMA11 rho", "ARMA11 phi", "CS diagonal offset",
  "CS covariance", "TP diagonal", "TP rho ^1",
];

/** Texts that take a list of any length after their own values. */
const listKeys = [
  "EffectVar1", "EffectVar2", "Covariance Structure ^1 ...", "Covariance Structure ^1 Subject Specification ^2 ...",
];

function filesIn(folder, pattern) {
  return readdirSync(join(project, folder), { recursive: true }).filter((path) => pattern.test(path))
    .map((path) => join(folder, path));
}

const read = (path) => readFileSync(join(project, path), "utf8");

/** Names of subtypes and of charts' variables that look like words. */
const names = ["Contrasts", "Frequency", "Nodes", "Transparency", "Weight", "Weight2", "X", "Y"];

function looksLikeWords(text, isReader) {
  if (text.startsWith("kGLMM_")) return !isReader;
  const isMarkAlone = /^\^\d$/.test(text);
  const isMarkup = /[<>]|="|&\w+;/.test(text);
  const isName = /^\w+[A-Z][\w.]*$/.test(text.trim()) || names.includes(text);
  if (isMarkAlone || isMarkup || isName || !/[A-Za-z]|[%^]\d/.test(text)) return false;
  return /^[A-Z^%[]/.test(text) && (!isReader || text.includes(" "));
}

/** Whether a literal is passed to be translated, passed to stay as it is, or neither. */
function certainty(before, after) {
  if (/\b(GetTranslatedText|Translate|LookUp|Translated|Composite)[({]\s*$/.test(before)) return true;
  if (/\b(Plain[({]|extern)\s*$/.test(before)) return false;
  const flag = /\bBp(String|Composite)\b[^"]{0,20}[({]\s*$/.test(before) && /^,\s*(true|false)\b/.exec(after);
  return flag ? flag[1] === "true" : undefined;
}

/** The texts of a source that a catalogue must hold. */
function textsOf(path) {
  const source = read(path).replace(/\/\/.*|^ *#.*/gm, "").replace(/\/\*[^]*?\*\//g, "").replace(/"\s*\n\s*"/g, "");
  const literals = source.matchAll(/'(?:[^'\\\n]|\\.)+'|"(?<words>(?:[^"\\\n]|\\.)+)"/g);
  return Array.from(literals).flatMap(({ 0: { length }, index, groups: { words } }) => {
    if (words === undefined) return [];
    const text = words.replaceAll("\\n", "\n").replace(/\\(.)/g, "$1");
    const isWanted = certainty(source.slice(0, index), source.slice(index + length))
      ?? (path.startsWith("backend/hierfit") && looksLikeWords(text, readers.test(basename(path))));
    return isWanted ? [{ text, place: path }] : [];
  });
}

const textsLike = (folder, names, pattern) => filesIn(folder, names).flatMap((path) =>
  Array.from(read(path).matchAll(pattern), ([, text]) => ({ text, place: path })));

const wanted = [
  ...filesIn("backend", /\.(cpp|h)$/).flatMap(textsOf),
  ...textsLike("template", /\.(xml|viztemplate)$/, /\slookup="([^"]*)"/g),
  ...textsLike("examples", /\.statxml$/, /\spattern="([^"]*)"\s+isKey="true"/g),
  ...[...documentKeys, ...listKeys, ...Object.keys(marksOfKeys)].map((text) => ({ text, place: "keys.mjs" })),
];

/** The entries of a catalogue, parted by empty lines; the first (id "") describes it. */
function entriesOf(path) {
  return read(path).split(/\n{2,}/).filter((entry) => entry.includes("msgid ")).map((entry) => {
    const [id, text] = entry.replace(/^#.*\n/gm, "").split("msgstr ").map((part) =>
      Array.from(part.matchAll(/".*"/g), ([line]) => JSON.parse(line)).join(""));  // its escapes are JSON's, too
    return { id, text, isFuzzy: /^#,.*fuzzy/m.test(entry) };
  });
}

/** The list patterns of a text, such as "[%1:\n^1:]1". */
const listsOf = (text) => text.match(/\[[^\[\]:]*:[^\[\]:]*:\]\d/g) ?? [];

/** The marks of a text outside its list patterns. */
const marksOf = (text) => listsOf(text).reduce((rest, list) => rest.replace(list, ""), text).match(/\^\d/g) ?? [];

/** What is wrong with a translation. */
function faultsOf({ id, text, isFuzzy }) {
  const mayUse = id in marksOfKeys ? ["^1", "^2", "^3"].slice(0, marksOfKeys[id]) : marksOf(id);
  const mustUse = id in marksOfKeys ? [] : marksOf(id);
  const used = marksOf(text);
  return Object.entries({
    "has no translation": text === "",
    "is marked as a guess": isFuzzy,
    "has a mark that gets no value": used.some((mark) => !mayUse.includes(mark)),
    "lacks a mark": mustUse.some((mark) => !used.includes(mark)),
    "changes the list of its source": listsOf(id).some((list) => !text.includes(list)),
    "has no list for its items": listKeys.includes(id) && listsOf(text).length !== 1,
    "has a list that gets no items": !listKeys.includes(id) && listsOf(text).length > listsOf(id).length,
    "shows a key": /kGLMM_|\bE\d{5}\b|EffectVar|VarOfEffect|EMMEANS|DATA_STRUCTURE/.test(text),
    "is no whole text": /\.\.\.$/.test(text),
    "begins or ends with a blank": /^\s|\s$/.test(text),
    "holds a backslash": text.includes("\\"),
    "holds a control character": /\p{Cc}/u.test(text.replaceAll("\n", "")),
  }).filter(([, isFault]) => isFault).map(([words]) => `"${id}" ${words}`);
}

const faults = wanted.length > 300 ? [] : [`only ${wanted.length} texts were found`];
const catalogues = filesIn("languages", /\.po$/);
if (!catalogues.includes("languages/en.po")) faults.push("there is no English catalogue");
for (const path of catalogues) {
  const [header, ...entries] = entriesOf(path);
  const held = new Set(entries.map(({ id }) => id));
  const isDescribed = header.text.includes(`Language: ${basename(path, ".po")}\n`) && /charset=UTF-8/.test(header.text);
  if (!isDescribed) faults.push(`${path} does not name its language`);
  faults.push(...wanted.filter(({ text }) => !held.has(text)).map(({ text, place }) => `${path} lacks "${text}" of ${place}`));
  faults.push(...entries.flatMap(faultsOf).map((fault) => `${path}: ${fault}`));
}
if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
