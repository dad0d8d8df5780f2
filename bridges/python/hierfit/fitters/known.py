"""Which fits are known."""

from __future__ import annotations

from collections.abc import Callable
from typing import Any

from ..bridge.model import Fitted
from ..needs import need
from .discrete import fitted_count, fitted_logit, fitted_multinomial
from .linear import fitted_gee, fitted_glm, fitted_ols
from .mixed import fitted_mixed
from .ordered import fitted_ordered

# By the class of the results, since variants of a fit, such as regularized ones, have classes of their own.
KNOWN: dict[str, tuple[str, Callable[[Any, float], Fitted]]] = {
    "MixedLMResults": ("MixedLM", fitted_mixed),
    "GLMResults": ("GLM", fitted_glm),
    "OLSResults": ("OLS", fitted_ols),
    "LogitResults": ("Logit", fitted_logit),
    "PoissonResults": ("Poisson", fitted_count),
    "NegativeBinomialResults": ("NegativeBinomial", fitted_count),
    "MultinomialResults": ("MNLogit", fitted_multinomial),
    "OrderedResults": ("OrderedModel", fitted_ordered),
    "GEEResults": ("GEE", fitted_gee),
}


def fitted_of(fit: Any, level: float) -> Fitted:
    """The figures of a fit; TypeError for a class that is not known."""
    results = getattr(fit, "_results", fit)
    name = type(results).__name__
    model = type(getattr(results, "model", None)).__name__
    known = KNOWN.get(name) if type(results).__module__.startswith("statsmodels.") else None
    if known is None or known[0] != model:
        names = ", ".join(model for model, _ in KNOWN.values())
        hint = " Fit the model first." if hasattr(fit, "fit") and not hasattr(fit, "params") else ""
        raise TypeError(
            f"A fit of class {type(fit).__name__} ({model if model != 'NoneType' else 'no model'}) is not known.{hint} "
            f"Known are results of statsmodels' {names}."
        )
    need("scipy", "A fit of statsmodels")
    if getattr(fit, "constraints", None) is not None:
        raise ValueError("Constraints on coefficients have no place in the documents; fit the model without them.")
    return known[1](fit, level)
