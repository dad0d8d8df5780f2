"""Subjects: which fields tell them apart, how many there are, and the records of the first."""

from __future__ import annotations

from dataclasses import dataclass, field

from .fields import Field
from .model import Fitted, Subject, Target
from .xml import Node, coordinates, node, real_array, segment, text_array

MOST_RECORDS = 10


@dataclass(slots=True)
class Subjects:
    """`common` are the fields that all blocks share, `shown` those whose values name the first subject."""

    common: list[str] = field(default_factory=list)
    shown: list[str] = field(default_factory=list)
    count: int = 0
    keys: list[tuple[str | None, ...]] | None = None


def _keys(fields: dict[str, Field], names: list[str]) -> list[tuple[str | None, ...]]:
    return list(zip(*(fields[name].texts() for name in names)))


def subjects_of(fitted: Fitted) -> Subjects:
    specs: list[Subject] = [block.subject for block in fitted.blocks if block.subject.fields]
    if not specs and fitted.residual.subject is not None:
        specs = [fitted.residual.subject]
    if not specs:
        return Subjects(count=1 if fitted.blocks else 0)
    chain = sorted((spec.fields for spec in specs), key=len)
    is_nested = all(set(a) <= set(b) for a, b in zip(chain, chain[1:]))
    common = [name for name in chain[0] if all(name in fields for fields in chain)]
    if not is_nested or not common:
        return Subjects(count=1)
    keys = _keys(fitted.fields, common)
    return Subjects(common, list(dict.fromkeys([*chain[0], *chain[-1]])), len(set(keys)), keys)


def random_columns(fitted: Fitted, subjects: Subjects) -> int:
    """Columns of the random design of one common subject: the most that one has."""
    total = 0
    for block in fitted.blocks:
        if not block.subject.fields:
            total += len(block.rows)
            continue
        own = _keys(fitted.fields, block.subject.fields)
        within: dict[object, set[object]] = {}
        for i, key in enumerate(own):
            within.setdefault(subjects.keys[i] if subjects.keys is not None else None, set()).add(key)
        total += max(len(keys) for keys in within.values()) * len(block.rows)
    return total


def first_subject_node(fitted: Fitted, subjects: Subjects) -> Node | None:
    if not subjects.common:
        return None
    keys = _keys(fitted.fields, subjects.shown)
    same = [i for i, key in enumerate(keys) if key == keys[0]]
    values = [(name, text or "") for name, text in zip(subjects.shown, keys[0])]
    return node(
        "StructuredData",
        {"description": "firstSubjectRecordsForDataStructure"},
        node("Counts", {"totalFreq": len(same)}),
        node(
            "SegmentData",
            None,
            segment(values),
            node("MultivariateData", None, _target_records(fitted.target, same[:MOST_RECORDS])),
        ),
    )


def _target_records(target: Target, shown: list[int]) -> Node:
    def column(of: Field) -> Node:
        if of.levels is None:
            return coordinates(real_array(of.values[shown]), "fields", field=of.name)
        texts = of.texts()
        return coordinates(text_array(texts[i] for i in shown), "fields", field=of.name)

    return node(
        "CoordinatesGroup",
        {"description": "target"},
        column(target.of),
        column(target.trials) if target.trials is not None else None,
    )
