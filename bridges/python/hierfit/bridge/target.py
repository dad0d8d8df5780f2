"""How the target is distributed, and how well it is predicted."""

from __future__ import annotations

import numpy as np

from .model import Distribution, Target
from .xml import Node, coordinates, node, real_array, statistic

MOST_POINTS = 100  # beyond this many records, points stand for cells of a grid
GRID_SIZE = 20


def distribution_node(target: Target, distribution: Distribution) -> Node | None:
    if target.trials is not None or distribution.kind == "BINOMIAL":
        return None
    y = target.of.values if target.of.levels is None else target.of.values + 1.0
    mean = float(np.mean(y))
    figures = {
        "mean": mean,
        "stdDeviation": float(np.std(y, ddof=1)) if len(y) > 1 else np.nan,
        "shape": np.nan,
        "rate": np.nan,
        "r": np.nan,
        "p": np.nan,
    }
    if distribution.kind == "GAMMA":
        figures["shape"] = _gamma_shape(y)
        figures["rate"] = figures["shape"] / mean
    elif distribution.kind == "IGAUSS":
        spread = np.sum(1 / y - 1 / mean) if (y > 0).all() else 0
        figures["shape"] = len(y) / spread if spread > 0 else np.nan
    elif distribution.kind == "NEGBIN":
        figures["r"] = _negbin_size(y)
        figures["p"] = figures["r"] / (figures["r"] + mean)
    bars, heights = _bars(y, distribution.kind in ("NEGBIN", "POISSON", "ORDINAL", "NOMINAL"))
    return node(
        "UnivariateData",
        {"description": "TargetDistribution"},
        node("Counts", {"totalFreq": len(y)}),
        [statistic(name, value) for name, value in figures.items()],
        coordinates(real_array(bars), "observed"),
        coordinates(real_array(heights), "frequency"),
    )


def _gamma_shape(y: np.ndarray) -> float:
    from scipy.optimize import brentq
    from scipy.special import digamma

    if not (y > 0).all():
        return np.nan
    gap = np.log(np.mean(y)) - np.mean(np.log(y))
    if not gap > 0:
        return np.nan
    return float(brentq(lambda s: np.log(s) - digamma(s) - gap, 1e-6, 1e8, xtol=1e-12))


def _negbin_size(y: np.ndarray) -> float:
    """The size of greatest likelihood; there is none where counts vary less than Poisson's."""
    from scipy.optimize import brentq
    from scipy.special import digamma

    mean = float(np.mean(y))
    if not np.var(y) > mean > 0:
        return np.nan

    def score(log_size: float) -> float:
        r = np.exp(log_size)
        return float(np.mean(digamma(y + r)) - digamma(r) + np.log(r / (r + mean)))

    try:
        return float(np.exp(brentq(score, -10, 15, xtol=1e-12)))
    except ValueError:
        return np.nan


def _bars(y: np.ndarray, is_discrete: bool) -> tuple[np.ndarray, np.ndarray]:
    if is_discrete:
        values, counts = np.unique(y, return_counts=True)
        return values, counts
    heights, edges = np.histogram(y, bins="sturges")
    return (edges[:-1] + edges[1:]) / 2, heights


def predicted_node(target: Target, predicted: np.ndarray | None) -> Node | None:
    if predicted is None:
        return None
    observed = target.of.values.astype(float)
    known = np.isfinite(observed) & np.isfinite(predicted)
    if not known.any():
        return None
    x, y, n = observed[known], predicted[known], np.ones(int(known.sum()), dtype=int)
    if len(x) > MOST_POINTS:
        x, y, n = _grid_points(x, y)
    return node(
        "BivariateData",
        {"description": "observedByPredicted"},
        node("Counts", {"totalFreq": int(known.sum())}),
        coordinates(real_array(x), "observed"),
        coordinates(real_array(y), "statistic", statistic="predicted"),
        coordinates(real_array(n), "frequency"),
    )


def _grid_points(x: np.ndarray, y: np.ndarray) -> tuple[np.ndarray, np.ndarray, np.ndarray]:
    def cells(values: np.ndarray) -> tuple[np.ndarray, np.ndarray]:
        width = np.ptp(values) / GRID_SIZE
        if not width > 0:
            return np.zeros(len(values), dtype=int), values
        index = np.minimum(GRID_SIZE - 1, np.floor((values - values.min()) / width)).astype(int)
        return index, values.min() + (index + 0.5) * width

    (a, at_x), (b, at_y) = cells(x), cells(y)
    _, first, counts = np.unique(a * GRID_SIZE + b, return_index=True, return_counts=True)
    return at_x[first], at_y[first], counts


def classification_of(target: Target, predicted: np.ndarray) -> tuple[np.ndarray, list[str] | None]:
    """Counts of observed by predicted categories, and the categories; None where they are events of trials."""
    if target.trials is not None:
        events, trials = target.of.values, target.trials.values
        hit = predicted > 0.5
        return (
            np.array(
                [
                    [np.sum((trials - events)[~hit]), np.sum((trials - events)[hit])],
                    [np.sum(events[~hit]), np.sum(events[hit])],
                ]
            ),
            None,
        )
    levels = target.of.levels or []
    if predicted.ndim == 2:
        known = np.isfinite(predicted).all(axis=1)
        chosen = np.argmax(np.where(known[:, None], predicted, 0), axis=1)
    else:
        known = np.isfinite(predicted)
        chosen = np.where(predicted > 0.5, target.event, 1 - target.event)
    counts = np.zeros((len(levels), len(levels)), dtype=int)
    np.add.at(counts, (target.of.values[known], chosen[known]), 1)
    return counts, levels


def classification_node(counts: np.ndarray, labels: list[str] | None) -> Node:
    names = (
        None
        if labels is None
        else node(
            "MatrixLabels", None, node("RowColLabels", None, [node("Label", {"label": label}) for label in labels])
        )
    )
    return node(
        "Matrix", {"description": "classificationTable", "nbRows": len(counts)}, names, real_array(counts.ravel())
    )
