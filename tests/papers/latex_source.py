"""The tables of a LaTeX source of hierfit, cell by cell."""

import re

SIGNS = {
    "textbackslash": "\\", "textasciitilde": "~", "textasciicircum": "^", "textquotedbl": '"', "textquotesingle": "'",
    "textasciigrave": "`", "textless": "<", "textgreater": ">", "textbar": "|", "textminus": "\u2212", "leq": "\u2264",
    "geq": "\u2265",
}
SILENT = {"allowbreak", "hfil", "hfilneg", "newline", "ensuremath", "mbox"}


def argument(source, at):
    """What stands in the braces that open at a place, and where it ends."""
    depth, begin = 0, at + 1
    while True:
        if source[at] == "\\":
            at += 1
        elif source[at] in "{}":
            depth += 1 if source[at] == "{" else -1
            if depth == 0:
                return source[begin:at], at + 1
        at += 1


def words(markup):
    """The words of markup, without note marks; a break in a header is a blank."""
    result, at = "", 0
    while at < len(markup):
        command = re.compile(r"\\([a-z]+) ?(\[\w+\])?|\\(.)", re.IGNORECASE).match(markup, at)
        if not command:
            result += "" if markup[at] in "{}" else "\u00a0" if markup[at] == "~" else markup[at]
            at += 1
            continue
        at, name = command.end(), command[1]
        if command[3]:
            result += " " if command[3] == "\\" else command[3]
        elif name in ("tnote", "textsuperscript"):
            at = argument(markup, at)[1]
        elif name in SIGNS:
            result += SIGNS[name]
        elif name not in SILENT | {"makecell"}:
            raise ValueError(f"{markup}: \\{name} is not known")
    return result


def cells(row):
    """Pairs of markup and number of columns."""
    parts, depth, at = [""], 0, 0
    while at < len(row):
        step = 2 if row[at] == "\\" else 1
        depth += {"{": 1, "}": -1}.get(row[at], 0)
        if row[at] == "&" and depth == 0:
            parts.append("")
        else:
            parts[-1] += row[at:at + step]
        at += step
    for part in parts:
        span = re.match(r"\s*\\multicolumn(?=\{)", part)
        if not span:
            yield part.strip(), 1
            continue
        count, at = argument(part, span.end())
        at = argument(part, at)[1]
        yield argument(part, at)[0], int(count)


def rows(lines):
    return [list(cells(line.removesuffix(" \\\\"))) for line in lines if line.endswith(" \\\\")]


class Part:
    """Columns that stand side by side: header rows and rows, of which each has labels by level and cells."""

    def __init__(self, source, levels):
        body = source[source.index("\\toprule\n"):]
        head, mark, rest = body.partition("\\midrule\n")
        if "\\endlastfoot" in body:
            rest = body[body.index("\\endlastfoot"):]
        elif not mark:
            head, rest = "", body
        self.columns = self.names(rows(head.splitlines()), levels)
        self.rows, above = [], [""] * levels
        for row in rows(rest.splitlines()):
            at = 0
            for markup, span in row:
                if at < levels and (markup or span > 1):
                    above[at:] = [words(markup)] + [""] * (levels - at - 1)
                at += span
            data = [words(markup) for markup, _ in row][len(row) - self.count(row, levels):]
            self.rows.append((tuple(above), data))

    @staticmethod
    def count(row, levels):
        """Cells of a row that are no row headers."""
        return sum(span for _, span in row) - levels

    @staticmethod
    def names(head, levels):
        names = {}
        for row in head:
            at = 0
            for markup, span in row:
                for column in range(max(at, levels), at + span):
                    names.setdefault(column - levels, []).append(words(markup))
                at += span
        return [", ".join(filter(None, names[column])) for column in sorted(names)]


def tables(source):
    """Names and sources of the parts of each table that has cells, in order."""
    found = []
    for part in re.split(r"\\caption(?=\{)", source)[1:]:
        end = argument(part, 0)[1]
        label = re.match(r"\\label\{tab:([^}]*)\}", part[end:])
        if label:
            found.append((label[1], []))
        if "\\toprule" in part:
            # The second head of a long table stands behind a caption of its own.
            found[-1][1].append(part.split("\\end{tabular", 1)[0])
    return [(name, parts) for name, parts in found if parts]


def pictures(source):
    return re.findall(r"\\includegraphics\[.*?\]\{\\detokenize\{(.*?)\}(/.*?)\}", source)
