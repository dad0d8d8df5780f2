// The parts of Vega that charts need, in the place of the whole: maps, trees, forces, label placement and the like would
// make every page longer and its script slower to start. Vega-Lite takes its helpers from here as well.
import { transforms } from "vega-dataflow";
import * as encodings from "vega-encode";
import * as basics from "vega-transforms";
import * as layouts from "vega-view-transforms";

Object.assign(transforms, basics, layouts, encodings);

export { parse } from "vega-parser";
export { textMetrics } from "vega-scenegraph";
export { hasOwnProperty, isObject, isString, stringValue } from "vega-util";
export { View } from "vega-view";
