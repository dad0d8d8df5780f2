// Runs the program with a fault at one place after another, and looks at what it leaves behind.

import { spawn } from "node:child_process";
import { cpSync, existsSync, mkdirSync, readdirSync, readFileSync, rmSync, statSync, writeFileSync } from "node:fs";
import { join, relative } from "node:path";

const workers = 2;
const mostFaults = 10; // of one test, which is enough to see
const longest = 30000; // milliseconds; a run takes some ten
const old = "what stood here before\n";

/** All files below a folder by their path in it. */
export function readTree(folder) {
  const files = new Map();
  const visit = (path) => {
    for (const name of readdirSync(path)) {
      const below = join(path, name);
      if (statSync(below).isDirectory()) visit(below);
      else files.set(relative(folder, below), readFileSync(below));
    }
  };
  if (existsSync(folder)) visit(folder);
  return files;
}

/** The program as the library of faults lets it run; `fault` is what the environment tells the library. */
export function run({ program, library }, test, folder, fault) {
  return new Promise((resolve) => {
    const temporary = join(folder, "tmp");
    const environment = { ...process.env, LD_PRELOAD: library, TMPDIR: temporary, ...fault };
    const stdio = ["pipe", "pipe", "pipe", "pipe"];
    const child = spawn(program, test.arguments, { cwd: folder, env: environment, stdio });
    const texts = ["", "", "", ""];
    for (const at of [1, 2, 3]) child.stdio[at].setEncoding("latin1").on("data", (text) => (texts[at] += text));
    child.stdin.on("error", () => {});
    child.stdin.end(test.input ?? "");
    const stop = setTimeout(() => child.kill("SIGKILL"), longest);
    child.on("close", (status, signal) => {
      clearTimeout(stop);
      const report = texts[3];
      const [, call, stack] = /^fault (\S+) (.*)$/m.exec(report) ?? [];
      const count = Number(/^count (\d+)$/m.exec(report)?.[1] ?? NaN);
      resolve({ status, signal, out: texts[1], err: texts[2], call, stack: stack?.split(" ") ?? [], count });
    });
  });
}

/** Makes a folder as it is before a run: the documents, and old files where the program will write. */
function prepare(folder, test, expected) {
  for (const name of ["out", "tmp"]) rmSync(join(folder, name), { recursive: true, force: true });
  for (const name of ["out", "tmp"]) mkdirSync(join(folder, name), { recursive: true });
  for (const name of expected?.files.keys() ?? []) {
    mkdirSync(join(folder, "out", name, ".."), { recursive: true });
    writeFileSync(join(folder, "out", name), old);
  }
}

/** Faults of what is left: each file is the old one or the new one as a whole, and there is none besides. */
function checkFiles(folder, expected, isDone, isWhole) {
  const faults = [];
  const files = readTree(join(folder, "out"));
  for (const [name, bytes] of files) {
    const whole = expected.files.get(name);
    if (!whole) faults.push(`${name} is left behind`);
    else if (bytes.equals(whole) || (isWhole && isWhole(name, bytes))) continue;
    else if (isDone || !bytes.equals(Buffer.from(old))) faults.push(`${name} is neither the old file nor the new one`);
  }
  for (const name of expected.files.keys()) if (!files.has(name)) faults.push(`${name} is gone`);
  for (const name of readTree(join(folder, "tmp")).keys()) faults.push(`the temporary file ${name} is left behind`);
  return faults;
}

/**
 * Runs a test once without a fault, then once for each place that is chosen among all, and calls `judge` with what came
 * of it, which gives faults as texts. Gives how many runs there were, how they ended, and the faults.
 */
export async function faultEach(setting, test, fault, judge) {
  const folder = (worker) => join(setting.work, `${worker}`);
  for (let worker = 0; worker < workers; ++worker) {
    mkdirSync(folder(worker), { recursive: true });
    for (const model of setting.models) {
      cpSync(join(setting.examples, model), join(folder(worker), model), { recursive: true });
    }
  }
  prepare(folder(0), test);
  const clean = await run(setting, test, folder(0), { FAULT_WHAT: fault.FAULT_WHAT, FAULT_FOLDER: fault.FAULT_FOLDER });
  const expected = { out: clean.out, files: readTree(join(folder(0), "out")) };
  if (clean.status !== 0) throw Error(`${test.name} fails without a fault: ${clean.status} ${clean.err}`);

  const step = Math.max(1, Math.ceil(clean.count / setting.most));
  const result = { places: clean.count, runs: 0, ends: {}, faults: [] };
  let next = 1;
  const work = async (worker) => {
    while (next <= clean.count && result.faults.length < mostFaults) {
      const at = next;
      next += step;
      prepare(folder(worker), test, expected);
      const got = await run(setting, test, folder(worker), { ...fault, FAULT_AT: `${at}` });
      ++result.runs;
      const end = got.signal ?? got.status;
      result.ends[end] = (result.ends[end] ?? 0) + 1;
      const isDone = got.status === 0;
      // A folder that is there already takes fewer calls than the first run did: the last places are not reached.
      const judged = got.call === undefined && isDone ? [] : judge(got, expected);
      const faults = [...judged, ...checkFiles(folder(worker), expected, isDone, test.isWhole)];
      if (isDone && got.out !== expected.out) faults.push("another output than without the fault");
      for (const one of faults) {
        const what = Object.values(fault).join(" ");
        const place = `${got.call}; ${got.stack.slice(0, 8).join(" ")}`;
        const told = `  ended with ${end}: ${got.err.slice(0, 300)}`;
        result.faults.push(`${test.name}, ${what} at ${at} (${place}): ${one}\n${told}`);
      }
    }
  };
  await Promise.all(Array.from({ length: workers }, (_, worker) => work(worker)));
  return result;
}

// What libraries say besides, of workbooks and of XML in pictures, which nobody can keep from them.
const besides = /^(\[(ERROR|WARNING)\]|parser error : Memory).*\n+/gm;

/** Nothing where the program said why it failed, in one line for each that may fail, by one of the statuses. */
export function checkRefusal(got, statuses, models = 1) {
  const faults = [];
  if (!statuses.includes(got.status)) faults.push(`status ${got.signal ?? got.status}`);
  const lines = got.err.replace(besides, "").split("\n");
  const isTold = lines.length > 1 && lines.length <= models + 1 && lines.indexOf("") === lines.length - 1;
  if (!isTold) faults.push("not one line on standard error");
  return faults;
}
