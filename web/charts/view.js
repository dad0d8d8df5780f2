// From a chart's specification to what draws it. Expressions are interpreted, never compiled: the page's policy allows no
// code but its own. Nothing is fetched.
import { View, parse, textMetrics } from "vega";
import { expressionInterpreter } from "vega-interpreter";
import { compile } from "vega-lite";
import { textWidth } from "./widths.js";

textMetrics.width = textWidth;

const loader = {
  load: () => Promise.reject(new Error("nothing is loaded")),
  sanitize: () => Promise.reject(new Error("nothing is linked")),
};

// Faults of a running view are told to its logger alone; one that throws makes the run fail.
const strict = {
  level: () => 0,
  error: (fault) => { throw fault instanceof Error ? fault : new Error(String(fault)); },
  warn: () => strict,
  info: () => strict,
  debug: () => strict,
};

// Something that shows nothing is nothing to hear of either.
function silenceEmpty(mark) {
  if (mark.items.length === 0) mark.aria = false;
  for (const item of mark.items) item.items?.forEach((part) => part.items && silenceEmpty(part));
}

/** Promises a view that has run and that nothing shows yet. Its later runs fail by their promises, too. */
export async function makeView(specification) {
  const { spec } = compile(specification, { logger: strict });
  const runtime = parse(spec, { events: { bind: "none" } }, { ast: true });
  const view = new View(runtime, { expr: expressionInterpreter, renderer: "none", loader, logger: strict });
  await view.runAsync();
  silenceEmpty(view.scenegraph().root);
  return view;
}
