"""OrderedModel."""

from __future__ import annotations

from functools import partial
from typing import Any

import numpy as np

from ..bridge.covariance import fixed_scale
from ..bridge.model import Coefficients, Distribution, Fitted, Thresholds
from .source import (
    assemble,
    category_target,
    coefficients_of,
    covariance_of,
    criteria_of,
    fit_messages,
    inference_df,
    source_of,
)

LINKS = {"logistic": "LOGIT", "norm": "PROBIT", "cauchy": "CAUCHIT", "gumbel_l": "CLOGLOG", "gumbel_r": "NLOGLOG"}


def fitted_ordered(fit: Any, level: float) -> Fitted:
    model = fit.model
    link = LINKS.get(getattr(model.distr, "name", ""))
    if link is None:
        raise ValueError(
            f"The distribution {getattr(model.distr, 'name', model.distr)} has no name in the documents. Known are: "
            f"logit, probit, and of scipy.stats {', '.join(LINKS)}."
        )
    source = source_of(model, has_thresholds=True)
    n = source.design.size
    target = category_target(source, np.asarray(model.endog, dtype=int), list(model.labels), is_ordered=True)
    df = inference_df(fit)
    coefficients = coefficients_of(fit, slice(n), df)
    given = getattr(model, "offset", None)
    offsets = np.asarray(0.0 if given is None else given, dtype=float)
    offset = float(offsets.mean())
    told = ["an offset"] if np.any(offsets != 0) else []
    return assemble(
        source,
        Distribution("ORDINAL", link),
        target,
        beta=np.asarray(fit.params, dtype=float)[:n],
        covariance=covariance_of(fit, n),
        coefficients=coefficients,
        thresholds=Thresholds((target.of.levels or [])[:-1], _thresholds(fit, n, df)),
        probabilities=partial(_probabilities, fit, offset),
        probability_covariance=np.asarray(fit.cov_params(), dtype=float),
        residual=fixed_scale(),
        criteria=criteria_of(fit.llf, fit.aic, fit.bic, source.n),
        predicted=np.asarray(fit.predict(), dtype=float),
        messages=fit_messages(fit, np.asarray(fit.bse, dtype=float), is_ordinal=True),
        told=told,
    )


def _threshold_slopes(params: np.ndarray) -> np.ndarray:
    """Of the thresholds over the fit's parameters, which are the first one and the logs of the steps to the next."""
    return np.tril(np.tile(np.concatenate(([1.0], np.exp(params[1:]))), (len(params), 1)))


def _thresholds_of(fit: Any) -> np.ndarray:
    return np.asarray(fit.model.transform_threshold_params(np.asarray(fit.params, dtype=float)))[1:-1]


def _thresholds(fit: Any, n: int, df: float) -> Coefficients:
    """Errors by the delta method."""
    from scipy import stats

    gradient = _threshold_slopes(np.asarray(fit.params, dtype=float)[n:])
    covariance = np.asarray(fit.cov_params(), dtype=float)[n:, n:]
    estimate = _thresholds_of(fit)
    with np.errstate(invalid="ignore"):
        se = np.sqrt(np.einsum("ij,jk,ik->i", gradient, covariance, gradient))
    stat = estimate / se
    return Coefficients(estimate, se, stat, 2 * stats.t.sf(np.abs(stat), df), df)


def _probabilities(fit: Any, offset: float, l: np.ndarray) -> tuple[np.ndarray, np.ndarray]:
    """Of the categories at rows of the design, and their gradients over all parameters of the fit."""
    params = np.asarray(fit.params, dtype=float)
    n = l.shape[1]
    z = _thresholds_of(fit)[None, :] - (l @ params[:n] + offset)[:, None]
    below, density = fit.model.cdf(z), fit.model.pdf(z)
    # Gradients of what lies below each threshold: over the coefficients, then over the thresholds' parameters.
    of_coefficients = -density[:, :, None] * l[:, None, :]
    of_thresholds = density[:, :, None] * _threshold_slopes(params[n:])[None]
    slopes = np.concatenate((of_coefficients, of_thresholds), axis=2)
    ends = np.zeros((len(l), 1))
    p = np.diff(np.concatenate((ends, below, ends + 1), axis=1), axis=1)
    flat = np.zeros((len(l), 1, slopes.shape[2]))
    return p, np.diff(np.concatenate((flat, slopes, flat), axis=1), axis=1)
