// Reads every include of the project and says when a room calls one that it may not know: node rooms.mjs ROOT

import { readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";

const values = ["document", "context", "xml", "data"];

// A number that everybody means by the same name.
const common = "host/SystemMissing.h";

// Room -> the rooms whose headers it may include, besides its own. "contract" is backend/host/*.h.
const mayKnow = {
  contract: ["contract"],
  document: [],
  xml: [],
  context: ["document"],
  language: ["contract", "context", "document"],
  data: ["contract", "context"],
  framework: ["contract", ...values],
  pmml: ["contract", ...values],
  pivot: ["contract", "language", "framework", ...values],
  chart: ["contract", "language", "framework", ...values],
  session: ["contract", "language", "framework", "pmml", "pivot", "chart", ...values],
  hierfit: ["contract"],
  report: ["document"],
  program: ["session", "report", "document"],
};

const thirdParty = /^(expat|fmt\/|CLI\/|nlohmann\/|rapidjson\/|utf8proc|gtest\/|benchmark\/)/;

const root = process.argv[2];

const sourcesIn = (folder) => readdirSync(join(root, folder), { recursive: true })
  .filter((path) => /\.(h|cpp)$/.test(path)).map((path) => join(folder, path));

/** The room that a path names, if it names one. */
function roomOf(path) {
  const parts = path.replace(/^backend\//, "").split("/");
  if (parts[0] === "host") return parts.length === 2 ? "contract" : parts[1];
  return parts[0] in mayKnow ? parts[0] : undefined;
}

const faults = [];
for (const path of ["backend", "report", "program"].flatMap(sourcesIn)) {
  const room = roomOf(path);
  const isPublicHeader = path.endsWith(".h") && ["contract", "document", "session", "report"].includes(room);
  const source = readFileSync(join(root, path), "utf8");
  for (const [, bracket, include] of source.matchAll(/^#include ([<"])([^>"]+)[>"]/gm)) {
    const where = `${path}: #include ${include}`;
    const isLibrary = bracket === "<" && thirdParty.test(include);
    if (isLibrary && isPublicHeader) faults.push(`${where}: a library in a public header`);
    if (isLibrary && room === "hierfit") faults.push(`${where}: the procedure knows no library but the standard's`);
    if (bracket === "<" || include === common) continue;
    const other = roomOf(include) ?? room;  // or a neighbour in the same folder
    if (other !== room && !mayKnow[room].includes(other)) faults.push(`${where}: ${room} may not know ${other}`);
  }
}

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
