// Reads every include of the project and says when a room calls one that it may not know, when files or rooms call each
// other in a circle, when a header shows a library to other rooms, and when a room has grown too large:
// node rooms.mjs ROOT

import { readdirSync, readFileSync } from "node:fs";
import { dirname, join } from "node:path";

const mostLines = 3000;

// Files that anybody may call: characters, a number that all mean by the same name, what keeps variants whole, and the
// mark of what is exported.
const common = [
  "backend/host/unicode/", ...["SystemMissing.h", "NeverHeld.h", "Export.h"].map((file) => `backend/host/${file}`),
];

const procedure = (...rooms) => ["host", ...rooms.map((room) => `hierfit/${room}`)].map((room) => `backend/${room}`);
const host = (...rooms) => rooms.map((room) => (room === "contract" ? "backend/host" : `backend/host/${room}`));
const report = (...rooms) => [...host("document"), ...rooms.map((room) => `report/${room}`)];

// Room -> the rooms whose headers it includes, besides its own and the common ones; no more and no less. A room is a
// folder with all below it that is in no other room. "contract" stands for the headers in backend/host itself.
const knows = {
  "backend/hierfit": procedure("store", "reader", "model"),
  "backend/hierfit/store": procedure(),
  "backend/hierfit/reader": procedure("store"),
  "backend/hierfit/tables": procedure("store"),
  "backend/hierfit/model": procedure("store", "tables", "estimates", "means", "charts"),
  "backend/hierfit/estimates": procedure("store", "tables"),
  "backend/hierfit/means": procedure("store", "tables", "charts"),
  "backend/hierfit/charts": procedure("store", "tables"),
  "backend/host": [],
  "backend/host/unicode": [],
  "backend/host/document": [],
  "backend/host/xml": [],
  "backend/host/context": host("document"),
  "backend/host/language": host("contract", "context"),
  "backend/host/data": host("contract", "context"),
  "backend/host/framework": host("contract", "document", "context", "xml", "data"),
  "backend/host/pmml": host("contract", "xml", "data"),
  "backend/host/pivot": host("contract", "document", "context"),
  "backend/host/chart": [
    ...host("contract", "document", "context", "data"), ...host("chart/data", "chart/specification", "chart/picture"),
  ],
  "backend/host/chart/data": host("contract", "document"),
  "backend/host/chart/specification": host("contract", "document", "xml", "data", "chart/data"),
  "backend/host/chart/picture": host("contract", "document", "context", "language", "chart/specification"),
  "backend/host/chart/picture/histogram": host("document", "chart/specification", "chart/picture"),
  "backend/host/chart/picture/levels": host("context", "chart/picture"),
  "backend/host/chart/picture/graphs": [
    ...host("document", "chart/specification"), ...host("chart/picture", "chart/picture/histogram"),
  ],
  "backend/host/plausible": host("xml", "data", "framework"),
  "backend/host/session": [
    ...host("contract", "document", "context", "xml", "language"), ...host("framework", "pmml", "plausible"),
  ],
  "report/layout": report(),
  "report/style": report(),
  "report/markup": [],
  "report/items": [...report(), ...host("language")],
  "report/text": report("items", "layout"),
  "report/json": report(),
  "report/html": report("items", "layout", "markup", "csv", "charts/layout", "charts/svg"),
  "report/charts": report("items", "charts/layout", "charts/svg"),
  "report/charts/layout": report("markup"),
  "report/charts/layout/diagrams": report("charts/layout"),
  "report/charts/layout/levels": report("charts/layout"),
  "report/charts/svg": ["report/charts/layout", "report/markup"],
  "report/charts/raster": ["report/modules"],
  "report/modules": [],
  "report/index": report("items", "markup", "html"),
  "report/csv": report("items", "layout"),
  "report/markdown": report("items", "layout", "text"),
  "report/latex": report("items", "layout", "markup", "charts", "charts/layout"),
  "report/archive": ["report/modules"],
  "report/docx": report("items", "layout", "markup", "archive", "charts", "charts/layout", "charts/svg"),
  "report/formats": [
    ...report("items", "style", "text", "json", "html", "csv", "markdown", "latex", "xlsx", "archive", "docx"),
    ...report("charts", "charts/raster"), ...host("language"),
  ],
  "report/xlsx": report("items", "layout", "markup", "text", "charts", "modules"),
  "interface": [...report("items", "formats", "json"), ...host("session")],
  "program": [
    ...report("items", "index", "formats", "modules", "text", "json"), ...host("session"), "program/arguments",
    "program/documents", "program/files",
  ],
  "program/arguments": [
    "report/items", "report/formats", "report/style", ...host("session"), "program/documents", "program/files",
  ],
  "program/documents": ["report/items", "report/json", ...host("language", "session"), "program/files"],
  "program/files": report("text"),
};

// Other libraries than the standard's and the system's. They stand in headers only that no other room includes, and not
// at all in those that other projects compile.
const library = /^(expat|fmt\/|CLI\/|nlohmann\/|utf8proc|xlsxwriter|gtest\/|benchmark\/)/;
const published = ["backend/host", "backend/host/document", "backend/host/session"];

const root = process.argv[2];
const faults = [];

/** The room that a path stands in. */
function roomOf(path) {
  let room = dirname(path);
  while (room !== "." && !(room in knows)) room = dirname(room);
  if (room === ".") faults.push(`${path}: stands in no room`);
  return room;
}

const texts = new Map();
for (const folder of ["backend", "report", "interface", "program"]) {
  for (const path of readdirSync(join(root, folder), { recursive: true })) {
    if (/\.(h|cpp)$/.test(path)) texts.set(join(folder, path), readFileSync(join(root, folder, path), "utf8"));
  }
}
const rooms = new Map([...texts.keys()].map((path) => [path, roomOf(path)]));

/** The file that an include in quotes names; none where it is made by the build. */
const resolve = (path, include) =>
  [join("backend", include), include, join(dirname(path), include)].find((candidate) => texts.has(candidate));

// What each file includes of the project, and the libraries that it shows to whoever includes it.
const includes = new Map();
const libraries = new Map();
for (const [path, text] of texts) {
  const found = [...text.matchAll(/^#include ([<"])([^>"]+)[>"]/gm)];
  const own = found.filter(([, bracket]) => bracket === '"').map(([, , include]) => resolve(path, include));
  includes.set(path, own.filter((include) => include !== undefined));
  libraries.set(path, found.map(([, , include]) => include).filter((include) => library.test(include)));
}

/** Adds an edge to a graph of sets. */
function connect(graph, from, to) {
  if (!graph.has(from)) graph.set(from, new Set());
  if (from !== to) graph.get(from).add(to);
}

/** A way through a graph that ends where it begins, if there is one. */
function findCircle(graph) {
  const state = new Map();  // true: on the way; false: done with
  const visit = (node, way) => {
    if (state.get(node)) return way.slice(way.indexOf(node));
    if (state.has(node)) return undefined;
    state.set(node, true);
    for (const next of graph.get(node) ?? []) {
      const circle = visit(next, [...way, next]);
      if (circle) return circle;
    }
    state.set(node, false);
    return undefined;
  };
  for (const node of graph.keys()) {
    const circle = visit(node, [node]);
    if (circle) return circle;
  }
  return undefined;
}

const arrows = new Map();  // between rooms
const files = new Map();  // between files, where a header and its source are one
const calledFromOutside = new Set();
const nameOf = (path) => path.replace(/\.(h|cpp)$/, "");
for (const [path, own] of includes) {
  const room = rooms.get(path);
  for (const include of own) {
    const other = rooms.get(include);
    connect(files, nameOf(path), nameOf(include));
    if (other !== room) calledFromOutside.add(include);
    if (common.some((start) => include.startsWith(start))) continue;
    connect(arrows, room, other);
    if (other !== room && !knows[room]?.includes(other)) {
      faults.push(`${path}: #include ${include}: ${room} may not know ${other}`);
    }
  }
}
for (const [room, others] of Object.entries(knows)) {
  for (const other of others) {
    if (!arrows.get(room)?.has(other)) faults.push(`${room} is said to know ${other} and does not`);
  }
}
for (const graph of [files, arrows]) {
  const circle = findCircle(graph);
  if (circle) faults.push(`a circle: ${circle.join(" -> ")}`);
}

for (const [path, shown] of libraries) {
  const isSeen = path.endsWith(".h") && (published.includes(rooms.get(path)) || calledFromOutside.has(path));
  const isProcedure = path.startsWith("backend/hierfit/");
  for (const include of shown) {
    if (isSeen) faults.push(`${path}: #include ${include}: a library in a header that other rooms see`);
    if (isProcedure) faults.push(`${path}: #include ${include}: the procedure knows no library but the standard's`);
  }
}

for (const room of Object.keys(knows)) {
  const lines = [...texts].filter(([path]) => rooms.get(path) === room)
    .reduce((sum, [, text]) => sum + text.split("\n").length - 1, 0);
  if (lines === 0) faults.push(`${room}: there is no such room`);
  if (lines > mostLines) faults.push(`${room}: has ${lines} lines, more than ${mostLines}`);
}

if (faults.length > 0) {
  console.error(faults.join("\n"));
  process.exit(1);
}
