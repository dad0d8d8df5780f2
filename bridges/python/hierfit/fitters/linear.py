"""OLS, GLM and GEE."""

from __future__ import annotations

from typing import Any

import numpy as np

from ..bridge.covariance import fixed_scale, parameter, scale_of_residual
from ..bridge.fields import Field
from ..bridge.model import Criteria, Distribution, Fitted, Residual, Subject, Target
from .source import (
    Source,
    assemble,
    binomial_target,
    coefficients_of,
    covariance_of,
    criteria_of,
    fit_messages,
    group_field,
    inference_df,
    plain_target,
    source_of,
)

NORMAL = Distribution("NORMAL", "IDENTITY", None, True)

FAMILIES = {
    "Gaussian": "NORMAL",
    "Binomial": "BINOMIAL",
    "Poisson": "POISSON",
    "Gamma": "GAMMA",
    "InverseGaussian": "IGAUSS",
    "NegativeBinomial": "NEGBIN",
}
FIXED_SCALES = ("BINOMIAL", "POISSON", "NEGBIN")


def fitted_ols(fit: Any, level: float) -> Fitted:
    source = source_of(fit.model)
    n = source.design.size
    return assemble(
        source,
        NORMAL,
        plain_target(source),
        beta=np.asarray(fit.params, dtype=float),
        covariance=covariance_of(fit, n),
        coefficients=coefficients_of(fit, slice(n), inference_df(fit)),
        residual=scale_of_residual(fit.scale, np.nan, level),
        criteria=criteria_of(fit.llf, fit.aic, fit.bic, source.n),
        predicted=np.asarray(fit.fittedvalues, dtype=float),
    )


def fitted_glm(fit: Any, level: float) -> Fitted:
    source = source_of(fit.model)
    family = _family(fit, source)
    residual = scale_of_residual(fit.scale, np.nan, level) if family[0].has_scale else fixed_scale()
    return _assembled(fit, source, family, residual, criteria_of(fit.llf, fit.aic, fit.bic_llf, int(fit.nobs)))


def _assembled(
    fit: Any, source: Source, family: tuple[Distribution, Target, list[str]], residual: Residual, criteria: Criteria
) -> Fitted:
    distribution, target, told = family
    n = source.design.size
    if distribution.kind == "NEGBIN":
        criteria.dispersion = float(fit.model.family.alpha)
    coefficients = coefficients_of(fit, slice(n), inference_df(fit))
    offset, has_offset = _offset(fit.model)
    return assemble(
        source,
        distribution,
        target,
        beta=np.asarray(fit.params, dtype=float),
        covariance=covariance_of(fit, n),
        coefficients=coefficients,
        residual=residual,
        criteria=criteria,
        predicted=np.asarray(fit.fittedvalues, dtype=float),
        messages=fit_messages(fit, coefficients.se),
        told=[*(["an offset"] if has_offset else []), *told],
        offset=offset,
        inverse_link=_inverse_link(fit.model.family.link),
    )


def _offset(model: Any) -> tuple[float, bool]:
    """The mean offset, exposures included, and whether there is one."""
    given = getattr(model, "_offset_exposure", None)
    values = np.asarray(0.0 if given is None else given)
    return float(np.mean(values)), bool(np.any(values != 0))


def _inverse_link(link: Any) -> Any:
    return lambda eta: (np.asarray(link.inverse(eta)), np.asarray(link.inverse_deriv(eta)))


def _family(fit: Any, source: Source) -> tuple[Distribution, Target, list[str]]:
    """Distribution, target, and what the documents have no place for."""
    model = fit.model
    family = type(model.family).__name__
    kind = FAMILIES.get(family)
    if kind is None:
        raise ValueError(f"The family {family} has no name in the documents. Known are: {', '.join(FAMILIES)}.")
    link, power = _link(model.family.link, kind)
    has_scale = kind not in FIXED_SCALES or float(fit.scale) != 1
    weights = _weights(model)
    are_trials = False
    if kind == "BINOMIAL":
        target, are_trials = binomial_target(source, weights)
    else:
        target = plain_target(source)
    told = ["weights"] if weights is not None and not are_trials else []
    if target.trials is None and kind == "BINOMIAL" and target.event == 0:
        told.append(
            f"the modelled level, {(target.of.levels or [])[0]} of {target.name}, statsmodels' choice of the first one,"
        )
    return Distribution(kind, link, power, has_scale), target, told


def _weights(model: Any) -> np.ndarray | None:
    """Weights other than 1. A GLM keeps its working weights under the name that GEE has for those given."""
    product = np.ones(len(model.endog))
    for name in ("weights",) if type(model).__name__ == "GEE" else ("freq_weights", "var_weights"):
        given = getattr(model, name, None)
        if given is not None:
            product = product * np.asarray(given, dtype=float)
    return product if np.any(product != 1) else None


def _link(link: Any, kind: str) -> tuple[str, float | None]:
    from statsmodels.genmod.families import links

    if isinstance(link, links.Power):
        named = {1.0: ("IDENTITY", None), 0.0: ("LOG", None)}
        return named.get(float(link.power), ("POWER", float(link.power)))
    name = type(link).__name__.lower()
    known = {
        "log": "LOG",
        "logit": "LOGIT",
        "probit": "PROBIT",
        "cloglog": "CLOGLOG",
        "loglog": "NLOGLOG",
        "logc": "LOGC",
    }
    if name not in known:
        raise ValueError(
            f"The link {type(link).__name__} has no name in the documents for the distribution {kind}. Known are: "
            "identity, log, logit, probit, cloglog, loglog, and powers."
        )
    return known[name], None


# GEE


def fitted_gee(fit: Any, level: float) -> Fitted:
    source = source_of(fit.model)
    distribution, target, told = _family(fit, source)
    name = getattr(fit.model, "_groups_name", None)
    groups = group_field(source, None if name in ("Groups", "groups") else name, fit.model.groups)
    residual, unnamed = _working_correlation(fit, distribution, Subject([groups.name], [0]), level)
    out = _assembled(fit, source, (distribution, target, [*told, *unnamed]), residual, Criteria())
    add_group(out, groups)
    return out


def add_group(fitted: Fitted, groups: Field) -> None:
    """The field of the subjects, which may be a predictor as well."""
    before = fitted.fields.get(groups.name)
    if before is None:
        fitted.fields[groups.name] = groups
    elif before.levels is None:
        raise ValueError(
            f"{groups.name} is a continuous predictor and tells groups apart as well; give one of them a column of "
            "its own."
        )


def _working_correlation(
    fit: Any, distribution: Distribution, subject: Subject, level: float
) -> tuple[Residual, list[str]]:
    structure = fit.model.cov_struct
    name = type(structure).__name__
    scale = float(fit.scale)
    if name == "Exchangeable":
        rho = float(structure.dep_params)
        parameters = [
            parameter("CS diagonal offset", "CS diagonal offset", scale * (1 - rho), np.nan, level),
            parameter("CS covariance", "CS covariance", scale * rho, np.nan, level, "none"),
        ]
        return Residual("CS", parameters, subject=subject), []
    if name == "Autoregressive":
        parameters = [
            parameter("AR1 diagonal", "AR1 diagonal", scale, np.nan, level),
            parameter("AR1 rho", "AR1 rho", float(structure.dep_params), np.nan, level, "fisher"),
        ]
        return Residual("AR1", parameters, subject=subject), []
    residual = scale_of_residual(scale, np.nan, level) if distribution.has_scale else fixed_scale()
    residual.subject = subject
    if name != "Independence":
        residual.structure = ""
    return residual, [] if name == "Independence" else [f"a working correlation of class {name}"]
