// Makes the reports of many models: node batch.mjs PROGRAM EXAMPLES WORK

import { spawn, spawnSync } from "node:child_process";
import { cpSync, existsSync, mkdirSync, readdirSync, readFileSync, rmSync, statSync, symlinkSync, utimesSync,
  writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { enter, expect as check, finish } from "../support/program.mjs";

const [program, examples, work] = process.argv.slice(2);
const { run, spawn: runWith } = enter(work, program);
const batch = (...args) => run("batch", ...args);
const ok = { status: 0, out: "", err: "" };

/** Models by path, each a copy of an example that is older than any report. */
function makeModels(models) {
  const old = new Date("2020-01-01");
  for (const [path, example] of Object.entries(models)) {
    cpSync(join(examples, example), path, { recursive: true });
    for (const name of ["model.pmml", "model.statxml"]) utimesSync(join(path, name), old, old);
  }
}

const unescape = (text) => [["&lt;", "<"], ["&gt;", ">"], ["&quot;", '"'], ["&amp;", "&"]]
  .reduce((rest, [entity, character]) => rest.replaceAll(entity, character), text);

/** What an index shows: its rows as words, by table. */
function readIndex(folder) {
  const page = readFileSync(join(folder, "index.html"), "utf8");
  const rowsOf = (id) => {
    const table = page.split(`<figure class="table" id="${id}">`)[1]?.split("</figure>")[0].split("<tbody>")[1] ?? "";
    return [...table.matchAll(/<tr.*<\/tr>/g)].map(([row]) => row.match(/<t[hd][^]*?<\/t[hd]>/g)
      .map((cell) => unescape(cell.replace(/<[^>]+>/g, ""))));
  };
  const links = [...page.matchAll(/<a href="([^"#]+)">/g)].map(([, href]) => decodeURIComponent(href));
  return { reports: rowsOf("Reports"), failures: rowsOf("Failures"), links };
}

const bytesOf = (folder) => Object.fromEntries(readdirSync(folder, { recursive: true }).sort()
  .filter((name) => statSync(join(folder, name)).isFile())
  .map((name) => [name, readFileSync(join(folder, name), "base64")]));

makeModels({ "m/oats": "oats", "m/cbpp": "cbpp", "m/warpbreaks": "warpbreaks", "m/bacteria": "bacteria",
  "m/messages-only": "messages-only" });

// ---- names: [what, folders as given, reports, rows in the order of the index]

makeModels(Object.fromEntries(["a/x", "b/x", "c/x", "d/x-2", "d/index", "b/x y%&<", "b/\u00e4", "a b"]
  .map((path) => [path, "sleepstudy"])));
const names = [
  ["collisions", ["d/x-2", "c/x", "a/x", "b/x"], ["x.html", "x-2.html", "x-3.html", "x-2-2.html"],
    ["a/x", "b/x", "c/x", "d/x-2"]],
  ["the index's own name", ["d/index", "a/x"], ["x.html", "index-2.html"], ["a/x", "d/index"]],
  ["one folder twice", ["a/x/", "a/x", "./a//x", `${work}/a/x`], ["x.html"], ["./a//x"]],
  ["odd names", ["b/\u00e4", "b/x y%&<"], ["x y%&<.html", "\u00e4.html"], ["b/x y%&<", "b/\u00e4"]],
  ["paths in order of their bytes", ["a/x", "a b"], ["a b.html", "x.html"], ["a b", "a/x"]],
];
names.forEach(([what, folders, reports, rows], at) => {
  check(what, batch("-o", `names${at}/deep/`, "-f", "html", ...folders), ok);
  const index = readIndex(`names${at}/deep`);
  check(`${what}: reports`, readdirSync(`names${at}/deep`).sort(), [...reports, "index.html"].sort());
  check(`${what}: links`, index.links, reports);
  check(`${what}: rows`, index.reports.map(([path]) => path), rows);
});

// ---- reports are those of the command that makes one

const formats = [["html", ".html"], ["text", ".txt"], ["json", ".json"]];
for (const [format, ending] of formats) {
  const options = ["--lang", "C"];
  if (format !== "json") options.push("--title", "T & U", "--style", "apa", "--only", "FixedEffects,ModelSummary");
  batch("-o", `as-${format}`, "-f", format, ...options, "m/oats", "m/cbpp");
  for (const model of ["oats", "cbpp"]) {
    check(`${format} of ${model}`, readFileSync(`as-${format}/${model}${ending}`, "utf8"),
      run("report", "-f", format, ...options, `m/${model}`).out);
  }
}
for (const format of ["svg", "png"]) {
  check(format, batch("-o", `as-${format}`, "-f", format, "m/oats", "m/cbpp"), ok);
  run("report", "-f", format, "-o", "one", "m/oats");
  check(`${format}: pictures`, bytesOf(`as-${format}/oats`), bytesOf("one"));
  check(`${format}: links`, readIndex(`as-${format}`).links, ["cbpp", "oats"]);
  rmSync("one", { recursive: true });
}

// ---- the index

check("an index", readIndex("as-json").reports, [
  ["m/cbpp", "New serological cases out of Animals in the herd at the start of the period", "", "195.253", "204.180",
    "0"],
  ["m/oats", "Yield (bushels/acre)", "72", "567.600", "593.178", "0"]]);
batch("-o", "few", "-f", "html", "m/messages-only", "m/warpbreaks");
check("an index of warnings", readIndex("few").reports.map((row) => row.at(-1)), ["1", "1"]);
check("no model", runWith(program, ["batch", "-o", "nothing", "-f", "text"], { input: "\n \n" }), ok);
check("an index of no model", { ...readIndex("nothing"), files: readdirSync("nothing") },
  { reports: [], failures: [], links: [], files: ["index.html"] });

// ---- failures: the rest goes on; each is a line, in the order of the paths

makeModels(Object.fromEntries(["2-empty", "3-broken", "5-other", "6-good", "8-written"]
  .map((name) => [`f/${name}`, "oats"])));
mkdirSync("f/1-nothing");
writeFileSync("f/2-empty/model.statxml", "");
writeFileSync("f/3-broken/model.statxml", "data,1\n");
writeFileSync("f/5-other/model.pmml", "<PMML/>");
const failures = [
  ["f/1-nothing", "f/1-nothing: the folder holds no PMML and no StatXML document (.pmml, .statxml)"],
  ["f/2-empty", "f/2-empty/model.statxml:1:1: the document is empty"],
  ["f/3-broken", "f/3-broken/model.statxml:1:1: syntax error"],
  ["f/4-missing", "f/4-missing: No such file or directory"],
  ["f/5-other", "f/5-other/model.pmml:1:1: PMML: element \"DataDictionary\" expected"],
  ["f/two\nlines", "f/two\nlines: No such file or directory"],
];
const folders = [...failures.map(([folder]) => folder), "f/6-good"];
const lines = failures.map(([, reason]) => `hierfit: ${reason.replace("\n", " ")}\n`).join("");
for (const jobs of ["1", "4"]) {
  const got = batch("-o", `failed${jobs}`, "-f", "text", "--jobs", jobs, ...folders);
  check(`failures, ${jobs} at a time`, got, { status: 2, out: "", err: lines });
  const index = readIndex(`failed${jobs}`);
  check("failures in the index", index.failures,
    failures.map((words) => words.map((word) => word.replace("\n", ""))));
  check("the rest", index.links, ["6-good.txt"]);
}
mkdirSync("blocked/8-written.html", { recursive: true });
const blocked = batch("-o", "blocked", "-f", "html", "f/1-nothing", "f/6-good", "f/8-written");
check("a report that cannot be written", blocked,
  { status: 3, out: "", err: `hierfit: ${failures[0][1]}\n` +
    "hierfit: blocked/8-written.html: Is a directory\n" });
check("the others", readIndex("blocked").links, ["6-good.html"]);
const chosen = batch("-o", "chosen", "-f", "html", "--only", "Classification-1", "m/bacteria", "m/oats");
const isTold = /^hierfit: m\/oats: no item is named [^\n]+\n$/.test(chosen.err);
check("items that a model has not", [chosen.status, isTold], [2, true]);

// ---- nothing is written: [arguments, status, standard error]

writeFileSync("file", "");
const refused = [
  [["-o", "file", "-f", "html", "m/oats"], 3, /^hierfit: file: Not a directory\n$/],
  [["-o", "/proc/none", "m/oats"], 3, /^hierfit: \/proc\/none: No such file or directory\n$/],
  [["-f", "html", "m/oats"], 1, /^hierfit: --output is required: /],
  [["-o", "-", "m/oats"], 1, /^hierfit: --output must name a folder\n/],
  [["-o", "", "m/oats"], 1, /^hierfit: --output is required: the folder/],
  [["-o", "never", "-f", "json", "--only", "FixedEffects", "m/oats"], 1, /^hierfit: --only: json holds/],
  ...["0", "x", "99999"].map((jobs) => [["-o", "never", "--jobs", jobs, "m/oats"], 1, /--jobs/]),
];
for (const [args, status, err] of refused) {
  const got = batch(...args);
  check(args.join(" "), { status: got.status, isTold: err.test(got.err) || got.err }, { status, isTold: true });
}
check("nothing is written", existsSync("never"), false);

// A program without its procedure gives up at the first model.
const root = dirname(dirname(program));
for (const part of ["bin/hierfit", "lib"]) {
  cpSync(join(root, part), join("bare", part),
    { recursive: true, verbatimSymlinks: true, filter: (path) => !path.endsWith("libhierfit.so") });
}
symlinkSync(join(root, "share"), "bare/share");
const args = ["batch", "-o", "bare/reports", "--jobs", "1", "m/oats", "m/cbpp"];
const bare = spawnSync("bare/bin/hierfit", args, { encoding: "utf8" });
check("no procedure", bare.status, 4);
check("no procedure: a line", /^hierfit: [^\n]*libhierfit\.so: [^\n]*\n$/.test(bare.stderr) || bare.stderr, true);
check("no procedure: files", readdirSync("bare/reports"), []);

// ---- what is there: [what, what is changed, arguments, the models whose reports are made again]

const models = ["m/cbpp", "m/oats", "m/warpbreaks"];
const reports = models.map((model) => `kept/${model.slice(2)}.html`);
const past = new Date("2021-01-01");
const future = new Date(Date.now() + 1e7);
let index = "";
const skips = [
  ["nothing is changed", () => {}, [], []],
  ["force", () => {}, ["--force"], models],
  ["a newer StatXML", () => utimesSync("m/oats/model.statxml", future, future), [], ["m/oats"]],
  ["a document of the same time", () => utimesSync("m/oats/model.pmml", past, past), [], ["m/oats"]],
  ["a missing report", () => rmSync("kept/oats.html"), [], ["m/oats"]],
  ["no index", () => rmSync("kept/index.html"), [], []],
  ["an index of something else", () => writeFileSync("kept/index.html", "<tr data-folder=\"x\"\n<h1>Home"), [], []],
  ["a report that is newer than the index", () => utimesSync("kept/oats.html", future, future), [], []],
  ["an index that knows a report for another model's",
    () => writeFileSync("kept/index.html", index.replace("../m/oats", "../m/other")), [], ["m/oats"]],
];
check("reports", batch("-o", "kept", ...models), ok);
index = readFileSync("kept/index.html", "utf8");
for (const [what, change, args, made] of skips) {
  const old = new Date("2020-01-01");
  for (const model of models) {
    for (const name of ["model.pmml", "model.statxml"]) utimesSync(join(model, name), old, old);
  }
  for (const report of reports) {
    writeFileSync(report, "as it was");
    utimesSync(report, past, past);
  }
  change();
  check(what, batch("-o", "kept", ...args, ...models), ok);
  check(`${what}: made again`, models.filter((_, at) => readFileSync(reports[at], "utf8") !== "as it was"), made);
  check(`${what}: index`, readFileSync("kept/index.html", "utf8"), index);
}

// What was made by an interrupted run is not taken for whole where that cannot be seen.
rmSync("as-svg/index.html");
rmSync("as-svg/oats/GLMMFixedCoefficients-1.svg");
batch("-o", "as-svg", "-f", "svg", "m/oats", "m/cbpp");
check("pictures without an index", existsSync("as-svg/oats/GLMMFixedCoefficients-1.svg"), true);
rmSync("as-svg/oats/GLMMFixedCoefficients-1.svg");
const later = new Date(Date.now() + 2e7);
utimesSync("as-svg/index.html", later, later);
batch("-o", "as-svg", "-f", "svg", "m/oats", "m/cbpp");
check("pictures that the index knows", existsSync("as-svg/oats/GLMMFixedCoefficients-1.svg"), false);

// A report of another model of the same name is no report of this one.
batch("-o", "moved", "a/x", "b/x");
makeModels({ "e/x": "oats" });
check("a model behind others of its name", batch("-o", "moved", "e/x"), ok);
check("a model behind others of its name", readIndex("moved").reports.map((row) => row[1]), ["Yield (bushels/acre)"]);
check("the report behind it", readFileSync("moved/x.html", "utf8").includes("Yield (bushels/acre)"), true);

// ---- standard input

check("a list", runWith(program, ["batch", "-o", "listed", "-f", "text"], { input: "m/oats\n\na/x/\nm/oats" }), ok);
check("a list", readIndex("listed").links, ["x.txt", "oats.txt"]);

// ---- many at a time: the same bytes

const many = Array.from({ length: 40 }, (_, number) => `many/${number % 8}/fit${number % 5}`);
many.forEach((path, number) => {
  mkdirSync(dirname(path), { recursive: true });
  symlinkSync(join(work, "m", ["oats", "cbpp", "warpbreaks"][number % 3]), path);
});
for (const [format, most] of [["html", 40], ["png", 9]]) {
  const made = ["1", "2", "7"].map((jobs) => {
    check(`${jobs} jobs`, batch("-o", format + jobs, "-f", format, "--jobs", jobs, ...many.slice(0, most)), ok);
    return bytesOf(format + jobs);
  });
  for (const other of made.slice(1)) {
    check(`${format}: files`, Object.keys(other), Object.keys(made[0]));
    check(`${format}: files that differ`, Object.keys(other).filter((name) => other[name] !== made[0][name]), []);
  }
}

// ---- a terminal: one line that is gone at the end

const shown = (command) => spawnSync("script", ["-qec", command, "/dev/null"], { encoding: "utf8" }).stdout;
const progress = shown(`${program} batch -o tty m/oats f/1-nothing`);
check("progress", /\r\x1b\[K\d of 2 models, [01] failed/.test(progress), true);
check("what stays", progress.split(/\r\x1b\[K/).filter((part) => !/^\d of 2/.test(part)).join(""),
  `hierfit: ${failures[0][1]}\r\n`);
check("no folder on a terminal", shown(`${program} batch -o tty; echo $?`),
  "hierfit: no folder is named; give them as arguments or list them on standard input\r\n1\r\n");

// ---- an interrupt: what is under way is finished, the index holds it, and nothing else is left

const large = join(work, "large");
spawnSync(process.execPath, [join(dirname(examples), "bench/large/means.mjs"), large, "10"]);
mkdirSync("loop");
for (let number = 0; number < 2000; ++number) symlinkSync(large, `loop/fit${number}`);
for (const signal of ["SIGINT", "SIGTERM"]) {
  const loop = readdirSync("loop").map((name) => `loop/${name}`);
  const child = spawn(program, ["batch", "-o", signal, "-f", "text", "--jobs", "2", ...loop]);
  while (!existsSync(signal) || readdirSync(signal).filter((name) => name.endsWith(".txt")).length < 3) {
    await new Promise((resolve) => setTimeout(resolve, 5));
  }
  child.kill(signal);
  const ended = await new Promise((resolve) => child.on("exit", (...how) => resolve(how)));
  const files = readdirSync(signal).filter((name) => name !== "index.html");
  check(`${signal}: its end`, ended, [null, signal]);
  check(`${signal}: the index`, readIndex(signal).links, files.sort());
  check(`${signal}: not all`, files.length < 2000, true);
}

finish();
