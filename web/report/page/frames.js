// The frames of tables: a stop for the keyboard where one scrolls, and all of it on paper.

import { all, give } from "../shared/elements.js";
import { addTableTools } from "../tables/tableTools.js";
import { closeMenu } from "../tools/menu.js";

const setStop = (frame) => {
  const scrolls = frame.scrollWidth > frame.clientWidth || frame.scrollHeight > frame.clientHeight;
  give(frame, scrolls ? { tabindex: 0, "aria-label": frame.dataset.label } : { tabindex: null, "aria-label": null });
};

const frames = all(".scroll");
const resizing = new ResizeObserver((changes) => changes.forEach((change) => setStop(change.target)));
for (const frame of frames) {
  frame.dataset.label = frame.getAttribute("aria-label");
  addTableTools(frame.parentElement);
  resizing.observe(frame);
}

// An A4 page between its margins, in pixels at the size of printed text.
const paper = 680;
const printed = 10 * 96 / 72 / 16;
addEventListener("beforeprint", () => {
  closeMenu();
  for (const frame of frames) {
    const width = frame.firstElementChild.offsetWidth * printed;
    frame.style.zoom = Math.min(1, paper / width);
  }
});
addEventListener("afterprint", () => frames.forEach((frame) => { frame.style.zoom = ""; }));
