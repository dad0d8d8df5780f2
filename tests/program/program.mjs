// Runs the program as a user would, right and wrong, and compares exit status and standard error as whole texts:
// node program.mjs PROGRAM EXAMPLES WORK

import { chmodSync, cpSync, mkdirSync, readdirSync, readFileSync, rmSync, symlinkSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { enter, faults, finish } from "../support/program.mjs";

const [program, examples, work] = process.argv.slice(2);
const example = join(examples, "sleepstudy");
const pmml = readFileSync(join(example, "model.pmml"), "utf8");
const statXml = readFileSync(join(example, "model.statxml"), "utf8");

const { run, spawn } = enter(work, program);
function check(what, condition, detail) {
  if (!condition) faults.push(`${what}: ${detail}`);
}

const report = (...args) => run("report", "-f", "text", ...args);
const shell = (command) => spawn("bash", ["-c", command, program, example]);

/** No output, and for `err` a whole text or a pattern. */
function checkRefusal(name, got, status, err) {
  check(name, got.status === status && got.out === "", `status ${got.status}, output ${got.out.slice(0, 100)}`);
  const isExpected = err instanceof RegExp ? err.test(got.err) : got.err === err;
  check(name, isExpected, `standard error is\n${got.err.slice(0, 1000)}expected\n${err}`);
}

// What is said of a long text.
const long = "n\u00e4".repeat(5e6);
const cut = (longer, most = 200) => {
  const behind = Math.floor((most - 3) / 2);
  return `${longer.slice(0, most - 3 - behind)}...${longer.slice(-behind)}`;
};

// ---- documents that cannot be read: [name, pmml, statxml, standard error]; no output may appear

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
  ["an algorithm of 15 MB", pmml, statXml.replace('algorithmName="GLMM"', `algorithmName="${long}"`),
    `${error}d/model.statxml:XX: StatXML/PMMLModel/PredictiveSummary: the algorithm is "${cut(long)}", not "GLMM"\n`],
  ["a field's name of 15 MB", pmml, statXml.replaceAll('<Value value="Days"/>', `<Value value="${long}"/>`)
      .replace(/<Attribute name="NestingLevels">[^]*?<\/Attribute>/g, ""),
    `${error}d/model.statxml:XX: StatXML/BuildSettings/Parameter[12]/ListValue/StructuredValue/Attribute/ListValue/Value: ` +
    `"${cut(long)}" is no field of the data source\n`],
  ["an attribute of 100 MB", pmml, `<a b="${"x".repeat(1e8)}"/>`,
    `${error}d/model.statxml:1:1: an attribute value is longer than 16 MiB\n<a b="${"x".repeat(34)}...\n^\n`],
];

mkdirSync("d");
for (const [name, fields, results, expected] of unreadable) {
  writeFileSync("d/model.pmml", fields);
  writeFileSync("d/model.statxml", results);
  const got = report("-o", "never.txt", "d");
  if (String(expected).includes(":XX:")) got.err = got.err.replace(/:\d+:\d+: /g, ":XX: ");
  checkRefusal(name, got, 2, expected);
  check(name, !readdirSync(".").includes("never.txt"), "there is output");
}

// ---- files that cannot be read, and wrong usage: [name, arguments, status, standard error]

mkdirSync("empty");
writeFileSync("bad.json", '{"format": "hierfit-output",\n  oops}');
writeFileSync("other.json", '{"format": "something"}');
writeFileSync("long.json", `{"${long}": "${long}", "format": "${long}"}`);
const usage = "Try: hierfit --help\n";
const refused = [
  ["a missing file", ["report", "no.pmml", "no.statxml"], 2, "hierfit: no.pmml: No such file or directory\n"],
  ["a missing file of a long name", ["report", long.slice(0, 2000), "x"], 2,
    `hierfit: ${cut(long.slice(0, 2000), 1000)}: File name too long\n`],
  ["a language of a long name", ["report", "--lang", long.slice(0, 2000), example], 1, /^hierfit: --lang: [^]{1,1050}$/],
  ["a saved document of long texts", ["render", "long.json"], 2, 'hierfit: long.json: /format: "hierfit-output" expected\n'],
  ["a missing saved document", ["render", "no.json"], 2, "hierfit: no.json: No such file or directory\n"],
  ["an unknown ending", ["report", "-o", "a.odt", example], 1,
    `hierfit: --output: a.odt: no format has the ending .odt; say which by --format\n${usage}`],
  ["no folder to write to", ["report", "-o", "none/a.html", example], 3, "hierfit: none/a.html: No such file or directory\n"],
  ["a folder to write over", ["report", "-f", "text", "-o", "empty", example], 3, "hierfit: empty: Is a directory\n"],
  ["a name that no item bears", ["report", "--only", "ModelSummary-1,FixedEfects", example], 1,
    /^hierfit: no item is named FixedEfects; there are FixedEffects-1, [^\n]+ and 1 more\n$/],
  ["a part of a document that is whole", ["report", "-f", "json", "--only", "FixedEffects", example], 1,
    "hierfit: --only: json holds the whole document or none of it\nTry: hierfit --help\n"],
  ["a style of what is saved", ["report", "-f", "json", "--style", "plain", example], 1,
    "hierfit: --style, --digits: json holds the document itself, without a style\nTry: hierfit --help\n"],
  ...["16", "-1", "two"].map((digits) => [`${digits} digits`, ["report", "--digits", digits, example], 1,
    `hierfit: --digits: ${digits} is no number from 0 to 15\nTry: hierfit --help\n`]),
  ["pictures without a folder", ["report", "-f", "svg", example], 1,
    `hierfit: --format svg: --output must name a folder\n${usage}`],
  ["an empty name", ["report", "-o", "", example], 1, `hierfit: --output: an empty name\n${usage}`],
  ...["0", "20.5", "nan", "2x", ""].map((scale) => ["a wrong scale",
    ["report", "-f", "png", "-o", "never", "--scale", scale, example], 1,
    `hierfit: --scale: ${scale} is no number above 0 and up to 20\n${usage}`]),
  ["pictures into a file", ["report", "-f", "svg", "-o", "bad.json", example], 3, "hierfit: bad.json: Not a directory\n"],
  ["a device that is full", ["report", "-f", "text", "-o", "/dev/full", example], 3,
    "hierfit: /dev/full: No space left on device\n"],
];
for (const [name, args, status, expected] of refused) checkRefusal(name, run(...args), status, expected);

for (const file of ["bad.json", "other.json"]) {
  checkRefusal(file, run("render", "-f", "text", file), 2, /^hierfit: (bad|other)\.json:.+\n$/);
}

// ---- some items of a report, from a model and from a saved document

const some = report("--only", "FixedCoefficients,Covariance-Parameters-1", "--only", "FixedEffects-1", example);
for (const [title, isShown] of [["Fixed Effects", true], ["Fixed Coefficients", true], ["Covariance Parameters", true],
  ["Model Summary", false], ["Random Effect Block", false], ["Predicted by Observed", false]]) {
  check(`only: ${title}`, some.status === 0 && some.out.includes(title) === isShown, some.out + some.err);
}
const short = report("--style", "apa", "--digits", "1", "--only", "FixedCoefficients-1", example);
check("a style", /Days +10\.5 +1\.5 +6\.8 +< \.001 +7\.2 +13\.7/.test(short.out), short.out + short.err);
const one = run("report", "-f", "csv", "--only", "FixedCoefficients", example);
check("csv of one table", one.status === 0 && one.out.startsWith("Model Term,Coefficient,"), one.out + one.err);
for (const [names, reason] of [["FixedEffects,FixedCoefficients", "csv holds one table, and 2 are chosen"],
  ["GLMMFixedCoefficients-2", "csv holds no charts: GLMMFixedCoefficients-2"]]) {
  checkRefusal(names, run("report", "-f", "csv", "--only", names, example), 1, `hierfit: ${reason}\n`);
}
writeFileSync("whole.json", run("report", "-f", "json", example).out);
const chosen = run("render", "-f", "svg", "-o", "some", "--only", "GLMMFixedCoefficients-2", "whole.json");
check("only: charts", chosen.status === 0 && readdirSync("some").join() === "GLMMFixedCoefficients-2.svg", chosen.err);

// ---- output: whole or not at all

const text = report(example).out;

writeFileSync("old.txt", "old");
chmodSync("old.txt", 0o640);
symlinkSync("old.txt", "link.txt");
let got = run("report", "-o", "link.txt", example);
check("a link", got.status === 0 && readFileSync("old.txt", "utf8") === text, "the file behind the link is not written");
check("a link", shell("stat -c %a old.txt").out === "640\n", "the file's rights have changed");
check("temporary files", !readdirSync(".").some((name) => name.includes(".txt.")), readdirSync(".").join(" "));

writeFileSync("old.txt", "old");
got = shell('ulimit -f 1; "$0" report -o old.txt -f html "$1"');
check("a full disk", got.status === 3 && got.err === "hierfit: old.txt: File too large\n", `${got.status} ${got.err}`);
check("a full disk", readFileSync("old.txt", "utf8") === "old", "the old file is gone");
check("a full disk", !readdirSync(".").some((name) => name.startsWith("old.txt.")), "a temporary file is left");

got = shell('set -o pipefail; { sleep 0.2; "$0" report -f html "$1"; echo $? >&2; } | true');
check("a pipe closed before", got.err === "141\n", got.err);

// ---- a pager on a terminal of 10 lines: [name, environment, arguments, what the pager gets, exit status]

const paged = [
  ["a pager", "PAGER='sed s/^/P:/'", "", /^P:sleepstudy: Generalized[^]*\nP:a\. This[^]*$/, 0],
  ["a pager of its own", "HIERFIT_PAGER='sed s/^/P:/' PAGER=false", "", /^P:sleepstudy: Generalized/, 0],
  ["a terminal that only prints", "env -u PAGER TERM=dumb", "--color auto", /^sleepstudy: Generalized[^\x1b]*$/, 0],
  ["a pager that is quit", "PAGER='head -c 20'", "", /^sleepstudy: Generali$/, 0],
  ["a pager that is not there", "PAGER=no-such-pager", "", /no-such-pager: not found\nsleepstudy: Generalized/, 0],
  ["no pager", "PAGER='sed s/^/P:/'", "--no-pager", /^sleepstudy: Generalized/, 0],
  ["a pager for text alone", "PAGER='sed s/^/P:/'", "-f json", /^\{/, 0],
  ["a pager and a failure", "PAGER='sed s/^/P:/'", "no.pmml", /^hierfit: no.pmml: No such file/, 2],
  ["less as it is set up", "PAGER='echo $LESS; cat > /dev/null'", "", /^FRX\n$/, 0],
  ["less as the user sets it up", "LESS=X PAGER='echo $LESS; cat > /dev/null'", "", /^X\n$/, 0],
];
const terminal = (lines, command) => {
  const { status, out } = spawn("script", ["-qec", `stty rows ${lines} cols 80; ${command}`, "/dev/null"]);
  return { status, out: out.replaceAll("\r", "") };
};
for (const [name, environment, args, expected, status] of paged) {
  got = terminal(10, `${environment} ${program} report ${args.includes("--color") ? "" : "--color never"} ${args} ${example}`);
  check(name, got.status === status && expected.test(got.out), `${got.status} ${got.out.slice(0, 300)}`);
}
for (const [name, args, isPaged] of [["a list", "list", true], ["a list as data", "list -f json", false],
  ["a list at once", "list --no-pager", false], ["a short list of remarks", "check", false]]) {
  got = terminal(4, `PAGER='sed s/^/P:/' ${program} ${args} ${example}`);
  check(name, got.status === 0 && got.out.startsWith("P:") === isPaged, `${got.status} ${got.out.slice(0, 300)}`);
}
got = terminal(5000, `PAGER='sed s/^/P:/' ${program} report ${example}`);
check("a page that fits", got.status === 0 && !got.out.includes("P:"), got.out.slice(0, 300));
got = spawn("bash", ["-c", `PAGER='sed s/^/P:/' ${program} report -f text ${example} | cat`]);
check("a pager for a terminal alone", !got.out.includes("P:"), got.out.slice(0, 300));

// ---- a program without its procedure

spawn("bash", ["-c", `mkdir -p bare/bin bare/lib && cp ${program} bare/bin/ && cp -L ${dirname(dirname(program))}/lib/libhierfit_host.so* bare/lib/ &&
  cp -r ${dirname(dirname(program))}/share bare/`]);
checkRefusal("no procedure", spawn("bare/bin/hierfit", ["report", "-f", "text", example]), 4,
  /^hierfit: .*libhierfit\.so: [^\n]*\n$/);

// ---- what goes where

run("report", "-o", "a.json", example);
check("format by ending", JSON.parse(readFileSync("a.json", "utf8")).format === "hierfit-output", "no document");
check("no colour in a file", !text.includes("\x1b"), "escape sequences");
const outputs = [
  ["html by default", ["report", example], "<!DOCTYPE html>"],
  ["charts by title", ["report", "-f", "text", example], "\nChart: Fixed Effects\n\n"],
  ["charts with their values", ["report", "-f", "text", "--charts", example], "\nChart: Fixed Effects\nDiagram: "],
  ["colour when asked for", ["report", "-f", "text", "--color", "always", example], "\x1b["],
  ["version", ["--version"], "hierfit 0.1.0\n"],
  ["both", ["report", "-f", "text", "--variables", "both", example], "Reaction (Average reaction time (ms))"],
  ["source texts", ["report", "-f", "text", "--lang", "C", example], "log likelhood"],
];
for (const [name, args, part] of outputs) {
  const { status, out } = run(...args);
  check(name, status === 0 && out.includes(part), `${status} ${out.slice(0, 400)}`);
}

// ---- long texts of the back-end

const message = `<Message><PrintableList pattern="${long}"><PrintableValue value="${long}"/></PrintableList></Message>`;
writeFileSync("d/model.pmml", pmml);
writeFileSync("d/model.statxml", statXml.replace("</TrainingSummary>", `${message}</TrainingSummary>`));
got = report("d");
check("a message of 15 MB", got.status === 0, `status ${got.status}`);
check("a message of 15 MB", got.err.replace(/^.*?: /, "") === `${cut(long)} (${cut(long, 1000)})\n`, got.err.slice(0, 3000));

const chartsIn = (items) => items.flatMap((item) => (item.kind === "heading" ? chartsIn(item.items) : item))
  .filter(({ kind }) => kind === "chart");
run("report", "-f", "svg", "-o", "new/folder/", example);
const pictures = readdirSync("new/folder");
const charts = chartsIn(JSON.parse(readFileSync("a.json", "utf8")).items);
check("pictures", pictures.length > 0 && pictures.length === charts.length, `${pictures} of ${charts.length} charts`);
for (const picture of pictures) {
  check(picture, readFileSync(join("new/folder", picture), "utf8").startsWith("<svg xmlns="), "is no picture");
}

const saved = JSON.parse(readFileSync("a.json", "utf8"));
chartsIn(saved.items)[0].picture.notes = Array(1200).fill("Slept well.");
writeFileSync("tall.json", JSON.stringify(saved));
got = run("render", "-f", "png", "-o", "short", "tall.json");
const tall = "GLMMPredictedByObserved-1.png";
checkRefusal("a picture too tall", got, 3, `hierfit: short/${tall}: the picture is too large for png\n`);
check("a picture too tall", readdirSync("short").length === pictures.length - 1, `there are ${readdirSync("short")}`);

// An installation without the module that draws pixels.
const root = dirname(dirname(program));
for (const part of ["bin/hierfit", "lib"]) {
  cpSync(join(root, part), join("nopixels", part),
    { recursive: true, verbatimSymlinks: true, filter: (path) => !path.includes("libhierfit_raster") });
}
symlinkSync(join(root, "share"), "nopixels/share");
got = spawn("nopixels/bin/hierfit", ["report", "-f", "png", "-o", "none", example]);
checkRefusal("a missing module", got, 4, /^hierfit: png takes libhierfit_raster\.so: .+: No such file or directory; install [^\n]+ librsvg2-dev [^\n]+\n$/);
check("a missing module", !readdirSync(".").includes("none"), "there is output");
got = spawn("nopixels/bin/hierfit", ["report", "-o", "none.docx", example]);
checkRefusal("a missing module", got, 4, /^hierfit: docx takes libhierfit_raster\.so: .+: No such file or directory; install [^\n]+\n$/);
check("a missing module", !readdirSync(".").includes("none.docx"), "there is output");
got = spawn("nopixels/bin/hierfit", ["report", "-f", "svg", "-o", "vectors", example]);
check("a missing module", got.status === 0, `SVG takes it: ${got.err}`);

const bare = run("report", "--static", "-f", "html", example).out;
check("a static page", bare.includes("<svg") && !bare.includes("<script"), "has a script or no picture");

// ---- encodings

const utf16 = Buffer.from(`\ufeff${statXml.replace('encoding="UTF-8"', 'encoding="UTF-16"')}`, "utf16le");
writeFileSync("d/model.statxml", utf16);
check("UTF-16", report("d").out === text.replaceAll("sleepstudy", "d"), "another report");

finish();
