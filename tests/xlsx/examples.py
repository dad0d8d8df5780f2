"""Reads the workbooks of all examples back: examples.py PROGRAM EXAMPLES

Numbers are those of the JSON form, texts those that the page shows in each style, as an office program shows them. The
contents are those that `list` tells, links lead somewhere, and the bytes do not depend on the time.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

try:
    import lxml.html
    import openpyxl
except ImportError:
    sys.exit(77)

import office

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "papers"))
from tables import tables  # noqa: E402

program, examples = sys.argv[1:3]
marks = dict(zip("abcdefghijklmnoprstuvwxyz", "ᵃᵇᶜᵈᵉᶠᵍʰⁱʲᵏˡᵐⁿᵒᵖʳˢᵗᵘᵛʷˣʸᶻ"))
faults = []


def run(*arguments, **settings):
    return subprocess.run([program, *map(str, arguments)], check=True, capture_output=True, **settings).stdout


def read_page(text):
    """The tables of a page by their names: of heads the number of rows, of bodies the words of cells."""
    page = lxml.html.fromstring(text)
    for mark in page.iter("sup"):
        letters = mark.text_content().replace(" ", "")
        mark[:] = []
        mark.text = "".join(marks.get(letter, letter) for letter in letters)
    return {figure.get("id"): {"head": len(figure.xpath(".//thead/tr")),
                               "rows": [[cell.text_content() for cell in row] for row in figure.xpath(".//tbody/tr")]}
            for figure in page.iter("figure") if figure.find(".//table") is not None}


def numbers(table):
    """Finite numbers of a table's cells, those of the data that are shown as such among them."""
    for cell in table["cells"]:
        source = cell["content"]["from"]
        number = source.get("number", source.get("value"))
        is_figure = "number" in source or not cell["content"]["text"].strip("0123456789.+-eE")
        if isinstance(number, (int, float)) and is_figure and cell["content"]["text"] != ".":
            yield number


def near(a, b):
    return abs(a - b) <= 1e-15 * abs(a)


def expect(place, what, expected, actual):
    if expected != actual:
        faults.append(f"{place}: {what}: expected {expected!r}, there is {actual!r}")


def data_of(sheet, table, width):
    """The cells of data below the frozen rows, and how many columns are frozen."""
    pane = openpyxl.utils.cell.coordinate_from_string(sheet.freeze_panes)
    left = openpyxl.utils.column_index_from_string(pane[0])
    return pane[1], [[sheet.cell(pane[1] + row, left + column) for column in range(width)] for row in range(len(table))]


def judge_table(place, sheet, table, page, offices):
    across = [index for index, dimension in enumerate(table["dimensions"]) if dimension["place"] == 1]
    width = len({tuple(cell["at"][index] for index in across) for cell in table["cells"]})
    top, data = data_of(sheet, page["rows"], width)
    expect(place, "frozen rows", 1 + page["head"], top - 1)
    for row, cells in enumerate(data) if offices else ():
        expected = ["" if text == "." else text.replace("\u2212", "-") for text in page["rows"][row][-width:]]
        line = offices[top - 1 + row]
        actual = [line[cell.column - 1].replace("E", "e") if isinstance(cell.value, (int, float))
                  else (cell.value or "").replace("\u2212", "-") for cell in cells]
        expect(place, "shown by the office program", expected, actual)
    wanted = sorted(numbers(table))
    found = sorted(cell.value for row in data for cell in row if isinstance(cell.value, (int, float)))
    if len(wanted) != len(found) or not all(map(near, wanted, found)):
        faults.append(f"{place}: numbers: expected {wanted}, there are {found}")


def judge(folder, style, file, offices):
    place = f"{folder.name} {style}"
    page = read_page(run("report", "--static", "--style", style, "-f", "html", folder).decode())
    items = json.loads(run("list", "-f", "json", folder))
    document = json.loads(run("report", "-f", "json", folder))
    book = openpyxl.load_workbook(file)
    contents = book["Contents"]
    rows = {cell.value: cell for cell in contents["A"]}
    for item in items:
        cell = rows[item["name"]]
        expect(place, f"kind of {item['name']}", item["kind"], cell.offset(0, 1).value)
        title = cell.offset(0, 2).value
        if item["kind"] == "message":
            title = title.partition(": ")[2]
        expect(place, f"title of {item['name']}", item["title"], title)
        expect(place, f"link of {item['name']}", item["kind"] in ("table", "chart"), cell.hyperlink is not None)
    links = [cell.hyperlink.location for cell in rows.values() if cell.hyperlink]
    expect(place, "sheets", ["Contents"] + [link.split("'")[1] for link in links], book.sheetnames)
    for item in items:
        if item["kind"] == "chart":
            pictures = book[item["name"]]._images
            expect(place, f"pictures of {item['name']}", 1, len(pictures))
    names = [item["name"] for item in items if item["kind"] == "table"]
    for name, table in zip(names, tables(document["items"]), strict=True):
        sheet = book[name[:31]]
        expect(f"{place} {name}", "title", table["title"]["text"], sheet["A1"].value)
        lines = [cell.value for cell in sheet["A"] if isinstance(cell.value, str)]
        for note in table["captions"] + table["notes"]:
            if style == "plain" and note["text"].isascii() and "-" not in note["text"]:
                expect(f"{place} {name}", f"has {note['text']!r}", True, note["text"] in lines)
        if page[name]["rows"]:
            judge_table(f"{place} {name}", sheet, table, page[name], offices.get(name))


def main():
    with tempfile.TemporaryDirectory() as name:
        work = pathlib.Path(name)
        written = {}
        for folder in sorted(path.parent for path in pathlib.Path(examples).glob("*/model.pmml")):
            for style in ("plain", "apa", "ama"):
                file = work / f"{folder.name}_{style}.xlsx"
                run("report", "--style", style, "--scale", 0.2, "-o", file, folder)
                written[file] = (folder, style)
        # The office program takes its time: one style each, in turns.
        offered = [file for number, file in enumerate(written) if number % 4 == 0]
        has_office = office.convert(offered, work)
        for file, (folder, style) in written.items():
            offices = office.read(work, file.stem)
            if has_office and file in offered:
                expect(folder.name, "sheets for the office program", True, len(offices) > 0)
            judge(folder, style, file, offices)
        file, (folder, _) = next(iter(written.items()))
        elsewhere = {**os.environ, "TZ": "Asia/Tokyo"}
        later = run("report", "-f", "xlsx", "--style", "plain", "--scale", 0.2, folder, env=elsewhere)
        expect(folder.name, "same bytes", file.read_bytes(), later)
        for language in ("de", "he"):
            turned = work / f"{language}.xlsx"
            run("report", "--lang", language, "--scale", 0.2, "-o", turned, folder)
            directions = {bool(sheet.sheet_view.rightToLeft) for sheet in openpyxl.load_workbook(turned)}
            expect(language, "sheets from right to left", {language == "he"}, directions)
    print("\n".join(fault[:1500] for fault in faults[:40]))
    sys.exit(1 if faults else 0)


main()
