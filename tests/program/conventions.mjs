// What is expected of any command line: help, hints at what was meant, documents found by any name, manual pages, and
// the completion of three shells: node conventions.mjs PROGRAM EXAMPLES WORK MANUAL HEADER

import { chmodSync, cpSync, mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { enter, expect, finish } from "../support/program.mjs";

const [program, examples, work, manual, header] = process.argv.slice(2);
const { run, spawn } = enter(work, program);
const missing = (words, others) => words.filter((word) => !others.includes(word));

// ---- help

const commands = ["report", "render", "check", "list", "batch"];
const helps = Object.fromEntries(["", ...commands].map((command) => 
  [command, run(...[command, "--help"].filter(Boolean))]));
for (const [command, help] of Object.entries(helps)) {
  expect(`help ${command}`, run("help", ...(command ? [command] : [])), help);
  expect(`help ${command}`, [help.status, help.err], [0, ""]);
  expect(`help ${command}: examples first`, help.out,
    /^[^]*\nUsage: hierfit [^]*\nExamples:\n {2}[^]*\nOptions:\n[^]*\nExit status: /);
}
expect("help help", run("help", "help"), helps[""]);
for (const command of commands) expect("commands", helps[""].out, new RegExp(`^ {2}${command} `, "m"));

// ---- wrong words: [arguments, what is said ahead of "Try: hierfit --help"]

for (const name of ["oats", "sleepstudy", "wine"]) cpSync(join(examples, name), `models/${name}`, { recursive: true });
const formats = "There are html, text, json, svg, png, markdown, docx, csv, xlsx, latex";
const wrong = [
  [[], "Give a command, or a folder with the two documents of a model"],
  [["report"], "Give a folder with the two documents, or both documents: hierfit report FOLDER"],
  [["render"], "Give a saved document, such as hierfit report -f json writes; - is standard input"],
  [["render", "a.json", "b.json"], "render takes one document, and there are 2"],
  [["reprot", "models/oats"], 'no command or folder "reprot"; did you mean "report"?'],
  [["models/otas"], 'no command or folder "models/otas"; did you mean "models/oats"?'],
  [["convert", "x"], 'no command or folder "convert"'],
  [["help", "rport"], 'no command "rport"; did you mean "report"?'],
  [["report", "--foramt", "html", "models/oats"], 'report has no option --foramt; did you mean "--format"?'],
  [["models/oats", "--onyl=a"], 'report has no option --onyl; did you mean "--only"?'],
  [["--lang", "C", "list", "models/oats"], "Give options behind the command: hierfit list ..."],
  [["models/oats", "--lang"], "--lang: the value is missing"],
  [["--verbose"], "--verbose: say of what: hierfit --version --verbose"],
  [["report", "-f", "hmtl", "models/oats"], `--format: hmtl: no such format; did you mean "html"? ${formats}`],
  [["report", "-f", "odt", "models/oats"], `--format: odt: no such format; ${formats.toLowerCase()}`],
  [["report", "--style", "ap", "models/oats"],
    '--style: ap: no such style; did you mean "apa"? There are plain, apa, ama'],
  [["report", "--lang", "eng", "models/oats"],
    '--lang: eng: no such language; did you mean "en"? There are C, de, en, he'],
  [["report", "--templates", "modles", "models/oats"],
    '--templates: modles: No such file or directory; did you mean "models"?'],
  [["report", "models/oats", "models/wine"],
    "report takes one model, and there are 2 folders; hierfit batch -o DIR FOLDER... writes a report for each"],
  [["report", "a", "b", "c"], "report takes a folder or two documents, and there are 3 arguments"],
];
for (const [args, text] of wrong) {
  expect(args.join(" "), run(...args), { status: 1, out: "", err: `hierfit: ${text}\nTry: hierfit --help\n` });
}

// ---- documents of a folder and of standard input: [name, files, what is said; none where they are found]

const contents = { pmml: readFileSync("models/oats/model.pmml"), statxml: readFileSync("models/oats/model.statxml") };
const folders = [
  ["any names", ["oats.pmml", "fit.StatXML", "notes.txt"]],
  ["the usual names among others", ["model.pmml", "model.statxml", "a.pmml", "b.statxml"]],
  ["none", ["notes.txt"], "the folder holds no PMML and no StatXML document (.pmml, .statxml)"],
  ["the other of two", ["model.statxml"], "there is model.statxml, but no PMML document (.pmml)"],
  ["several", ["b.pmml", "a.pmml", "model.statxml"],
    "there are 2 PMML documents, a.pmml, b.pmml; name both documents"],
  ["many", ["model.pmml", ..."abcdefg".split("").map((name) => `${name}.statxml`)],
    "there are 7 StatXML documents, a.statxml, b.statxml, c.statxml, d.statxml, e.statxml and 2 more; " +
      "name both documents"],
];
const oats = run("report", "-f", "text", "models/oats");
for (const [name, files, said] of folders) {
  rmSync("d", { recursive: true, force: true });
  mkdirSync("d");
  for (const file of files) writeFileSync(join("d", file), contents[file.split(".").at(-1).toLowerCase()] ?? "");
  const expected = said ? { status: 2, out: "", err: `hierfit: d: ${said}\n` } : oats;
  expect(name, run("report", "-f", "text", "d"), expected);
  expect(`${name}, in a batch`, run("batch", "-o", "out", "-f", "text", "d").err, said ? `hierfit: d: ${said}\n` : "");
}
writeFileSync("oats.json", run("report", "-f", "json", "models/oats").out);
const [pmml, statXml] = ["models/oats/model.pmml", "models/oats/model.statxml"];
const lone = ": one argument must be a folder with the two documents";
const paths = [
  [["models"], "models: the folder holds no PMML and no StatXML document (.pmml, .statxml), but folders that do: " +
    "oats, sleepstudy, wine; hierfit report models/oats shows one, hierfit batch -o DIR models/* all"],
  [["report", statXml, pmml],
    `${statXml} is the StatXML document and ${pmml} the PMML document; give the PMML document first`],
  [[pmml], `${pmml}${lone}; give the StatXML document behind it`],
  [[statXml], `${statXml}${lone}; give the PMML document before it`],
  [["oats.json"], `oats.json${lone}; hierfit render takes a saved document`],
  [[pmml, "models/oats"], "models/oats: Is a directory; give a folder alone, or two documents"],
  [[pmml, "models/oats/modl.statxml"],
    `models/oats/modl.statxml: No such file or directory; did you mean "${statXml}"?`],
  [["render", "otas.json"], 'otas.json: No such file or directory; did you mean "oats.json"?'],
  [["-", "-"], "standard input holds one document; name a file for the other"],
];
for (const [args, text] of paths) {
  expect(args.join(" "), run(...args), { status: 2, out: "", err: `hierfit: ${text}\n` });
}
const utf16 = Buffer.from(`\ufeff<?xml version="1.0"?><!-- <PMML> --><StatXML/>`, "utf16le");
writeFileSync("wide.xml", utf16);
expect("swapped, in UTF-16", run("report", "wide.xml", pmml).err, /give the PMML document first\n$/);
for (const [args, input] of [[[pmml, "-"], contents.statxml], [["-", statXml], contents.pmml]]) {
  expect(`report ${args.join(" ")}`, spawn(program, ["-f", "text", ...args], { input }), oats);
}
const broken = spawn(program, [pmml, "-"], { input: "<a" });
expect("a broken document on standard input", broken.err, /\nstandard input:1:\d+: /);
const again = spawn(program, ["render", "-f", "text", "-"], { input: readFileSync("oats.json") });
expect("a saved document on standard input", again, oats);
expect("a folder alone", run("models/oats"), run("report", "models/oats"));
expect("options and a pair", run("-f", "text", pmml, statXml), oats);

// ---- versions; output that nobody reads or that cannot be written

for (const args of [["--version", "--verbose"], ["--verbose", "--version"]]) {
  const { status, out } = run(...args);
  expect("versions", [status, out.split("\n")[0]], [0, run("--version").out.trim()]);
  for (const part of ["expat.\\d", "fmt \\d", "utf8proc \\d", "libhierfit.so\n",
    "librsvg \\d+\\.\\d+\\.\\d+ and cairo \\d",
    "libzip \\d", "libxlsxwriter \\d", "languages: C de en he\n"]) expect("versions", out, new RegExp(part));
}
for (const args of ["--help", "--version", "help report", "list models/oats", "models/oats"]) {
  const closed = spawn("bash", ["-c", `{ sleep 0.1; "$0" ${args}; echo $? >&2; } | true`, program]);
  expect(`${args} into a closed pipe`, closed.err, "141\n");
}
expect("help to a full device", spawn("bash", ["-c", '"$0" --help >/dev/full', program]),
  { status: 3, out: "", err: "hierfit: standard output: No space left on device\n" });

// ---- a terminal: progress of many files that take more than a second

const progress = (command) => spawn("script", ["-qec", `TERM=xterm ${command}`, "/dev/null"]).out;
const drawing = `${program} report -f png --scale 8 --only GLMMCustomEffects -o pixels models/oats`;
expect("progress of pictures", progress(drawing), /\r\x1b\[K\d+ of \d+ files.*\r\x1b\[K$/);
expect("progress of pictures in a document", progress(drawing.replace("-f png", "").replace("pixels", "pixels.docx")),
  /\r\x1b\[Kpicture \d+.*\r\x1b\[K$/);
expect("progress of a dumb terminal", progress(`TERM=dumb ${drawing}`), "");

// ---- manual pages

const page = readFileSync(join(manual, "hierfit.1"), "utf8");
const inHelp = new Set(Object.values(helps).flatMap(({ out }) =>
  [...out.matchAll(/^ {2}(?:(-\w),)?(--[\w-]+)/gm)].flatMap(([, short, long]) => (short ? [short, long] : [long]))));
const inPage = [...page.matchAll(/^\.It (Fl .*)$/gm)].flatMap(([, line]) =>
  [...line.matchAll(/Fl (Fl )?([\w-]+)/g)].map(([, isLong, name]) => (isLong ? "--" : "-") + name));
expect("options that the page lacks", missing([...inHelp], inPage), []);
expect("options that only the page has", missing(inPage, [...inHelp]), []);
const all = (text, pattern) => [...new Set([...text.matchAll(pattern)].map(([, name]) => name))];
expect("commands of the page", missing([...commands, "help"], all(page, /^\.It Cm (\w+)$/gm)), []);
const reference = readFileSync(join(manual, "hierfit.3"), "utf8");
const functions = all(readFileSync(header, "utf8"), /^HF_API [^(]*?(hf_\w+)\(/gm);
const described = all(reference, /^\.F[no] (hf_\w+)/gm);
const named = all(reference, /^\.Nm (hf_\w+)/gm);
expect("functions that the page lacks", [missing(functions, described), missing(functions, named)], [[], []]);
expect("functions that only the page has", missing([...described, ...named], functions), []);
for (const name of ["hierfit.1", "hierfit.3"]) {
  const lint = spawn("mandoc", ["-Tlint", join(manual, name)]).out.split("\n")
    .filter((line) => line !== "" && !line.includes("referenced manual not found"));
  expect(`${name}: mandoc`, lint, []);
}

// ---- completion: [words, the last one being completed, candidates]; then the same asked of the shells

const items = run("list", "-f", "json", "models/oats").out;
const names = JSON.parse(items).map(({ name }) => name);
const wanted = [
  [["re"], ["report", "render"]],
  [["--v"], ["--version", "--verbose"]],
  [["report", "-f", "x"], ["xlsx"]],
  [["report", "--format=do"], ["--format=docx"]],
  [["models/oats", "--style", ""], ["plain", "apa", "ama"]],
  [["batch", "--lang", ""], ["C", "de", "en", "he"]],
  [["report", "models/oats", "--only", "FixedC"], names.filter((name) => name.startsWith("FixedC"))],
  [["report", "models/oats", "--only=ModelSummary-1,FixedE"], ["--only=ModelSummary-1,FixedEffects-1"]],
  [["render", "oats.json", "--only", "Classif"], names.filter((name) => name.startsWith("Classif"))],
  [["report", "models/none", "--only", ""], []],
  [["report", "--title", ""], []],
  [["report", "-o", ""], [":files"]],
  [["batch", "-o", ""], [":folders"]],
];
const wordsOf = ({ out }) => out.split("\n").slice(0, -1).map((line) => line.split("\t")[0]);
for (const [words, expected] of wanted) {
  const got = run("--complete", String(words.length), ...words);
  expect(`complete ${words.join(" ")}`, wordsOf(got).filter((word) => words.length > 1 || word !== ":files"), expected);
  expect(`complete ${words.join(" ")}`, [got.status, got.err], [0, ""]);
}
expect("the names of what stands behind", wordsOf(run("--complete", "3", "report", "--only", "ModelS", "models/oats")),
  ["ModelSummary-1"]);
for (const args of [[], ["x"], ["0", "a"], ["-1"], ["99", "report"]]) {
  expect(`complete ${args}`, run("--complete", ...args).status, 0);
}

// What is typed, a tab behind it, becomes these words. The program that they are given to says which it got.
mkdirSync("bin");
writeFileSync("bin/hierfit", `#!/bin/sh
[ "$1" != --complete ] || exec '${program}' "$@"
printf 'GOT'; printf ' [%s]' "$@"; echo
`);
chmodSync("bin/hierfit", 0o755);
const typed = [
  ["hierfit report --sty\tap\t", "[report] [--style] [apa]"],
  ["hierfit report --format=htm\t", "[report] [--format=html]"],
  ["hierfit models/oats --only FixedCoe\t", "[models/oats] [--only] [FixedCoefficients-1]"],
  ["hierfit batch mod\t", /^\[batch\] \[models\/?\]$/],
  ["hierfit report --output=oat\t", "[report] [--output=oats.json]"],
];
const completion = join(manual, "completion");
writeFileSync("bashrc", `PATH="$PWD/bin:$PATH"; source '${completion}/hierfit'\n`);
writeFileSync(".zshrc", `PATH="$PWD/bin:$PATH"; fpath=('${completion}' $fpath)
autoload -Uz compinit; compinit -D -u
`);
for (const shell of ["bash --noprofile --rcfile bashrc -i", "zsh -d -i"]) {
  const input = `${typed.map(([line]) => `${line}\n`).join("")}exit\n`;
  const { out } = spawn("script", ["-qec", `TERM=xterm ZDOTDIR="$PWD" ${shell}`, "/dev/null"], { input });
  const got = [...out.matchAll(/GOT (\[.*\])\r/g)].map(([, words]) => words);
  typed.forEach(([line, expected], at) => expect(`${shell}: ${line}`, got[at] ?? out, expected));
}
const asked = wanted.filter(([, expected]) => !expected.some((word) => word.startsWith(":")));
const lines = [...asked.map(([words]) => words.join(" ")), "batch mode", "report --output=oat"];
const script = `set PATH "$PWD/bin" $PATH; source '${completion}/hierfit.fish'\n` +
  lines.map((line) => `echo "# ${line}"; complete -C "hierfit ${line}"\n`).join("");
const fish = spawn("fish", ["--no-config", "-c", script], { env: { ...process.env, HOME: work } });
const answers = fish.out.split(/^# .*\n/m).slice(1).map((out) => wordsOf({ out }).sort());
[...asked.map(([words, expected]) => [words.length === 1 ? expected.filter((word) => word !== ":files") : expected]),
  [["models/"]], [["--output=oats.json"]]].forEach(([expected], at) =>
  expect(`fish: ${lines[at]} ${fish.err}`, answers[at], [...expected].sort()));

finish();
