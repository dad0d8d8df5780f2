// Makes sure that the schema leaves nothing open: node refuse.mjs FILE
//
// In a valid document, each key of each object is taken away in turn, given a value of another type, and one more key is
// added: the schema must refuse every one of these documents. A chart's view is left alone, since its keys are free.
// Exit status as of validate.mjs.

import { readJson, validate } from "./schema.mjs";

const document = readJson(process.argv[2]);
let count = 0;

function expectRefusal(path, change) {
  ++count;
  if (!validate(document)) return;
  console.error(`${path}: valid though ${change}`);
  process.exitCode = 1;
}

function tryKey(object, key, path) {
  const value = object[key];
  delete object[key];
  expectRefusal(path, `"${key}" is missing`);
  object[key] = typeof value === "boolean" ? 0.5 : false;
  expectRefusal(path, `"${key}" is of another type`);
  object[key] = value;
}

function visit(value, path) {
  if (typeof value !== "object" || value === null) return;
  for (const [key, child] of Object.entries(value)) {
    if (key !== "view") visit(child, `${path}/${key}`);
    if (!Array.isArray(value)) tryKey(value, key, path);
  }
  if (Array.isArray(value)) return;
  value.extra = null;
  expectRefusal(path, "there is one key more");
  delete value.extra;
}

if (!validate(document)) {
  console.error("the document itself is not valid");
  process.exit(1);
}
visit(document, "");
console.log(`${count} changed documents tried`);
