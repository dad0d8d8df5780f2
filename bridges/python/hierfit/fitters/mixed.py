"""MixedLM."""

from __future__ import annotations

import re
from collections.abc import Sequence
from typing import Any

import numpy as np

from ..bridge.covariance import block_parameters, block_row, scale_of_residual
from ..bridge.design import Row
from ..bridge.fields import Field, field_of_column, is_categorical
from ..bridge.model import Block, Coefficients, Criteria, Fitted, Subject
from ..bridge.variables import describe
from .linear import NORMAL, add_group
from .source import Source, assemble, covariance_of, criteria_of, fit_messages, group_field, plain_target, source_of

NO_VARIANCE = 1e-8  # of the residual's, below which a variance counts as zero
SINGULAR = 1e-6


def fitted_mixed(fit: Any, level: float) -> Fitted:
    model = fit.model
    source = source_of(model)
    n = source.design.size

    def figures(name: str) -> np.ndarray:
        return np.asarray(getattr(fit, name), dtype=float)[:n]

    coefficients = Coefficients(figures("fe_params"), figures("bse_fe"), figures("tvalues"), figures("pvalues"), np.inf)
    errors, residual_error = _errors(fit)
    out = assemble(
        source,
        NORMAL,
        plain_target(source),
        beta=figures("fe_params"),
        covariance=covariance_of(fit, n),
        coefficients=coefficients,
        residual=scale_of_residual(fit.scale, residual_error, level),
        criteria=_criteria(fit),
        predicted=_predicted(fit),
        messages=[*_singular(fit), *fit_messages(fit, coefficients.se)],
    )
    _add_blocks(out, fit, source, errors, level)
    return out


def _criteria(fit: Any) -> Criteria:
    """Of a restricted likelihood statsmodels has none; they are made of it as of a full one."""
    minus2, n = -2 * float(fit.llf), int(fit.nobs)
    pattern = fit.freepat
    k = 1 + (np.asarray(fit.params).size if pattern is None else pattern.get_packed(use_sqrt=False, has_fe=True).sum())
    return criteria_of(fit.llf, minus2 + 2 * k, minus2 + k * np.log(n), n)


def _predicted(fit: Any) -> np.ndarray | None:
    """Random effects included; they cannot be predicted where their matrix is singular."""
    try:
        return np.asarray(fit.fittedvalues, dtype=float)
    except (ValueError, np.linalg.LinAlgError):
        return None


def _singular(fit: Any) -> list[tuple[str, ...]]:
    """Variances of zero, or a matrix some combination of whose effects has none."""
    matrix, components = _matrix(fit) / fit.scale, np.asarray(fit.vcomp, dtype=float) / fit.scale
    variances = np.concatenate((np.diag(matrix), components))
    if len(variances) and (variances < NO_VARIANCE).all():
        return [("kGLMM_C8",)]
    roots = np.linalg.eigvalsh(matrix) if len(matrix) else np.zeros(0)
    return [("kGLMM_C10",)] if (np.concatenate((roots, components)) < SINGULAR).any() else []


def _matrix(fit: Any) -> np.ndarray:
    return np.asarray(fit.cov_re, dtype=float).reshape(fit.k_re, fit.k_re)


# Errors


def _errors(fit: Any) -> tuple[np.ndarray, float]:
    """Errors of the covariance parameters, and of the residual variance.

    The fit's own errors belong to the parameters divided by the residual variance, over which its likelihood is
    profiled. With s(t) the residual variance that belongs to ratios t, and V their covariance, the parameter s t has
    the variance s^2 V + 2 s t g'V + t^2 Var(s), where g is the slope of s and Var(s) = g'Vg + 2 s^2 / m, m the
    records or, with a restricted likelihood, these less the coefficients.
    """
    n = fit.k_fe
    ratios = np.asarray(fit.params, dtype=float)[n:]
    covariance = np.asarray(fit.cov_params(), dtype=float)[n:, n:]
    missing = np.full(len(ratios), np.nan), np.nan
    is_free = np.diag(covariance) != 0
    known = covariance[np.ix_(is_free, is_free)]
    if not np.isfinite(known).all() or (len(known) and np.linalg.eigvalsh(known).min() <= 0):
        return missing
    scale = np.float64(fit.scale)
    slope = np.zeros(len(ratios))
    try:
        for k in np.flatnonzero(is_free):
            step = np.zeros(len(ratios))
            step[k] = 1e-5 * max(abs(ratios[k]), 1e-3)
            slope[k] = (_scale_at(fit, ratios + step) - _scale_at(fit, ratios - step)) / (2 * step[k])
    except np.linalg.LinAlgError:
        return missing
    records = fit.nobs - (n if fit.reml else 0)
    shared = covariance @ slope
    with np.errstate(invalid="ignore", over="ignore"):
        of_scale = slope @ shared + 2 * scale**2 / records
        variances = scale**2 * np.diag(covariance) + 2 * scale * ratios * shared + ratios**2 * of_scale
        return np.where(is_free, np.sqrt(variances), np.nan), float(np.sqrt(of_scale))


def _scale_at(fit: Any, ratios: np.ndarray) -> float:
    k = fit.k_re
    matrix = np.zeros((k, k))
    lower = np.tril_indices(k)
    matrix[lower] = ratios[: fit.k_re2]
    matrix = matrix + np.tril(matrix, -1).T
    return float(fit.model.get_scale(np.asarray(fit.fe_params, dtype=float), matrix, ratios[fit.k_re2 :]))


# Blocks


def _add_blocks(out: Fitted, fit: Any, source: Source, errors: np.ndarray, level: float) -> None:
    model = fit.model
    names = [str(name) for name in model.data.exog_re_names] if fit.k_re else []
    named = next((name for name in names if name not in _slopes(model, names) and name != "Intercept"), None)
    groups = group_field(source, named, model.groups)
    group = Subject([groups.name], [0]) if len(groups.levels or []) > 1 else Subject([], [])
    if group.fields:
        add_group(out, groups)
    if fit.k_re:
        out.blocks.append(_group_block(out, fit, source, names, group, errors, level))
    for k, name in enumerate(model.exog_vc.names):
        out.blocks.append(_component_block(out, fit, source, k, str(name), group, errors[fit.k_re2 + k], level))
    counts = {
        id(block): len(set(zip(*(out.fields[f].texts() for f in block.subject.fields)))) if block.subject.fields else 0
        for block in out.blocks
    }
    out.blocks.sort(key=lambda block: counts[id(block)])


def _slopes(model: Any, names: Sequence[str]) -> list[str]:
    """Columns that are not constant."""
    columns = np.asarray(model.exog_re, dtype=float)
    return [name for k, name in enumerate(names) if np.ptp(columns[:, k]) > 0]


def _group_block(
    out: Fitted, fit: Any, source: Source, names: list[str], group: Subject, errors: np.ndarray, level: float
) -> Block:
    columns = np.asarray(fit.model.exog_re, dtype=float)
    _add_fields(out, source, names, columns)
    constant = {name for k, name in enumerate(names) if np.all(columns[:, k] == 1)}
    rows = [block_row(name, name, name in constant, out.fields) for name in names]
    matrix = _matrix(fit)
    spread = np.full_like(matrix, np.nan)
    lower = np.tril_indices(len(matrix))
    spread[lower] = errors[: fit.k_re2]
    pattern = getattr(fit, "freepat", None)
    off_diagonal = ~np.eye(len(matrix), dtype=bool)
    is_diagonal = (
        pattern is not None and not np.asarray(pattern.cov_re)[off_diagonal].any() and not matrix[off_diagonal].any()
    )
    structure = "VC" if len(rows) == 1 else "DIAG" if is_diagonal else "UNSTRUCTURED"
    return Block(group, rows, structure, matrix, block_parameters(matrix, spread, structure, rows, level))


def _add_fields(out: Fitted, source: Source, names: Sequence[str], columns: np.ndarray) -> None:
    """Fields of the random effects that are not in the fixed part."""
    for k, name in enumerate(names):
        if np.all(columns[:, k] == 1):
            continue
        field = describe(name.partition("[")[0]).field
        if field in out.fields:
            continue
        if source.frame is not None and field in source.frame:
            column = source.frame[field]
            out.fields[field] = field_of_column(field, column, is_categorical(column) or "[" in name)
        elif "[" not in name:
            out.fields[field] = Field(field, columns[:, k])
        else:
            raise ValueError(
                f"The random effects of {name} stand on no column of the data; give the factor a column of its own."
            )


_COMPONENT = re.compile(r"(.*?)\[.*\]", re.DOTALL)
_COLON = re.compile(r":(?![^\[]*\])")  # not within a level


def _component_block(
    out: Fitted, fit: Any, source: Source, k: int, name: str, group: Subject, error: float, level: float
) -> Block:
    """A variance component: effects of a factor within the groups, whose own subjects they make; or of a covariate."""
    columns = {str(column) for names in fit.model.exog_vc.colnames[k] for column in names}
    subject, row = group, Row("Intercept", is_intercept=True)
    if columns != {"Intercept"}:
        pieces = [_COLON.split(column) for column in sorted(columns)]
        terms = {tuple(_COMPONENT.sub(r"\1", piece) for piece in column) for column in pieces}
        if len(terms) != 1 or "Intercept" in next(iter(terms)):
            raise ValueError(
                f"The variance component {name} has columns of several kinds ({', '.join(sorted(columns)[:4])}); "
                "write its formula as '0 + C(factor)' or '0 + covariate'."
            )
        factors = {found[1] for column in pieces for piece in column if (found := _COMPONENT.fullmatch(piece))}
        codes = next(iter(terms))
        inner = [describe(code).field for code in codes if code in factors]
        slopes = [describe(code).field for code in codes if code not in factors]
        _add_component_fields(out, source, inner, slopes, name)
        inner = [field for field in inner if field not in group.fields]
        subject = Subject([*inner, *group.fields], [*[0] * len(inner), *[1 if inner else 0] * len(group.fields)])
        if slopes:
            row = Row("*".join(slopes), covariates={field: 1 for field in slopes})
    matrix = np.array([[float(np.asarray(fit.vcomp)[k])]])
    return Block(subject, [row], "VC", matrix, block_parameters(matrix, np.array([[error]]), "VC", [row], level))


def _add_component_fields(
    out: Fitted, source: Source, factors: Sequence[str], slopes: Sequence[str], name: str
) -> None:
    for field in [*factors, *slopes]:
        if field in out.fields and (out.fields[field].levels is None) == (field in slopes):
            continue
        if field in out.fields or source.frame is None or field not in source.frame:
            raise ValueError(
                f"The variance component {name} stands on {field}, which is no column of the data of this kind; "
                "give it a column of its own."
            )
        out.fields[field] = field_of_column(field, source.frame[field], field in factors)
