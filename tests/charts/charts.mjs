// Renders documents with charts in every way, and compares what only this can compare: static pictures with those that the
// same script makes in Node, saved documents with themselves. Pages are left for the browser.
//   node charts.mjs PROGRAM SCRIPT SAMPLES WORK [no-engine]

import { spawnSync } from "node:child_process";
import { existsSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import vm from "node:vm";
import { documents, makeDocument } from "./documents.mjs";

const [program, script, samples, work, engine] = process.argv.slice(2);
rmSync(work, { recursive: true, force: true });
mkdirSync(work, { recursive: true });
process.chdir(work);

const faults = [];
const check = (what, condition, detail) => condition || faults.push(`${what}: ${detail}`);
const render = (...args) => {
  const { status, stdout, stderr } = spawnSync(program, ["render", ...args], { encoding: "utf8", maxBuffer: 1 << 28 });
  return { status, out: stdout, err: stderr };
};

for (const [name, document] of Object.entries(documents)) {
  writeFileSync(`${name}.saved`, JSON.stringify(document));
  check(name, render("-o", `${name}.json`, `${name}.saved`).status === 0, "is not read");
  check(name, render("-f", "json", `${name}.json`).out === readFileSync(`${name}.json`, "utf8"), "changes when saved again");
  check(name, render("-o", `${name}.html`, `${name}.json`).status === 0, "gives no page");
  if (engine || name === "failing") continue;
  check(name, render("--static", "-o", `${name}.static.html`, `${name}.json`).status === 0, "gives no static page");
}

// ---- samples: whatever the chart library makes can be read back

for (const name of readdirSync(samples)) {
  const view = JSON.parse(readFileSync(join(samples, name), "utf8"));
  writeFileSync("sample.saved", JSON.stringify(makeDocument([view])));
  const { status, err } = render("-f", "text", "sample.saved");
  check(name, status === 0, err);
}

// ---- pictures: [arguments, status, standard error, files]

const drawn = ["GLMMEmMeans-1.svg", "GLMMEmMeans-2.svg", "GLMMEmMeans-3.svg"];
const uses = [
  [["-f", "svg", "charts.json"], 1, "hierfit: --format svg: --output must name a folder\nTry: hierfit --help\n", []],
  [["-f", "svg", "-o", "charts.json", "charts.json"], 3, "hierfit: charts.json: Not a directory\n", []],
  [["-f", "svg", "-o", "new/folder/", "charts.json"], 0, "", drawn],
  [["-f", "svg", "-o", "failing", "failing.json"], 0, "hierfit: GLMMEmMeans-1: cannot be drawn\nhierfit: GLMMEmMeans-2: cannot be drawn\n", []],
];
for (const [args, status, err, files] of engine ? uses.slice(0, 1) : uses) {
  const got = render(...args);
  check(args.join(" "), got.status === status && got.err === err && got.out === "", `${got.status} ${got.err}${got.out}`);
  const folder = args.at(-2);
  const found = status === 0 && existsSync(folder) ? readdirSync(folder) : [];
  check(args.join(" "), String(found) === String(files), `there are ${found}`);
}

const wayOut = /<(script|style|image|a|use|foreignObject)\b|\shref=|\son\w+="|url\((?!#)[^<]*"/;
const control = /[\0-\x08\x0b\x0c\x0e-\x1f]/g;
const draw = vm.runInThisContext(`${readFileSync(script, "utf8")}; drawPicture`);
for (const [place, name] of engine ? [] : drawn.entries()) {
  const picture = readFileSync(`new/folder/${name}`, "utf8");
  const view = JSON.stringify(documents.charts.items[place].view);
  const expected = await new Promise((take, fail) => draw(view, take, fail));
  check(name, picture === expected.replace(control, (code) => String.fromCharCode(0x2400 + code.charCodeAt(0))), "differs from Node's");
  const tags = picture.replace(/>[^<]*</g, "><").replace(/ aria-label="[^"]*"/g, "");
  check(name, !wayOut.test(tags), `holds more than shapes: ${wayOut.exec(tags)}`);
}

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
