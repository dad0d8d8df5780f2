// The pair of documents that docs/documents.md shows: holds to the schemas, has nothing to be remarked, and makes every
// table and chart that the page promises. node sample.mjs XMLLINT PROGRAM ROOT WORK

import { spawnSync } from "node:child_process";
import { mkdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [xmllint, program, root, work] = process.argv.slice(2);
rmSync(work, { recursive: true, force: true });
mkdirSync(work, { recursive: true });

const faults = [];
function run(command, ...args) {
  const { status, stdout, stderr } = spawnSync(command, args, { encoding: "utf8" });
  return { status, out: stdout, err: stderr };
}

const page = readFileSync(join(root, "docs/documents.md"), "utf8");
const blocks = [...page.matchAll(/^```xml\n([^]*?)^```$/gm)].map(([, text]) => text);
["model.pmml", "model.statxml"].forEach((name, number) => {
  writeFileSync(join(work, name), blocks[number] ?? "");
  const { status, err } = run(xmllint, "--noout", "--relaxng", join(root, "docs", `${name}.rng`), join(work, name));
  if (status !== 0) faults.push(err);
});

const checked = run(program, "check", "--strict", work);
if (checked.status !== 0 || checked.out + checked.err !== "") faults.push(`check: ${checked.status} ${checked.out}${checked.err}`);

const items = ["ModelSummary", "DataStructure", "GLMMPredictedByObserved", "FixedEffects", "GLMMFixedCoefficients",
  "FixedCoefficients", "RandomEffects", "CovarianceParametersSummary", "ResidualEffect", "CovarianceParameters", "GLMMEmMeans",
  "GrandMeans", "Estimates", "GLMMCustomEffects", "Contrasts", "GLMMPairwiseContrasts", "OverallTestResults"];
const listed = run(program, "list", work).out;
for (const item of items) if (!listed.includes(`${item}-1 `)) faults.push(`${item} is missing`);

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
