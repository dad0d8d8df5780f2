// Pictures that answer.

import { all, give, words } from "../shared/elements.js";
import { makeChartTools } from "./chartTools.js";
import { labelMarks, nameMarks } from "./marks.js";
import { blur, leaveSoon, point, touch, walk } from "./pointing.js";

const naming = new ResizeObserver((changes) => changes.forEach(({ target }) => nameMarks(target)));

const enliven = (drawing) => {
  labelMarks(drawing);
  drawing.tabIndex = 0;
  give(drawing, { "aria-description": words.way });
  drawing.after(makeChartTools(drawing.parentElement));
  const listeners = {
    pointermove: point,
    pointerdown: touch,
    pointerleave: leaveSoon,
    keydown: walk,
    focusout: blur,
  };
  for (const [name, listener] of Object.entries(listeners)) drawing.addEventListener(name, listener);
  naming.observe(drawing);
};

all(".drawing").forEach(enliven);
