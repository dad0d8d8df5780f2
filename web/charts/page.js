// Draws the charts of a page in their order, a few per task, so that the page can be read meanwhile; what is still to be
// drawn when the page is printed is drawn then. A chart that fails says so and keeps its table.
import { makeView } from "./view.js";
import { Tip, listenForTips } from "./tips.js";

// More marks than this make a page of elements slow.
const mostElements = 5000;

// Browsers draw nothing on a canvas that is longer.
const longestCanvas = 16000;

// Below this share of its size a picture's words are no longer legible.
const leastScale = 0.8;

// Milliseconds after which a page that is being drawn answers its reader.
const longestTask = 50;

// However many points they go through, these are one element; guides are not counted.
const lines = new Set(["line", "area", "trail"]);
const guides = new Set(["axis", "legend", "title"]);

const countMarks = (mark) => {
  if (guides.has(mark.role)) return 0;
  if (lines.has(mark.marktype)) return 1;
  return mark.items.reduce((sum, item) => sum + 1 + countParts(item), 0);
};
const countParts = (item) => (item.items ?? []).reduce((sum, mark) => sum + countMarks(mark), 0);

function chooseRenderer(view) {
  const { root } = view.scenegraph();
  const length = Math.max(root.bounds.width(), root.bounds.height()) * devicePixelRatio;
  return length <= longestCanvas && countMarks(root) > mostElements ? "canvas" : "svg";
}

async function draw(drawing, tip) {
  const view = await makeView(JSON.parse(drawing.querySelector("script").textContent));
  const picture = document.createElement("div");
  drawing.append(picture);
  await view.tooltip(tip.handler()).renderer(chooseRenderer(view)).initialize(picture).runAsync();
  drawing.style.setProperty("--legible", `${leastScale * view.scenegraph().root.bounds.width()}px`);
  // The figure around it has a role and a name.
  for (const name of ["role", "aria-roledescription", "aria-label"]) picture.removeAttribute(name);
  listenForTips(drawing, tip);
}

function tellFailure(drawing) {
  const failure = document.createElement("p");
  failure.textContent = document.body.dataset.notDrawn;
  drawing.querySelector("div")?.remove();
  for (const name of ["tabindex", "role", "aria-label"]) drawing.removeAttribute(name);
  drawing.append(failure);
  drawing.closest("figure").querySelector("details")?.setAttribute("open", "");
}

export function drawPage() {
  const waiting = Array.from(document.querySelectorAll(".drawing"));
  if (waiting.length === 0) return;
  const tip = new Tip();
  const drawNext = () => {
    const drawing = waiting.shift();
    return draw(drawing, tip).catch(() => tellFailure(drawing));
  };
  const step = async () => {
    const end = performance.now() + longestTask;
    while (waiting.length > 0 && performance.now() < end) await drawNext();
    if (waiting.length > 0) setTimeout(step);
  };
  addEventListener("beforeprint", () => { while (waiting.length > 0) drawNext(); });
  addEventListener("scroll", () => tip.settle(), { passive: true, capture: true });
  step();
}
