// Compares the program's whole output for every example with the approved one, in every format:
//   node golden.mjs PROGRAM SCENES EXAMPLES            compare
//   node golden.mjs PROGRAM SCENES EXAMPLES --approve [NAME...]   take over what the program gives now
//
// A saved document must also render to the same bytes as a fresh one. Style sheet and script of a page are the same in all
// pages and are left out of the approved files, as are the pictures: SCENES, a program, prints what they show as lines that
// a person can review, and one picture of each kind stands as the SVG file that it is.

import { execFileSync } from "node:child_process";
import { existsSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const [program, scenes, examples, mode, ...chosen] = process.argv.slice(2);
const approved = join(dirname(fileURLToPath(import.meta.url)), "approved");
const endings = { text: "txt", json: "json", html: "html" };
const work = mkdtempSync(join(tmpdir(), "golden-"));

// One picture of each kind, and of levels each that is drawn in a way of its own.
const pictures = {
  bacteria: ["GLMMPairwiseContrasts-1"],
  chickweight: ["GLMMPredictedByObserved-1"],
  oats: ["GLMMFixedCoefficients-2", "GLMMCustomEffects-4", "GLMMSimpleContrasts-1"],
};

// Texts for papers: of these examples, and of one of them in every style.
const papers = ["oats", "cbpp", "wine", "sleepstudy"];
const styled = "sleepstudy";
const paperFormats = { markdown: "md", latex: "tex" };

// What stands in other languages, one from left to right and one from right to left, of an example with all kinds of tables.
const translated = { cbpp: ["de", "he"] };

function run(args, input) {
  return execFileSync(program, args, { input, encoding: "utf8", maxBuffer: 1 << 28, stdio: ["pipe", "pipe", "ignore"] });
}

function withoutAssets(page) {
  return page.replace(/<(style|script|svg)\b[^>]*>[^]*?<\/\1>/g, "<$1></$1>").replace(/sha256-[\w+/=]+/g, "sha256-");
}

function firstDifference(expected, actual) {
  const left = expected.split("\n");
  const right = actual.split("\n");
  const line = left.findIndex((text, index) => text !== right[index]);
  const at = line < 0 ? left.length : line;
  return `line ${at + 1}\n  approved: ${left[at]}\n  now:      ${right[at]}`;
}

const faults = [];

function judge(name, actual) {
  const path = join(approved, name);
  if (mode === "--approve") return writeFileSync(path, actual);
  const expected = existsSync(path) ? readFileSync(path, "utf8") : "";
  if (expected !== actual) faults.push(`${name}: ${firstDifference(expected, actual)}`);
}

function judgePictures(name, example, saved) {
  const path = join(work, "saved.json");
  writeFileSync(path, saved);
  judge(`${name}.scenes`, execFileSync(scenes, [path], { encoding: "utf8", maxBuffer: 1 << 28 }));
  if (!pictures[name]) return;
  run(["report", "-f", "svg", "-o", work, example]);
  for (const picture of pictures[name]) judge(`${name}-${picture}.svg`, readFileSync(join(work, `${picture}.svg`), "utf8"));
}

for (const name of readdirSync(examples).filter((entry) => existsSync(join(examples, entry, "model.pmml")))) {
  if (chosen.length > 0 && !chosen.includes(name)) continue;
  const saved = run(["report", "-f", "json", join(examples, name)]);
  for (const [format, ending] of Object.entries(endings)) {
    const whole = run(["report", "-f", format, join(examples, name)]);
    const again = run(["render", "-f", format, "-"], saved);
    if (whole !== again) faults.push(`${name}, ${format}: the saved document renders otherwise: ${firstDifference(whole, again)}`);
    judge(`${name}.${ending}`, format === "html" ? withoutAssets(whole) : whole);
  }
  judgePictures(name, join(examples, name), saved);
}
for (const name of papers.filter((one) => chosen.length === 0 || chosen.includes(one))) {
  const example = join(examples, name);
  for (const [format, ending] of Object.entries(paperFormats)) {
    judge(`${name}.${ending}`, run(["report", "-f", format, example]));
    if (name !== styled) continue;
    for (const style of ["apa", "ama"]) judge(`${name}-${style}.${ending}`, run(["report", "-f", format, "--style", style, example]));
  }
  run(["report", "-f", "csv", "-o", join(work, name), example]);
  for (const file of readdirSync(join(work, name))) judge(`${name}-${file}`, readFileSync(join(work, name, file), "utf8"));
}
for (const [name, languages] of Object.entries(translated)) {
  if (chosen.length > 0 && !chosen.includes(name)) continue;
  for (const language of languages) {
    const saved = run(["report", "-f", "json", "--lang", language, join(examples, name)]);
    for (const format of ["text", "html"]) {
      const whole = run(["report", "-f", format, "--lang", language, join(examples, name)]);
      if (whole !== run(["render", "-f", format, "-"], saved)) faults.push(`${name}, ${language}: ${format} of the saved document differs`);
      judge(`${name}-${language}.${endings[format]}`, format === "html" ? withoutAssets(whole) : whole);
    }
  }
}
rmSync(work, { recursive: true });

if (faults.length > 0) {
  console.error(`${faults.join("\n")}\nIf this is meant: tests/approve NAME...`);
  process.exit(1);
}
