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

/** A view that nothing shows yet. */
export function makeView(specification) {
  const quiet = logger(ErrorLevel);
  const { spec } = compile(specification, { logger: quiet });
  const runtime = parse(spec, {}, { ast: true });
  return new View(runtime, { expr: expressionInterpreter, renderer: "none", loader, logger: quiet });
}
