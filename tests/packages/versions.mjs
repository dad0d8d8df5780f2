// Holds every place that names the version to that of the build, and the manual to what the program's help tells:
// node versions.mjs ROOT VERSION PROGRAM

import { execFileSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { join } from "node:path";

const [root, version, program] = process.argv.slice(2);
const run = (...args) => execFileSync(program, args, { encoding: "utf8" });
const read = (path) => readFileSync(join(root, path), "utf8");
const places = [
  ["bridges/r/DESCRIPTION", /^Version: (.*)$/m],
  ["bridges/python/pyproject.toml", /^version = "(.*)"$/m],
  ["CHANGELOG.md", /^## (\S+)/m],
  ["program/hierfit.1", /^\.TH .*"hierfit (.*?)"/m],
  ["interface/hierfit.h", /^\/\* "(.*)"\. \*\/\nHF_API const char\* hf_version/m],
];

const faults = [];
for (const [path, pattern] of places) {
  const found = pattern.exec(read(path))?.[1];
  if (found !== version) faults.push(`${path}: ${found}, not ${version}`);
}
if (!run("--version").includes(version)) faults.push(`--version: ${run("--version")}`);

const manual = read("program/hierfit.1").replaceAll("\\-", "-");
const told = new Set([...manual.matchAll(/--[a-z-]+/g)].map(([option]) => option));
const known = new Set();
for (const command of [[], ["report"], ["render"], ["check"], ["list"], ["batch"]]) {
  for (const [option] of run(...command, "--help").matchAll(/--[a-z-]+/g)) known.add(option);
}
for (const option of known) if (!told.has(option)) faults.push(`the manual lacks ${option}`);
for (const option of told) if (!known.has(option)) faults.push(`the manual tells of ${option}, which there is not`);
if (known.size < 15) faults.push(`only ${known.size} options found`);

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
