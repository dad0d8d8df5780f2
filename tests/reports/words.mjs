// Says when a key, a mark or an unfinished wording reaches a reader of the English reports: node words.mjs FILE.json...

import { readFileSync } from "node:fs";

const unfinished = { "a mark": /\^/, "a key": /kGLMM_|\bE6\d{4}\b/, "a short form": / \.\.\.$/, "a backslash": /\\/ };

function wordsOf(value) {
  if (typeof value !== "object" || value === null) return [];
  return Object.entries(value).flatMap(([key, one]) =>
    key === "text" && typeof one === "string" ? [one] : key === "from" ? [] : wordsOf(one));
}

const faults = [];
let seen = 0;
for (const path of process.argv.slice(2)) {
  const document = JSON.parse(readFileSync(path, "utf8"));
  if (document.language !== "en") continue;
  for (const text of wordsOf(document)) {
    ++seen;
    for (const [what, pattern] of Object.entries(unfinished)) if (pattern.test(text)) faults.push(`${path}: ${what}: ${text}`);
  }
}
if (seen === 0) faults.push("no English text was read");
if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
