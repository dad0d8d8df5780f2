"""Adjustments of p values and limits for several contrasts, one step for each rank."""

from __future__ import annotations

import numpy as np

ADJUSTMENTS = {"none": "LSD", "bonferroni-sequential": "SEQBONFERRONI", "sidak-sequential": "SEQSIDAK"}


def step_levels(p: np.ndarray, adjust: str, alpha: float) -> np.ndarray:
    """The level at which each contrast is judged; contrasts with the same p share the strictest one."""
    if adjust == "none":
        return np.full(len(p), alpha)
    rounded = np.array([float(f"{value:.10g}") for value in p])
    known = np.sort(rounded[~np.isnan(rounded)])
    left = np.where(np.isnan(rounded), np.nan, len(known) - np.searchsorted(known, rounded, "left"))
    return alpha / left if adjust == "bonferroni-sequential" else -np.expm1(np.log1p(-alpha) / left)


def adjust_p(p: np.ndarray, adjust: str) -> np.ndarray:
    """Adjusted p values; one that is missing stays missing and does not count."""
    p = np.asarray(p, dtype=float)
    if adjust == "none":
        return p
    order = [i for i in np.argsort(p, kind="stable") if not np.isnan(p[i])]
    left = len(order) - np.arange(len(order))
    with np.errstate(divide="ignore"):
        single = (
            np.minimum(1, left * p[order])
            if adjust == "bonferroni-sequential"
            else -np.expm1(left * np.log1p(-p[order]))
        )
    out = p.copy()
    out[order] = np.maximum.accumulate(single) if order else []
    return out
