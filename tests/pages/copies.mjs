// What a page copies as CSV is the file that the program writes, where the page knows all digits.

/** What each table's menu puts on the clipboard. */
const copyAll = (page) => page.evaluate(() => {
  const copied = [];
  addEventListener("copy", (event) => copied.push(event.clipboardData.getData("text/plain")));
  return Array.from(document.querySelectorAll("figure.table:has(.tools)"), (figure) => {
    figure.querySelector(":scope > .tools .more").click();
    const items = Array.from(figure.querySelectorAll("[role=menuitem]"));
    items.find(({ textContent }) => textContent === "Copy as CSV").click();
    return [figure.id, copied.pop()];
  });
});

/** Returns how many tables were compared, and faults. */
export async function checkCopies(page, readFile) {
  const tables = await copyAll(page);
  const faults = tables.filter(([anchor, copied]) => copied !== readFile(anchor))
    .map(([anchor, copied]) => `${anchor}, copied as CSV, has\n${copied}\nand not\n${readFile(anchor)}`);
  return [tables.length, faults];
}
