// Runs the program as a user would, right and wrong, and compares exit status and standard error as whole texts:
// node program.mjs PROGRAM EXAMPLES WORK

import { spawnSync } from "node:child_process";
import { chmodSync, mkdirSync, readdirSync, readFileSync, rmSync, symlinkSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [program, examples, work] = process.argv.slice(2);
const example = join(examples, "sleepstudy");
const pmml = readFileSync(join(example, "model.pmml"), "utf8");
const statXml = readFileSync(join(example, "model.statxml"), "utf8");

rmSync(work, { recursive: true, force: true });
mkdirSync(work, { recursive: true });
process.chdir(work);

const faults = [];
function check(what, condition, detail) {
  if (!condition) faults.push(`${what}: ${detail}`);
}

function run(args, options = {}) {
  const result = spawnSync(program, args, { encoding: "utf8", maxBuffer: 1 << 28, ...options });
  return { status: result.status ?? result.signal, out: result.stdout, err: result.stderr };
}

function shell(command) {
  const result = spawnSync("bash", ["-c", command, program, example], { encoding: "utf8", maxBuffer: 1 << 28 });
  return { status: result.status ?? result.signal, out: result.stdout, err: result.stderr };
}

// ---- documents that cannot be read: [name, pmml, statxml, standard error]; no output may appear

const before = (text, marker) => text.slice(0, text.indexOf(marker));
const error = "hierfit: error: The StatXML document of the model could not be read.\n";
const unreadable = [
  ["an empty statxml", pmml, "", "d/model.statxml:1:1: the document is empty\n"],
  ["a statxml that is no XML", pmml, "data,1\n",
    `${error}d/model.statxml:1:1: syntax error\ndata,1\n^\n`],
  ["a missing attribute", pmml, statXml.replace('name="AICC" value=', 'name="AICC" was='),
    `${error}d/model.statxml:XX: StatXML/PMMLModel/ModelDiagnostics/Statistic[2]: attribute "value" expected\n`],
  ["another algorithm", pmml, statXml.replace('algorithmName="GLMM"', 'algorithmName="glmm"'),
    `${error}d/model.statxml:XX: StatXML/PMMLModel/PredictiveSummary: the algorithm is "glmm", not "GLMM"\n`],
  ["an unknown field of an effect", pmml, statXml.replaceAll('<Value value="Days"/>', '<Value value="Dayz"/>')
      .replace(/<Attribute name="NestingLevels">[^]*?<\/Attribute>/g, ""),
    `${error}d/model.statxml:XX: StatXML/BuildSettings/Parameter[12]/ListValue/StructuredValue/Attribute/ListValue/Value: ` +
    `"Dayz" is no field of the data source\n`],
  ["a PMML without fields", "<PMML/>", statXml, "d/model.pmml:1:1: PMML: element \"DataDictionary\" expected\n"],
  ["a document type", pmml, '<!DOCTYPE a [<!ENTITY b "c">]>\n<a>&b;</a>',
    `${error}d/model.statxml:1:1: document type declarations are not read\n<!DOCTYPE a [<!ENTITY b "c">]>\n^\n`],
];

mkdirSync("d");
for (const [name, fields, results, expected] of unreadable) {
  writeFileSync("d/model.pmml", fields);
  writeFileSync("d/model.statxml", results);
  const got = run(["report", "-f", "text", "-o", "never.txt", "d"]);
  const told = expected.includes(":XX:") ? got.err.replace(/:\d+:\d+: /g, ":XX: ") : got.err;
  check(name, got.status === 2, `status ${got.status}`);
  check(name, told === expected, `standard error is\n${got.err}expected\n${expected}`);
  check(name, got.out === "" && !readdirSync(".").includes("never.txt"), "there is output");
}

// ---- files that cannot be read, and wrong usage: [name, arguments, status, standard error]

mkdirSync("empty");
writeFileSync("bad.json", '{"format": "hierfit-output",\n  oops}');
writeFileSync("other.json", '{"format": "something"}');
const usage = "Try: hierfit --help\n";
const refused = [
  ["a missing file", ["report", "no.pmml", "no.statxml"], 2, "hierfit: no.pmml: No such file or directory\n"],
  ["a folder without documents", ["report", "empty"], 2, "hierfit: empty/model.pmml: No such file or directory\n"],
  ["one file alone", ["report", "bad.json"], 2,
    "hierfit: bad.json: one argument must be a folder with model.pmml and model.statxml\n"],
  ["a folder as a document", ["report", join(example, "model.pmml"), "empty"], 2, "hierfit: empty: Is a directory\n"],
  ["a missing saved document", ["render", "no.json"], 2, "hierfit: no.json: No such file or directory\n"],
  ["an unknown language", ["report", "--lang", "xx", example], 1,
    `hierfit: --lang: xx: no such language; there are C, en\n${usage}`],
  ["an unknown ending", ["report", "-o", "a.docx", example], 1,
    `hierfit: --output: a.docx: no format has the ending .docx; say which by --format\n${usage}`],
  ["no folder to write to", ["report", "-o", "none/a.html", example], 3, "hierfit: none/a.html: No such file or directory\n"],
  ["a folder to write over", ["report", "-f", "text", "-o", "empty", example], 3, "hierfit: empty: Is a directory\n"],
  ["a device that is full", ["report", "-f", "text", "-o", "/dev/full", example], 3,
    "hierfit: /dev/full: No space left on device\n"],
];
for (const [name, args, status, expected] of refused) {
  const got = run(args);
  check(name, got.status === status, `status ${got.status}`);
  check(name, got.err === expected, `standard error is\n${got.err}expected\n${expected}`);
  check(name, got.out === "", "there is output");
}

for (const args of [[], ["report"], ["report", "-f", "docx", example], ["report", "--color", "red", example], ["convert", "x"],
  ["report", "a", "b", "c"], ["render"]]) {
  const got = run(args);
  check(args.join(" "), got.status === 1 && got.err.startsWith("hierfit: ") && got.err.endsWith(usage), `${got.status} ${got.err}`);
}
for (const file of ["bad.json", "other.json"]) {
  const got = run(["render", "-f", "text", file]);
  check(file, got.status === 2 && /^hierfit: (bad|other)\.json:.+\n$/.test(got.err), `${got.status} ${got.err}`);
}

// ---- output: whole or not at all

const text = run(["report", "-f", "text", example]).out;
check("a report", text.includes("Model Summary") && text.includes("1756.114"), text.slice(0, 400));

writeFileSync("old.txt", "old");
chmodSync("old.txt", 0o640);
symlinkSync("old.txt", "link.txt");
let got = run(["report", "-o", "link.txt", example]);
check("a link", got.status === 0 && readFileSync("old.txt", "utf8") === text, "the file behind the link is not written");
check("a link", shell("stat -c %a old.txt").out === "640\n", "the file's rights have changed");
check("temporary files", !readdirSync(".").some((name) => name.includes(".txt.")), readdirSync(".").join(" "));

writeFileSync("old.txt", "old");
got = shell('ulimit -f 1; "$0" report -o old.txt -f html "$1"');
check("a full disk", got.status === 3 && got.err === "hierfit: old.txt: File too large\n", `${got.status} ${got.err}`);
check("a full disk", readFileSync("old.txt", "utf8") === "old", "the old file is gone");
check("a full disk", !readdirSync(".").some((name) => name.startsWith("old.txt.")), "a temporary file is left");

got = shell('set -o pipefail; { "$0" report -f html "$1"; echo $? >&2; } | true');
check("a closed pipe", got.err === "hierfit: standard output: Broken pipe\n3\n" || got.err === "0\n", got.err);

// ---- what goes where

check("html by default", run(["report", example]).out.toLowerCase().startsWith("<!doctype html>"), "no page");
check("format by ending", (run(["report", "-o", "a.json", example]), JSON.parse(readFileSync("a.json", "utf8")).format) ===
  "hierfit-output", "no document");
check("no colour in a file", !run(["report", "-f", "text", example]).out.includes("\x1b"), "escape sequences");
check("colour when asked for", run(["report", "-f", "text", "--color", "always", example]).out.includes("\x1b["), "no colour");
check("help", run(["--help"]).status === 0 && run(["report", "--help"]).out.includes("--variables"), "no help");
check("version", run(["--version"]).out === "hierfit 0.1.0\n", run(["--version"]).out);
check("names", run(["report", "-f", "text", "--variables", "name", example]).out.includes("Reaction"), "no name");
check("both", run(["report", "-f", "text", "--variables", "both", example]).out
  .includes("Reaction (Average reaction time (ms))"), "not both");
check("the messages of a model that failed", run(["report", "-f", "text", join(examples, "messages-only")]).out
  .includes("number of observations (=108)"), "the back-end's message is not shown");
check("source texts", run(["report", "-f", "text", "--lang", "C", example]).out.includes("log likelhood"), "translated");

// ---- every truncation of a document ends in one clear error

for (let size = 1; size < statXml.length - 12; size += 97) {
  writeFileSync("d/model.pmml", pmml);
  writeFileSync("d/model.statxml", statXml.slice(0, size));
  got = run(["report", "-f", "text", "d"]);
  if (got.status !== 2 || !/^d\/model\.statxml:\d+:\d+: .+/m.test(got.err)) check("truncated", false, `${size}: ${got.status} ${got.err}`);
}

// ---- encodings that are read, and large or deep documents that are not

const utf16 = Buffer.concat([Buffer.from([0xff, 0xfe]), Buffer.from(statXml.replace('encoding="UTF-8"', 'encoding="UTF-16"'), "utf16le")]);
writeFileSync("d/model.statxml", utf16);
check("UTF-16", run(["report", "-f", "text", "d"]).out === text.replaceAll("sleepstudy", "d"), "another report");

const large = [
  ["a million nested elements", "<a>".repeat(1e6)],
  ["an attribute of 100 MB", `<a b="${"x".repeat(1e8)}"/>`],
  ["NUL bytes", "<a>\0</a>"],
  ["invalid UTF-8", Buffer.from([0x3c, 0x61, 0x3e, 0xff, 0xfe, 0x3c, 0x2f, 0x61, 0x3e])],
  ["an entity bomb", '<!DOCTYPE l [<!ENTITY a "aaaaaaaaaa">' + Array.from({ length: 20 }, (_, i) =>
    `<!ENTITY ${"b".repeat(i + 1)} "${i ? "&" + "b".repeat(i) + ";" : "&a;"}${i ? "&" + "b".repeat(i) + ";" : "&a;"}">`).join("") + "]><l>&bbbbbbbbbbbbbbbbbbbb;</l>"],
  ["an external entity", '<!DOCTYPE l [<!ENTITY x SYSTEM "file:///etc/passwd">]><l>&x;</l>'],
];
for (const [name, results] of large) {
  writeFileSync("d/model.statxml", results);
  got = run(["report", "-f", "text", "-o", "never.txt", "d"]);
  check(name, got.status === 2 && got.err.split("\n").length <= 5 && got.err.length < 1000, `${got.status} ${got.err.slice(0, 300)}`);
}

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
