"""The fields of a model: names, labels, categories and print formats, and the document that lists them."""

from __future__ import annotations

import math
from collections.abc import Iterable, Mapping, Sequence
from dataclasses import dataclass, field
from typing import Any

import numpy as np

from .xml import Node, legible, node, number_text

MOST_DECIMALS = 4


@dataclass(slots=True)
class Labels:
    """What the user calls variables and values, and how values are printed; keys are columns of the data."""

    variables: Mapping[str, str] = field(default_factory=dict)
    values: Mapping[str, Mapping[Any, str]] = field(default_factory=dict)
    formats: Mapping[str, str] = field(default_factory=dict)


@dataclass(slots=True)
class Field:
    """One field. `values` has one entry a record: indexes into `levels` where there are any (-1 is missing), else
    numbers."""

    name: str
    values: np.ndarray
    levels: list[str] | None = None
    is_ordered: bool = False

    def texts(self) -> list[str | None]:
        if self.levels is None:
            return [number_text(value) for value in self.values]
        return [self.levels[i] if i >= 0 else None for i in self.values]


def level_text(value: Any) -> str:
    """A category as the documents have it: 3 for 3.0, True, a text as it is."""
    if isinstance(value, (bool, np.bool_)):
        return str(bool(value))
    if isinstance(value, (float, np.floating)):
        return number_text(value)
    return legible(str(value))


def level_of_name(name: Any) -> str:
    """The level that a fit's name for it stands for: 1 for "1.0"."""
    try:
        return level_text(float(name)) or str(name)
    except ValueError:
        return str(name)


def texts_of_levels(name: str, categories: Iterable[Any]) -> list[str]:
    texts = [level_text(category) for category in categories]
    if len(set(texts)) != len(texts):
        raise ValueError(f"Two levels of {name} read alike; rename one of them: {', '.join(texts)}.")
    return texts


def coded(values: Sequence[Any], categories: Sequence[Any]) -> np.ndarray:
    """Indexes of values among the categories, -1 for those that are none."""
    index = {category: i for i, category in enumerate(categories)}
    return np.array([index.get(value, -1) if _is_hashable(value) else -1 for value in values], dtype=int)


def _is_hashable(value: Any) -> bool:
    return value.__hash__ is not None


def is_categorical(column: Any) -> bool:
    """Whether a column of a data frame is one of categories: texts, truth values, or pandas' own."""
    kind = getattr(column, "dtype", None)
    return kind is None or getattr(kind, "kind", "O") in "ObSU" or hasattr(kind, "categories") or str(kind) == "string"


def field_of_column(name: str, column: Any, as_categories: bool) -> Field:
    """A field from a column of pandas."""
    dtype = column.dtype
    if not (as_categories or is_categorical(column)):
        return Field(name, np.asarray(column, dtype=float))
    if hasattr(dtype, "categories"):
        categories = list(dtype.categories)
        return Field(
            name, np.asarray(column.cat.codes, dtype=int), texts_of_levels(name, categories), bool(dtype.ordered)
        )
    values = [None if _is_missing(value) else value for value in column]
    present = {value for value in values if value is not None}
    try:
        categories = sorted(present)
    except TypeError:
        categories = sorted(present, key=str)
    return Field(name, coded(values, categories), texts_of_levels(name, categories))


def _is_missing(value: Any) -> bool:
    return (
        value is None
        or (isinstance(value, (float, np.floating)) and math.isnan(value))
        or str(value) in ("<NA>", "NaT")
    )


def levels_are_numbers(levels: Sequence[str]) -> bool:
    """Whether each level is a number that reads back as it stands."""
    try:
        return bool(levels) and all(number_text(float(level)) == level for level in levels)
    except (ValueError, OverflowError):
        return False


def decimals_of(values: np.ndarray) -> int:
    finite = values[np.isfinite(values)]
    for digits in range(MOST_DECIMALS + 1):
        if np.all(np.abs(np.round(finite, digits) - finite) <= 1e-9 * np.maximum(1, np.abs(finite))):
            return digits
    return MOST_DECIMALS


def _number_format(values: np.ndarray) -> str:
    finite = values[np.isfinite(values)]
    if finite.size == 0:
        return "F8.2"
    decimals = decimals_of(finite)
    width = max(len(f"{value:.{decimals}f}") for value in (finite.min(), finite.max()))
    return f"F{min(40, max(width, decimals + 2))}.{decimals}"


def _print_format(of: Field) -> str:
    if of.levels is None:
        return _number_format(of.values)
    if levels_are_numbers(of.levels):
        return _number_format(np.array([float(level) for level in of.levels]))
    return f"A{min(255, max([1, *(len(level.encode()) for level in of.levels)]))}"


def _data_type(of: Field) -> str:
    if of.levels is None:
        return "double"
    if not levels_are_numbers(of.levels):
        return "string"
    return "integer" if all("." not in level and "e" not in level for level in of.levels) else "double"


def _field_node(of: Field, labels: Labels) -> Node:
    kind = "continuous" if of.levels is None else "ordinal" if of.is_ordered else "categorical"
    names = {level_text(value): label for value, label in labels.values.get(of.name, {}).items()}
    return node(
        "DataField",
        {"name": of.name, "displayName": labels.variables.get(of.name), "optype": kind, "dataType": _data_type(of)},
        node("Extension", {"name": "format", "value": labels.formats.get(of.name) or _print_format(of)}),
        [node("Value", {"value": level, "displayValue": names.get(level)}) for level in of.levels or []],
    )


def pmml_document(fields: Mapping[str, Field], target: str, is_regression: bool, labels: Labels) -> Node:
    variables = [target, *(name for name in fields if name != target)]
    if len({legible(name) for name in variables}) < len(variables):
        raise ValueError(f"Two columns of the data read alike; rename one of them: {', '.join(map(repr, variables))}.")
    return node(
        "PMML",
        {"version": "4.4", "xmlns": "http://www.dmg.org/PMML-4_4"},
        node("Header"),
        node("DataDictionary", {"numberOfFields": len(fields)}, [_field_node(of, labels) for of in fields.values()]),
        node(
            "GeneralRegressionModel",
            {
                "functionName": "regression" if is_regression else "classification",
                "modelType": "generalizedLinear",
                "algorithmName": "GLMM",
            },
            node(
                "MiningSchema",
                None,
                [
                    node("MiningField", {"name": name, "usageType": "target" if name == target else "active"})
                    for name in variables
                ],
            ),
        ),
    )
