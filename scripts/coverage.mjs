// Prints the part of the lines that ran, by room, and names the lines that did not in rooms where that part is small:
// node coverage.mjs LINES.info ROOT

import { readFileSync } from "node:fs";
import { relative } from "node:path";

const least = 0.95;
const [, , info, root] = process.argv;

// Folders that hold rooms besides files of their own.
const holders = ["backend", "backend/host", "report", "report/charts"];

/** A file's room: the first folder above it that holds no rooms, or the one that it stands in. */
function roomOf(path) {
  const folders = path.split("/").slice(0, -1);
  const depth = folders.findIndex((_, index) => !holders.includes(folders.slice(0, index + 1).join("/")));
  return folders.slice(0, depth < 0 ? folders.length : depth + 1).join("/");
}

const files = new Map();  // path -> line -> how often it ran
let lines;
for (const record of readFileSync(info, "utf8").split("\n")) {
  if (record.startsWith("SF:")) {
    const path = relative(root, record.slice(3));
    lines = /^(backend|report|interface|program)\//.test(path) ? new Map() : undefined;
    if (lines) files.set(path, lines);
  } else if (lines && record.startsWith("DA:")) {
    const [line, count] = record.slice(3).split(",").map(Number);
    lines.set(line, count);
  }
}

const rooms = new Map();
for (const [path, counts] of [...files].sort()) {
  const room = rooms.get(roomOf(path)) ?? { all: 0, ran: 0, missed: [] };
  const missed = [...counts].filter(([, count]) => count === 0).map(([line]) => line);
  room.all += counts.size;
  room.ran += counts.size - missed.length;
  if (missed.length > 0) room.missed.push(`${path}: ${spell(missed)}`);
  rooms.set(roomOf(path), room);
}

/** Numbers in order, those in a row as a span: 3-5, 9. */
function spell(numbers) {
  const spans = [];
  for (const number of numbers) {
    const last = spans.at(-1);
    if (last && number === last[1] + 1) last[1] = number;
    else spans.push([number, number]);
  }
  return spans.map(([from, to]) => (from === to ? `${from}` : `${from}-${to}`)).join(", ");
}

const percent = (part) => `${(100 * part).toFixed(1)} %`;
let all = 0;
let ran = 0;
for (const [name, room] of rooms) {
  all += room.all;
  ran += room.ran;
  console.log(`${name.padEnd(32)} ${`${room.ran}/${room.all}`.padStart(12)} ${percent(room.ran / room.all).padStart(8)}`);
}
console.log(`${"all".padEnd(32)} ${`${ran}/${all}`.padStart(12)} ${percent(ran / all).padStart(8)}`);
for (const [name, room] of rooms) {
  if (room.ran / room.all < least) console.log(`\n${name}, lines that did not run:\n  ${room.missed.join("\n  ")}`);
}
