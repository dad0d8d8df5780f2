// Says when a key, a mark or an unfinished wording reaches a reader of the English reports: node words.mjs FILE.json...

import { readFileSync } from "node:fs";

const unfinished = [
  [/\^/, "a mark"],
  [/kGLMM_/, "a key"],
  [/\bE6\d{4}\b/, "a key"],
  [/ \.\.\.$/, "a short form"],
  [/\\/, "a backslash"],
];

function* words(value) {
  if (Array.isArray(value)) for (const one of value) yield* words(one);
  else if (value && typeof value === "object") {
    for (const [key, one] of Object.entries(value)) {
      if (key === "text" && typeof one === "string") yield one;
      else if (key !== "from") yield* words(one);
    }
  }
}

const faults = [];
let seen = 0;
for (const path of process.argv.slice(2)) {
  const document = JSON.parse(readFileSync(path, "utf8"));
  if (document.language !== "en") continue;
  for (const text of words(document)) {
    ++seen;
    for (const [pattern, what] of unfinished) if (pattern.test(text)) faults.push(`${path}: ${what}: ${text}`);
  }
}
if (seen === 0) faults.push("no English text was read");
if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
