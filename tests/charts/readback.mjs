// Puts view files into saved documents and has each read: node readback.mjs PROGRAM FOLDER

import { spawnSync } from "node:child_process";
import { readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";
import { makeDocument } from "./documents.mjs";

const [program, folder] = process.argv.slice(2);
const names = readdirSync(folder).filter((name) => name.endsWith(".vl.json"));
const faults = names.length > 0 ? [] : [`${folder} holds no views`];
for (const name of names) {
  const input = JSON.stringify(makeDocument([JSON.parse(readFileSync(join(folder, name), "utf8"))]));
  const { status, stderr } = spawnSync(program, ["render", "-f", "text", "-"], { input, encoding: "utf8" });
  if (status !== 0) faults.push(`${name}: ${stderr}`);
}
if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
