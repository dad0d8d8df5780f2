// Validates the examples' documents against their schemas, and makes sure that the schemas find what is misspelled: each
// element and attribute of the examples, and each word that tells kinds apart, gets a letter too many, one at a time.
// node schemas.mjs XMLLINT ROOT WORK

import { spawnSync } from "node:child_process";
import { existsSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [xmllint, root, work] = process.argv.slice(2);
const faults = [];
rmSync(work, { recursive: true, force: true });
mkdirSync(work, { recursive: true });

/** The files that break a schema. */
function invalidOf(schema, files) {
  const { stderr } = spawnSync(xmllint, ["--noout", "--relaxng", join(root, "docs", schema), ...files],
    { encoding: "utf8", maxBuffer: 1 << 28 });
  const judged = [...stderr.matchAll(/^(.*) (validates|fails to validate)$/gm)];
  if (judged.length !== files.length) faults.push(`${schema}: ${judged.length} of ${files.length} judged\n${stderr.slice(0, 2000)}`);
  return new Set(judged.filter(([, , verdict]) => verdict !== "validates").map(([, file]) => file));
}

/** The tags of a document in order: where they stand, their path, and their attributes with their places. */
function* tagsOf(text) {
  const path = [];
  for (const tag of text.matchAll(/<(\/?)([A-Za-z]+)((?:\s+[\w:]+="[^"]*")*)\s*(\/?)>/g)) {
    const [whole, isEnd, name, attributes, isEmpty] = tag;
    if (isEnd) { path.pop(); continue; }
    path.push(name);
    const offset = tag.index + 1 + name.length;
    yield {
      at: tag.index, end: tag.index + whole.length, name, path: path.join("/"), isEmpty: isEmpty !== "",
      attributes: [...attributes.matchAll(/([\w:]+)="([^"]*)"/g)].map((found) =>
        ({ name: found[1], value: found[2], at: offset + found.index })),
    };
    if (isEmpty) path.pop();
  }
}

/** A document with some letters put in at a place. */
const insert = (text, at, letters) => text.slice(0, at) + letters + text.slice(at);

function renameElement(text, { at, end, name, isEmpty }) {
  const renamed = insert(text, at + 1 + name.length, "x");
  if (isEmpty) return renamed;
  let depth = 1;
  for (const tag of text.slice(end).matchAll(new RegExp(`<(/?)${name}\\b[^>]*?(/?)>`, "g"))) {
    depth += tag[1] ? -1 : tag[2] ? 0 : 1;
    if (depth === 0) return insert(renamed, end + 1 + tag.index + 2 + name.length, "x");
  }
  throw new Error(`<${name}> has no end`);
}

// What the reader does not look at, and words of the model that may be anything.
const unread = /^PMML(@|$|\/Header|\/GeneralRegressionModel(@|$)|.*@usageType)|@n$|@type$/;
const free = /(MapEntry|RegressionParameter|DataField|MiningField|StructuredData\/Statistic)@name|Value@value/;
const kinds = new Set(["name", "description", "feature", "statistic", "parameterType", "kind", "optype", "dataType",
  "isIntercept", "isRedundant", "isKey", "nest", "storage", "algorithmName", "estimate", "power", "testID", "df1"]);
const settings = new Set(["DistributionOfTarget", "LinkFunctionType", "ResidualCovarianceType", "pAdjustment", "UseTrials",
  "Intercept", "CIn", "CovarianceType", "EstimateMeans", "ContrastType", "ReferenceType"]);

/** Everything that can be misspelled in a document: a key that tells like ones apart, and the document with the mistake. */
function* mistakesOf(text) {
  for (const tag of tagsOf(text)) {
    yield [tag.path, () => renameElement(text, tag)];
    const setting = settings.has(tag.attributes[0]?.value);
    for (const { name, value, at } of tag.attributes) {
      if (name === "xmlns") continue;
      const key = `${tag.path}@${name}`;
      yield [key, () => insert(text, at + name.length, "x")];
      const tells = (kinds.has(name) && !free.test(key)) || (setting && name === "value");
      if (tells && value !== "") yield [`${key}=${value}`, () => insert(text, at + name.length + 2 + value.length, "x")];
    }
  }
}

const folders = readdirSync(join(root, "examples")).filter((name) => existsSync(join(root, "examples", name, "model.pmml")));
for (const [schema, least] of [["model.pmml.rng", 20], ["model.statxml.rng", 200]]) {
  const document = schema.replace(".rng", "");
  const files = folders.map((name) => join(root, "examples", name, document));
  for (const file of invalidOf(schema, files)) faults.push(`${file} does not hold to ${schema}`);

  const texts = files.map((file) => readFileSync(file, "utf8")).sort((a, b) => a.length - b.length);
  const mistakes = new Map();
  for (const text of texts) {
    for (const [key, make] of mistakesOf(text)) if (!unread.test(key) && !mistakes.has(key)) mistakes.set(key, make);
  }
  const broken = [...mistakes].map(([, make], number) => {
    const file = join(work, `${document}.${number}`);
    writeFileSync(file, make());
    return file;
  });
  const invalid = invalidOf(schema, broken);
  [...mistakes.keys()].forEach((key, number) => {
    if (!invalid.has(broken[number])) faults.push(`${schema} does not find a mistake in ${key}: ${broken[number]}`);
  });
  if (mistakes.size < least) faults.push(`${document}: no more than ${mistakes.size} mistakes were made`);
}

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
