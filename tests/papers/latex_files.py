"""Compiles the LaTeX of every example and looks for what does not fit: latex_files.py PROGRAM EXAMPLES WORK
Documents that stand by themselves go through lualatex, fragments through pdflatex."""

import concurrent.futures
import json
import pathlib
import re
import shutil
import subprocess
import sys

import hostile
import tables

WRAPPER = "\\documentclass{article}\n%s\n\\begin{document}\n%s\n\\end{document}\n"
MOST_OVERFULL = 5  # points

HOSTILE = [
    "& % $ # _ { } ~ ^ \\ \" ' ` < > | [x] *y -- ,, ?` \\end{document} %", "[first]\\[2pt]", "*", "",
    "a\x1b[0m\u202ez\nline two", "Gr\u00f6\u00dfe \u2013 \u2018x\u2019 \u20ac \u03c3\u00b2 \u2265 3 \u22125 \u00d7",
    "x" * 10000, "y" * 250, "word " * 2000,
]
FOREIGN = [
    "\u05e9\u05dc\u05d5\u05dd (12) \u05e2\u05d5\u05dc\u05dd abc",
    "Row \u0645\u0631\u062d\u0628\u0627 12", "\u0416 \u0438",
]


def typeset(command, path):
    """What the log complains of, once long tables have settled."""
    log = ""
    for _ in range(2):
        subprocess.run([command, "-interaction=nonstopmode", path.name], cwd=path.parent, capture_output=True)
        log = path.with_suffix(".log").read_text(encoding="utf-8", errors="replace")
        if "longtable" not in log:
            break
    faults = re.findall(r"^! .*|^Missing character.*", log, re.MULTILINE)
    faults += [line for line, points in re.findall(r"^(Overfull .?.box \(([\d.]+)pt .*)", log, re.MULTILINE)
               if float(points) > MOST_OVERFULL]
    if not path.with_suffix(".pdf").exists():
        faults.append("there is no PDF")
    return [f"{path.name}, {command}: {fault}" for fault in faults]


def check(program, example, work):
    path, part = work / f"{example.name}.tex", work / f"{example.name}-part.tex"
    tables.run(program, "report", "--standalone", "-o", path, example)
    tables.run(program, "report", "-o", part, example)
    return typeset("lualatex", path)


def check_parts(work, paths, name):
    """All fragments in one document, with what they say they need."""
    sources = [path.read_text(encoding="utf-8") for path in paths]
    needs = [line for source in sources for line in re.findall(r"^%   (\\.*)$", source, re.MULTILINE)]
    whole = work / f"{name}.tex"
    texts = "\n\\clearpage\n".join(f"\\input{{{path.stem}}}" for path in paths)
    whole.write_text(WRAPPER % ("\n".join(dict.fromkeys(needs)), texts), encoding="utf-8")
    return typeset("pdflatex", whole)


def make_item(words):
    """A heading with a table in which every cell is the label of its row, with a note on each label."""
    rows = [words, "b"]
    table = hostile.table(rows, ["c", words], lambda row, column: hostile.text(rows[row]), words)
    for member in table["dimensions"][0]["members"] + table["dimensions"][1]["members"]:
        member["notes"] = [member["label"]]
    table["captions"] = [hostile.text("b")]
    return {"kind": "heading", "title": hostile.text(words), "items": [table]}


def write_hostile(program, work, name, texts, options):
    items = list(map(make_item, texts))
    items.append({"kind": "message", "text": hostile.text(texts[0]), "show": 2, "level": 2})
    (work / f"{name}.json").write_text(json.dumps(hostile.document(items, texts[0])), encoding="utf-8")
    tables.run(program, "render", "-o", work / f"{name}.tex", *options, work / f"{name}.json")
    return work / f"{name}.tex"


def check_folder(program, example, work):
    """Charts are found in a folder whose name has what is markup in LaTeX."""
    folder = work / "folder"
    folder.mkdir(exist_ok=True)
    odd = folder / "o_d \\%#{}}^^41&~$.tex"
    tables.run(program, "report", "--standalone", "--only", "GLMMCustomEffects", "-o", odd, example)
    return typeset("lualatex", odd.rename(folder / "plain.tex"))


def check_hostile(program, work):
    faults = typeset("lualatex", write_hostile(program, work, "hostile", HOSTILE + FOREIGN, ["--standalone"]))
    faults += check_parts(work, [write_hostile(program, work, "hostile-part", HOSTILE[1:], [])], "hostile-parts")
    for path, _ in hostile.write(work, ["missing", "wide"]):
        tables.run(program, "render", "--standalone", "-o", path.with_suffix(".tex"), path)
        faults += typeset("lualatex", path.with_suffix(".tex"))
    if not any("Missing character" in fault for fault in
               typeset("lualatex", write_hostile(program, work, "missing", ["\u6f22"], ["--standalone"]))):
        faults.append("nobody tells that a glyph is missing")
    return faults


def main(program, examples, work):
    if not shutil.which("lualatex") or not shutil.which("pdflatex"):
        print("TeX is missing.")
        return 77
    work = pathlib.Path(work)
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        others = pool.submit(check_hostile, program, work)
        faults = sum(pool.map(lambda example: check(program, example, work), tables.examples(examples)), [])
        parts = [work / f"{example.name}-part.tex" for example in tables.examples(examples)]
        faults += check_parts(work, parts, "parts")
        faults += check_folder(program, pathlib.Path(examples) / "cbpp", work)
        faults += others.result()
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
