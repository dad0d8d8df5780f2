// Holds every place that names the version to that of the build: node versions.mjs ROOT VERSION PROGRAM

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
  ["interface/hierfit.h", /^\/\* "(.*)"\. \*\/\nHF_API const char\* hf_version/m],
];

const faults = [];
for (const [path, pattern] of places) {
  const found = pattern.exec(read(path))?.[1];
  if (found !== version) faults.push(`${path}: ${found}, not ${version}`);
}
if (!run("--version").includes(version)) faults.push(`--version: ${run("--version")}`);

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
