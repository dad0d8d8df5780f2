// Documents with charts, made by hand: every text of a chart is a label that could do harm were it not a text.

export const labels = ["<img src=x onerror=alert(1)>", "</script><script>alert(2)</script>", "<!--<script>",
  "\" onmouseover=\"alert(3)\" x='", "&lt;b&gt; &amp; &#60;", "]]>", "</title><h1>out", "javascript:alert(4)",
  "${alert(5)}", "{{7*7}}", "url(http://example.invalid/a)", "tab\tand\nline", "<svg onload=alert(6)>",
  "<a href='http://example.invalid'>link</a>", "`'\"\\", "\u202egpj.exe", "nul\0bell\u0007\u001b[31m", "=cmd|'!A0"];

const table = (rows) => ({ columns: ["Level", "Mean", labels[0]], keys: 1,
  rows: Array.from({ length: rows }, (_, row) => [labels[row % labels.length], (row / 8).toFixed(row % 4), "."]) });

const points = (rows) => Array.from({ length: rows }, (_, row) => ({ x: row, m: (row * 7) % 11, side: row % 2 ? "left" : "right",
  tip: `${labels[row % labels.length]}\nMean = ${row}` }));

const levels = (rows) => ({
  $schema: "https://vega.github.io/schema/vega-lite/v6.json",
  description: `Points by level: ${labels[1]}`,
  title: { text: [labels[2], labels[13]], subtitle: labels[3] },
  params: [{ name: "x_text", value: Array.from({ length: rows }, (_, row) => labels[row % labels.length]) }],
  width: 400,
  height: 200,
  data: { values: points(rows) },
  layer: [{
    transform: [{ filter: "isValid(datum.m)" }],
    mark: { type: "point", filled: true },
    encoding: {
      x: { field: "x", type: "nominal", title: labels[12], axis: { labelExpr: "x_text[datum.value]", labelLimit: 60 } },
      y: { field: "m", type: "quantitative", title: labels[14] },
      tooltip: { field: "tip" },
      description: { field: "tip" },
    },
  }],
});

const scatter = (rows) => ({
  description: "Many points",
  width: 400,
  height: 200,
  data: { values: points(rows) },
  mark: { type: "point", clip: true },
  encoding: { x: { field: "x", type: "quantitative" }, y: { field: "m", type: "quantitative" } },
});

const chart = (view, place) => ({ kind: "chart", description: labels[place], sendArguments: [true, false, false], editor: 2,
  template: "GLMMEmMeans", xml: "<chart/>", data: [], variables: [], view });

/** A saved document that holds charts with these views. */
export const makeDocument = (views, title = "Charts") => ({ format: "hierfit-output", version: 1, producer: "hierfit", language: "en", title,
  sources: [], items: views.map(chart), diagnostics: [] });

/** By name of the document. */
export const documents = {
  charts: makeDocument([{ ...levels(18), usermeta: table(45) }, { ...scatter(12), usermeta: table(1) }, scatter(30), {}]),
  large: makeDocument([{ ...scatter(5500), title: labels[0], usermeta: table(2) }]),
  failing: makeDocument([{ description: "No picture", mark: "point", data: { values: [{ x: 1 }] }, encoding: { x: 7 }, layer: 7,
    usermeta: table(3) }, { ...levels(4), params: [{ name: "x_text", value: null }], usermeta: table(3) }],
  "Charts that fail"),
};
