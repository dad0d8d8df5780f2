// Compares the program's whole output for every example with the approved one, in every format:
//   node golden.mjs PROGRAM EXAMPLES            compare
//   node golden.mjs PROGRAM EXAMPLES --approve [NAME...]   take over what the program gives now
//
// A saved document must also render to the same bytes as a fresh one. Style sheet and script of a page are the same in all
// pages and are left out of the approved files.

import { execFileSync } from "node:child_process";
import { existsSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";

const [program, examples, mode, ...chosen] = process.argv.slice(2);
const approved = join(dirname(fileURLToPath(import.meta.url)), "approved");
const endings = { text: "txt", json: "json", html: "html" };

function run(args, input) {
  return execFileSync(program, args, { input, encoding: "utf8", maxBuffer: 1 << 28, stdio: ["pipe", "pipe", "ignore"] });
}

function withoutAssets(page) {
  return page.replace(/<(style|script)\b([^>]*)>[^]*?<\/\1>/g, (whole, name, attributes) =>
    attributes.includes("json") ? whole : `<${name}${attributes}></${name}>`).replace(/sha256-[\w+/=]+/g, "sha256-");
}

function firstDifference(expected, actual) {
  const left = expected.split("\n");
  const right = actual.split("\n");
  const line = left.findIndex((text, index) => text !== right[index]);
  const at = line < 0 ? left.length : line;
  return `line ${at + 1}\n  approved: ${left[at]}\n  now:      ${right[at]}`;
}

const faults = [];
for (const name of readdirSync(examples, { withFileTypes: true }).filter((e) => e.isDirectory()).map((e) => e.name)) {
  if (chosen.length > 0 && !chosen.includes(name)) continue;
  const saved = run(["report", "-f", "json", join(examples, name)]);
  for (const [format, ending] of Object.entries(endings)) {
    const whole = run(["report", "-f", format, join(examples, name)]);
    const again = run(["render", "-f", format, "-"], saved);
    if (whole !== again) faults.push(`${name}, ${format}: the saved document renders otherwise: ${firstDifference(whole, again)}`);
    const actual = format === "html" ? withoutAssets(whole) : whole;
    const path = join(approved, `${name}.${ending}`);
    if (mode === "--approve") {
      writeFileSync(path, actual);
      continue;
    }
    const expected = existsSync(path) ? readFileSync(path, "utf8") : "";
    if (expected !== actual) faults.push(`${name}.${ending}: ${firstDifference(expected, actual)}`);
  }
}

if (faults.length > 0) {
  console.error(`${faults.join("\n")}\nIf this is meant: tests/approve NAME...`);
  process.exit(1);
}
