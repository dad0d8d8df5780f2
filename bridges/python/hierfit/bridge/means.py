"""Estimated means and contrasts, as blocks of the document."""

from __future__ import annotations

from collections.abc import Mapping, Sequence

import numpy as np

from .adjust import adjust_p, step_levels
from .fields import field_of_column, is_categorical
from .grid import Grid, Means, Point, Test, wald
from .model import Fitted
from .requests import Options, Request
from .xml import Node, coordinates, f_test, message, node, number_text, real_array, segment, statistic, text_array

MOST_VALUES = 10
MOST_TOP_EFFECTS = 10


class MeansWriter:
    """All that the document says of means. Grids are made but once for each set of values."""

    def __init__(self, fitted: Fitted, options: Options) -> None:
        self.fitted = fitted
        self.options = options
        self._check_places()

    def _check_places(self) -> None:
        numbers = self.fitted.design.raw_numbers()
        for name in self.options.at:
            if name not in numbers:
                raise ValueError(
                    f"at names {name}, which is no continuous predictor of the model. "
                    f"It has: {', '.join(numbers) or 'none'}."
                )

    def grand_mean(self) -> list[Node]:
        means = Grid(self.fitted, self.options.at).means({"": Point([""], np.zeros((1, 0)))}, self.options.level)
        figures = {
            "grandMean": means.mean,
            "grandMeanStdErr": means.se,
            "grandMeanCILower": means.lower,
            "grandMeanCIUpper": means.upper,
        }
        return [statistic(name, values[0]) for name, values in figures.items()]

    def top(self, tests: Sequence[Test]) -> list[Node]:
        """Means of the effects of factors that are significant, the strongest first."""
        design = self.fitted.design
        if self._mixed() is not None:
            return []
        chosen = [
            i
            for i, effect in enumerate(design.effects)
            if not effect.is_numeric and len(effect.fields) <= 2 and tests[i].p < 1 - self.options.level
        ]
        chosen.sort(key=lambda i: tests[i].p)
        grid = Grid(self.fitted, self.options.at)
        blocks = []
        for i in chosen[:MOST_TOP_EFFECTS]:
            points = {name: self._level_point(grid, name) for name in design.effects[i].fields}
            blocks.append(
                node("DataGroup", {"description": "Emmeans"}, _estimates(grid.means(points, self.options.level)))
            )
        return blocks

    def _mixed(self) -> str | None:
        """A number that is made of factors, and so has no value where these are averaged over."""
        return next((factor.variable.code for factor in self.fitted.design.factors if factor.is_mixed), None)

    def _level_point(self, grid: Grid, name: str) -> Point:
        levels = grid.levels_of(name) or []
        return Point(levels, np.eye(len(levels)))

    def block(self, request: Request, index: int) -> Node:
        mixed = self._mixed()
        if mixed is not None:
            raise ValueError(
                f"The term {mixed} is a number that is made of a factor, so means over the factor have no value of it; "
                "write it as a product, such as x:C(g), or leave the means out."
            )
        grid = Grid(self.fitted, self.options.at)
        points = {}
        for name in request.fields:
            if name == self.fitted.target.name:
                points[name] = Point(self.fitted.target.of.levels or [])
            elif grid.levels_of(name) is not None:
                points[name] = self._level_point(grid, name)
            else:
                values = self._values_at(name)
                points[name] = Point([number_text(value) for value in values], None, values)
        of_categories = self.fitted.distribution.has_categories
        means = (grid.probabilities if of_categories else grid.means)(points, self.options.level)
        held = [
            node("PrintableList", {"pattern": name}, node("PrintableList", {"pattern": number_text(value)}))
            for name, value in grid.held(request.fields)
        ]
        parts: list[Node] = []
        if request.contrast != "none":
            if len(points[request.compare].texts) > 1:
                parts = self._contrasts(means, request)
            else:
                parts = [message("kGLMM_C19_1", request.compare)]
        return node(
            "DataGroup",
            {"description": "customEmmeans"},
            statistic("EMMEANSIndex", index),
            node("Label", None, node("PrintableList", {"pattern": "fixedAt"}, held)) if held else None,
            _estimates(means),
            parts,
        )

    def _values_at(self, name: str) -> np.ndarray:
        if name in self.options.at:
            return np.array(self.options.at[name])
        values = np.unique(self._column(name))
        if len(values) > MOST_VALUES:
            raise ValueError(
                f"The predictor {name} is continuous with {len(values)} values; say at which its means stand: "
                f"at={{{name!r}: [...]}}."
            )
        return values

    def _column(self, name: str) -> np.ndarray:
        frame = self.fitted.frame
        if frame is not None and name in frame:
            return np.asarray(frame[name], dtype=float)
        return self.fitted.fields[name].values

    # Contrasts

    def _contrasts(self, means: Means, request: Request) -> list[Node]:
        from scipy import stats

        at = means.fields.index(request.compare)
        levels = means.values[at]
        weights, first, second = _pairs(request, levels)
        groups = _groups(means, at)
        others = [k for k in range(len(means.fields)) if k != at]
        columns: dict[str, list[float]] = {
            name: []
            for name in (
                "contrastEstimate",
                "stdErr",
                "tTest",
                "df",
                "adjustedSig",
                "confIntervalLower",
                "confIntervalUpper",
            )
        }
        texts: list[list[str]] = [[] for _ in others]
        overall = []
        df = self.fitted.df
        for number, members in enumerate(groups):
            l = weights @ means.gradient[members]
            estimate = weights @ means.mean[members]
            se = np.sqrt(np.maximum(0, np.einsum("ij,jk,ik->i", l, means.covariance, l)))
            with np.errstate(divide="ignore", invalid="ignore"):
                t = np.where(se > 0, estimate / se, np.nan)
            p = 2 * stats.t.sf(np.abs(t), df)
            reach = stats.t.isf(step_levels(p, self.options.adjust, 1 - self.options.level) / 2, df) * se
            figures = (
                estimate,
                se,
                t,
                np.full(len(t), df),
                adjust_p(p, self.options.adjust),
                estimate - reach,
                estimate + reach,
            )
            for column, values in zip(columns.values(), figures):
                column.extend(values)
            where = [(means.fields[k], means.values[k][means.index[members[0], k]]) for k in others]
            for column_texts, (_, text) in zip(texts, where):
                column_texts.extend([text] * len(t))
            overall.append(self._overall(number, l, estimate, means.covariance, where))
        fields = [_field_column(means.fields[k], column) for k, column in zip(others, texts)]
        fields += [_field_column(request.compare, side * len(groups)) for side in (first, second)]
        table = node(
            "MultivariateData",
            {"description": "contrasts"},
            statistic("adjustedSigLevel", round(1 - self.options.level, 12)),
            node("CoordinatesGroup", {"description": f"{request.contrast}Contrast"}, fields),
            _figures(columns),
        )
        return [table, *overall]

    def _overall(
        self, number: int, l: np.ndarray, estimate: np.ndarray, covariance: np.ndarray, where: list[tuple[str, str]]
    ) -> Node:
        test = _joint(l, estimate, covariance, self.fitted.df)
        return node(
            "ModelTestStats",
            {"testID": number},
            segment(where) if where else None,
            f_test(test.f, test.df1, test.df2, test.p),
        )


def _joint(l: np.ndarray, estimate: np.ndarray, covariance: np.ndarray, df: float) -> Test:
    """The test that all contrasts are zero; those that the others make up do not count."""
    u, d, _ = np.linalg.svd(l, full_matrices=False)
    kept = u[:, d > 1e-9 * d.max(initial=0)].T
    return wald(np.eye(len(kept)), kept @ estimate, kept @ l @ covariance @ l.T @ kept.T, df) if len(kept) else Test()


def _groups(means: Means, at: int) -> list[np.ndarray]:
    """The means of each combination of the other factors, in the order of the compared factor's levels."""
    others = [k for k in range(means.index.shape[1]) if k != at]
    groups: dict[tuple[int, ...], list[int]] = {}
    for row, index in enumerate(means.index):
        groups.setdefault(tuple(index[others]), []).append(row)
    return [np.array(members) for members in groups.values()]


def _pairs(request: Request, levels: list[str]) -> tuple[np.ndarray, list[str | None], list[str | None]]:
    """Contrasts by levels, and the two sides of each."""
    n = len(levels)
    unit = np.eye(n)
    if request.contrast == "pairwise":
        pairs = [(i, j) for i in range(n) for j in range(i + 1, n)]
    elif request.contrast == "deviation":
        return unit - 1 / n, list(levels), [None] * n
    else:
        reference = levels[-1] if request.reference is None else request.reference
        if reference not in levels:
            raise ValueError(
                f"The reference {reference} is not a level of {request.compare}. Levels are: {', '.join(levels)}."
            )
        at = levels.index(reference)
        pairs = [(i, at) for i in range(n) if i != at]
    return (
        np.array([unit[i] - unit[j] for i, j in pairs]),
        [levels[i] for i, _ in pairs],
        [levels[j] for _, j in pairs],
    )


# Columns


def _field_column(name: str, texts: Sequence[str | None]) -> Node:
    return coordinates(text_array(texts), "fields", field=name)


def _figures(columns: Mapping[str, Sequence[float] | np.ndarray]) -> list[Node]:
    return [coordinates(real_array(values), "statistic", statistic=name) for name, values in columns.items()]


def _estimates(means: Means) -> Node:
    return node(
        "MultivariateData",
        {"description": "estimates"},
        node("CoordinatesGroup", None, [_field_column(name, means.texts(k)) for k, name in enumerate(means.fields)]),
        _figures(
            {"mean": means.mean, "stdErr": means.se, "confIntervalLower": means.lower, "confIntervalUpper": means.upper}
        ),
    )


def check_requests(requests: Sequence[Request], fitted: Fitted) -> None:
    """Fields that a request names and the model knows only within an expression become fields of their own. A target of
    several categories has no mean: it is one of a request's fields, and their probabilities are the means."""
    target = fitted.target.name
    for request in requests:
        for name in request.fields:
            if name not in fitted.fields:
                column = fitted.frame[name]
                fitted.fields[name] = field_of_column(name, column, is_categorical(column))
        if not fitted.distribution.has_categories:
            continue
        first = next((name for name in request.fields if name != target), "A")
        if target not in request.fields:
            raise ValueError(
                "A target of several categories has the probabilities of its categories for means; name it in means, "
                f"such as '{first} | {target}'."
            )
        if request.compare == target:
            raise ValueError(
                f"Contrasts of {target} would compare its own categories; name a factor first, such as "
                f"'{first} | {target}'."
            )
