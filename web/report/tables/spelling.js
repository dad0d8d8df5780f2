// A spelling says how a format has a text, the end of a line and the letter of a note.

import { all } from "../shared/elements.js";

// A figure's minus becomes that of a keyboard, so that programs know a number.
export const asTyped = (text) => text.replace(/(^|\()\u2212(?=[\d.])/, "$1-");

export const whole = { text: (text) => text, line: "\n", letter: () => "" };
export const markdown = {
  text: (text) => text.replace(/[\\`*_[\]<>|~$&]/g, "\\$&"),
  line: "<br>",
  letter: (letter) => `<sup>${letter}</sup>`,
};

const signs = { "\\": "\\textbackslash{}", "~": "\\textasciitilde{}", "^": "\\textasciicircum{}", "\"": "\\char34{}",
  "<": "$<$", ">": "$>$", "|": "$|$", "\u2212": "$-$", "\u2013": "--", "-": "-{}" };
export const latex = {
  text: (text) => text.replace(/[\\~^<>|"\u2212\u2013#$%&_{}]|-(?=-)/g, (sign) => signs[sign] ?? `\\${sign}`),
  line: " ",
  letter: (letter) => `\\textsuperscript{${letter}}`,
};

export const spell = (element, spelling) => Array.from(element.childNodes, (node) => {
  if (node.localName === "br") return spelling.line;
  if (node.localName === "sup") return node.textContent.split(", ").map(spelling.letter).join("");
  return node.data === undefined ? spell(node, spelling) : spelling.text(node.data);
}).join("");

export const wordsOf = (cell, spelling) => spell(cell, { ...spelling, letter: whole.letter });
export const lettersOf = (cell, spelling) => spell({ childNodes: all("sup", cell) }, spelling);
