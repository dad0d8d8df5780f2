// Checks output documents against their schema: node validate.mjs [--strictly] FILE...
//
// With --strictly, makes sure that the schema leaves nothing open: each key of each object is taken away in turn, given a
// value of another type, and one more key is added. The schema must refuse every one of these documents. In pictures only
// those keys are taken away that the schema wants wherever it knows them: many others are left out when they say nothing.
//
// Exit status 0: all is well; 1: it is not, standard error says why; 77: the validator is not installed.

import { readFileSync } from "node:fs";
import { createRequire } from "node:module";

const root = new URL("../../", import.meta.url);
const readJson = (file) => JSON.parse(readFileSync(file, "utf8"));

function loadAjv() {
  try {
    return createRequire(new URL("web/package.json", root))("ajv/dist/2020.js");
  } catch (error) {
    if (error.code !== "MODULE_NOT_FOUND") throw error;
    console.log("skipped: ajv is not installed; run npm ci in web/");
    process.exit(77);
  }
}

const schema = readJson(new URL("docs/output-document.schema.json", root));
const validate = new (loadAjv())({ strict: true, allowUnionTypes: true, strictTuples: false })
  .compile(schema);

/** Keys that may be absent from some object. */
const optional = new Set(Object.values(schema.$defs).flatMap(({ properties = {}, required = [] }) =>
  Object.keys(properties).filter((key) => !required.includes(key))));

/** Yields what was changed in a document, while it is changed. */
function* changesOf(value, path) {
  if (typeof value !== "object" || value === null) return;
  for (const [key, child] of Object.entries(value)) {
    yield* changesOf(child, `${path}/${key}`);
    if (Array.isArray(value)) continue;
    delete value[key];
    if (!path.includes("/picture") || !optional.has(key)) yield `${path}: "${key}" is missing`;
    value[key] = typeof child === "boolean" ? 0.5 : false;
    yield `${path}: "${key}" is of another type`;
    value[key] = child;
  }
  if (Array.isArray(value)) return;
  value.extra = null;
  yield `${path}: there is one key more`;
  delete value.extra;
}

const [isStrict, files] = process.argv[2] === "--strictly" ? [true, process.argv.slice(3)] : [false, process.argv.slice(2)];
const faults = files.length > 0 ? [] : ["usage: node validate.mjs [--strictly] FILE..."];
for (const file of files) {
  const document = readJson(file);
  if (!validate(document)) {
    faults.push(...validate.errors.map(({ instancePath, message }) => `${file}: ${instancePath}: ${message}`));
  } else if (isStrict) {
    for (const change of changesOf(document, "")) if (validate(document)) faults.push(`${file}: valid though ${change}`);
  }
}
if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
