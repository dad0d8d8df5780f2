// The tools of a chart.

import { all } from "../shared/elements.js";
import { asCsv } from "../tables/asCsv.js";
import { readTable } from "../tables/readTable.js";
import { copy } from "../tools/clipboard.js";
import { saveFile } from "../tools/saveFile.js";
import { makeTools } from "../tools/tools.js";
import { asSvg, savePng } from "./saving.js";

export const makeChartTools = (figure) => {
  const values = all(".values", figure);
  return makeTools("save", {
    svg: () => saveFile(figure, "svg", "image/svg+xml", asSvg(figure)),
    png: () => savePng(figure),
    ...values.length && { values: () => copy(values.map((one) => asCsv(readTable(one))).join("\n")) },
  });
};
