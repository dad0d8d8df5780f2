"""What is asked for besides the fit itself: blocks of means, contrasts, levels; checked before anything is computed."""

from __future__ import annotations

import math
import re
from collections.abc import Iterable, Mapping, Sequence
from dataclasses import dataclass, field
from typing import Any

from .adjust import ADJUSTMENTS
from .fields import Labels, level_text
from .variables import parse, plain_name
from .xml import Node, node

CONTRASTS = {"pairwise": "Pairwise", "deviation": "Deviation", "simple": "Simple", "none": "None"}


@dataclass(slots=True)
class Request:
    """One block of means; `compare` is the factor whose levels are compared, "" where none are."""

    fields: list[str]
    compare: str
    contrast: str
    reference: str | None = None


@dataclass(slots=True)
class Options:
    adjust: str = "none"
    level: float = 0.95
    at: dict[str, list[float]] = field(default_factory=dict)
    labels: Labels = field(default_factory=Labels)


def options_of(adjust: str, level: float, at: Mapping[str, Any] | None, labels: Labels) -> Options:
    if adjust not in ADJUSTMENTS:
        raise ValueError(f"adjust is one of {', '.join(ADJUSTMENTS)}; not {adjust!r}.")
    if isinstance(level, bool) or not isinstance(level, (int, float)) or not 0 < level < 1:
        raise ValueError(f"level is a number between 0 and 1; not {level!r}.")
    for name, text in labels.formats.items():
        found = re.fullmatch(r"F([0-9]{1,3})(?:\.([0-9]{1,2}))?|A[0-9]{1,3}", text) if isinstance(text, str) else None
        if not found or (found[1] and int(found[2] or 0) >= int(found[1])):
            raise ValueError(
                f"The format of {name} is one such as F8.2, 8 wide with 2 decimals, or A12 for texts; not {text!r}."
            )
    return Options(adjust, float(level), _places(at), labels)


def _places(at: Mapping[str, Any] | None) -> dict[str, list[float]]:
    if at is not None and not isinstance(at, Mapping):
        raise ValueError("at is a dict of numbers by predictor, such as {'x': 3} or {'x': [1, 2]}.")
    out = {}
    for name, values in (at or {}).items():
        several = list(values) if isinstance(values, Iterable) and not isinstance(values, str) else [values]
        try:
            out[name] = [float(value) for value in several]
            if not all(map(math.isfinite, out[name])):
                raise ValueError
        except (TypeError, ValueError):
            raise ValueError(f"at fixes continuous predictors at numbers; {name} has {values!r}.") from None
        if not out[name]:
            raise ValueError(f"at has no value for {name}.")
    return out


def requests_of(means: Any, contrasts: Any, reference: Any, known: Sequence[str]) -> list[Request]:
    """Requests from "A", "A:B", "A | B", or tuples of names; `known` are the names that the model has."""
    if means is None:
        return []
    are_several = isinstance(means, Iterable) and not isinstance(means, (str, tuple, Mapping))
    blocks = list(means) if are_several else [means]
    kinds = _one_each(contrasts, len(blocks), "contrasts")
    references = _one_each(reference, len(blocks), "reference")
    out = []
    for block, kind, chosen in zip(blocks, kinds, references):
        kind = "none" if kind is None else kind
        if kind not in CONTRASTS:
            raise ValueError(f"contrasts is one of {', '.join(CONTRASTS)}; not {kind!r}.")
        fields, compare = _parse(block, known)
        if chosen is not None and kind != "simple":
            chosen = None
        out.append(
            Request(fields, compare if kind != "none" else "", kind, None if chosen is None else level_text(chosen))
        )
    return out


def _one_each(given: Any, n: int, what: str) -> list[Any]:
    if given is None or isinstance(given, str) or not isinstance(given, Sequence):
        return [given] * n
    values = list(given)
    if len(values) not in (1, n):
        raise ValueError(f"{what} has one value or one for each of the {n} blocks of means.")
    return values * n if len(values) == 1 else values


def _parse(block: Any, known: Sequence[str]) -> tuple[list[str], str]:
    """The fields of a block and the factor that is compared: the first one before the bar."""
    outer: list[str] = []
    if isinstance(block, (tuple, list)):
        inner = [str(name) for name in block]
    elif isinstance(block, str):
        text = block.strip().removeprefix("~").strip()
        if text in known:
            inner = [text]
        else:
            left, bar, right = text.partition("|")
            inner, outer = _names(left, known), _names(right, known) if bar else []
    else:
        raise ValueError(f"means holds texts such as 'A', 'A:B' or 'A | B'; not {block!r}.")
    fields = list(dict.fromkeys([*outer, *inner[1:], *inner[:1]] if outer else inner))
    unknown = [name for name in fields if name not in known]
    if unknown or not inner:
        raise ValueError(
            f"means names {', '.join(unknown) or 'nothing'}, which the model does not have. "
            f"It has: {', '.join(known)}."
        )
    return fields, inner[0]


def _names(text: str, known: Sequence[str]) -> list[str]:
    if text.strip() in known:
        return [text.strip()]
    names = []
    for piece in re.split(r"[:*+]", text):
        piece = piece.strip()
        if piece:
            names.append(piece if piece in known else plain_name(parse(piece)) or piece)
    return list(dict.fromkeys(names))


def request_node(request: Request, effect: Node) -> Node:
    def attribute(name: str, value: str) -> Node:
        return node("Attribute", {"name": name, "value": value})

    return node(
        "StructuredValue",
        None,
        node("Attribute", {"name": "Factors"}, effect),
        attribute("EstimateMeans", "true"),
        attribute("CompareFactor", request.compare),
        attribute("ContrastType", CONTRASTS[request.contrast]),
        attribute("ReferenceType", "Last" if request.reference is None else "Value"),
        attribute("ReferenceValue", request.reference or ""),
    )
