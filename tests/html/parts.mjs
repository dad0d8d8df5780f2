// Every page carries the script, so what copying needs has a limit, and what pictures need, in bytes without comments.
// A file of the script imports what it names of others, and no more, though the whole page knows all names:
//   node parts.mjs FOLDER

import { readFileSync, readdirSync } from "node:fs";
import { join } from "node:path";

const limit = 15_000;
const parts = { copies: ["shared", "tables", "tools"], pictures: ["shared", "pictures"] };
const root = process.argv[2];

const files = readdirSync(root, { recursive: true }).filter((name) => name.endsWith(".js")).map((path) => {
  const text = readFileSync(join(root, path), "utf8").replace(/^ *(\/\/.*)?\n/gm, "");
  const body = text.replace(/^import [^;]*;\n/gm, "").replace(/^export /gm, "");
  const imports = Array.from(text.matchAll(/^import \{ (.*?) \} from "(.*?)";$/gm),
    ([, names, from]) => names.split(", ").map((name) => `${name} of ${join(path, "..", from)}`)).flat();
  const exported = Array.from(text.matchAll(/^export const (\w+)/gm), ([, name]) => name);
  return { path, body, imports, exported, size: Buffer.byteLength(body.replace(/^ +/gm, "")) };
});

// Whether a name stands there as one of another file: no member, no key, no name of its own.
const knows = (body, name) => {
  const code = body.replace(/"[^"\n]*"|\.\.\./g, "");
  return new RegExp(`(?<![.\\w])${name}(?![\\w:])`).test(code) && !new RegExp(`\\bconst (\\{[^=}]*\\b)?${name}\\b[^=(]*=`).test(code);
};

const faults = files.flatMap(({ path, body, imports }) => {
  const others = files.filter((other) => other.path !== path);
  const named = others.flatMap((other) => other.exported.filter((name) => knows(body, name))
    .map((name) => `${name} of ${other.path}`));
  return [...named.filter((one) => !imports.includes(one)).map((one) => `${path} does not import ${one}`),
    ...imports.filter((one) => !named.includes(one)).map((one) => `${path} imports ${one} for nothing`)];
});
for (const [part, folders] of Object.entries(parts)) {
  const size = files.filter(({ path }) => folders.includes(path.split("/")[0])).reduce((sum, file) => sum + file.size, 0);
  console.log(`${part}: ${size} bytes`);
  if (size >= limit) faults.push(`${part} has ${size} bytes`);
}
for (const fault of faults) console.error(fault);
process.exit(faults.length > 0 || files.length === 0 ? 1 : 0);
