"""Linear functions of the coefficients: means over the reference grid, and the tests of effects.

In the grid factors have all their levels, with equal weights where they are averaged over, and continuous columns of
the data stand at their means or where they are put.
"""

from __future__ import annotations

import itertools
from collections.abc import Mapping, Sequence
from dataclasses import dataclass

import numpy as np

from .design import Design, Effect, Factor
from .model import Fitted


@dataclass(slots=True)
class Test:
    f: float = np.nan
    df1: float = np.nan
    df2: float = np.nan
    p: float = np.nan


def wald(l: np.ndarray, beta: np.ndarray, covariance: np.ndarray, df: float) -> Test:
    """The joint test that all rows of l times beta are zero; rows that depend on each other count once."""
    from scipy import stats

    if l.size == 0 or not (np.isfinite(covariance).all() and np.isfinite(beta).all()):
        return Test()
    u, d, basis = np.linalg.svd(l, full_matrices=False)
    basis = basis[d > 1e-9 * d.max(initial=0)]
    if len(basis) == 0:
        return Test()
    value = basis @ beta
    spread = basis @ covariance @ basis.T
    try:
        f = float(value @ np.linalg.solve(spread, value)) / len(basis)
    except np.linalg.LinAlgError:
        return Test()
    if not f >= 0:
        return Test()
    p = stats.f.sf(f, len(basis), df) if np.isfinite(df) else stats.chi2.sf(f * len(basis), len(basis))
    return Test(f, float(len(basis)), df, float(p))


# Tests of effects


def all_effects(fitted: Fitted) -> Test:
    """Of all coefficients but the intercept."""
    design = fitted.design
    columns = [c for term in design.terms for c in term.columns]
    if not columns or not design.has_intercept:
        return Test()
    return _wald_of_design(np.eye(design.size)[columns], fitted)


def effect_tests(fitted: Fitted) -> tuple[list[Test], list[str]]:
    """A test of each effect, and the names of those that cannot be told from the columns."""
    tests, untested = [], []
    for effect in fitted.design.effects:
        l = hypothesis(fitted.design, effect)
        if l is None:
            untested.append(effect.term.name)
            tests.append(Test())
        else:
            tests.append(_wald_of_design(l, fitted))
    return tests, untested


def _wald_of_design(l: np.ndarray, fitted: Fitted) -> Test:
    equations = max(1, len(fitted.categories))
    return wald(np.kron(np.eye(equations), l), fitted.beta, fitted.covariance, fitted.df)


def hypothesis(design: Design, effect: Effect) -> np.ndarray | None:
    """The rows of the test of type III: for each column of the effect's continuous part, the contrasts between levels
    of the effect's factors, averaged over those of the others. A factor that is coded by all its levels, since the
    smaller effect is not in the model, is no contrast but each of its levels."""
    term = effect.term
    numbers = frozenset(f for f in term.factors if not design.factors[f].is_category)
    if len(term.parts) > 1:
        inside = set(term.factors)
        wider = (set(other.factors) - inside for other in design.terms if inside < set(other.factors))
        if any(all(design.factors[f].is_category for f in more) for more in wider):
            return None
        return np.eye(design.size)[term.columns]
    part = term.parts[0]
    inside_fields = {design.factors[f].variable.field: part.codings[f] for f in term.factors if f in part.codings}
    weights: dict[str, np.ndarray] = {}
    for name, coding in inside_fields.items():
        n = coding.shape[0]
        weights[name] = np.eye(n) if coding.shape[1] == n else np.eye(n)[1:] - np.eye(n)[:-1]
    continuous = [design.factors[f].width for f in part.factors if f in numbers]
    choices = list(itertools.product(*(range(len(w)) for w in weights.values()), *map(range, continuous)))
    index = np.array(choices, dtype=int).reshape(len(choices), -1)
    picked = {name: w[index[:, k]] for k, (name, w) in enumerate(weights.items())}
    units = {
        f: np.eye(design.factors[f].width)[index[:, len(weights) + k]]
        for k, f in enumerate(f for f in part.factors if f in numbers)
    }
    pieces = {
        f: _weights_of(factor, picked, len(index)) if factor.is_category else units.get(f)
        for f, factor in enumerate(design.factors)
    }
    l = np.zeros((len(index), design.size))
    if not numbers and not weights:
        return l
    # A term that lacks one of the contrasted factors is the same at all its levels, so that its contrast is zero.
    contrasted = {name for name, w in weights.items() if np.abs(w.sum(axis=1)).max() < 0.5}
    for other in design.terms:
        names = {design.factors[f].variable.field for f in other.factors}
        if contrasted <= names and frozenset(f for f in other.factors if not design.factors[f].is_category) == numbers:
            l[:, other.columns] = design.rows_of(other, pieces, len(index))  # type: ignore[arg-type]
    return l


def _weights_of(factor: Factor, picked: Mapping[str, np.ndarray], n: int) -> np.ndarray:
    """Weights of a factor's levels at n points: as picked, else all alike."""
    given = picked.get(factor.variable.field)
    return given if given is not None else np.full((n, factor.width), 1 / factor.width)


# Means


@dataclass(slots=True)
class Means:
    """Means of the combinations of some fields' values, the first field's the slowest. `values` has per field its
    texts in order, `index` per mean the place among them."""

    fields: list[str]
    values: list[list[str]]
    index: np.ndarray
    mean: np.ndarray
    se: np.ndarray
    lower: np.ndarray
    upper: np.ndarray
    gradient: np.ndarray  # means by parameters, on the scale of the target
    covariance: np.ndarray  # of the parameters

    def texts(self, k: int) -> list[str]:
        return [self.values[k][i] for i in self.index[:, k]]


@dataclass(slots=True)
class Point:
    """A field of a request: its values' texts, and weights of levels or numbers."""

    texts: list[str]
    levels: np.ndarray | None = None
    numbers: np.ndarray | None = None


def _product(sizes: Sequence[int]) -> np.ndarray:
    """All combinations of places, the last one's the fastest."""
    return np.array(list(itertools.product(*map(range, sizes))), dtype=int).reshape(-1, len(sizes))


class Grid:
    """The reference grid of a fit."""

    def __init__(self, fitted: Fitted, at: Mapping[str, Sequence[float]]) -> None:
        self.fitted = fitted
        self.design = fitted.design
        self.at = {
            name: np.asarray(at[name], dtype=float) if name in at else np.array([self._mean_of(name)])
            for name in self.design.raw_numbers()
        }

    def _mean_of(self, name: str) -> float:
        if self.fitted.frame is not None and name in self.fitted.frame:
            return float(np.mean(np.asarray(self.fitted.frame[name], dtype=float)))
        factor = next(f for f in self.design.factors if f.raw == (name,))
        return float(factor.values.mean())

    def levels_of(self, name: str) -> list[str] | None:
        return next((f.levels for f in self.design.factors if f.is_category and f.variable.field == name), None)

    def linear(self, points: Mapping[str, Point], index: np.ndarray) -> np.ndarray:
        """Combinations by coefficients, on the scale of the link."""
        n = len(index)
        place = {name: k for k, name in enumerate(points)}
        picked = {
            name: point.levels[index[:, place[name]]] for name, point in points.items() if point.levels is not None
        }
        given = {
            name: point.numbers[index[:, place[name]]] for name, point in points.items() if point.numbers is not None
        }
        others = [name for name in self.at if name not in given]
        total = np.zeros((n, self.design.size))
        combinations = list(itertools.product(*(self.at[name] for name in others)))
        for values in combinations:
            numbers = {**given, **{name: np.full(n, value) for name, value in zip(others, values)}}
            pieces = {
                f: _weights_of(factor, picked, n) if factor.is_category else self._columns_of(factor, numbers, n)
                for f, factor in enumerate(self.design.factors)
            }
            total += self.design.matrix(pieces, n)
        return total / len(combinations)

    def _columns_of(self, factor: Factor, numbers: Mapping[str, np.ndarray], n: int) -> np.ndarray:
        if factor.evaluate is None:
            return np.tile(factor.values.mean(axis=0), (n, 1))
        return np.broadcast_to(factor.evaluate(numbers), (n, factor.width))

    def means(self, points: Mapping[str, Point], level: float) -> Means:
        from scipy import stats

        index = _product([len(point.texts) for point in points.values()])
        l = self.linear(points, index)
        eta = l @ self.fitted.beta + self.fitted.offset
        spread = np.sqrt(np.einsum("ij,jk,ik->i", l, self.fitted.covariance, l))
        reach = stats.t.ppf(0.5 + level / 2, self.fitted.df) * spread
        mean, slope = self.fitted.inverse_link(eta)
        ends = np.array([self.fitted.inverse_link(eta - reach)[0], self.fitted.inverse_link(eta + reach)[0]])
        return Means(
            list(points),
            [point.texts for point in points.values()],
            index,
            mean,
            np.abs(slope) * spread,
            ends.min(axis=0),
            ends.max(axis=0),
            slope[:, None] * l,
            self.fitted.covariance,
        )

    def probabilities(self, points: Mapping[str, Point], level: float) -> Means:
        """Means of a target of several categories, which is one of the points: probabilities, averaged as such over the
        rest of the grid."""
        from scipy import stats

        fitted, target = self.fitted, self.fitted.target.name
        asked = {name: point for name, point in points.items() if name != target}
        rest = {name: Point([""] * len(values), None, values) for name, values in self.at.items() if name not in asked}
        for factor in self.design.factors:
            name = factor.variable.field
            if factor.is_category and name not in asked:
                rest[name] = Point(factor.levels or [], np.eye(factor.width))
        sizes = [len(point.texts) for point in (*asked.values(), *rest.values())]
        l = self.linear({**asked, **rest}, _product(sizes))
        combinations = int(np.prod(sizes[: len(asked)], dtype=int))
        given, slopes = fitted.probabilities(l)  # type: ignore[misc]
        given = given.reshape(combinations, -1, given.shape[1]).mean(axis=1)
        slopes = slopes.reshape(combinations, -1, *slopes.shape[1:]).mean(axis=1)
        index = _product([len(point.texts) for point in points.values()])
        row = np.zeros(len(index), dtype=int)
        for k, (name, point) in enumerate(points.items()):
            row = row if name == target else row * len(point.texts) + index[:, k]
        category = index[:, list(points).index(target)]
        mean, gradient = given[row, category], slopes[row, category]
        se = np.sqrt(np.einsum("ij,jk,ik->i", gradient, fitted.probability_covariance, gradient))
        reach = stats.t.ppf(0.5 + level / 2, fitted.df) * se
        texts = [point.texts for point in points.values()]
        covariance = fitted.probability_covariance
        return Means(list(points), texts, index, mean, se, mean - reach, mean + reach, gradient, covariance)

    def held(self, asked: Sequence[str]) -> list[tuple[str, float]]:
        """Continuous fields at one value that were not asked for, by the names that the documents have for them."""
        out: dict[str, float] = {}
        single = {name: values for name, values in self.at.items() if name not in asked}
        for factor in self.design.factors:
            if factor.is_category or factor.variable.power > 1 or factor.width > 1 or set(factor.raw) & set(asked):
                continue
            if any(len(single[name]) > 1 for name in factor.raw):
                continue
            value = self._columns_of(factor, {name: single[name] for name in factor.raw}, 1)
            out.setdefault(factor.variable.field, float(value[0, 0]))
        return list(out.items())
