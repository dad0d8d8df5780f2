// A data cell's headers, as the browser tells assistive software, are the labels that lead to the cell in the document.

const squash = (words) => words.replace(/\s+/g, "");

/** The tables of the accessibility tree, in order: rows of cells, each with its role and name. */
async function readTree(page) {
  const session = await page.context().newCDPSession(page);
  await session.send("Accessibility.enable");
  const { nodes } = await session.send("Accessibility.getFullAXTree");
  await session.detach();
  const byId = new Map(nodes.map((node) => [node.nodeId, node]));
  const roleOf = (node) => (node.ignored ? "" : node.role.value);
  const find = (node, roles) => node.childIds.map((id) => byId.get(id)).filter(Boolean)
    .flatMap((child) => (roles.includes(roleOf(child)) ? [child] : find(child, roles)));
  const cellsIn = (row) => find(row, ["cell", "gridcell", "columnheader", "rowheader"])
    .map((cell) => ({ role: roleOf(cell), name: cell.name.value }));
  return find(nodes[0], ["table"])
    .map((table) => ({ title: table.name.value, rows: find(table, ["row"]).map(cellsIn) }));
}

/** The same of the page's elements: what each cell covers, and the letters of its notes. */
const readElements = (page) => page.evaluate(() => Array.from(document.querySelectorAll("table"), (table) => ({
  anchor: table.closest("figure[id], details.repeat")?.id,
  rows: Array.from(table.rows, ({ cells, parentElement }) => Array.from(cells, ({ colSpan, rowSpan, children }) => ({
    colSpan, rowSpan, isHead: parentElement.localName === "thead",
    letters: Array.from(children).filter(({ localName }) => localName === "sup")
      .map(({ textContent }) => textContent).join(""),
  }))),
})));

/** Each cell in every place that it covers. */
function layOut(rows) {
  const grid = rows.map(() => []);
  rows.forEach((row, top) => {
    let left = 0;
    for (const cell of row) {
      while (grid[top][left]) ++left;
      for (const line of grid.slice(top, top + cell.rowSpan)) {
        for (let beside = 0; beside < cell.colSpan; ++beside) line[left + beside] = cell;
      }
    }
  });
  return grid;
}

const nameOf = ({ name, letters }) => {
  const squashed = squash(name);
  const marks = squash(letters);
  return marks && squashed.endsWith(marks) ? squashed.slice(0, -marks.length) : squashed;
};

/** As a browser relates them: the row headers of a cell's row, then the column headers of its column. */
function relate(grid, levels) {
  return grid.flatMap((row) => row.slice(levels).flatMap((cell, place) => {
    if (cell.isHead || cell.role !== "cell") return [];
    const above = grid.map((line) => line[levels + place]);
    const headers = [...row.slice(0, levels).filter(({ role }) => role === "rowheader"),
      ...above.filter((header) => header?.isHead && header.role === "columnheader")];
    return [JSON.stringify([...Array.from(new Set(headers), nameOf), nameOf(cell)])];
  }));
}

const expect = ({ cells }) => cells.map(({ headers, words }) => JSON.stringify([...headers, words].map(squash)
  .filter((label, place) => label || place === headers.length)));

function compare(found, expected) {
  const counts = new Map();
  for (const cell of found) counts.set(cell, (counts.get(cell) ?? 0) + 1);
  for (const cell of expected) counts.set(cell, (counts.get(cell) ?? 0) - 1);
  // A combination of categories without a cell is a blank one.
  return Array.from(counts).filter(([cell, count]) => count < 0 || (count > 0 && !cell.endsWith(',""]')))
    .map(([cell, count]) => `${count > 0 ? "stray" : "missing"} ${cell}`);
}

/** The tree once it has as many tables as the page: the browser takes over what is unfolded when it has the time. */
async function awaitTree(page, count) {
  let tree = await readTree(page);
  for (let again = 0; tree.length < count && again < 40; ++again) {
    await page.waitForTimeout(250);
    tree = await readTree(page);
  }
  return tree;
}

/** Returns how many cells were compared, and faults. */
export async function checkHeaders(page, expected) {
  const elements = await readElements(page);
  const tree = await awaitTree(page, elements.length);
  const sizes = [tree.length, elements.length, expected.length];
  if (new Set(sizes).size > 1) return [0, [`${sizes} tables in the tree, the page and the document`]];
  let count = 0;
  const faults = expected.flatMap((table, place) => {
    const shape = elements[place].rows;
    const { title, rows } = tree[place];
    const same = rows.length === shape.length && rows.every((row, at) => row.length === shape[at].length);
    const isOther = elements[place].anchor !== table.anchor;
    if (!same || isOther) return [`${table.anchor}: "${title}" has other cells in the tree`];
    const cells = rows.map((row, at) => row.map((cell, column) => ({ ...cell, ...shape[at][column] })));
    count += table.cells.length;
    return compare(relate(layOut(cells), table.levels), expect(table)).slice(0, 3)
      .map((fault) => `${table.anchor}: ${fault}`);
  });
  return [count, faults];
}
