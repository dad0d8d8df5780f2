"""Tables of the output document as data frames."""

from __future__ import annotations

import math
from collections.abc import Sequence
from typing import Any

from ..needs import need

ROWS, COLUMNS = 0, 1
ASCENDING, DESCENDING = 0, 1

Path = tuple[str, ...]


class Axis:
    """The categories of one dimension in the order in which they are laid out, with the groups about each."""

    def __init__(self, dimension: dict[str, Any]) -> None:
        self.name: str | None = None if dimension["flags"][0] else dimension["name"]["text"] or None
        self.paths: dict[int, Path] = {}
        self._add(dimension["members"], dimension["sort"], ())
        self.order = {number: place for place, number in enumerate(self.paths)}
        self.depth = max((len(path) for path in self.paths.values()), default=1)

    def _add(self, members: Sequence[dict[str, Any]], sort: int, groups: Path) -> None:
        if sort in (ASCENDING, DESCENDING):
            members = sorted(members, key=lambda member: member["label"]["text"], reverse=sort == DESCENDING)
        for member in members:
            path = (*groups, member["label"]["text"])
            if member["kind"] == "group":
                self._add(member["members"], member["sort"], path)
            else:
                self.paths.setdefault(member["id"], path)

    def labels(self, number: int | None) -> Path:
        """A label for each depth; those of a category under fewer groups are empty at the end."""
        path = self.paths.get(number, ()) if number is not None else ()
        return (*path, *[""] * (self.depth - len(path)))

    def place(self, number: int | None) -> int:
        return self.order.get(number, len(self.order)) if number is not None else len(self.order)


def _value(content: dict[str, Any]) -> Any:
    """A figure, or a value of the data that is a number and has no label, at full precision; else the words."""
    source = content["from"]
    if "number" in source:
        return math.nan if source["number"] is None else float(source["number"])
    value = source.get("value")
    if isinstance(value, (int, float)) and _is_number(content["text"]):
        return float(value)
    return content["text"]


def _is_number(text: str) -> bool:
    try:
        float(text.replace("\N{MINUS SIGN}", "-"))
    except ValueError:
        return False
    return True


def frame_of(table: dict[str, Any]) -> Any:
    """A pandas.DataFrame. Dimensions that nest, and groups of categories, make a MultiIndex; `attrs` has the table's
    title, captions and notes."""
    pandas = need("pandas", "A table as a data frame")
    dimensions = table["dimensions"]
    axes = [Axis(dimension) for dimension in dimensions]

    def of_place(place: int) -> list[int]:
        chosen = [i for i, dimension in enumerate(dimensions) if dimension["place"] == place]
        return sorted(chosen, key=lambda i: -dimensions[i]["index"])

    rows, columns = of_place(ROWS), of_place(COLUMNS)
    cells: dict[tuple[int, ...], dict[tuple[int, ...], Any]] = {}
    labels: dict[tuple[int, ...], Path] = {}
    heads: dict[tuple[int, ...], Path] = {}
    for cell in table["cells"]:
        at = cell["at"]
        row = tuple(axes[i].place(at[i]) for i in rows)
        column = tuple(axes[i].place(at[i]) for i in columns)
        labels.setdefault(row, tuple(label for i in rows for label in axes[i].labels(at[i])))
        heads.setdefault(column, tuple(label for i in columns for label in axes[i].labels(at[i])))
        cells.setdefault(row, {})[column] = _value(cell["content"])
    row_order, column_order = sorted(labels), sorted(heads)
    data = {
        place: _column([cells[row].get(column, math.nan) for row in row_order], pandas)
        for place, column in enumerate(column_order)
    }
    frame = pandas.DataFrame(data, index=_index([labels[row] for row in row_order], _names(axes, rows), pandas))
    frame.columns = _index([heads[column] for column in column_order], _names(axes, columns), pandas)
    frame.attrs.update(
        title=table["title"]["text"],
        captions=[text["text"] for text in table["captions"]],
        notes=[text["text"] for text in table["notes"]],
    )
    return frame


def _column(values: list[Any], pandas: Any) -> Any:
    if all(isinstance(value, float) for value in values):
        return pandas.array(values, dtype="float64")
    return pandas.array(
        [None if isinstance(value, float) and math.isnan(value) else value for value in values], dtype="object"
    )


def _names(axes: Sequence[Axis], chosen: Sequence[int]) -> list[str | None]:
    return [name for i in chosen for name in [axes[i].name, *[None] * (axes[i].depth - 1)]]


def _index(paths: list[Path], names: list[str | None], pandas: Any) -> Any:
    if not names:
        return pandas.Index(["Value"] * len(paths))
    if len(names) == 1:
        return pandas.Index([path[0] for path in paths], name=names[0])
    return pandas.MultiIndex.from_tuples(paths, names=names)
