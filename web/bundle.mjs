// Makes the one script that draws charts: node bundle.mjs FILE

import { writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { fileURLToPath } from "node:url";

const require = createRequire(import.meta.url);
let esbuild;
try {
  esbuild = require("esbuild");
} catch {
  console.error("The front end's packages are missing; run scripts/setup.");
  process.exit(1);
}

const { outputFiles: [{ text }] } = await esbuild.build({
  entryPoints: [fileURLToPath(new URL("charts/main.js", import.meta.url))],
  bundle: true,
  alias: { vega: fileURLToPath(new URL("charts/engine.js", import.meta.url)) },
  minify: true,
  format: "iife",
  target: "es2022",
  charset: "ascii",
  legalComments: "none",
  logLevel: "warning",
  write: false,
});

// Inside its element a script must not spell the element's end, nor what a parser takes for a comment's begin. Both can
// stand in a string or a regular expression only, where an escape means the same.
const safe = text.replace(/<(?=\/(script|style))/gi, "\\x3c").replaceAll("<!--", "\\x3c!--");
writeFileSync(process.argv[2], safe);
