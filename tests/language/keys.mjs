// Checks that the catalogues hold what the program asks for, and that what they give can be shown:
//   node keys.mjs PROJECT          says what is wrong
//   node keys.mjs PROJECT --list   tells of every language how far it is, and what is wrong
//
// In the code of the procedure, a text is for the reader when it is passed to a translating operation, or when it looks
// like words: it begins with a capital or a mark and is no name, such as LabelX. Diagnostics begin small.

import { readFileSync, readdirSync } from "node:fs";
import { basename, join } from "node:path";

const [project, mode] = process.argv.slice(2);

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

/** The literals of a source with what stands about them. */
function literalsOf(path) {
  const source = read(path).replace(/\/\/.*|^ *#.*/gm, "").replace(/\/\*[^]*?\*\//g, "").replace(/"\s*\n\s*"/g, "");
  const literals = source.matchAll(/'(?:[^'\\\n]|\\.)+'|"(?<words>(?:[^"\\\n]|\\.)+)"/g);
  return Array.from(literals).flatMap(({ 0: { length }, index, groups: { words } }) => words === undefined ? [] : [{
    text: words.replaceAll("\\n", "\n").replace(/\\(.)/g, "$1"), path,
    before: source.slice(0, index), after: source.slice(index + length),
  }]);
}

/** Whether a catalogue must hold a literal. */
const isWanted = ({ text, path, before, after }) => certainty(before, after)
  ?? (path.startsWith("backend/hierfit") && looksLikeWords(text, readers.test(basename(path))));

const literals = filesIn("backend", /\.(cpp|h)$/).flatMap(literalsOf);

const textsLike = (folder, names, pattern) => filesIn(folder, names).flatMap((path) =>
  Array.from(read(path).matchAll(pattern), ([, text]) => ({ text, place: path })));

/** The words of the reports themselves: those of the headers that keep them. */
const ownWords = filesIn("report", /Words\.h$/).flatMap((path) =>
  Array.from(read(path).matchAll(/\bstring_view(?:, \d+>)? k\w+(?: =|\{)([^;]*);/g), ([, words]) => words)
    .flatMap((words) => Array.from(words.matchAll(/"([^"]+)"/g), ([, text]) => ({ text, place: path }))));

const wanted = [
  ...ownWords,
  ...literals.filter(isWanted).map(({ text, path }) => ({ text, place: path })),
  ...textsLike("template", /\.(xml|viztemplate)$/, /\slookup="([^"]*)"/g),
  ...textsLike("examples", /\.statxml$/, /\spattern="([^"]*)"\s+isKey="true"/g),
  ...[...documentKeys, ...listKeys, ...Object.keys(marksOfKeys)].map((text) => ({ text, place: "keys.mjs" })),
];

/** The entries of a catalogue, parted by empty lines; the first (id "") describes it. */
function entriesOf(path) {
  return read(path).split(/\n{2,}/).filter((entry) => entry.includes("msgid ")).map((entry) => {
    const [id, text] = entry.replace(/^#.*\n/gm, "").split("msgstr ").map((part) =>
      Array.from(part.matchAll(/".*"/g), ([line]) => JSON.parse(line)).join(""));  // its escapes are JSON's, too
    const [isFuzzy, hasPlurals] = [/^#,.*fuzzy/m, /^msgid_plural /m].map((pattern) => pattern.test(entry));
    return { id, text, isFuzzy, hasPlurals };
  });
}

/** The list patterns of a text, such as "[%1:\n^1:]1". */
const listsOf = (text) => text.match(/\[[^\[\]:]*:[^\[\]:]*:\]\d/g) ?? [];

/** The marks of a text outside its list patterns. */
const marksOf = (text) => listsOf(text).reduce((rest, list) => rest.replace(list, ""), text).match(/\^\d/g) ?? [];

/** Languages whose letters go from right to left. */
const mirrored = ["ar", "ckb", "dv", "fa", "he", "ps", "sd", "ug", "ur", "yi"];

/** What is wrong with a translation. */
function faultsOf({ id, text, isFuzzy, hasPlurals }, language) {
  const mayUse = id in marksOfKeys ? ["^1", "^2", "^3"].slice(0, marksOfKeys[id]) : marksOf(id);
  const mustUse = id in marksOfKeys ? [] : marksOf(id);
  const used = marksOf(text);
  return Object.entries({
    "has no translation": text === "",
    "is marked as a guess": isFuzzy,
    "has plurals, which are not told apart": hasPlurals,
    "has a mark that gets no value": used.some((mark) => !mayUse.includes(mark)),
    "lacks a mark": mustUse.some((mark) => !used.includes(mark)),
    "changes the list of its source": listsOf(id).some((list) => !text.includes(list)),
    "has no list for its items": listKeys.includes(id) && listsOf(text).length !== 1,
    "has a list that gets no items": !listKeys.includes(id) && listsOf(text).length > listsOf(id).length,
    "shows a key": /kGLMM_|\bE\d{5}\b|EffectVar|VarOfEffect|EMMEANS|DATA_STRUCTURE/.test(text),
    "is no whole text": /\.\.\.$/.test(text),
    "begins or ends with a blank": /^\s|\s$/.test(text),
    "takes its direction from a value": mirrored.includes(language) && /^\^\d(?!: )/.test(text),
    "holds a backslash": text.includes("\\"),
    "holds a control character": /\p{Cc}/u.test(text.replaceAll("\n", "")),
  }).filter(([, isFault]) => isFault).map(([words]) => `"${id}" ${words}`);
}

/** Messages of the fitter: they come with a model's results, which may hold any of them. */
const messages = /^kGLMM_C\d/;

const used = new Set(wanted.map(({ text }) => text));
const known = new Set([...used, ...literals.map(({ text }) => text)]);

const catalogues = filesIn("languages", /\.po$/);
const english = entriesOf("languages/en.po").slice(1).map(({ id }) => ({ text: id, place: "languages/en.po" }));

/** How far a catalogue is, and what is wrong with it. */
function judge(path) {
  const language = basename(path, ".po");
  const [header, ...entries] = entriesOf(path);
  const ids = entries.map(({ id }) => id);
  const held = new Set(ids);
  const missing = [...wanted, ...english].filter(({ text }) => !held.has(text));
  const unused = ids.filter((id) => !known.has(id) && !messages.test(id));
  const isDescribed = header.text.includes(`Language: ${language}\n`) && /charset=UTF-8/.test(header.text);
  const faults = [
    ...isDescribed ? [] : ["does not name its language"],
    ...missing.map(({ text, place }) => `lacks "${text}" of ${place}`),
    ...unused.map((id) => `"${id}" is used by nothing`),
    ...entries.flatMap((entry) => faultsOf(entry, language)),
  ].map((fault) => `${path}: ${fault}`);
  const same = entries.filter(({ id, text }) => id === text).length;
  return { language, faults, state: `${entries.length} texts, ${new Set(missing.map(({ text }) => text)).size} missing, ` +
    `${unused.length} unused, ${same} as in the source, ${faults.length} faults` };
}

const judged = catalogues.map(judge);
if (mode === "--list") for (const { language, state } of judged) console.log(`${language}: ${state}`);
const faults = judged.flatMap((one) => one.faults);
if (used.size <= 150) faults.push(`only ${used.size} texts were found`);
if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
