"""The two documents of a fit."""

from __future__ import annotations

import os
import warnings
from collections.abc import Mapping, Sequence
from dataclasses import dataclass, fields
from inspect import signature
from pathlib import Path
from typing import Any

from ..needs import need


@dataclass(slots=True, kw_only=True)
class Asked:
    """What documents() takes beside a fit, with its defaults."""

    means: Any = None
    contrasts: str | Sequence[str | None] | None = "none"
    reference: Any = None
    adjust: str = "none"
    level: float = 0.95
    at: Mapping[str, Any] | None = None
    labels: Mapping[str, str] | None = None
    value_labels: Mapping[str, Mapping[Any, str]] | None = None
    formats: Mapping[str, str] | None = None


def _asked(options: Mapping[str, Any]) -> Asked:
    known = [of.name for of in fields(Asked)]
    unknown = [name for name in options if name not in known]
    if unknown:
        raise TypeError(f"There is no option {unknown[0]}; there are {', '.join(known)}.")
    return Asked(**options)


def _by_column(what: str, given: Any, kept: Mapping[str, Any]) -> dict[str, Any]:
    """What the call gives, and behind it what the data frame keeps."""
    if given is not None and not isinstance(given, Mapping):
        raise ValueError(f"{what} is a dict by columns of the data; not {given!r}.")
    return {**kept.get(what, {}), **(given or {})}


def documents_of(fit: Any, **options: Any) -> tuple[str, str]:
    """The texts of model.pmml and model.statxml. Options are those of documents()."""
    asked = _asked(options)
    need("statsmodels", "A fitted model")
    need("pandas", "A fitted model")
    from ..fitters import fitted_of
    from .fields import Labels, pmml_document
    from .means import check_requests
    from .requests import options_of, requests_of
    from .results import results_document
    from .xml import document_text

    frame = getattr(getattr(getattr(fit, "model", None), "data", None), "frame", None)
    kept = getattr(frame, "attrs", None) or {}
    labels = Labels(
        _by_column("labels", asked.labels, kept),
        _by_column("value_labels", asked.value_labels, kept),
        _by_column("formats", asked.formats, kept),
    )
    for name, words in labels.values.items():
        if not isinstance(words, Mapping):
            raise ValueError(f"value_labels has a dict for each column, such as {{1: 'yes'}}; {name} has {words!r}.")
    settings = options_of(asked.adjust, asked.level, asked.at, labels)
    fitted = fitted_of(fit, settings.level)
    predictors = [name for effect in fitted.design.effects for name in effect.fields]
    target = [fitted.target.name] if fitted.distribution.has_categories else []
    known = list(dict.fromkeys([*predictors, *fitted.design.raw_numbers(), *target]))
    requests = requests_of(asked.means, asked.contrasts, asked.reference, known)
    check_requests(requests, fitted)
    results = results_document(fitted, requests, settings)
    if fitted.told:
        warnings.warn(
            f"The documents have no place for {', '.join(dict.fromkeys(fitted.told))} of this model; the figures take "
            "account of it.",
            UserWarning,
            stacklevel=3,
        )
    is_regression = not fitted.distribution.is_categorical or fitted.target.trials is not None
    pmml = pmml_document(fitted.fields, fitted.target.name, is_regression, settings.labels)
    return document_text(pmml), document_text(results)


def documents(fit: Any, folder: str | os.PathLike[str], **options: Any) -> Path:
    """Writes model.pmml, which describes the fields, and model.statxml, which holds the results; returns the folder.

    `fit`: results of statsmodels' MixedLM, GLM, OLS, Logit, Poisson, NegativeBinomial, MNLogit, OrderedModel or GEE.
    `means`: blocks of estimated means, such as "A", "A:B", "A | B", which compares levels of A within those of B, or
    a tuple of names; one, or a list. A continuous predictor stands at the values that `at` gives, else at its own
    where they are ten or fewer.
    `contrasts`: "pairwise", "deviation" (from the mean of all levels), "simple" (from `reference`, the last level if
    that is missing) or "none"; one value, or one for each block.
    `adjust`: "none", "bonferroni-sequential" or "sidak-sequential", over the contrasts within one combination of the
    other factors. `level`: of confidence. `at`: values at which continuous predictors are fixed.
    `labels`, `value_labels`, `formats`: by column of the data, what variables and values are called and how values
    are printed ("F8.2"); what they leave out is taken from the data frame's `attrs` of the same names.

    TypeError for a class that is not known, ValueError for a model or a request that cannot be put into the
    documents; what these have no place for is told by warnings.
    """
    from .xml import write_whole

    pmml, statxml = documents_of(fit, **options)
    path = Path(folder)
    path.mkdir(parents=True, exist_ok=True)
    write_whole(path / "model.pmml", pmml.encode())
    write_whole(path / "model.statxml", statxml.encode())
    return path


def _show_options() -> None:
    """Lets help() tell the options with their defaults."""
    own = list(signature(documents).parameters.values())[:-1]
    shown = signature(documents).replace(parameters=[*own, *signature(Asked).parameters.values()])
    documents.__signature__ = shown  # type: ignore[attr-defined]


_show_options()
