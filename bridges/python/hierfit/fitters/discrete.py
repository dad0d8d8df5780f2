"""Logit, Poisson, NegativeBinomial and MNLogit."""

from __future__ import annotations

from functools import partial
from typing import Any

import numpy as np

from ..bridge.covariance import fixed_scale
from ..bridge.fields import level_of_name
from ..bridge.model import Coefficients, Distribution, Fitted
from .source import (
    assemble,
    category_target,
    coefficients_of,
    covariance_of,
    criteria_of,
    fit_messages,
    inference_df,
    plain_target,
    source_of,
    two_valued_target,
)


def _logistic(eta: np.ndarray) -> tuple[np.ndarray, np.ndarray]:
    from scipy.special import expit

    p = expit(eta)
    return p, p * (1 - p)


def _exponential(eta: np.ndarray) -> tuple[np.ndarray, np.ndarray]:
    mean = np.exp(eta)
    return mean, mean


def fitted_logit(fit: Any, level: float) -> Fitted:
    source = source_of(fit.model)
    values = np.unique(np.asarray(fit.model.endog, dtype=float))
    if not np.isin(values, (0, 1)).all():
        raise ValueError(
            "The target of Logit holds other values than 0 and 1; shares have no place in the documents, fit events "
            "and failures with GLM."
        )
    n = source.design.size
    coefficients = coefficients_of(fit, slice(n), inference_df(fit))
    return assemble(
        source,
        Distribution("BINOMIAL", "LOGIT"),
        two_valued_target(source),
        beta=np.asarray(fit.params, dtype=float),
        covariance=covariance_of(fit, n),
        coefficients=coefficients,
        residual=fixed_scale(),
        criteria=criteria_of(fit.llf, fit.aic, fit.bic, source.n),
        predicted=np.asarray(fit.predict(), dtype=float),
        messages=fit_messages(fit, coefficients.se),
        inverse_link=_logistic,
    )


def fitted_count(fit: Any, level: float) -> Fitted:
    """Poisson and NegativeBinomial, whose dispersion stands behind the coefficients."""
    model = fit.model
    source = source_of(model)
    n = source.design.size
    is_negbin = type(model).__name__ == "NegativeBinomial"
    variant = getattr(model, "loglike_method", "nb2") if is_negbin else "nb2"
    coefficients = coefficients_of(fit, slice(n), inference_df(fit))
    criteria = criteria_of(fit.llf, fit.aic, fit.bic, source.n)
    told = []
    if is_negbin and variant == "nb2":
        criteria.dispersion = float(np.asarray(fit.params)[-1])
    elif is_negbin:
        criteria.dispersion = 1.0 if variant == "geometric" else None
        told += ["a variance that is proportional to the mean"] if variant == "nb1" else []
    offset = np.zeros(source.n)
    for name in ("offset", "exposure"):  # the exposure is kept as its logarithm
        given = getattr(model, name, None)
        if given is not None:
            offset = offset + np.asarray(given, dtype=float)
    told += ["an offset"] if np.any(offset != 0) else []
    return assemble(
        source,
        Distribution("NEGBIN" if is_negbin else "POISSON", "LOG"),
        plain_target(source),
        beta=np.asarray(fit.params, dtype=float)[:n],
        covariance=covariance_of(fit, n),
        coefficients=coefficients,
        residual=fixed_scale(),
        criteria=criteria,
        predicted=np.asarray(fit.predict(), dtype=float),
        messages=fit_messages(fit, np.asarray(fit.bse, dtype=float)),
        told=told,
        offset=float(offset.mean()),
        inverse_link=_exponential,
    )


def fitted_multinomial(fit: Any, level: float) -> Fitted:
    """A set of coefficients for each category but the first."""
    model = fit.model
    source = source_of(model)
    names = [level_of_name(model._ynames_map[k]) for k in sorted(model._ynames_map)]
    target = category_target(source, np.argmax(np.asarray(model.wendog), axis=1), names)
    levels = target.of.levels or []

    def columns(name: str) -> np.ndarray:
        return np.asarray(getattr(fit, name), dtype=float)

    params, se, stat, p = columns("params"), columns("bse"), columns("tvalues"), columns("pvalues")
    df = inference_df(fit)
    categories = [
        (levels[k + 1], Coefficients(params[:, k], se[:, k], stat[:, k], p[:, k], df)) for k in range(params.shape[1])
    ]
    return assemble(
        source,
        Distribution("NOMINAL", "LOGIT"),
        target,
        beta=params.T.ravel(),
        covariance=np.asarray(fit.cov_params(), dtype=float),
        probabilities=partial(_softmax, params),
        probability_covariance=np.asarray(fit.cov_params(), dtype=float),
        coefficients=categories[0][1],
        categories=categories,
        residual=fixed_scale(),
        criteria=criteria_of(fit.llf, fit.aic, fit.bic, source.n),
        predicted=np.asarray(fit.predict(), dtype=float),
        messages=fit_messages(fit, se),
    )


def _softmax(params: np.ndarray, l: np.ndarray) -> tuple[np.ndarray, np.ndarray]:
    """Probabilities of all categories at rows of the design, and their gradients over the coefficients of each category
    but the first, one category after the other."""
    eta = np.column_stack((np.zeros(len(l)), l @ params))
    weights = np.exp(eta - eta.max(axis=1, keepdims=True))
    p = weights / weights.sum(axis=1, keepdims=True)
    slopes = p[:, :, None] * (np.eye(p.shape[1])[None, :, 1:] - p[:, None, 1:])  # by category, over the predictors
    return p, np.einsum("nkj,np->nkjp", slopes, l).reshape(len(l), p.shape[1], -1)
