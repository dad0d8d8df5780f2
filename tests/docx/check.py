"""Reads the examples' files for a word processor back and compares them with the saved documents, cell by cell; then
has an office program open all of them: check.py PROGRAM EXAMPLES WORK. Ends with 77 where the reader or the office
program is missing."""

import json
import os
import re
import shutil
import subprocess
import sys
from collections import Counter

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "papers"))
import hostile  # noqa: E402
import tables  # noqa: E402

try:
    import docx
except ImportError:
    sys.exit(77)

program, examples, work = sys.argv[1:]
W = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"
A = "{http://schemas.openxmlformats.org/drawingml/2006/main}"
EMBED = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}embed"
SVG = "{http://schemas.microsoft.com/office/drawing/2016/SVG/main}svgBlip"
DESCRIBED = "{http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing}docPr"
LEVELS = {1: "Information", 2: "Warning", 3: "Error"}

# The order in which word processors want properties: a file in another order is told to be broken.
ORDERS = {
    "pPr": "pStyle keepNext keepLines pBdr tabs bidi spacing jc outlineLvl rPr sectPr",
    "rPr": "rStyle rFonts b bCs i iCs sz szCs vertAlign rtl lang",
    "tcPr": "tcW gridSpan vMerge tcBorders vAlign",
    "tblPr": "tblStyle tblW tblBorders tblLayout tblCellMar",
    "style": "name basedOn next qFormat pPr rPr tblPr",
    "sectPr": "footerReference pgSz pgMar",
}

faults = []


def check(what, condition, detail):
    if not condition:
        faults.append(f"{what}: {detail}"[:400])


# ---- what the saved document holds


def noted(text, notes, column=None):
    return tables.shown(text, column), tuple(dict.fromkeys(map(tables.shown, notes)))


def path_of(members):
    labels = [noted(member["label"], member.get("notes", [])) for member in members if member]
    return tuple(label for label in labels if label[0].strip())


def expected_cells(table):
    rows, columns = tables.Side(table, 0), tables.Side(table, 1)
    cells = {}
    for cell in table["cells"]:
        over = [member for member in columns.members(cell, hidden=False, named=True) if member]
        words = noted(cell["content"], cell["notes"], over[-1]["label"] if over else None)
        cells.setdefault((path_of(rows.members(cell, hidden=False)), path_of(over)), []).append(words)
    return cells


def expected_items(items, depth=1):
    for item in items:
        kind = item["kind"]
        if kind == "heading":
            yield f"Heading {depth}", tables.shown(item["title"])
            yield from expected_items(item["items"], depth + 1)
        elif kind == "message":
            yield "Message", f"{LEVELS[item['level']]}: {tables.shown(item['text'])}"
        else:
            yield kind, item


# ---- what the file holds


def words(element):
    """The words of an element without its notes' letters, and these."""
    plain, marks = "", ""
    for run in element.iter(W + "r"):
        style = run.find(f"{W}rPr/{W}rStyle")
        text = "".join("\n" if part.tag == W + "br" else part.text or "" for part in run.iter(W + "t", W + "br"))
        if style is not None and style.get(W + "val") == "NoteMark":
            marks += text
        else:
            plain += text
    # The sign at the end of a label stays with its word.
    plain = re.sub("\u00a0=$", " =", plain)
    return plain, [mark for mark in marks.split(", ") if mark]


def spread(table):
    """The table's cells in rows as wide as it is: [whether they are headers of columns, [cell, ...]]."""
    rows = []
    for row in table.tr_lst:
        cells = []
        for cell in row.tc_lst:
            merge = cell.vMerge
            source = rows[-1][1][len(cells)] if merge == "continue" else cell
            cells.extend([source] * cell.grid_span)
        rows.append((cells[0].find(f"{W}tcPr/{W}vAlign") is not None, cells))
    return rows


def labels(cells, notes):
    seen = []
    for cell in cells:
        if not seen or seen[-1] is not cell:
            seen.append(cell)
    found = [(plain, tuple(notes[mark] for mark in marks)) for plain, marks in map(words, seen)]
    return tuple(label for label in found if label[0].strip())


def read_cells(parts, levels, notes):
    for part in parts:
        rows = spread(part)
        header = [cells for is_header, cells in rows if is_header]
        for cells in (cells for is_header, cells in rows if not is_header):
            for column in range(levels, len(cells)):
                plain, marks = words(cells[column])
                over = labels([line[column] for line in header], notes)
                yield labels(cells[:levels], notes), over, (plain, tuple(notes[mark] for mark in marks))


def check_figure(name, paragraph, item, document):
    described = paragraph.find(f".//{DESCRIBED}")
    sentence = described.get("descr")
    check(name, sentence == item["picture"]["sentence"], f"the alternative text is {sentence}")
    pixels = document.part.related_parts[paragraph.find(f".//{A}blip").get(EMBED)].blob
    vectors = document.part.related_parts[paragraph.find(f".//{SVG}").get(EMBED)].blob
    check(name, pixels.startswith(b"\x89PNG\r\n") and b"<svg" in vectors[:200], "pictures are none")


class Reader:
    """Goes through a file's paragraphs and tables."""

    def __init__(self, path):
        self.document = docx.Document(path)
        self.elements = [element for element in self.document.element.body if element.tag in (W + "p", W + "tbl")]
        self.elements = [element for element in self.elements if self.style(element) != "Section End"]

    def style(self, element):
        return docx.text.paragraph.Paragraph(element, self.document).style.name if element.tag == W + "p" else "table"

    def take(self, style=None):
        """The next element, where it is of a style."""
        if not self.elements or (style and self.style(self.elements[0]) != style):
            return None
        return self.elements.pop(0)

    def take_caption(self, name, kind, number, title):
        caption = self.take("Caption")
        shown = "none" if caption is None else words(caption)[0]
        field = None if caption is None else caption.find(f"{W}fldSimple").get(W + "instr")
        check(name, shown == f"{kind} {number}. {title}", f"the caption is {shown}")
        check(name, field == f" SEQ {kind} \\* ARABIC ", f"its field is {field}")


def check_table(name, reader, item, number):
    reader.take_caption(name, "Table", number, tables.shown(item["title"]))
    parts = [reader.take("table")]
    while reader.take("Caption Continued") is not None:
        parts.append(reader.take("table"))
    below, notes = [], {}
    while (paragraph := reader.take("Table Note")) is not None:
        text, letter = words(paragraph)
        if letter:
            notes[letter[0]] = text.strip()
        else:
            below.append(text)
    expected = [tables.shown(text) for text in item["captions"] + item["notes"]]
    check(name, below == expected, f"below it stands {below}")
    found = read_cells(parts, tables.Side(item, 0).levels(hidden=False), notes)
    faults.extend(tables.compare(name, expected_cells(item), found, blank=("", ())))


def check_file(name, path, saved):
    reader = Reader(path)
    properties = reader.document.core_properties
    told = (properties.title, properties.author, properties.created, properties.modified, properties.language)
    check(name, told == ("Yields", "A. Fisher", None, None, "en-US"), f"is called {told}")
    for title in ("Title", "Subtitle", "Author"):
        check(name, reader.take(title) is not None, f"has no {title}")
    counts = Counter()
    for kind, item in expected_items(saved["items"]):
        counts[kind] += 1
        where = f"{name}, {kind} {counts[kind]}"
        if kind == "table":
            check_table(where, reader, item, counts[kind])
        elif kind == "chart":
            check_figure(where, reader.take("Picture"), item, reader.document)
            reader.take_caption(where, "Figure", counts[kind], item["description"])
        else:
            paragraph = reader.take(kind)
            check(name, paragraph is not None and words(paragraph)[0] == item, f"lacks {kind} {item}")
    rest = [reader.style(element) for element in reader.elements]
    diagnostics = saved["diagnostics"]
    check(name, rest == (["Heading 1"] + ["Message"] * len(diagnostics) if diagnostics else []), f"ends with {rest}")
    return counts["table"], counts["chart"]


def check_orders(name, path):
    document = docx.Document(path)
    for root in (document.element, document.styles.element):
        for element in root.iter():
            tag = str(element.tag).replace(W, "")
            if tag in ORDERS:
                order = ORDERS[tag].split()
                places = [order.index(child.tag.replace(W, "")) for child in element]
                check(name, places == sorted(places), f"properties are out of order: {[c.tag for c in element]}")


# ---- a document that asks for more than others


def make_hostile(saved, name):
    """A table of another's strange texts, or of many columns, some of whose cells have notes."""
    table = hostile.TABLES[name]
    for cell in table["cells"]:
        cell["notes"] = [hostile.text("A note")] if cell["at"][1] % 100 == 1 else []
    return {**saved, "items": [table], "diagnostics": []}


# ---- all files


def run(*args, **settings):
    return subprocess.run(args, capture_output=True, check=True, **settings).stdout


def render(name, saved):
    source, path = os.path.join(work, f"{name}.json"), os.path.join(work, f"{name}.docx")
    with open(source, "w", encoding="utf-8") as file:
        json.dump(saved, file)
    options = ["--title", "Yields", "--author", "A. Fisher", source]
    run(program, "render", "-o", path, *options)
    again = run(program, "render", "-f", "docx", "-o", "-", *options, env={**os.environ, "TZ": "Asia/Kolkata"})
    with open(path, "rb") as file:
        check(name, file.read() == again, "is another file the second time")
    return path


def check_pages(sizes):
    """One start of the office program for all files; of each, the numbers of tables, figures and pages at most."""
    office = shutil.which("soffice")
    if not office or not shutil.which("pdfinfo"):
        return False
    files = [os.path.join(work, f"{name}.docx") for name in sizes]
    run(office, f"-env:UserInstallation=file://{os.path.abspath(work)}/profile", "--headless", "--convert-to", "pdf",
        "--outdir", work, *files)
    for name, (of_tables, figures, most) in sizes.items():
        path = os.path.join(work, f"{name}.pdf")
        check(name, os.path.exists(path), "was not opened")
        if not os.path.exists(path):
            continue
        pages = int(re.search(rb"Pages: +(\d+)", run("pdfinfo", path)).group(1))
        check(name, figures / 3 <= pages <= most, f"takes {pages} pages")
        printed = run("pdftotext", path, "-").decode()
        for kind, count in (("Table", of_tables), ("Figure", figures)):
            found = {int(number) for number in re.findall(rf"\b{kind}\s+(\d+)\.", printed)}
            check(name, found == set(range(1, count + 1)), f"shows of {count} captions these: {kind} {sorted(found)}")
    return True


shutil.rmtree(work, ignore_errors=True)
os.makedirs(work)
sizes = {}
for name in sorted(os.listdir(examples)):
    if not os.path.exists(os.path.join(examples, name, "model.pmml")):
        continue
    saved = json.loads(run(program, "report", "-f", "json", os.path.join(examples, name)))
    path = render(name, saved)
    counts = check_file(name, path, saved)
    sizes[name] = (*counts, sum(counts) + 2)
    check_orders(name, path)

for name in ("texts", "missing", "wide"):
    document = make_hostile(saved, name)
    path = render(name, document)
    seen = json.dumps(document).replace("\\u202e", "\ufffd").replace("\\u0001", "\u2401").replace("\\u001b", "\u241b")
    check_file(name, path, json.loads(seen))
    check_orders(name, path)
    sizes[name] = (1, 0, 400)
is_opened = check_pages(sizes)

if faults:
    print("\n".join(faults[:60]), file=sys.stderr)
    sys.exit(1)
sys.exit(0 if is_opened else 77)
