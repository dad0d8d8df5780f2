// Holds what a library exports to what its installed headers declare: each exported name is declared, and each declared
// function is exported. node exports.mjs LIBRARY INCLUDE_DIR

import { execFileSync } from "node:child_process";
import { readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";

const [library, folder] = process.argv.slice(2);

/** Names that a C++ header marks, with their namespace. What begins in the first column of a line ends there. */
function readMarked(text) {
  const marked = { types: [], functions: [] };
  const open = [];
  for (const line of text.split("\n")) {
    const [, type] = /^(?:class|struct) HIERFIT_EXPORT (\w+)/.exec(line) ?? [];
    const [, name] = /^HIERFIT_EXPORT [^;(]*?(\w+)\(/.exec(line) ?? [];
    const space = open.filter((step) => step !== "").join("::");
    if (type) marked.types.push(`${space}::${type}`);
    if (name) marked.functions.push(`${space}::${name}`);
    if (/^\S.*\{$/.test(line)) open.push(/^namespace ([\w:]+) \{$/.exec(line)?.[1] ?? "");
    if (/^\}/.test(line)) open.pop();
  }
  return marked;
}

const types = new Set();
const functions = new Map();  // and how many there are of a name
for (const path of readdirSync(folder, { recursive: true })) {
  if (!path.endsWith(".h")) continue;
  const text = readFileSync(join(folder, path), "utf8");
  const marked = readMarked(text);
  marked.types.forEach((name) => types.add(name));
  const count = (name) => functions.set(name, (functions.get(name) ?? 0) + 1);
  marked.functions.forEach(count);
  for (const [, name] of text.matchAll(/^HF_API [^;(]*?(\w+)\(/gm)) count(name);
}

/** "hierfit::BpString" and "Replicate" of "hierfit::BpString::Replicate() const". */
function split(symbol) {
  const name = symbol.replace(/^(?:vtable|typeinfo|typeinfo name) for /, "").replace(/[[(<].*$/s, "");
  const steps = name.split("::");
  return { name, owners: steps.map((_, count) => steps.slice(0, count).join("::")) };
}

const listed = execFileSync("nm", ["-D", "--defined-only", "-C", library], { encoding: "utf8" });
const exported = listed.trim().split("\n").map((line) => line.replace(/^\S+ \S /, "")).map(split);
const faults = [];
for (const { name, owners } of exported) {
  const isDeclared = types.has(name) || functions.has(name) || owners.some((owner) => types.has(owner));
  if (!isDeclared) faults.push(`${name} is exported, and no header declares it`);
}
for (const [name, count] of functions) {
  const shown = exported.filter((symbol) => symbol.name === name).length;
  if (shown !== count) faults.push(`${name} is declared ${count} times and exported ${shown} times`);
}
if (functions.size < 40 || types.size < 30) faults.push(`only ${functions.size} functions and ${types.size} types found`);

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
