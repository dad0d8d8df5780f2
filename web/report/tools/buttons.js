// Buttons.

import { give, make, words } from "../shared/elements.js";
import { say, status } from "../shared/status.js";

// A button keeps its width while it tells what became of it.
export const tell = (button, word) => {
  if (!word) return;
  button.style.minWidth = `${button.offsetWidth}px`;
  button.textContent = word;
  clearTimeout(button.timer);
  button.timer = setTimeout(() => { button.textContent = words[button.className]; }, 2000);
  say(word);
  status.timer = setTimeout(() => say(""), 2000);
};

export const makeButton = (className, act, attributes, textContent = "") => {
  const button = Object.assign(make("button", className), { type: "button", textContent });
  give(button, attributes);
  button.addEventListener("click", act);
  return button;
};
