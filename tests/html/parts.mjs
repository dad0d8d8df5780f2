// Every page carries the script, so each part of it has a limit, in bytes without comments: node parts.mjs SCRIPT

import { readFileSync } from "node:fs";

const limit = 15_000;
const script = readFileSync(process.argv[2], "utf8");
const [shared, ...sections] = script.split(/^ *\/\/ ---- /m).map((section) => {
  const title = /^\w*/.exec(section)[0];
  return { title, size: Buffer.byteLength(section.replace(/^ *(\/\/.*)?\n/gm, "").replace(/^ +/gm, "")) };
});
const parts = { pictures: ["Pictures"], copies: ["Tables", "Copying", "A"] };

let faults = 0;
for (const [part, titles] of Object.entries(parts)) {
  const own = sections.filter(({ title }) => titles.includes(title));
  const size = own.reduce((sum, section) => sum + section.size, shared.size);
  console.log(`${part}: ${size} bytes`);
  faults += own.length !== titles.length || size >= limit ? 1 : 0;
}
process.exit(faults);
