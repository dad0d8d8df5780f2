"""A small writer of XML: elements are built as trees and turned into text once."""

from __future__ import annotations

import math
import os
import re
import tempfile
from collections.abc import Iterable
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any, Union

Child = Union["Node", str, None, Iterable[Any]]

_CONTROL = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f\ud800-\udfff\ufffe\uffff]")
_ESCAPES = str.maketrans(
    {"&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;", "\n": "&#10;", "\r": "&#13;", "\t": "&#9;"}
)
_TO_QUOTE = re.compile(r'[\s"]')


@dataclass(slots=True)
class Node:
    """An element; its children are elements, or one text."""

    name: str
    attributes: dict[str, str] = field(default_factory=dict)
    children: list[Node | str] = field(default_factory=list)


def node(tag: str, attributes: dict[str, Any] | None = None, *children: Child) -> Node:
    """An element. Attributes that are None and children that are None are left out; iterables are taken apart."""
    given = {
        key: value if isinstance(value, str) else str(value)
        for key, value in (attributes or {}).items()
        if value is not None
    }
    flat: list[Node | str] = []
    _flatten(children, flat)
    return Node(tag, given, flat)


def _flatten(children: Iterable[Any], flat: list[Node | str]) -> None:
    for child in children:
        if child is None:
            continue
        if isinstance(child, (Node, str)):
            flat.append(child)
        else:
            _flatten(child, flat)


def legible(text: str) -> str:
    """A text as a reader of the documents has it: characters that XML does not know are blanks."""
    return _CONTROL.sub(" ", text)


def escape(text: str) -> str:
    """Text for an element or an attribute."""
    return legible(text).translate(_ESCAPES)


def _lines(element: Node, indent: str, out: list[str]) -> None:
    tag = element.name + "".join(f' {name}="{escape(value)}"' for name, value in element.attributes.items())
    if not element.children:
        out.append(f"{indent}<{tag}/>")
    elif isinstance(element.children[0], str):
        out.append(f"{indent}<{tag}>{escape(element.children[0])}</{element.name}>")
    else:
        out.append(f"{indent}<{tag}>")
        for child in element.children:
            _lines(child, indent + "  ", out)  # type: ignore[arg-type]
        out.append(f"{indent}</{element.name}>")


def document_text(element: Node) -> str:
    out = ['<?xml version="1.0" encoding="UTF-8"?>']
    _lines(element, "", out)
    return "\n".join(out) + "\n"


def write_whole(path: Path, content: bytes) -> None:
    """Writes a file that is there whole or not at all."""
    handle, name = tempfile.mkstemp(prefix=f".{path.name}-", dir=path.parent)
    try:
        with os.fdopen(handle, "wb") as file:
            file.write(content)
        mask = os.umask(0)
        os.umask(mask)
        os.chmod(name, 0o666 & ~mask)
        os.replace(name, path)
    except BaseException:
        os.unlink(name)
        raise


def number_text(x: Any, missing: str = "") -> str:
    """The fewest digits that read back as the same number; what is not a finite number is `missing`."""
    if x is None:
        return missing
    value = float(x)
    if not math.isfinite(value):
        return missing
    if value == int(value) and abs(value) < 1e15:
        return str(int(value))
    return repr(value)


def flag_text(x: Any) -> str:
    return "true" if x else "false"


def token_text(text: str | None) -> str:
    """A token of an array of texts, in quotes where blanks or quotes are in it; None is missing."""
    if text is None:
        return "__MISSING__"
    text = legible(text)
    if text == "" or text == "__MISSING__" or _TO_QUOTE.search(text):
        if text.endswith("\\") or '\\"' in text:
            raise ValueError(
                f"The value {text!r} cannot be written: it has blanks or quotes, and a backslash before a "
                "quote or at its end; rename it."
            )
        return '"' + text.replace('"', '\\"') + '"'
    return text


def real_array(values: Iterable[Any]) -> Node:
    texts = [number_text(value, "__MISSING__") for value in values]
    return node("Array", {"n": len(texts), "type": "real"}, " ".join(texts))


def text_array(values: Iterable[str | None]) -> Node:
    texts = [token_text(value) for value in values]
    return node("Array", {"n": len(texts), "type": "string"}, " ".join(texts))


def statistic(name: str, value: Any) -> Node:
    return node("Statistic", {"name": name, "value": value if isinstance(value, str) else number_text(value)})


def coordinates(array: Node, feature: str, **attributes: str) -> Node:
    return node("Coordinates", {"feature": feature, **attributes}, array)


def value_list(values: Iterable[str]) -> Node:
    return node("ListValue", None, (node("Value", {"value": value}) for value in values))


def segment(values: Iterable[tuple[str, str]]) -> Node:
    return node(
        "SegmentInfo", None, (node("FieldInfo", {"fieldName": name, "fieldValue": value}) for name, value in values)
    )


def f_test(f: Any, df1: Any, df2: Any, p: Any) -> Node:
    return node(
        "FTest", {"fStatistic": number_text(f), "df1": number_text(df1), "df2": number_text(df2), "sig": number_text(p)}
    )


def message(key: str, *values: str) -> Node:
    parameters = (node("PrintableValue", {"storage": "string", "value": value}) for value in values)
    return node("Message", None, node("PrintableList", {"pattern": key, "isKey": "true"}, parameters))
