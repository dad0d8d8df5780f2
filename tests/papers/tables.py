"""The tables of a document in its JSON form, cell by cell, as renderings have to show them."""

import json
import pathlib
import subprocess


def examples(folder):
    return sorted(path.parent for path in pathlib.Path(folder).glob("*/model.pmml"))


def run(program, *arguments):
    """Runs the program; what it says on standard error is no concern here."""
    return subprocess.run([program, *arguments], check=True, capture_output=True).stdout


def read(program, example):
    """The document of an example, and the names of its items with their kinds, in order."""
    document = json.loads(run(program, "report", "-f", "json", example))
    names = json.loads(run(program, "list", "-f", "json", example))
    return document, names


def tables(items):
    for item in items:
        if item["kind"] == "heading":
            yield from tables(item["items"])
        elif item["kind"] == "table":
            yield item


def named_tables(document, names):
    """Pairs of name and table."""
    return zip([one["name"] for one in names if one["kind"] == "table"], tables(document["items"]), strict=True)


def leaves(members, above=()):
    """Categories by id, below the groups around them, the outermost first."""
    for member in members:
        path = above + (member,)
        if member["kind"] == "group":
            yield from leaves(member["members"], path)
        else:
            yield member["id"], path


class Side:
    """The dimensions of the rows, or of the columns, outermost first."""

    def __init__(self, table, place):
        every = list(enumerate(table["dimensions"]))
        self.dimensions = sorted((one for one in every if one[1]["place"] == place), key=lambda one: -one[1]["index"])
        self.paths = {at: dict(leaves(one["members"])) for at, one in self.dimensions}
        used = {at: {cell["at"][at] for cell in table["cells"]} for at, _ in self.dimensions}
        self.depths = {
            at: max((len(path) for id, path in paths.items() if id in used[at]), default=0)
            for at, paths in self.paths.items()
        }

    def levels(self, hidden):
        return sum(self.depths[at] for at, dimension in self.dimensions if hidden or not dimension["flags"][1])

    def members(self, cell, hidden, named=False):
        """For each level the group or category of a cell, none where it is less deep. `hidden`: those of dimensions
        that hide their labels, too; `named`: dimensions that show their names, above their labels."""
        result = []
        for at, dimension in self.dimensions:
            if self.depths[at] == 0 or (dimension["flags"][1] and not hidden):
                continue
            path = self.paths[at].get(cell["at"][at], ())
            if named and not dimension["flags"][0]:
                result.append({"label": dimension["name"], "notes": []})
            result += list(path) + [None] * (self.depths[at] - len(path))
        return result

    def labels(self, cell, hidden, named=False):
        return [member and member["label"] for member in self.members(cell, hidden, named)]


def words(text):
    return "" if text is None else text["text"]


P_LABELS = {"Sig.", "Adj. Sig."}


def shown(text, column=None):
    """The words of a text in the plain style; `column` is the label of the innermost column."""
    if text is None:
        return ""
    source = text["from"]
    result = text["text"]
    if "number" in source:
        p = source["number"]
        if column and column["from"].get("string") in P_LABELS and isinstance(p, float) and 0 <= p <= 1:
            result = "<.001" if p < 0.0005 else f"{p:.3f}".removeprefix("0")
    is_number = result[:1] == "-" and all(sign in "0123456789.,%e+-" for sign in result[1:]) and len(result) > 1
    if ("number" in source or "value" in source) and is_number:
        return "\u2212" + result[1:]
    for argument in source.get("arguments", []):
        for filling in argument.get("sublist", [argument]):
            result = result.replace(filling["text"], shown(filling), 1)
    if source.get("pattern") == "^1 - ^2":
        first = source["arguments"][0]["text"]
        if result.startswith(first + " - "):
            return first + " \u2013 " + result[len(first) + 3:]
    return result


def lines(table, plain=str):
    """The shown words of the cells, in lists by the labels of their row and the name of their column; and how many
    levels the labels have. All words go through `plain`."""
    rows, columns = Side(table, 0), Side(table, 1)
    found = {}
    for cell in table["cells"]:
        row = tuple(plain(shown(label)) for label in rows.labels(cell, hidden=False))
        over = [label for label in columns.labels(cell, hidden=False, named=True) if label]
        words_of_cell = plain(shown(cell["content"], over[-1] if over else None))
        found.setdefault((row, plain(", ".join(map(shown, over)))), []).append(words_of_cell)
    return found, rows.levels(hidden=False)


def compare(name, expected, found, blank=""):
    """What is wrong with cells, each with labels, column and words, where lists of words are expected. Where none are,
    a cell is blank."""
    faults = []
    for labels, column, cell in found:
        left = expected.get((labels, column), [blank])
        if cell not in left:
            faults.append(f"{name}: {labels}, {column}: {left} expected, found {cell}")
        elif left != [blank]:
            left.remove(cell)
    count = sum(map(len, expected.values()))
    return faults + ([f"{name}: {count} cells are missing"] if count else [])
