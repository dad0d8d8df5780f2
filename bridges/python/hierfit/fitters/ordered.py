"""OrderedModel."""

from __future__ import annotations

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
    told = ["an offset"] if getattr(model, "offset", None) is not None and np.any(np.asarray(model.offset) != 0) else []
    return assemble(
        source,
        Distribution("ORDINAL", link),
        target,
        beta=np.asarray(fit.params, dtype=float)[:n],
        covariance=covariance_of(fit, n),
        coefficients=coefficients,
        thresholds=Thresholds((target.of.levels or [])[:-1], _thresholds(fit, n, df)),
        residual=fixed_scale(),
        criteria=criteria_of(fit.llf, fit.aic, fit.bic, source.n),
        predicted=np.asarray(fit.predict(), dtype=float),
        messages=fit_messages(fit, np.asarray(fit.bse, dtype=float), is_ordinal=True),
        told=told,
    )


def _thresholds(fit: Any, n: int, df: float) -> Coefficients:
    """The fit's parameters are the first threshold and the logs of the steps to the next ones; errors by the delta
    method."""
    from scipy import stats

    params = np.asarray(fit.params, dtype=float)[n:]
    covariance = np.asarray(fit.cov_params(), dtype=float)[n:, n:]
    estimate = np.asarray(fit.model.transform_threshold_params(np.asarray(fit.params, dtype=float)))[1:-1]
    slopes = np.concatenate(([1.0], np.exp(params[1:])))
    gradient = np.tril(np.tile(slopes, (len(params), 1)))
    with np.errstate(invalid="ignore"):
        se = np.sqrt(np.einsum("ij,jk,ik->i", gradient, covariance, gradient))
    stat = estimate / se
    return Coefficients(estimate, se, stat, 2 * stats.t.sf(np.abs(stat), df), df)
