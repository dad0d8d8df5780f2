// Reads every include of the project and says when a room calls one that it may not know: node rooms.mjs ROOT

import { readdirSync, readFileSync } from "node:fs";
import { join, relative } from "node:path";

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

function* sources(folder) {
  for (const entry of readdirSync(folder, { withFileTypes: true })) {
    const path = join(folder, entry.name);
    if (entry.isDirectory()) yield* sources(path);
    else if (/\.(h|cpp)$/.test(entry.name)) yield path;
  }
}

function roomOfFile(path) {
  const parts = relative(root, path).split("/");
  if (parts[0] !== "backend") return parts[0];
  if (parts[1] === "hierfit") return "hierfit";
  return parts.length === 3 ? "contract" : parts[2];
}

function roomOfInclude(include, room) {
  const parts = include.split("/");
  if (parts[0] === "host") return parts.length === 2 ? "contract" : parts[1];
  if (parts[0] === "hierfit" || parts[0] === "report") return parts[0];
  return room;  // a neighbour in the same folder
}

const faults = [];
for (const folder of ["backend", "report", "program"]) {
  for (const path of sources(join(root, folder))) {
    const room = roomOfFile(path);
    const isPublicHeader = path.endsWith(".h") && ["contract", "document", "session", "report"].includes(room);
    for (const [, bracket, include] of readFileSync(path, "utf8").matchAll(/^#include ([<"])([^>"]+)[>"]/gm)) {
      const where = `${relative(root, path)}: #include ${include}`;
      if (bracket === "<") {
        if (!thirdParty.test(include)) continue;
        if (isPublicHeader) faults.push(`${where}: a library in a public header`);
        if (room === "hierfit") faults.push(`${where}: the procedure knows the standard library and the contract alone`);
      } else {
        if (include === common) continue;
        const other = roomOfInclude(include, room);
        if (other !== room && !(mayKnow[room] ?? []).includes(other)) faults.push(`${where}: ${room} may not know ${other}`);
      }
    }
  }
}

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
