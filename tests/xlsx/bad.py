"""Workbooks of saved documents that are hard to write: bad.py PROGRAM WORK. Each is read back or refused."""

import json
import math
import pathlib
import subprocess
import sys
import zipfile
from xml.etree import ElementTree

try:
    import openpyxl
except ImportError:
    sys.exit(77)

import office

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "papers"))
import hostile  # noqa: E402
from hostile import number, table, text  # noqa: E402

program, work = sys.argv[1], pathlib.Path(sys.argv[2])
work.mkdir(parents=True, exist_ok=True)
faults = []


def render(name, items):
    """The run, and the file if there is one."""
    (work / f"{name}.json").write_text(json.dumps(hostile.document(items)), encoding="utf-8")
    file = work / f"{name}.xlsx"
    file.unlink(missing_ok=True)
    command = [program, "render", "-o", file, work / f"{name}.json"]
    done = subprocess.run(command, capture_output=True, text=True)
    return done, file


def expect(place, what, expected, actual):
    if expected != actual:
        faults.append(f"{place}: {what}: expected {expected!r}, there is {actual!r}")


def open_book(name, items, **settings):
    done, file = render(name, items)
    expect(name, "exit status", (0, ""), (done.returncode, done.stderr))
    with zipfile.ZipFile(file) as archive:  # what spreadsheets would want to repair
        for part in archive.namelist():
            if part.endswith((".xml", ".rels")):
                ElementTree.fromstring(archive.read(part))
        sheets = [part for part in archive.namelist() if "worksheets/sheet" in part]
        expect(name, "formulas", [], [part for part in sheets if b"<f>" in archive.read(part)])
    book = openpyxl.load_workbook(file, **settings)
    names = [sheet.lower() for sheet in book.sheetnames]
    expect(name, "names that differ", len(names), len(set(names)))
    expect(name, "names that sheets cannot have", [], [n for n in names if len(n) > 31 or set(n) & set("[]:*?/\\")])
    return book


def remarks(book):
    return [cell.offset(0, 1).value for cell in book["Contents"]["B"] if cell.value == "Warning"]


# Texts that would be something else, and what stands in the cell.
texts = ["=1+1", "@SUM(A1)", "+1", "-1+2", "=cmd|' /C calc'!A0", "007", "2024-01-02", "http://example.org",
         "<b>&amp;</b>", "'quoted", "  two  ", "a\nb", "الفئة ١", "_x0041_", "水稻😀", "x" * 10000]
changed = {"a\u0007b": "a␇b", "a\u0000b": "a␀b", "a\u202eb": "a\\u{202E}b", "a\uffffb": "a\ufffdb", "a\rb": "a␍b",
           "": None}


def judge_texts():
    cells = {**dict(zip(texts, texts)), **changed}
    words = list(cells)
    items = [table(words, ["x", "=1+1"], lambda row, column: text(words[row]), "=2+2")]
    book = open_book("texts", items)
    sheet = book["Hostile-1"]
    expect("texts", "title, header and note", ["=2+2", "=1+1", "=2+2"],
           [sheet["A1"].value, sheet["C2"].value, sheet.cell(3 + len(words), 1).value])
    for row, expected in enumerate(cells.values()):
        for cell in (sheet.cell(3 + row, 1), sheet.cell(3 + row, 2)):
            expect("texts", words[row][:20], expected, cell.value)
            expect("texts", f"{words[row][:20]} is a text", True, cell.data_type in ("s", "inlineStr") or not expected)
    heights = [row.height or 15 for row in sheet.row_dimensions.values()]
    expect("texts", "rows too high", [], [height for height in heights if height > 409])
    with zipfile.ZipFile(work / "texts.xlsx") as archive:
        expect("texts", "codes escaped", True, b"_x005F_x0041_" in archive.read("xl/sharedStrings.xml"))


def judge_cuts():
    cases = [("x" * 32767, False), ("x" * 32768, True), ("😀" * 16383, False), ("😀" * 16384, True), ("é" * 40000, True)]
    book = open_book("cuts", [table([str(i) for i in range(len(cases))], ["x"], lambda r, c: text(cases[r][0]))])
    told = remarks(book)
    for row, (words, is_cut) in enumerate(cases):
        value = book["Hostile-1"].cell(3 + row, 2).value
        units = len(value.encode("utf-16-le")) // 2
        expect("cuts", f"case {row}", (is_cut, True), (value != words, units <= 32767 and units > 32760))
        expect("cuts", f"case {row} is told", is_cut, any(f"Hostile-1!B{3 + row}:" in remark for remark in told))


def judge_names():
    subtypes = ["A" * 40, "a" * 40, "History", "Contents", "x[]:*?/\\'y", "表", ""]
    book = open_book("names", [table(["r"], ["c"], lambda r, c: number(1, "1"), subtype=s) for s in subtypes])
    links = [cell.hyperlink.location for cell in book["Contents"]["A"] if cell.hyperlink]
    expect("names", "links", [f"'{name}'!A1" for name in book.sheetnames[1:]], links)
    expect("names", "sheets", len(subtypes), len(links))


# Numbers, their words, and what is to be seen.
figures = [
    (0.0625, "0.062", "0.062"),  # a half, which a spreadsheet would round up
    (2.675, "2.675", "2.675"), (-0.0625, "-0.062", "-0.062"), (1.0005, "1.000", "1.000"),
    (1.5e-300, "1.50e-300", "1.50e-300"), (97.25, "97.2%", "97.2%"), (-0.04, "0.0%", "0.0%"),
    (0.9999, "> .999", "> .999"), (3.0, "no number at all", "3"),
    (3.0, "7.000", "7.000"),  # words that are not the number's: what the report says is shown
    (math.pi, "3.14159265358979", "3.14159265358979"), (2.3e-308, "2.30e-308", "2.30e-308"),
    (-0.05, "-.050", "-.050"), (-2.5, "\u22122.500", "-2.500"), (-0.0, "0.000", "0.000"),
]
missing = ["NaN", "Infinity", "-Infinity", -1.7976931348623157e308]


def judge_figures():
    rows = [number(value, words) for value, words, _ in figures] + [number(value, ".") for value in missing]
    rows.append(number(1.7976931348623157e308, "1.79769e+308"))
    book = open_book("figures", [table([str(i) for i in range(len(rows))], ["x"], lambda r, c: rows[r]),
                                 table(["a", "b"], ["x", "y"], lambda r, c: number("NaN" if c else 1, "."))])
    has_office = office.convert([work / "figures.xlsx"], work.resolve())
    lines = office.read(work, "figures")["Hostile-1"] if has_office else []
    for row, (value, words, expected) in enumerate(figures):
        cell = book["Hostile-1"].cell(3 + row, 2)
        expect("figures", words, True, abs(cell.value - value) <= 1e-15 * abs(value))
        if has_office:
            expect("figures", f"{words} in the office program", expected, lines[2 + row][1].replace("E", "e"))
    expect("figures", "too large", "1.79769e+308", book["Hostile-1"].cell(3 + len(rows) - 1, 2).value)
    for row in range(len(figures), len(rows) - 1):
        expect("figures", "missing", None, book["Hostile-1"].cell(3 + row, 2).value)
    noted = open_book("noted", [table(list("abcdef"), [f"c{i}" for i in range(30)], lambda r, c: number("NaN", "."),
                                      notes=[], marks=lambda r, c: [text("Lost")] if c in (1, 28) and r != 3 else [])])
    expect("figures", "the mark of what is missing", "\u1d43 Lost (empty: C3:C5, AD3:AD5, C7:C8, AD7:AD8)",
           noted["Hostile-1"]["A9"].value)
    expect("figures", "is in no cell", None, noted["Hostile-1"]["C3"].value)
    lost = [book["Hostile-2"].cell(row, 3).value for row in (3, 4)]
    expect("figures", "a column without numbers", [None, None], lost)


def judge_formats():
    """More halves and marks than a workbook has formats: the figures stay true, and the contents tell."""
    halves = [(2 * i + 1) / 16 for i in range(300)]
    odd = [round(half - 1e-9, 3) for half in halves]
    items = [table([str(i) for i in range(300)], ["x"], lambda r, c: number(halves[r], f"{odd[r]:.3f}"),
                   marks=lambda r, c: [text(f"note {r % 250}")] if r >= 50 else [])]
    book = open_book("formats", items)
    codes = set()
    for row, half in enumerate(halves):
        cell = book["Hostile-1"].cell(3 + row, 2)
        codes.add(cell.number_format)
        is_told = f'"{odd[row]:.3f}"' in cell.number_format or cell.number_format.startswith("0.0000")
        expect("formats", half, (True, half), (is_told, cell.value))
    expect("formats", "few", True, len(codes) <= 200)
    expect("formats", "remarks", 2, len(remarks(book)))


def judge_sizes():
    wide = open_book("wide", [table(["r"], [f"c{i}" for i in range(200)], lambda r, c: number(c, "c"))], read_only=True)
    expect("wide", "columns", 201, wide["Hostile-1"].max_column)
    labels = [f"r{i}" for i in range(100000)]
    long = open_book("long", [table(labels, ["c"], lambda r, c: number(r, "r"), notes=[])], read_only=True)
    values = [row[1] for row in long["Hostile-1"].iter_rows(min_row=3, values_only=True)]
    expect("long", "values", list(range(100000)), values)
    for name, rows, columns, told in (
            ("columns", 1, 16384, "Hostile-1: 16385 columns, and a sheet holds 16384"),
            ("rows", 1048576, 1, "Hostile-1: 1048578 rows, and a sheet holds 1048576")):
        labels = [[str(i) for i in range(count)] for count in (rows, columns)]
        done, file = render(name, [table(*labels, lambda r, c: number(1, "1"), notes=[])])
        expect(name, "refused", (3, f"hierfit: {told}\n", False), (done.returncode, done.stderr, file.exists()))
        (work / f"{name}.json").unlink()


for judge in (judge_texts, judge_cuts, judge_names, judge_figures, judge_formats, judge_sizes):
    judge()
print("\n".join(fault[:1000] for fault in faults))
sys.exit(1 if faults else 0)
