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
    """Cells by their row's labels and their column's name, and how many columns there are."""
    rows, columns = tables.Side(table, 0), tables.Side(table, 1)
    cells = {}
    for cell in table["cells"]:
        row = tuple(tables.words(label) for label in rows.labels(cell, hidden=True))
        labels = columns.labels(cell, hidden=True)
        column = ", ".join(tables.words(label) for label in labels if label) if labels else "Value"
        cells[row, column] = cell["content"]
    return cells, rows.levels(hidden=True)


def check(path, table, faults):
    cells, levels = expected(table)
    with open(path, encoding="utf-8", newline="") as file:
        header, *records = list(csv.reader(file, strict=True))
    numbers = pandas.read_csv(path, float_precision="round_trip")
    texts = pandas.read_csv(path, dtype=str, keep_default_na=False)
    if [list(texts.columns), texts.values.tolist()] != [header, records]:
        faults.append(f"{path}: pandas reads other fields than the csv module")
    found = 0
    for record, row in zip(records, numbers.itertuples(index=False), strict=True):
        for at in range(levels, len(header)):
            content = cells.get((tuple(record[:levels]), header[at]))
            found += content is not None
            if content is None and record[at] != "":
                faults.append(f"{path}: {record[:levels]}, {header[at]}: nothing expected, found {record[at]}")
            if content is None:
                continue
            source = content["from"]
            value = source.get("number", source.get("value") if content["text"] != source.get("value") else None)
            if "number" in source and isinstance(value, (int, float)):
                read = row[at] if isinstance(row[at], float) else float(record[at])
                is_same = read == value
            elif "number" in source and value in SPELT:
                is_read = not isinstance(row[at], float) or not math.isfinite(row[at])
                is_same = record[at] == SPELT[value] and is_read
            elif "value" in source and isinstance(source["value"], (int, float)) and record[at] != content["text"]:
                is_same = float(record[at]) == source["value"]
            else:
                is_same = record[at] == content["text"]
            if not is_same:
                faults.append(f"{path}: {record[:levels]}, {header[at]}: {content}, found {record[at]}")
    if found != len(cells):
        faults.append(f"{path}: {found} of {len(cells)} cells found")


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
            check(folder / f"{name}.csv", table, faults)
    for path, table in hostile.write(work):
        tables.run(program, "render", "-f", "csv", "-o", path.with_suffix(""), path)
        check(path.with_suffix("") / "Hostile-1.csv", table, faults)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
