// Checks output documents against their schema: node validate.mjs FILE...
//
// Exit status 0: all are valid; 1: some are not, standard error says which and why; 77: the validator is not installed.

import { readJson, validate } from "./schema.mjs";

const files = process.argv.slice(2);
if (files.length === 0) {
  console.error("usage: node validate.mjs FILE...");
  process.exit(1);
}
for (const file of files) {
  if (validate(readJson(file))) continue;
  process.exitCode = 1;
  for (const error of validate.errors) console.error(`${file}: ${error.instancePath}: ${error.message}`);
}
