// Draws the charts of a page in their order, one per task, so that the page can be read meanwhile; what is still to be
// drawn when the page is printed is drawn then. A chart that fails says so and keeps its table.
import { makeView } from "./view.js";
import { Tip, listenForTips } from "./tips.js";

// More marks than this make a page of elements slow.
const mostElements = 5000;

const countMarks = (mark) => mark.items.reduce((sum, item) => sum + 1 + countParts(item), 0);
const countParts = (item) => (item.items ?? []).reduce((sum, mark) => sum + (mark.items ? countMarks(mark) : 1), 0);

function draw(drawing, tip) {
  const source = drawing.querySelector("script");
  const view = makeView(JSON.parse(source.textContent));
  const picture = document.createElement("div");
  drawing.append(picture);
  const isLarge = countMarks(view.scenegraph().root) > mostElements;
  view.tooltip(tip.handler()).renderer(isLarge ? "canvas" : "svg").initialize(picture).run();
  picture.removeAttribute("role");  // the figure around it has one, and a name
  for (const name of ["aria-roledescription", "aria-label"]) picture.removeAttribute(name);
  drawing.tabIndex = 0;
  listenForTips(drawing, tip);
}

function tryToDraw(drawing, tip) {
  try {
    draw(drawing, tip);
  } catch {
    const failure = document.createElement("p");
    failure.textContent = document.body.dataset.notDrawn;
    drawing.querySelector("div")?.remove();
    drawing.append(failure);
    drawing.closest("figure").querySelector("details")?.setAttribute("open", "");
  }
}

export function drawPage() {
  const waiting = Array.from(document.querySelectorAll(".drawing"));
  if (waiting.length === 0) return;
  const tip = new Tip();
  const drawNext = () => {
    if (waiting.length > 0) tryToDraw(waiting.shift(), tip);
    return waiting.length > 0;
  };
  const step = () => drawNext() && setTimeout(step);
  addEventListener("beforeprint", () => { while (drawNext()); });
  addEventListener("scroll", () => tip.settle(), { passive: true, capture: true });
  step();
}
