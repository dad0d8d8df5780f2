"""Reads the CSV files of every example with pandas and compares each cell with the document:
csv_files.py PROGRAM EXAMPLES WORK"""

import csv
import math
import pathlib
import sys

import hostile
import tables

try:
    import pandas
except ImportError:
    print("pandas is missing.")
    sys.exit(77)

SPELT = {None: "", "NaN": "NaN", "Infinity": "Inf", "-Infinity": "-Inf"}  # what is no number


def expected(table):
    """Cells by their row's labels and their column's name, and how many levels the labels have."""
    rows, columns = tables.Side(table, 0), tables.Side(table, 1)
    cells = {}
    for cell in table["cells"]:
        row = tuple(tables.words(label) for label in rows.labels(cell, hidden=True))
        labels = columns.labels(cell, hidden=True)
        column = ", ".join(tables.words(label) for label in labels if label) if labels else "Value"
        cells[row, column] = cell["content"]
    return cells, rows.levels(hidden=True)


def is_same(content, words, read):
    """Whether a field's words are those of a cell's content, and what was read is its number to the last digit."""
    source = content["from"]
    number = source.get("number", source.get("value"))
    if "number" in source and number in SPELT:
        return words == SPELT[number] and not (isinstance(read, float) and math.isfinite(read))
    if isinstance(number, (int, float)) and ("number" in source or words != content["text"]):
        return (read if isinstance(read, float) else float(words)) == number
    return words == content["text"]


def check(path, table):
    cells, levels = expected(table)
    faults = []
    with open(path, encoding="utf-8", newline="") as file:
        header, *records = list(csv.reader(file, strict=True))
    numbers = pandas.read_csv(path, float_precision="round_trip")
    texts = pandas.read_csv(path, dtype=str, keep_default_na=False)
    if [list(texts.columns), texts.values.tolist()] != [header, records]:
        faults.append(f"{path}: pandas reads other fields than the csv module")
    for record, row in zip(records, numbers.itertuples(index=False), strict=True):
        for at in range(levels, len(header)):
            content = cells.pop((tuple(record[:levels]), header[at]), None)
            if not (is_same(content, record[at], row[at]) if content else record[at] == ""):
                faults.append(f"{path}: {record[:levels]}, {header[at]}: {content}, found {record[at]}")
    return faults + [f"{path}: {cell} is missing" for cell in cells]


def main(program, examples, work):
    faults = []
    for example in tables.examples(examples):
        folder = pathlib.Path(work) / example.name
        tables.run(program, "report", "-f", "csv", "-o", folder, example)
        document, names = tables.read(program, example)
        index = pandas.read_csv(folder / "index.csv", keep_default_na=False)
        if index[["name", "kind", "title"]].to_dict("records") != [
            {key: one[key] for key in ("name", "kind", "title")} for one in names
        ]:
            faults.append(f"{folder}/index.csv: lists other items than the program")
        for name, table in tables.named_tables(document, names):
            faults += check(folder / f"{name}.csv", table)
    for path, table in hostile.write(work):
        tables.run(program, "render", "-f", "csv", "-o", path.with_suffix(""), path)
        faults += check(path.with_suffix("") / "Hostile-1.csv", table)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
