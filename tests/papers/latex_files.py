"""Compiles the LaTeX of every example and looks for what does not fit: latex_files.py PROGRAM EXAMPLES WORK
Documents that stand by themselves go through lualatex, three fragments through pdflatex. Every shown cell of a table
must stand in its source."""

import concurrent.futures
import pathlib
import re
import shutil
import subprocess
import sys

import tables

FRAGMENTS = {"oats", "wine", "sleepstudy"}
WRAPPER = """\\documentclass{article}
%s
\\usepackage{longtable,threeparttablex,pdflscape}
\\begin{document}
\\input{%s}
\\end{document}
"""
MOST_OVERFULL = 5  # points


def typeset(command, path):
    """What the log complains of, once long tables have settled."""
    for _ in range(2):
        subprocess.run([command, "-interaction=nonstopmode", path.name], cwd=path.parent, capture_output=True)
    log = path.with_suffix(".log").read_text(encoding="utf-8", errors="replace")
    faults = re.findall(r"^! .*|^Missing character.*", log, re.MULTILINE)
    faults += [line for line, points in re.findall(r"^(Overfull .hbox \(([\d.]+)pt .*)", log, re.MULTILINE)
               if float(points) > MOST_OVERFULL]
    if not path.with_suffix(".pdf").exists():
        faults.append("there is no PDF")
    return [f"{path.name}, {command}: {fault}" for fault in faults]


def plain(source):
    """A source without markup that stands within words and figures."""
    source = re.sub(r"\\(allowbreak|textminus|tnote|multicolumn|makecell\[[^]]*\]|linebreak)\b(\{\})?", "", source)
    source = re.sub(r"(\d)[eE][-+]?0*(\d)", r"\1e\2", source)
    return re.sub(r"[{}\\\s$]|\u2212|--|[-\u2013]", "", source)


def find_missing(path, document, names):
    source = plain(path.read_text(encoding="utf-8"))
    faults = []
    for name, table in tables.named_tables(document, names):
        side = tables.Side(table, 1)
        for cell in table["cells"]:
            labels = [label for label in side.labels(cell, hidden=False) if label]
            words = tables.shown(cell["content"], labels[-1] if labels else None)
            if plain(words) not in source:
                faults.append(f"{path.name}: {name}: no {words}")
    return faults


def check(program, example, work):
    path = work / f"{example.name}.tex"
    tables.run(program, "report", "--standalone", "-o", path, example)
    faults = find_missing(path, *tables.read(program, example)) + typeset("lualatex", path)
    if example.name in FRAGMENTS:
        part = work / f"{example.name}-part.tex"
        tables.run(program, "report", "-o", part, example)
        needs = re.findall(r"^% +(\\usepackage.*)$", part.read_text(encoding="utf-8"), re.MULTILINE)
        whole = work / f"{example.name}-whole.tex"
        whole.write_text(WRAPPER % ("\n".join(needs), part.stem), encoding="utf-8")
        faults += typeset("pdflatex", whole)
    return faults


def main(program, examples, work):
    if not shutil.which("lualatex") or not shutil.which("pdflatex"):
        print("TeX is missing.")
        return 77
    work = pathlib.Path(work)
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        results = list(pool.map(lambda example: check(program, example, work), tables.examples(examples)))
    faults = sum(results, [])
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
