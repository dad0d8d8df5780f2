// The mark that a reader is at, by the pointer, a finger or the keyboard.

import { all } from "../shared/elements.js";
import { say } from "../shared/status.js";
import { dim, light } from "./light.js";
import { marksIn } from "./marks.js";
import { showTip, tip } from "./tip.js";

// What the keyboard or a finger is at, and what the pointer is at.
let mark = null;
let hovered = null;
let leaving;
const stay = () => { leaving = clearTimeout(leaving); };
const leave = () => {
  stay();
  mark?.classList.remove("at");
  mark = hovered = null;
  tip.hidden = true;
  dim();
};

// The pointer has time to go from a mark to its tip, which stays as long as it is there.
export const leaveSoon = () => { if (!mark) leaving ??= setTimeout(leave, 300); };
tip.addEventListener("pointerenter", stay);
tip.addEventListener("pointerleave", leaveSoon);

const showBeside = () => {
  const { left, top, width, height } = mark.getBoundingClientRect();
  showTip(mark.getAttribute("aria-label") ?? mark.textContent, left + width / 2, top + height / 2);
};

const goTo = (next) => {
  leave();
  mark = next;
  mark.classList.add("at");
  mark.scrollIntoView({ block: "nearest", inline: "nearest" });
  showBeside();
  light(mark);
  say(tip.textContent);
};

// Lines are thin, so what is next to the pointer counts, too.
const around = [[0, 0], [0, -3], [3, 0], [0, 3], [-3, 0]];
const findAt = (x, y, selector) => {
  for (const [right, down] of around) {
    const found = document.elementFromPoint(x + right, y + down)?.closest(selector);
    if (found) return found;
  }
  return null;
};

// When a picture moves below the pointer, that counts as a move, too, but not as one of the reader's.
export const point = ({ clientX, clientY, pointerType, movementX, movementY }) => {
  if (pointerType === "touch" || (mark && movementX === 0 && movementY === 0)) return;
  const found = findAt(clientX, clientY, ".drawing svg [role=img], .drawing [data-e]");
  if (mark) leave();
  if (!found) return leaveSoon();
  stay();
  if (found === hovered) return;
  hovered = found;
  const text = found.getAttribute("aria-label");
  if (text) showTip(text, clientX, clientY);
  else tip.hidden = true;
  light(found);
};

export const touch = ({ clientX, clientY, pointerType }) => {
  if (pointerType !== "touch") return;
  const found = findAt(clientX, clientY, ".drawing svg [role=img]");
  if (found) goTo(found);
  else leave();
};

export const blur = ({ currentTarget }) => {
  if (currentTarget.contains(mark)) leave();
};

// With Shift the way leads through the legend.
export const walk = (event) => {
  const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[event.key];
  if (!step || event.ctrlKey || event.altKey || event.metaKey) return;
  const picture = Array.from(event.currentTarget.children).find((one) => one.getClientRects().length);
  const marks = event.shiftKey ? all("[data-e]", picture) : marksIn(picture);
  if (marks.length === 0) return;
  event.preventDefault();
  const place = marks.indexOf(mark);
  goTo(marks.at((place < 0 && step < 0 ? -1 : place + step) % marks.length));
};

// What is left by the keyboard while the pointer is there is left until that goes elsewhere.
addEventListener("keydown", ({ key }) => {
  if (key !== "Escape") return;
  const left = hovered;
  leave();
  hovered = left;
});

// A tip beside a mark goes with it, one by the pointer goes away.
addEventListener("scroll", () => { mark ? showBeside() : leave(); }, { passive: true, capture: true });
