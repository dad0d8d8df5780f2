// The tools of a table.

import { copy } from "../tools/clipboard.js";
import { saveFile } from "../tools/saveFile.js";
import { makeTools } from "../tools/tools.js";
import { asCsv } from "./asCsv.js";
import { asLatex } from "./asLatex.js";
import { asMarkdown } from "./asMarkdown.js";
import { asRichText } from "./asRichText.js";
import { asText } from "./asText.js";
import { readTable } from "./readTable.js";

export const addTableTools = (figure) => {
  const copyAs = (write) => () => copy(write(readTable(figure)));
  figure.prepend(makeTools("copy", {
    asTable: () => copy(asText(readTable(figure)), asRichText(figure)),
    asMarkdown: copyAs(asMarkdown),
    asLatex: copyAs(asLatex),
    asCsv: copyAs(asCsv),
    csv: () => saveFile(figure, "csv", "text/csv", asCsv(readTable(figure))),
  }));
};
