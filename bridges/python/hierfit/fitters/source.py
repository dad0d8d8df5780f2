"""The data of a fit, its design and its target, as the model of statsmodels holds them."""

from __future__ import annotations

import ast
from dataclasses import dataclass
from typing import Any

import numpy as np

from ..bridge.design import Design, check_design, design_of_columns, design_of_formula, fields_of_design
from ..bridge.fields import Field, field_of_column, level_of_name, level_text, texts_of_levels
from ..bridge.model import Coefficients, Criteria, Distribution, Fitted, Target
from ..bridge.variables import describe, operands


@dataclass(slots=True)
class Source:
    """`frame` has the records that were used; there is none where the model was made of arrays."""

    model: Any
    frame: Any
    design: Design

    @property
    def n(self) -> int:
        return len(self.model.endog)


def source_of(model: Any, has_thresholds: bool = False) -> Source:
    data = model.data
    info, frame = getattr(data, "design_info", None), getattr(data, "frame", None)
    # remove_data() of a fit leaves some of them.
    held = [getattr(model, "endog", None), getattr(data, "orig_exog", None) if info is None else frame]
    if any(part is None for part in held) and not (has_thresholds and info is None):
        raise ValueError("The fit does not hold its data any more; fit the model again, and keep them.")
    if info is None:
        return _source_of_columns(model, has_thresholds)
    left_out = getattr(data, "missing_row_idx", None)
    if left_out is not None and len(left_out):
        frame = frame.iloc[np.setdiff1d(np.arange(len(frame)), left_out)]
    if len(frame) != len(model.endog):
        raise ValueError(
            f"The fit used {len(model.endog)} records of {len(frame)}, and does not say which; leave out records with "
            "missing values before fitting."
        )
    design = design_of_formula(info, frame, has_thresholds)
    check_design(design, np.asarray(model.exog, dtype=float)[:, : design.size])
    return Source(model, frame, design)


def _source_of_columns(model: Any, has_thresholds: bool) -> Source:
    exog = getattr(model.data, "orig_exog", None)
    if exog is None or not hasattr(exog, "columns"):
        raise ValueError(
            "The model was made of arrays without names, so its terms cannot be told; use a formula, or a data "
            "frame for exog."
        )
    values = np.asarray(model.exog, dtype=float)
    names = [str(name) for name in exog.columns]
    design = design_of_columns(names, values, getattr(model.data, "const_idx", None), has_thresholds)
    check_design(design, values)
    return Source(model, None, design)


# Target


def _left_side(model: Any) -> list[Any]:
    """The factors on a formula's left side; none for a model that was made of columns."""
    formula = getattr(model, "formula", None)
    if not isinstance(formula, str):
        return []
    import patsy

    return [factor for term in patsy.ModelDesc.from_formula(formula).lhs_termlist for factor in term.factors]


def target_name(source: Source) -> str:
    left = _left_side(source.model)
    if left:
        return describe(left[0].name()).field
    names = source.model.endog_names
    return str(names if isinstance(names, str) else names[0])


def plain_target(source: Source) -> Target:
    return Target(Field(target_name(source), np.asarray(source.model.endog, dtype=float)))


def category_target(source: Source, values: np.ndarray, categories: list[Any], is_ordered: bool = False) -> Target:
    name = target_name(source)
    levels = texts_of_levels(name, categories)
    counts = np.bincount(values, minlength=len(levels))
    if (counts == 0).any():
        raise ValueError(
            f"No record has the level {levels[int(np.argmin(counts))]} of the target {name}; drop the level "
            "(remove_unused_categories() of pandas) and fit the model again."
        )
    return Target(Field(name, values.astype(int), levels, is_ordered))


def two_valued_target(source: Source) -> Target:
    """Zeros and ones."""
    values = np.asarray(source.model.endog, dtype=float)
    return Target(Field(target_name(source), (values > 0.5).astype(int), ["0", "1"]))


def binomial_target(source: Source, weights: np.ndarray | None) -> tuple[Target, bool]:
    """The target of a binomial GLM, and whether the weights are its trials."""
    model = source.model
    given = np.asarray(model.data.endog)
    if given.ndim == 2 and given.shape[1] == 2:
        return _two_columns(source, given), False
    values = np.asarray(model.endog, dtype=float)
    if np.isin(values, (0, 1)).all():
        return two_valued_target(source), False
    name = target_name(source)
    if weights is not None:
        events = values * weights
        if np.abs(events - np.round(events)).max() < 1e-6:
            numerator, denominator = operands(name, ast.Div)
            trials = Field(denominator or "trials", weights.astype(float))
            return Target(Field(numerator or name, np.round(events)), trials), True
    raise ValueError(
        f"The target {name} holds shares of trials whose numbers are not known; give events and failures, as in "
        "'events + failures ~ x', or the trials as var_weights."
    )


def _two_columns(source: Source, given: np.ndarray) -> Target:
    """Events and failures; or one text or truth value of two levels, whose first one is the event."""
    left = _left_side(source.model)
    names = source.model.endog_names
    names = ["events", "failures"] if isinstance(names, str) else [str(name) for name in names]
    if len(left) == 1:
        code = left[0].name()
        levels = [level_of_name(name.removeprefix(code + "[").removesuffix("]").removeprefix("T.")) for name in names]
        return Target(Field(describe(code).field, np.argmax(given, axis=1), levels), event=0)
    events, trials = given[:, 0].astype(float), given.sum(axis=1).astype(float)
    fields = [describe(factor.name()).field for factor in left] or names
    whole, part = operands(fields[1], ast.Sub)  # n for events + I(n - events)
    name = whole if whole is not None and part == fields[0] else f"{fields[0]} + {fields[1]}"
    return Target(Field(fields[0], events), Field(name, trials))


# What all fits have


def inference_df(fit: Any) -> float:
    """Degrees of freedom of t tests; infinite where the fit takes the normal distribution."""
    if not getattr(fit, "use_t", False):
        return np.inf
    given = getattr(fit, "df_resid_inference", None)
    return float(given if given is not None else fit.df_resid)


def coefficients_of(fit: Any, columns: slice, df: float) -> Coefficients:
    def figures(name: str) -> np.ndarray:
        return np.asarray(getattr(fit, name), dtype=float)[columns]

    return Coefficients(figures("params"), figures("bse"), figures("tvalues"), figures("pvalues"), df)


def covariance_of(fit: Any, n: int) -> np.ndarray:
    return np.asarray(fit.cov_params(), dtype=float)[:n, :n]


def criteria_of(llf: float, aic: float, bic: float, n: int) -> Criteria:
    """The corrected criterion counts parameters as the fit's own criterion does."""
    if not np.isfinite(llf):
        return Criteria()
    from statsmodels.tools.eval_measures import aicc

    minus2 = -2 * float(llf)
    k = (float(aic) - minus2) / 2
    corrected = float(aicc(llf, n, k)) if np.isfinite(k) and n - k - 1 > 0 else np.nan
    return Criteria(minus2, corrected, float(bic))


def fit_messages(fit: Any, se: np.ndarray, is_ordinal: bool = False) -> list[tuple[str, ...]]:
    """No convergence, and errors that the Hessian does not give."""
    said: list[tuple[str, ...]] = []
    converged = getattr(fit, "converged", None)
    if converged is None:
        converged = (getattr(fit, "mle_retvals", None) or {}).get("converged")
    if converged is not None and not converged:
        said += [("kGLMM_C18",), ("The fit did not converge.",)]
    if not np.isfinite(se).all():
        said += [("kGLMM_C28" if is_ordinal else "kGLMM_C23",), ("The Hessian of the fit is not positive definite.",)]
    return said


def assemble(source: Source, distribution: Distribution, target: Target, **parts: Any) -> Fitted:
    """A fit's figures with its fields: the target first, then the predictors."""
    fields = {target.name: target.of}
    if target.trials is not None:
        fields[target.trials.name] = target.trials
    for name, of in fields_of_design(source.design).items():
        if target.trials is not None and name == target.trials.name and of.levels is None:
            continue
        if name in fields:
            raise ValueError(f"{name} is the target and a predictor as well; give one of them a column of its own.")
        fields[name] = of
    return Fitted(
        distribution=distribution, target=target, design=source.design, fields=fields, frame=source.frame, **parts
    )


def group_field(source: Source, name: str | None, groups: np.ndarray) -> Field:
    """The field of the groups: the column of the data that holds the same values, first that of the name."""
    import pandas

    frame = source.frame
    columns = [] if frame is None else [name, *frame.columns] if name in frame else list(frame.columns)
    found = next((column for column in columns if _same(frame[column], groups)), None)
    column = pandas.Series(groups) if found is None else frame[found]
    field = field_of_column(str(found or name or "Group"), column, True)
    if (field.values < 0).any():
        raise ValueError(f"The groups {field.name} have missing values; leave these records out before fitting.")
    return field


def _same(column: Any, groups: np.ndarray) -> bool:
    values = column.to_numpy()
    return len(values) == len(groups) and all(level_text(a) == level_text(b) for a, b in zip(values, groups))
