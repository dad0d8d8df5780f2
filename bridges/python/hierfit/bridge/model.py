"""What is known of a fit, whatever its fitter: the plain figures that the documents are written from."""

from __future__ import annotations

from collections.abc import Callable
from dataclasses import dataclass, field
from typing import Any

import numpy as np

from .design import Design, Row
from .fields import Field


@dataclass(frozen=True, slots=True)
class Distribution:
    """`kind` and `link` are the documents' words; `has_scale` says whether a scale is estimated."""

    kind: str
    link: str
    power: float | None = None
    has_scale: bool = False

    @property
    def is_categorical(self) -> bool:
        return self.kind in ("BINOMIAL", "ORDINAL", "NOMINAL")

    @property
    def has_categories(self) -> bool:
        return self.kind in ("ORDINAL", "NOMINAL")

    @property
    def is_exponentiated(self) -> bool:
        return self.link in ("LOGIT", "LOG") and self.kind != "NORMAL"


@dataclass(slots=True)
class Target:
    """`of` is the field of the target: numbers, categories, or events where there are `trials`. `event` is the index
    of the category whose probability a binomial fit models."""

    of: Field
    trials: Field | None = None
    event: int = 1

    @property
    def name(self) -> str:
        return self.of.name


@dataclass(slots=True)
class Coefficients:
    """One entry a column of the design. `df` is infinite where the fitter takes the normal distribution."""

    estimate: np.ndarray
    se: np.ndarray
    stat: np.ndarray
    p: np.ndarray
    df: float


@dataclass(slots=True)
class Thresholds:
    levels: list[str]
    figures: Coefficients


@dataclass(slots=True)
class Parameter:
    """A covariance parameter; a figure that there is not is NaN."""

    pattern: str
    label: str
    estimate: float
    se: float = np.nan
    lower: float = np.nan
    upper: float = np.nan
    z: float = np.nan
    p: float = np.nan
    arguments: tuple[str, ...] = ()


@dataclass(slots=True)
class Subject:
    """Fields with the level at which each stands, the innermost first."""

    fields: list[str]
    levels: list[int]


@dataclass(slots=True)
class Block:
    """One block of random effects."""

    subject: Subject
    rows: list[Row]
    structure: str
    matrix: np.ndarray
    parameters: list[Parameter]

    @property
    def has_intercept(self) -> bool:
        return any(row.is_intercept for row in self.rows)

    @property
    def effects(self) -> list[list[str]]:
        found = ([*row.covariates, *(name for name, _, _ in row.factors)] for row in self.rows if not row.is_intercept)
        return [list(fields) for fields in dict.fromkeys(tuple(fields) for fields in found)]


@dataclass(slots=True)
class Residual:
    structure: str
    parameters: list[Parameter]
    is_fixed: bool = False
    subject: Subject | None = None


@dataclass(slots=True)
class Criteria:
    minus2: float = np.nan
    aicc: float = np.nan
    bic: float = np.nan
    dispersion: float | None = None


@dataclass(slots=True)
class Fitted:
    """A fit. `beta` and `covariance` go over the design's columns; of a nominal target over those of all categories,
    one category after the other. `inverse_link` gives the mean and its derivative; for a target of several categories
    `probabilities` gives, for rows of the design, theirs, and their gradients over the parameters that
    `probability_covariance` belongs to."""

    distribution: Distribution
    target: Target
    design: Design
    beta: np.ndarray
    covariance: np.ndarray
    coefficients: Coefficients
    residual: Residual
    criteria: Criteria
    predicted: np.ndarray | None
    fields: dict[str, Field]
    frame: Any = None
    blocks: list[Block] = field(default_factory=list)
    thresholds: Thresholds | None = None
    categories: list[tuple[str, Coefficients]] = field(default_factory=list)
    messages: list[tuple[str, ...]] = field(default_factory=list)
    told: list[str] = field(default_factory=list)
    offset: float = 0.0
    probabilities: Callable[[np.ndarray], tuple[np.ndarray, np.ndarray]] | None = None
    probability_covariance: np.ndarray = field(default_factory=lambda: np.zeros((0, 0)))
    inverse_link: Callable[[np.ndarray], tuple[np.ndarray, np.ndarray]] = lambda eta: (eta, np.ones_like(eta))

    @property
    def df(self) -> float:
        return self.coefficients.df
