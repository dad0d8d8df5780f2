// What tests of the program share: a fresh folder to work in, runs, and faults that are told at the end.

import { spawnSync } from "node:child_process";
import { mkdirSync, rmSync } from "node:fs";

export const faults = [];

/** Makes the folder, goes into it, and gives what runs the program and other commands there. */
export function enter(work, program) {
  rmSync(work, { recursive: true, force: true });
  mkdirSync(work, { recursive: true });
  process.chdir(work);
  const spawn = (command, args, options = {}) => {
    const settings = { encoding: "utf8", input: "", maxBuffer: 1 << 28, ...options };
    const { status, signal, stdout, stderr } = spawnSync(command, args, settings);
    return { status: status ?? signal, out: stdout, err: stderr };
  };
  return { spawn, run: (...args) => spawn(program, args) };
}

/** Compares as JSON, or a text with a pattern. */
export function expect(what, actual, expected) {
  const isPattern = expected instanceof RegExp;
  const [got, wanted] = [actual, expected].map((value) => (isPattern ? String(value) : JSON.stringify(value)));
  if (isPattern ? expected.test(actual) : got === wanted) return;
  faults.push(`${what}:\n--- expected\n${wanted}\n--- actual\n${got.slice(0, 3000)}`);
}

export function finish() {
  if (faults.length > 0) console.error(faults.join("\n"));
  process.exit(faults.length > 0 ? 1 : 0);
}
