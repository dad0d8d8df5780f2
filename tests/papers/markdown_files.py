"""Reads the Markdown of every example with a parser of GitHub's and compares each cell with the document:
markdown_files.py PROGRAM EXAMPLES WORK"""

import json
import pathlib
import shutil
import subprocess
import sys

import hostile
import tables

try:
    import lxml.html
except ImportError:
    print("lxml is missing.")
    sys.exit(77)


def read(path):
    """The tables of a page as lists of rows, without note marks; and the addresses of its pictures."""
    parser = ["cmark-gfm", "--unsafe", "-e", "table", "-e", "strikethrough", "-e", "autolink", path]
    page = lxml.html.fromstring(subprocess.run(parser, check=True, capture_output=True, text=True).stdout)
    for mark in page.iter("sup"):
        mark.text = ""
    for line in page.iter("br"):
        line.tail = "\n" + (line.tail or "")
    found = [[[cell.text_content() for cell in row] for row in table.iter("tr")] for table in page.iter("table")]
    return found, [picture.get("src") for picture in page.iter("img")]


def check(name, table, found):
    expected, levels = tables.lines(table)
    header, *records = found
    return tables.compare(name, expected, ((tuple(record[:levels]), header[at], record[at])
                                           for record in records for at in range(levels, len(header))))


def main(program, examples, work):
    if not shutil.which("cmark-gfm"):
        print("cmark-gfm is missing.")
        return 77
    faults = []
    pathlib.Path(work).mkdir(parents=True, exist_ok=True)
    for example in tables.examples(examples):
        path = pathlib.Path(work) / f"{example.name}.md"
        tables.run(program, "report", "-o", path, example)
        document, names = tables.read(program, example)
        found, pictures = read(path)
        with_cells = [(name, table) for name, table in tables.named_tables(document, names) if table["cells"]]
        if len(with_cells) != len(found):
            faults.append(f"{path}: {len(found)} tables, {len(with_cells)} expected")
        for (name, table), rows in zip(with_cells, found):
            faults += check(f"{path}: {name}", table, rows)
        charts = [f"{example.name}-charts/{one['name']}.svg" for one in names if one["kind"] == "chart"]
        missing = [chart for chart in pictures if not (path.parent / chart).is_file()]
        if pictures != charts or missing:
            faults.append(f"{path}: charts {pictures}, of which are missing {missing}")
    for path, table in hostile.write(work):
        tables.run(program, "render", "-o", path.with_suffix(".md"), path)
        found, _ = read(path.with_suffix(".md"))
        if (path.parent / f"{path.stem}-charts").exists():
            faults.append(f"{path.name}: a folder for no charts")
        # Signs that are not seen are spelt out.
        seen = json.loads(json.dumps(table).replace("\\u202e", "\\\\u{202E}").replace("\\u0001", "\u2401")
                          .replace("\\u001b", "\u241b"))
        faults += check(path.name, seen, found[0] if len(found) == 1 else [[]])
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
