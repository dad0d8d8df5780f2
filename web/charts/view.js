// From a chart's specification to what draws it. Expressions are interpreted, never compiled: the page's policy allows no
// code but its own. Nothing is fetched.
import { Error as ErrorLevel, View, logger, parse, textMetrics } from "vega";
import { expressionInterpreter } from "vega-interpreter";
import { compile } from "vega-lite";
import { textWidth } from "./widths.js";

textMetrics.width = textWidth;

const loader = {
  load: () => Promise.reject(new Error("nothing is loaded")),
  sanitize: () => Promise.reject(new Error("nothing is linked")),
};

// Something that shows nothing is nothing to hear of either.
function silenceEmpty(mark) {
  if (mark.items.length === 0) mark.aria = false;
  for (const item of mark.items) item.items?.forEach((part) => part.items && silenceEmpty(part));
}

/** A view that has run and that nothing shows yet. */
export function makeView(specification) {
  const quiet = logger(ErrorLevel);
  const { spec } = compile(specification, { logger: quiet });
  const runtime = parse(spec, { events: { bind: "none" } }, { ast: true });
  const view = new View(runtime, { expr: expressionInterpreter, renderer: "none", loader, logger: quiet }).run();
  silenceEmpty(view.scenegraph().root);
  return view;
}
