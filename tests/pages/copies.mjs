// What a page copies as CSV is the file that the program writes, with figures as the page shows them.

/** What each table's menu puts on the clipboard. */
const copyAll = (page) => page.evaluate(() => {
  const copied = [];
  let text;
  addEventListener("copy", (event) => { text = event.clipboardData.getData("text/plain"); });
  for (const figure of document.querySelectorAll("figure.table:has(.tools)")) {
    text = "";
    figure.querySelector(":scope > .tools .more").click();
    const items = Array.from(figure.querySelectorAll("[role=menuitem]"));
    items.find(({ textContent }) => textContent === "Copy as CSV").click();
    copied.push([figure.id, text]);
  }
  return copied;
});

const read = (csv) => {
  const records = [[]];
  for (const [, quoted, plain, end] of csv.matchAll(/(?:"((?:[^"]|"")*)"|([^",\n]*))(,|\n|$)/g)) {
    if (end === "" && !quoted && !plain) break;
    records.at(-1).push(quoted?.replaceAll("\"\"", "\"") ?? plain);
    if (end === "\n") records.push([]);
  }
  return records.slice(0, -1);
};

/** Whether a figure is another one, rounded: 0.333 for 0.3333, 27.9% for 27.906, <.001 for 1e-5. */
function isRounded(shown, full) {
  const number = Number(full);
  if (shown.startsWith("<")) return number < Number(shown.slice(1));
  const [, digits, exponent = "0"] = /^-?\d*\.?(\d*)(?:E([-+]\d+))?%?$/i.exec(shown.replaceAll(",", "")) ?? [];
  if (digits === undefined || full === "" || Number.isNaN(number)) return false;
  const unit = 10 ** (Number(exponent) - digits.length);
  return Math.abs(Number.parseFloat(shown.replaceAll(",", "")) - number) <= unit * 0.500001;
}

/** Returns how many records were compared, and faults. */
export async function checkCopies(page, readFile) {
  let count = 0;
  const faults = (await copyAll(page)).flatMap(([anchor, copied]) => {
    const [shown, full] = [read(copied), read(readFile(anchor))];
    const differs = (field, row, column) => field !== full[row]?.[column]
      && !(row > 0 && isRounded(field, full[row]?.[column] ?? ""));
    const row = shown.findIndex((record, at) => record.length !== full[at]?.length
      || record.some((field, column) => differs(field, at, column)));
    count += shown.length;
    if (row >= 0) return [`${anchor}, copied as CSV, has\n${shown[row]}\nand not\n${full[row]}`];
    return shown.length === full.length ? [] : [`${anchor}: ${shown.length} records are copied, not ${full.length}`];
  });
  return [count, faults];
}
