// Writes web/text-widths.json: how wide the characters of the charts' font are, in thousandths of an em. The widths come
// from two TrueType fonts with the metrics of Helvetica, a regular and a bold one:
//   node scripts/make-text-widths.mjs LiberationSans-Regular.ttf LiberationSans-Bold.ttf

import { readFileSync, writeFileSync } from 'node:fs';

const ranges = [
  [0x20, 0x7e], // Latin
  [0xa0, 0x17f],
  [0x384, 0x3ce], // Greek
  [0x2010, 0x2026], // punctuation
  [0x2030, 0x2044],
];

// Characters of no width, and those one em wide: the font lacks them, another one stands in.
const zero = [[0x300, 0x36f], [0x200b, 0x200f], [0x202a, 0x202e], [0x2060, 0x2064], [0xfe00, 0xfe0f], [0xfeff, 0xfeff]];
const wide = [
  [0x1100, 0x115f], [0x2e80, 0xa4cf], [0xac00, 0xd7a3], [0xf900, 0xfaff], [0xfe30, 0xfe6f], [0xff00, 0xff60],
  [0xffe0, 0xffe6], [0x1f300, 0x1faff], [0x20000, 0x3fffd],
];

function tablesOf(font) {
  const tables = new Map();
  for (let i = 0; i < font.readUInt16BE(4); ++i) {
    const entry = 12 + 16 * i;
    tables.set(font.toString('latin1', entry, entry + 4), font.readUInt32BE(entry + 8));
  }
  return tables;
}

// The place of the character map of the kind that maps segments of the basic plane.
function segmentMap(font, cmap) {
  for (let i = 0; i < font.readUInt16BE(cmap + 2); ++i) {
    const table = cmap + font.readUInt32BE(cmap + 4 + 8 * i + 4);
    if (font.readUInt16BE(table) === 4) return table;
  }
  throw new Error('the font has no map of segments');
}

function glyphOf(font, map, character) {
  const doubled = font.readUInt16BE(map + 6);
  const [ends, starts] = [map + 14, map + 16 + doubled];
  for (let at = 0; at < doubled; at += 2) {
    if (font.readUInt16BE(ends + at) < character) continue;
    const start = font.readUInt16BE(starts + at);
    if (start > character) return 0;
    const delta = font.readUInt16BE(starts + doubled + at);
    const offsetAt = starts + 2 * doubled + at;
    const offset = font.readUInt16BE(offsetAt);
    if (offset === 0) return (character + delta) & 0xffff;
    const glyph = font.readUInt16BE(offsetAt + offset + 2 * (character - start));
    return glyph === 0 ? 0 : (glyph + delta) & 0xffff;
  }
  return 0;
}

function widthsOf(path) {
  const font = readFileSync(path);
  const tables = tablesOf(font);
  const em = font.readUInt16BE(tables.get('head') + 18);
  const metrics = font.readUInt16BE(tables.get('hhea') + 34);
  const map = segmentMap(font, tables.get('cmap'));
  const width = (character) => {
    const glyph = Math.min(glyphOf(font, map, character), metrics - 1);
    return Math.round((1000 * font.readUInt16BE(tables.get('hmtx') + 4 * glyph)) / em);
  };
  return ranges.flatMap(([first, last]) => Array.from({ length: last - first + 1 }, (_, i) => width(first + i)));
}

const [regularPath, boldPath] = process.argv.slice(2);
const [regular, bold] = [widthsOf(regularPath), widthsOf(boldPath)];
const table = { other: 600, ranges, zero, wide, regular, bold };
const lines = Object.entries(table).map(([name, value]) => `"${name}":${JSON.stringify(value)}`);
writeFileSync(new URL('../web/text-widths.json', import.meta.url), `{\n${lines.join(',\n')}\n}\n`);
