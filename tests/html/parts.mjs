// Every page carries the script, so what copying needs has a limit, and what pictures need, in bytes without comments:
//   node parts.mjs FOLDER

import { readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";

const limit = 15_000;
const parts = { copies: ["shared", "tables", "tools"], pictures: ["shared", "pictures"] };

const sizeOf = (file) => Buffer.byteLength(readFileSync(file, "utf8")
  .replace(/^import [^;]*;|^ *\/\/.*|^export |^ +/gm, "").replace(/\n+/g, "\n"));

let faults = 0;
for (const [part, folders] of Object.entries(parts)) {
  const files = folders.map((folder) => join(process.argv[2], folder))
    .flatMap((folder) => readdirSync(folder).map((name) => join(folder, name)));
  const size = files.reduce((sum, file) => sum + sizeOf(file), 0);
  console.log(`${part}: ${size} bytes`);
  faults += size < limit && size > 0 ? 0 : 1;
}
process.exit(faults);
