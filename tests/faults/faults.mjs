// Lets the program meet faults of one kind, at every place where it may, and says where it did not keep what it
// promises: node faults.mjs allocation|output|input|signals PROGRAM LIBRARY EXAMPLES WORK
//
// HIERFIT_FAULT_RUNS is how many places each test takes at most, evenly among all.

import { spawnSync } from "node:child_process";
import { rmSync } from "node:fs";
import { constants } from "node:os";
import { join } from "node:path";
import { checkRefusal, faultEach } from "./runner.mjs";

const [kind, program, library, examples, work] = process.argv.slice(2);
const most = Number(process.env.HIERFIT_FAULT_RUNS ?? 16);
const setting = { program, library, examples, work, models: ["sleepstudy", "oats"], most };
const { errno, signals } = constants;

rmSync(work, { recursive: true, force: true });

// ---- what is run

const endings = { text: "txt", markdown: "md", latex: "tex" };
const formats = ["html", "text", "json", "markdown", "latex", "csv", "svg", "png", "docx", "xlsx"];
const isFolder = (format) => ["svg", "png", "csv"].includes(format);
const nameOf = (format) => (isFolder(format) ? "out" : `out/report.${endings[format] ?? format}`);
const report = (format, output) => ["report", "-f", format, "-o", output, "sleepstudy"];

const files = formats.map((format) => ({
  name: `report -f ${format} -o`, arguments: report(format, nameOf(format)), format,
}));
const streams = formats.filter((format) => !["svg", "png"].includes(format)).map((format) => ({
  name: `report -f ${format}`,
  arguments: [...report(format, "-"), ...(format === "csv" ? ["--only", "ModelSummary-1"] : [])],
  format,
}));
const saved = spawnSync(program, ["report", "-f", "json", join(examples, "sleepstudy")], { maxBuffer: 1 << 26 });
const others = [
  { name: "render -o", arguments: ["render", "-o", "out/report.html", "-"], input: saved.stdout },
  { name: "list", arguments: ["list", "sleepstudy"] },
  { name: "check", arguments: ["check", "sleepstudy"] },
];

// An index of the models that have a report is whole, too.
const isIndex = (name, bytes) => name === "index.html" && bytes.toString("utf8").endsWith("</html>\n");
const batches = [1, 2].map((jobs) => ({
  name: `batch --jobs ${jobs}`,
  arguments: ["batch", "-o", "out", "--force", "--jobs", `${jobs}`, "sleepstudy", "oats"],
  isWhole: isIndex,
  failures: 3,
}));
const all = [...files, ...others, ...batches];

// ---- allocations

// These end the process where memory is short, GLib and librsvg by design, or wait for a thread that could not begin.
// What they leave behind is judged all the same.
const draws = new Set(["png", "latex", "docx", "xlsx"]);
const ours = /^(libhierfit|hierfit$)/;
const plain = /^lib(faults|hierfit_faults|c|m|stdc\+\+|gcc_s)\.so/;
// A library that goes on may draw with other letters, or without; what it draws is complete as a file.
const endsOf = { pdf: "%%EOF\n", png: "IEND\xae\x42\x60\x82", docx: "PK\x05\x06", xlsx: "PK\x05\x06" };
function isComplete(name, bytes) {
  const end = endsOf[name.split(".").at(-1)];
  return end !== undefined && bytes.subarray(-22).toString("latin1").includes(end);
}
const isOfLibrary = (got) => !ours.test(got.stack.find((name) => !plain.test(name)) ?? "hierfit");

function judgeAllocation(test, got) {
  if (draws.has(test.format) && isOfLibrary(got) && (got.signal || got.status === 0)) return [];
  if (got.status === 0) return got.err === "" ? [] : ["words on standard error without a failure"];
  return checkRefusal(got, [2, 3, 4]);
}

async function* failAllocations() {
  for (const each of all) {
    const test = draws.has(each.format) ? { ...each, isWhole: isComplete } : each;
    for (const how of ["once", "always"]) {
      const fault = { FAULT_WHAT: "allocation", FAULT_HOW: how };
      yield [test, how, await faultEach(setting, test, fault, (got) => judgeAllocation(test, got))];
    }
  }
}

// ---- output

const failures = ["ENOSPC", "EIO", "EDQUOT", "EACCES", "EROFS", "EINTR", "EMFILE", "EPERM"];

async function* failOutput() {
  const fail = (name, how = "once") => ({ FAULT_WHAT: "output", FAULT_HOW: how, FAULT_NUMBER: `${errno[name]}` });
  for (const test of [...all, ...streams]) {
    // A write that a signal breaks off goes on; a file of ours that cannot be closed is not done.
    const mayPass = (got, name) => got.status === 0 && got.err === "" &&
      !(name === "EIO" && got.call === "close" && files.includes(test) && test.format !== "xlsx");
    const mustPass = (got, name) => name === "EINTR" && got.call === "write" && got.status !== 0;
    const judge = (name) => (got) => (mustPass(got, name) ? ["an interrupted write is given up"]
      : mayPass(got, name) ? [] : checkRefusal(got, [1, 3, 4], test.failures));
    // A workbook is written to memory first, where the other failures cannot be.
    const possible = test.format === "xlsx" ? failures.slice(0, 3) : failures;
    for (const name of possible) yield [test, name, await faultEach(setting, test, fail(name), judge(name))];
    yield [test, "half", await faultEach(setting, test, fail("ENOSPC", "short"), judge("half"))];
  }
  const judgeClosed = (got) => (got.status === 141 && got.err === "" ? [] : [`status ${got.signal ?? got.status}`]);
  for (const test of streams.filter(({ format }) => format !== "xlsx")) {
    yield [test, "EPIPE", await faultEach(setting, test, fail("EPIPE"), judgeClosed)];
  }
}

// ---- input

async function* failInput() {
  const judge = (got) => (got.status === 0 ? [] : checkRefusal(got, [2]));
  // A document that ends too soon is shown with the place.
  const isTold = (got) => got.status === 0 || (got.status === 2 && got.err !== "");
  const judgeEnd = (got) => (isTold(got) ? [] : [`status ${got.signal ?? got.status}`]);
  for (const test of all) {
    for (const name of ["EIO", "EINTR", "EACCES", "EMFILE", "end of file"]) {
      const number = errno[name] ?? 0;
      const fault = { FAULT_WHAT: "input", FAULT_HOW: "once", FAULT_NUMBER: `${number}`, FAULT_FOLDER: "sleepstudy" };
      yield [test, name, await faultEach(setting, test, fault, number ? judge : judgeEnd)];
    }
  }
}

// ---- signals

async function* sendSignals() {
  for (const test of all) {
    for (const name of ["SIGINT", "SIGTERM", "SIGHUP"]) {
      const judge = (got) => (got.signal === name && got.err === "" ? [] : [`ended with ${got.signal ?? got.status}`]);
      for (const [what, how] of [["output", "before"], ["output", "after"], ["allocation", "before"]]) {
        const fault = { FAULT_WHAT: what, FAULT_HOW: how, FAULT_NUMBER: `${signals[name]}` };
        yield [test, `${name} ${how} ${what}`, await faultEach(setting, test, fault, judge)];
      }
    }
  }
}

const kinds = { allocation: failAllocations, output: failOutput, input: failInput, signals: sendSignals };
const faults = [];
let runs = 0;
for await (const [test, how, result] of kinds[kind]()) {
  const ends = Object.entries(result.ends).map(([end, count]) => `${end}: ${count}`).join(", ");
  console.log(`${test.name}, ${how}: ${result.runs} of ${result.places} places; ended with ${ends}`);
  for (const fault of result.faults) console.log(fault);
  faults.push(...result.faults);
  runs += result.runs;
}
console.log(`${runs} runs, ${faults.length} faults`);
process.exit(faults.length > 0 ? 1 : 0);
