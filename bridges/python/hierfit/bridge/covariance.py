"""Covariance parameters: estimates, errors, tests and limits by the rules that readers expect."""

from __future__ import annotations

import re
from collections.abc import Sequence

import numpy as np

from .design import Row
from .fields import Field, levels_are_numbers
from .model import Parameter, Residual
from .variables import describe


def parameter(
    pattern: str,
    label: str,
    estimate: float,
    se: float,
    level: float,
    scale: str = "log",
    arguments: tuple[str, ...] = (),
) -> Parameter:
    """Limits stand on the log scale for variances, on Fisher's for correlations ("fisher"), or as they are ("none")."""
    from scipy import stats

    out = Parameter(pattern, label, float(estimate), arguments=arguments)
    if not (np.isfinite(se) and se > 0):
        return out
    reach = stats.norm.isf((1 - level) / 2) * se
    if scale == "log":
        if estimate <= 0:
            return out
        limits = estimate * np.exp([-reach / estimate, reach / estimate])
    elif scale == "fisher":
        limits = np.tanh(np.arctanh(estimate) + np.array([-1, 1]) * reach / (1 - estimate**2))
    else:
        limits = np.array([estimate - reach, estimate + reach])
    out.se, out.lower, out.upper = float(se), float(limits[0]), float(limits[1])
    out.z = out.estimate / out.se
    out.p = float(2 * stats.norm.sf(abs(out.z)))
    return out


def scale_of_residual(estimate: float, se: float, level: float, structure: str = "ID") -> Residual:
    return Residual(structure, [parameter("Variance ", "Residual", estimate, se, level)])


def fixed_scale() -> Residual:
    return Residual("VC", [Parameter("Variance ", "Residual", 1.0)], is_fixed=True)


def block_parameters(
    matrix: np.ndarray, errors: np.ndarray, structure: str, rows: Sequence[Row], level: float
) -> list[Parameter]:
    """The parameters of a block from its matrix and the errors of the matrix's entries."""
    if structure != "UNSTRUCTURED":
        # Variances have their effect's name, or that of their row where an effect has several.
        effects = [(*row.covariates, *(name for name, _, _ in row.factors)) for row in rows]
        by_effect = len(set(effects)) == len(effects)
        return [
            parameter(
                "VarOfEffect" if by_effect else "Var(^1)",
                f"Var({row.label})",
                matrix[i, i],
                errors[i, i],
                level,
                arguments=(str(i) if by_effect else row.label,),
            )
            for i, row in enumerate(rows)
        ]
    return [
        parameter(
            "UN (^1,^2)",
            f"UN ({i + 1},{j + 1})",
            matrix[i, j],
            errors[i, j],
            level,
            "log" if i == j else "none",
            (str(i + 1), str(j + 1)),
        )
        for i in range(len(matrix))
        for j in range(i + 1)
    ]


_LEVEL = re.compile(r"(.*)\[(?:T\.)?(.*)\]", re.DOTALL)


def block_row(column: str, group: str, is_constant: bool, fields: dict[str, Field]) -> Row:
    """A column of a block's design: the intercept, a covariate, or a factor's level."""
    if is_constant and column in (group, "Intercept"):
        return Row("Intercept", is_intercept=True)
    found = _LEVEL.fullmatch(column)
    if found:
        name = describe(found[1]).field
        of = fields.get(name)
        if of is not None and of.levels and found[2] in _spellings(of.levels):
            level = _spellings(of.levels)[found[2]]
            return Row(f"[{name}={level}]", factors=[(name, level, False)])
    name = describe(column).field
    return Row(name, covariates={name: 1})


def _spellings(levels: Sequence[str]) -> dict[str, str]:
    """Levels by what columns are called, in which 1 may be 1.0."""
    out = {level: level for level in levels}
    if levels_are_numbers(list(levels)):
        out.update({repr(float(level)): level for level in levels})
    return out
