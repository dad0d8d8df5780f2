"""Saved documents of one table each that ask for more than those of the examples."""

import json
import pathlib

STRANGE = [
    "=1+1", "@SUM", "</w:t> <b>&amp;</b> \\end{x} %", "a\u0001b\u001b[0m", "\u202eturned", "NA",
    "\u05e9\u05dc\u05d5\u05dd (12) \u0627 abc", "x" * 10000, "word " * 1999 + "word", "a\nb",
    "| a | *b* | `c`", "_x0041_",
]


def text(words):
    return {"text": words, "from": {"string": words, "translate": False}}


def number(value, words):
    return {"text": words, "from": {"number": value, "format": {"name": "Coefficient"}}}


def dimension(name, place, labels):
    return {"name": text(name), "sort": 2, "positioned": True, "place": place, "index": 1, "flags": [True, False],
            "members": [{"kind": "category", "id": at, "label": text(label), "notes": []}
                        for at, label in enumerate(labels)]}


def table(rows, columns, content, title="Title", subtype="Hostile", notes=None, marks=lambda row, column: []):
    """`content` and `marks` give the text and the notes of a cell by its place."""
    return {"kind": "table", "subtype": text(subtype), "title": text(title), "flag": True,
            "minDataColumnWidth": None, "captions": [], "notes": list(map(text, [title] if notes is None else notes)),
            "dimensions": [dimension("Rows", 0, rows), dimension("Columns", 1, columns)],
            "cells": [{"at": [row, column], "content": content(row, column), "notes": marks(row, column)}
                      for row in range(len(rows)) for column in range(len(columns))]}


def document(items, title="=1+1"):
    return {"format": "hierfit-output", "version": 2, "producer": "hierfit", "language": "en", "title": title,
            "sources": ["a", "b"], "items": items, "diagnostics": []}


LOST = ["NaN", "Infinity", "-Infinity", None]

TABLES = {
    "texts": table(STRANGE, STRANGE, lambda row, column: text(STRANGE[row]), "=1+1"),
    "missing": table("abcd", "xyz", lambda row, column: number(LOST[row] if column else None, ".")),
    "wide": table("ab", [f"c{at}" for at in range(200)], lambda row, column: number(-1.5, "-1.500")),
    "long": table([f"r{at}" for at in range(100000)], ["c"], lambda row, column: number(row + 0.5, f"{row + 0.5}")),
    "wider": table(["r"], [f"c{at}" for at in range(16400)], lambda row, column: number(1.5, "1.500")),
}


def write(work, names=tuple(TABLES)):
    """For each of the tables the path of a saved document that holds it, and the table."""
    for name in names:
        path = pathlib.Path(work) / f"{name}.json"
        path.write_text(json.dumps(document([TABLES[name]])), encoding="utf-8")
        yield path, TABLES[name]
