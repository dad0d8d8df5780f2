// Runs the gallery's scripts and looks at what they made: a report each that has tables, a picture that is well-formed,
// and a page that shows both with the script's text. Each script is short, and its report is called after it.
// node gallery.mjs ROOT BUILD WORK. Exit status 77 where no script of R can be run.

import { spawnSync } from "node:child_process";
import { existsSync, readFileSync, readdirSync, rmSync } from "node:fs";
import { join } from "node:path";

const [root, build, work] = process.argv.slice(2);
const faults = [];
const expect = (holds, what) => { if (!holds) faults.push(what); };
const read = (file) => (existsSync(file) ? readFileSync(file, "utf8") : "");

rmSync(work, { recursive: true, force: true });
const done = spawnSync(join(root, "scripts/gallery"), [build, work], { encoding: "utf8" });
if (done.status !== 0) {
  console.error(done.stdout + done.stderr);
  process.exit(1);
}
const told = done.stdout.matchAll(/^Passed over: (\S+), which needs \S/gm);
const passedOver = new Set([...told].map(([, script]) => script));
const scripts = readdirSync(join(root, "examples/gallery")).filter((name) => /\.(R|py)$/.test(name));
const run = scripts.filter((name) => !passedOver.has(name));
console.log(`${run.length} of ${scripts.length} scripts ran. ${done.stdout.trim()}`);
if (!run.some((name) => name.endsWith(".R"))) process.exit(77);

const page = read(join(work, "index.html"));
const cards = page.split("<article>").slice(1);
expect(cards.length === run.length, `the page has ${cards.length} reports of ${run.length}`);
expect(!/<script/i.test(page), "the page has a script of its own");
expect(!/(src|href)="(https?:)?\/\//.test(page), "the page loads from elsewhere");
const headings = [...page.matchAll(/<h2><a href="[^"]+">([^<]+)<\/a><\/h2>/g)].map(([, text]) => text);
expect(new Set(headings).size === run.length, "reports have no headings of their own");

const entities = { "&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;" };
const escaped = (text) => text.replace(/[&<>"]/g, (mark) => entities[mark]);
for (const script of run) {
  const name = script.replace(/\.\w+$/, "");
  const text = read(join(root, "examples/gallery", script));
  const card = cards.find((each) => each.includes(`href="${name}.html"`)) ?? "";
  expect(text.trimEnd().split("\n").length <= 15, `${script} has more than fifteen lines`);
  expect(card.includes(escaped(text.trimEnd())), `${script}: the page does not show its text`);
  const report = read(join(work, `${name}.html`));
  expect((report.match(/<figure class="table"/g) ?? []).length > 4, `${script}: the report has no tables`);
  const target = card.match(new RegExp(`href="${name}\\.html#([^"]+)"><img src="${name}\\.svg" alt="([^"]*)"`)) ?? [];
  expect((target[2] ?? "").length > 30, `${script}: no picture, or none in words`);
  expect(report.includes(`id="${target[1]}"`), `${script}: the picture leads nowhere`);
  const picture = read(join(work, `${name}.svg`));
  expect(/^<svg xmlns=.*<\/svg>\s*$/s.test(picture) && !/<svg/.test(picture.slice(4)), `${script}: not one picture`);
}

if (faults.length) {
  console.error(faults.join("\n"));
  process.exit(1);
}
