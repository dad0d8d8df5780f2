"""The fixed part of a model: its effects, its columns, and one row for each coefficient that readers expect."""

from __future__ import annotations

import itertools
from collections.abc import Callable, Mapping, Sequence
from dataclasses import dataclass, field
from typing import Any

import numpy as np

from .fields import Field, coded, texts_of_levels
from .variables import Variable, describe
from .xml import Node, flag_text, node


@dataclass(slots=True)
class Row:
    """One coefficient of the full design; `column` is its place among the estimated ones, None if redundant."""

    label: str
    effect: int = -1
    is_intercept: bool = False
    covariates: dict[str, int] = field(default_factory=dict)
    factors: list[tuple[str, str, bool]] = field(default_factory=list)  # field, level, whether what is before is nested
    column: int | None = None


@dataclass(slots=True)
class Factor:
    """One variable of the formula. Categories have `levels`; numbers have `width` columns, which `evaluate` gives for
    the values of the data's columns that the variable is made of. A number that is made of factors `is_mixed`."""

    variable: Variable
    levels: list[str] | None
    width: int
    names: list[str]
    values: np.ndarray  # one entry a record: indexes of levels, or the columns
    raw: tuple[str, ...] = ()
    evaluate: Callable[[Mapping[str, np.ndarray]], np.ndarray] | None = None
    is_ordered: bool = False
    is_mixed: bool = False

    @property
    def is_category(self) -> bool:
        return self.levels is not None


@dataclass(slots=True)
class Part:
    """A product of factors within a term, with the coding of its categories: levels by columns."""

    factors: list[int]
    codings: dict[int, np.ndarray]
    suffixes: dict[int, list[str]]
    size: int


@dataclass(slots=True)
class Term:
    name: str
    factors: list[int]
    parts: list[Part]
    first: int  # its first column
    size: int

    @property
    def columns(self) -> list[int]:
        return list(range(self.first, self.first + self.size))


@dataclass(slots=True)
class Effect:
    fields: list[str]
    levels: list[int]
    is_numeric: bool
    term: Term


@dataclass(slots=True)
class Design:
    """All columns of the fixed part in the order of the fit's parameters."""

    factors: list[Factor]
    terms: list[Term]
    size: int
    has_intercept: bool
    intercept_column: int | None
    effects: list[Effect] = field(default_factory=list)
    rows: list[Row] = field(default_factory=list)

    def rows_of(self, term: Term, pieces: Mapping[int, np.ndarray], n: int) -> np.ndarray:
        """The term's columns at n points; a piece holds, for one factor, its levels' weights or its columns there."""
        blocks = []
        for part in term.parts:
            product = np.ones((n, 1))
            for f in part.factors:
                piece = pieces[f] @ part.codings[f] if f in part.codings else pieces[f]
                product = np.einsum("ni,nj->nji", product, piece).reshape(n, -1)
            blocks.append(product)
        return np.concatenate(blocks, axis=1)

    def matrix(self, pieces: Mapping[int, np.ndarray], n: int) -> np.ndarray:
        out = np.zeros((n, self.size))
        if self.intercept_column is not None:
            out[:, self.intercept_column] = 1
        for term in self.terms:
            out[:, term.columns] = self.rows_of(term, pieces, n)
        return out

    def raw_numbers(self) -> list[str]:
        """The continuous columns of the data that the design is made of."""
        return list(dict.fromkeys(name for factor in self.factors for name in factor.raw))


def design_of_formula(info: Any, frame: Any, has_thresholds: bool) -> Design:
    """From patsy's description of a design and the records that were used."""
    codes = list(info.factor_infos)
    alone = frozenset(
        variable.field for variable in map(describe, (f.name() for f in codes)) if variable.code == variable.field
    )
    factors = [_factor_of(f, info.factor_infos[f], frame, alone) for f in codes]
    place = {f: i for i, f in enumerate(codes)}
    terms: list[Term] = []
    intercept: int | None = None
    for term in info.terms:
        where = info.term_slices[term]
        if not term.factors:
            intercept = where.start
            continue
        parts = []
        for sub in info.term_codings[term]:
            parts.append(
                Part(
                    [place[f] for f in sub.factors],
                    {place[f]: np.asarray(c.matrix) for f, c in sub.contrast_matrices.items()},
                    {place[f]: list(c.column_suffixes) for f, c in sub.contrast_matrices.items()},
                    sub.num_columns,
                )
            )
        terms.append(Term(term.name(), [place[f] for f in term.factors], parts, where.start, where.stop - where.start))
    design = Design(factors, terms, len(info.column_names), intercept is not None or has_thresholds, intercept)
    _check_fields(design)
    return _described(design, list(info.column_names))


def _factor_of(code: Any, info: Any, frame: Any, alone: frozenset[str]) -> Factor:
    variable = describe(code.name(), alone)
    values = code.eval(info.state, frame)
    if info.type == "categorical":
        levels = texts_of_levels(variable.field, info.categories)
        data = getattr(values, "data", values) if type(values).__name__ == "_CategoricalBox" else values
        ordered = bool(getattr(getattr(data, "dtype", None), "ordered", False))
        return Factor(variable, levels, len(levels), [], coded(list(data), list(info.categories)), is_ordered=ordered)
    columns = _as_columns(values)
    width = columns.shape[1]
    raw = tuple(name for name in variable.names if name in frame and _is_number(frame[name]))
    state = info.state

    def evaluate(at: Mapping[str, np.ndarray]) -> np.ndarray:
        return _as_columns(code.eval(state, at))

    mixed = any(name in frame and name not in raw for name in variable.names)
    names = [variable.field] if width == 1 else [f"{code.name()}[{j}]" for j in range(width)]
    if mixed or not raw:
        return Factor(variable, None, width, names, columns, is_mixed=mixed)
    return Factor(variable, None, width, names, columns, raw, evaluate)


def _as_columns(values: Any) -> np.ndarray:
    columns = np.asarray(values, dtype=float)
    return columns.reshape(len(columns), -1) if columns.ndim else columns.reshape(1, 1)


def _is_number(column: Any) -> bool:
    return getattr(column.dtype, "kind", "O") in "iuf"


def _check_fields(design: Design) -> None:
    """A column of the data is either a factor or a number, and stands in a term once as a factor."""
    kinds: dict[str, Factor] = {}
    for factor in design.factors:
        name = factor.variable.field
        before = kinds.setdefault(name, factor)
        if before.is_category != factor.is_category:
            code = (factor if factor.is_category else before).variable.code
            raise ValueError(
                f"{name} stands in the model both as a factor ({code}) and as a number; give one of them a column of "
                "its own."
            )
        if before.levels != factor.levels:
            raise ValueError(
                f"{name} stands in the model with two sets of levels ({before.variable.code}, {factor.variable.code})."
            )
    categories = {factor.variable.field for factor in design.factors if factor.is_category}
    for factor in design.factors:
        factor.is_mixed = factor.is_mixed or bool(categories & set(factor.raw))
    for term in design.terms:
        names = [design.factors[f].variable.field for f in term.factors if design.factors[f].is_category]
        if len(set(names)) < len(names):
            raise ValueError(f"The term {term.name} holds a factor twice; write it once.")


def design_of_columns(names: Sequence[str], values: np.ndarray, constant: int | None, has_thresholds: bool) -> Design:
    """From a data frame's columns, each of them a covariate."""
    if len(set(names)) < len(names):
        raise ValueError("Two columns of the model's data have one name; rename one of them.")
    factors: list[Factor] = []
    terms: list[Term] = []
    for column, name in enumerate(names):
        if column == constant:
            continue
        place = len(factors)

        def evaluate(at: Mapping[str, np.ndarray], name: str = name) -> np.ndarray:
            return _as_columns(at[name])

        factors.append(
            Factor(Variable(name, name, 1, (name,)), None, 1, [name], values[:, [column]], (name,), evaluate)
        )
        terms.append(Term(name, [place], [Part([place], {}, {}, 1)], column, 1))
    design = Design(factors, terms, len(names), constant is not None or has_thresholds, constant)
    return _described(design, list(names))


# Effects and rows


def _described(design: Design, names: list[str]) -> Design:
    if design.intercept_column is not None:
        design.rows.append(Row("Intercept", is_intercept=True, column=design.intercept_column))
    for index, term in enumerate(design.terms):
        nests = _nesting_of(design, term)
        order = sorted(range(len(term.factors)), key=lambda k: nests[k])  # what nests stands last
        depth = list(itertools.accumulate(int(nests[k]) for k in order))
        fields: list[str] = []
        levels: list[int] = []
        for k, level in zip(order, depth):
            of = design.factors[term.factors[k]].variable.fields
            fields += of
            levels += [level] * len(of)
        factors = [design.factors[f] for f in term.factors]
        design.effects.append(Effect(fields, levels, any(not f.is_category for f in factors), term))
        if len(term.parts) > 1:
            design.rows += [Row(names[c], index, covariates={names[c]: 1}, column=c) for c in term.columns]
        else:
            design.rows += _rows_of_term(design, term, index, order, nests)
    return design


def _nesting_of(design: Design, term: Term) -> list[bool]:
    """Which of a term's factors nest the others: those that smaller terms hold, where the others stand in none."""
    inside = set(term.factors)
    held = {f for other in design.terms if set(other.factors) < inside for f in other.factors}
    plain = all(design.factors[f].is_category for f in term.factors)
    if not plain or not held or held == inside:
        return [False] * len(term.factors)
    return [f in held for f in term.factors]


def _columns_of_levels(coding: np.ndarray) -> list[int | None] | None:
    """For an indicator coding the column of each level, None for the reference; None for any other coding."""
    if not (np.isin(coding, (0, 1)).all() and (coding.sum(axis=0) == 1).all() and (coding.sum(axis=1) <= 1).all()):
        return None
    return [int(np.argmax(row)) if row.any() else None for row in coding]


@dataclass(slots=True)
class _Choices:
    """What one factor brings to the rows of a term: per choice, its place among the factor's columns and its words."""

    size: int
    columns: list[int | None]
    add: Callable[[Row, int], None]


def _choices_of(design: Design, part: Part, f: int, nests: bool) -> _Choices:
    factor = design.factors[f]
    name = factor.variable.field
    if not factor.is_category:

        def add_covariate(row: Row, choice: int) -> None:
            label = factor.names[choice]
            row.covariates[label] = row.covariates.get(label, 0) + (factor.variable.power if factor.width == 1 else 1)

        return _Choices(factor.width, list(range(factor.width)), add_covariate)
    columns = _columns_of_levels(part.codings[f])
    if columns is None:
        suffixes = part.suffixes[f]

        def add_coded(row: Row, choice: int) -> None:
            row.covariates[factor.variable.code + suffixes[choice]] = 1

        return _Choices(len(suffixes), list(range(len(suffixes))), add_coded)
    levels = factor.levels or []

    def add_level(row: Row, choice: int) -> None:
        row.factors.append((name, levels[choice], nests))

    return _Choices(len(columns), columns, add_level)


def _rows_of_term(design: Design, term: Term, index: int, order: list[int], nests: list[bool]) -> list[Row]:
    """Rows run over the last variable fastest, as readers expect them; the fit's columns over the first one."""
    part = term.parts[0]
    by_factor = {f: _choices_of(design, part, f, nests[k]) for k, f in enumerate(term.factors)}
    strides, size = {}, 1
    for f in part.factors:
        strides[f] = size
        size *= part.codings[f].shape[1] if f in part.codings else design.factors[f].width
    shown = [term.factors[k] for k in order]
    rows = []
    for choice in itertools.product(*(range(by_factor[f].size) for f in shown)):
        row = Row("", index)
        column: int | None = term.first
        for f, chosen in zip(shown, choice):
            by_factor[f].add(row, chosen)
            at = by_factor[f].columns[chosen]
            column = None if column is None or at is None else column + at * strides[f]
        row.column = column
        row.label = row_label(row)
        rows.append(row)
    return rows


def row_label(row: Row) -> str:
    pieces = [name for name, power in row.covariates.items() for _ in range(power)]
    text = ""
    for i, (name, level, nests) in enumerate(row.factors):
        text += ("(" if nests else "*" if i else "") + f"[{name}={level}]"
    text += ")" * sum(nests for _, _, nests in row.factors)
    return "*".join([*pieces, text] if text else pieces)


def effect_node(fields: Sequence[str], levels: Sequence[int] | None = None) -> Node:
    def values(of: Sequence[Any]) -> Node:
        return node("ListValue", None, [node("Value", {"value": value}) for value in of])

    return node(
        "StructuredValue",
        None,
        node("Attribute", {"name": "Fields"}, values(fields)),
        node("Attribute", {"name": "NestingLevels"}, values(levels or [0] * len(fields))),
    )


def parameter_node(row: Row) -> Node:
    return node(
        "RegressionParameter",
        {"isIntercept": flag_text(row.is_intercept), "name": row.label},
        [node("Covariate", {"field": name, "power": power}) for name, power in row.covariates.items()],
        [
            node("Factor", {"field": name, "value": level, "nest": flag_text(nests)})
            for name, level, nests in row.factors
        ],
    )


# Checks of a design against the fit


def check_design(design: Design, given: np.ndarray) -> None:
    """The columns are the fit's own, and each of them can be estimated; ValueError where not."""
    n = len(given)
    pieces = {}
    for f, factor in enumerate(design.factors):
        if not factor.is_category:
            pieces[f] = factor.values
            continue
        if (factor.values < 0).any():
            raise ValueError(
                f"{factor.variable.code} has values in the data that were no levels when the model was fitted; "
                "fit the model again."
            )
        pieces[f] = np.eye(factor.width)[factor.values]
    made = design.matrix(pieces, n)
    scale = np.maximum(1, np.abs(given).max(initial=0, axis=0))
    wrong = np.flatnonzero((np.abs(made - given) > 1e-8 * scale).any(axis=0))
    if wrong.size:
        raise ValueError(
            f"The data of this fit are not what they were when it was made: the columns of "
            f"{_term_of_column(design, int(wrong[0]))} differ. Fit the model again."
        )
    _check_levels(design)
    _check_rank(design, given)


def _term_of_column(design: Design, column: int) -> str:
    return next((term.name for term in design.terms if column in term.columns), "the intercept")


def _check_levels(design: Design) -> None:
    for factor in design.factors:
        if not factor.is_category:
            continue
        counts = np.bincount(factor.values, minlength=factor.width)
        if (counts == 0).any():
            empty = (factor.levels or [])[int(np.argmin(counts))]
            raise ValueError(
                f"No record has the level {empty} of {factor.variable.field}, so its coefficient cannot be "
                f"estimated; drop the level (remove_unused_categories() of pandas) and fit the model again."
            )


def _check_rank(design: Design, given: np.ndarray) -> None:
    from scipy.linalg import qr

    norms = np.linalg.norm(given, axis=0)
    scaled = given / np.where(norms > 0, norms, 1)
    if min(given.shape) == 0 or np.linalg.matrix_rank(scaled) == given.shape[1]:
        return
    diagonal = np.abs(np.diag(qr(scaled, mode="r")[0]))
    dependent = np.flatnonzero(diagonal < 1e-9)
    last = int(dependent[0]) if dependent.size else len(diagonal) - (given.shape[1] <= len(diagonal))
    raise ValueError(
        f"The term {_term_of_column(design, last)} cannot be estimated: one of its columns is made up of the "
        "others, as when no record has some combination of levels or two predictors say the same. Leave the term "
        "out, or join levels, and fit the model again."
    )


def fields_of_design(design: Design) -> dict[str, Field]:
    fields: dict[str, Field] = {}
    for factor in design.factors:
        name = factor.variable.field
        if name in fields:
            continue
        if factor.is_category:
            fields[name] = Field(name, factor.values, factor.levels, factor.is_ordered)
        elif factor.variable.power == 1:
            fields[name] = Field(name, factor.values[:, 0])
    return fields
