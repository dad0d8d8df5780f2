"""Reads the Markdown of every example with a parser of GitHub's and compares each cell with the document:
markdown_files.py PROGRAM EXAMPLES WORK"""

import html.parser
import json
import pathlib
import shutil
import subprocess
import sys

import hostile
import tables


class Page(html.parser.HTMLParser):
    """The tables of a page as lists of rows, without note marks; and the addresses of its pictures."""

    def __init__(self):
        super().__init__()
        self.tables, self.pictures, self.cell, self.is_mark = [], [], None, False

    def handle_starttag(self, tag, attributes):
        if tag == "table":
            self.tables.append([])
        elif tag == "tr":
            self.tables[-1].append([])
        elif tag in ("td", "th"):
            self.cell = ""
        elif tag == "br" and self.cell is not None:
            self.cell += "\n"
        elif tag == "sup":
            self.is_mark = True
        elif tag == "img":
            self.pictures.append(dict(attributes)["src"])

    def handle_endtag(self, tag):
        if tag in ("td", "th"):
            self.tables[-1][-1].append(self.cell)
            self.cell = None
        elif tag == "sup":
            self.is_mark = False

    def handle_data(self, data):
        if self.cell is not None and not self.is_mark:
            self.cell += data


def check(name, table, found, faults):
    rows, columns = tables.Side(table, 0), tables.Side(table, 1)
    header, *records = found
    lines = {}
    for cell in table["cells"]:
        row = tuple(tables.shown(label) for label in rows.labels(cell, hidden=False))
        labels = [label for label in columns.labels(cell, hidden=False, named=True) if label]
        column = ", ".join(tables.shown(label) for label in labels)
        lines.setdefault((row, column), []).append(tables.shown(cell["content"], labels[-1] if labels else None))
    levels = len(next(iter(lines))[0]) if lines else 0
    for record in records:
        for at in range(levels, len(header)):
            words = lines.get((tuple(record[:levels]), header[at]), [""])
            if record[at] not in words:
                faults.append(f"{name}: {record[:levels]}, {header[at]}: {words} expected, found {record[at]}")
            elif words != [""]:
                words.remove(record[at])
    left = sum(len(words) for words in lines.values())
    if left > 0:
        faults.append(f"{name}: {left} cells are missing")


def read(path):
    parser = ["cmark-gfm", "--unsafe", "-e", "table", "-e", "strikethrough", "-e", "autolink", path]
    page = Page()
    page.feed(subprocess.run(parser, check=True, capture_output=True, text=True).stdout)
    return page


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
        page = read(path)
        with_cells = [(name, table) for name, table in tables.named_tables(document, names) if table["cells"]]
        if len(with_cells) != len(page.tables):
            faults.append(f"{path}: {len(page.tables)} tables, {len(with_cells)} expected")
        for (name, table), found in zip(with_cells, page.tables):
            check(f"{path}: {name}", table, found, faults)
        charts = [f"{example.name}-charts/{one['name']}.svg" for one in names if one["kind"] == "chart"]
        missing = [chart for chart in page.pictures if not (path.parent / chart).is_file()]
        if page.pictures != charts or missing:
            faults.append(f"{path}: charts {page.pictures}, of which are missing {missing}")
    for path, table in hostile.write(work):
        tables.run(program, "render", "-o", path.with_suffix(".md"), path)
        found = read(path.with_suffix(".md")).tables
        if (path.parent / f"{path.stem}-charts").exists():
            faults.append(f"{path.name}: a folder for no charts")
        # Signs that are not seen are spelt out.
        seen = json.loads(json.dumps(table).replace("\\u202e", "\\\\u{202E}").replace("\\u0001", "\u2401")
                          .replace("\\u001b", "\u241b"))
        check(path.name, seen, found[0] if len(found) == 1 else [[]], faults)
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
