// Loads the output document's schema into a validator. Where that is not installed, the process ends with status 77.

import { readFileSync } from "node:fs";
import { createRequire } from "node:module";

const root = new URL("../../", import.meta.url);

function loadAjv() {
  try {
    return createRequire(new URL("web/package.json", root))("ajv/dist/2020.js");
  } catch (error) {
    if (error.code !== "MODULE_NOT_FOUND") throw error;
    console.log("skipped: ajv is not installed; run npm ci in web/");
    process.exit(77);
  }
}

export function readJson(file) {
  return JSON.parse(readFileSync(file, "utf8"));
}

// Tells whether a document is valid; what is wrong with it stands in `validate.errors`.
export const validate = new (loadAjv())({ strict: true, allowUnionTypes: true, strictTuples: false }).compile(
  readJson(new URL("docs/output-document.schema.json", root)),
);
