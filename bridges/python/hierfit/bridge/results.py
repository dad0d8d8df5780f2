"""The document of the results."""

from __future__ import annotations

import itertools
from collections.abc import Callable, Iterable, Sequence

import numpy as np

from .adjust import ADJUSTMENTS
from .design import Row, effect_node, parameter_node
from .grid import Test, all_effects, effect_tests
from .means import MeansWriter
from .model import Block, Coefficients, Fitted, Parameter
from .requests import Options, Request, request_node
from .subjects import Subjects, first_subject_node, random_columns, subjects_of
from .target import classification_node, classification_of, distribution_node, predicted_node
from .xml import Node, f_test, flag_text, message, node, number_text, real_array, segment, statistic, value_list

MANY_REQUESTS = 20

Counter = Callable[[], str]


def results_document(fitted: Fitted, requests: Sequence[Request], options: Options) -> Node:
    subjects = subjects_of(fitted)
    names = _names_of_rows(fitted.blocks)
    return node(
        "StatXML",
        None,
        _settings(fitted, requests, options, subjects),
        node(
            "PMMLModel",
            None,
            node("PredictiveSummary", {"algorithmName": "GLMM"}),
            _string_map(names),
            _diagnostics(fitted, requests, options, subjects, names),
            _training(fitted, requests, options),
        ),
    )


# Settings


def _setting(name: str, value: str | None = None, *children: Node | None) -> Node:
    return node("Parameter", {"name": name, "value": value}, children)


def _settings(fitted: Fitted, requests: Sequence[Request], options: Options, subjects: Subjects) -> Node:
    target, distribution, residual = fitted.target, fitted.distribution, fitted.residual
    subject = None
    if residual.subject is not None:
        subject = effect_node(residual.subject.fields, residual.subject.levels)
    elif distribution.has_scale and subjects.common:
        subject = effect_node(subjects.common)
    effects = [effect_node(effect.fields, effect.levels) for effect in fitted.design.effects]
    return node(
        "BuildSettings",
        None,
        _setting("TargetField", target.name),
        _setting("UseTrials", flag_text(target.trials)),
        _setting("TrialsField", target.trials.name) if target.trials is not None else None,
        _setting("DistributionOfTarget", distribution.kind),
        _setting("LinkFunctionType", distribution.link),
        _setting("LinkFunctionParam", number_text(distribution.power)),
        _setting("Intercept", flag_text(fitted.design.has_intercept)),
        _setting("ResidualCovarianceType", residual.structure) if residual.structure else None,
        _setting("ResidualCovarianceTBand", ""),
        _setting("ResidualSubjectSpec", None, subject),
        _setting("ResidualGroupSpec", None, value_list([])),
        _setting("CIn", number_text(options.level)),
        _setting("FixedEffectList", None, node("ListValue", None, effects)),
        _setting("RandomSpecs", None, node("ListValue", None, map(_random_spec, fitted.blocks)))
        if fitted.blocks
        else None,
        _setting("EMMEANS", None, node("ListValue", None, [request_node(r, effect_node(r.fields)) for r in requests]))
        if requests
        else None,
        _setting("pAdjustment", ADJUSTMENTS[options.adjust]),
    )


def _random_spec(block: Block) -> Node:
    def attribute(name: str, value: str | None, *children: Node | None) -> Node:
        return node("Attribute", {"name": name, "value": value}, children)

    subject = effect_node(block.subject.fields, block.subject.levels) if block.subject.fields else None
    return node(
        "StructuredValue",
        None,
        attribute("EffectList", None, node("ListValue", None, map(effect_node, block.effects))),
        attribute("Intercept", flag_text(block.has_intercept)),
        attribute("SubjectSpec", None, subject),
        attribute("GroupSpec", None, value_list([])),
        attribute("CovarianceType", block.structure),
        attribute("CovarianceTBand", ""),
    )


# Names of terms


def _names_of_rows(blocks: Iterable[Block]) -> dict[str, tuple[str, Row]]:
    """Rows of all blocks' matrices, each once, by label: their names P1, P2, ..."""
    out: dict[str, tuple[str, Row]] = {}
    for row in itertools.chain([Row("Intercept", is_intercept=True)], *(block.rows for block in blocks)):
        out.setdefault(row.label, (f"P{len(out) + 1}", row))
    return out


def _string_map(names: dict[str, tuple[str, Row]]) -> Node:
    return node(
        "StringMap",
        {"mapId": 1},
        [node("MapEntry", {"name": name}, node("Label", None, parameter_node(row))) for name, row in names.values()],
    )


# The fit as a whole


def _diagnostics(
    fitted: Fitted, requests: Sequence[Request], options: Options, subjects: Subjects, names: dict[str, tuple[str, Row]]
) -> Node:
    tests, untested = effect_tests(fitted)
    fitted.told += [f"a test of {name}" for name in untested]
    is_categorical = fitted.distribution.is_categorical
    table, accuracy = None, None
    if is_categorical and fitted.predicted is not None:
        counts, labels = classification_of(fitted.target, fitted.predicted)
        table = classification_node(counts, labels)
        accuracy = float(np.trace(counts) / counts.sum()) if counts.sum() else np.nan
    writer = MeansWriter(fitted, options)
    has_mean = not fitted.distribution.has_categories
    top = writer.top(tests) if has_mean else []
    blocks = [writer.block(request, index) for index, request in enumerate(requests)]
    grand = writer.grand_mean() if requests and has_mean else []
    return node(
        "ModelDiagnostics",
        None,
        _statistics(fitted, accuracy, subjects),
        grand,
        distribution_node(fitted.target, fitted.distribution),
        None if is_categorical else predicted_node(fitted.target, fitted.predicted),
        _test("correctedModel", "", "", all_effects(fitted)),
        [_test("fixedEffect", str(i), "III", test) for i, test in enumerate(tests)],
        first_subject_node(fitted, subjects),
        [_random_covariance(block, i + 1, names) for i, block in enumerate(fitted.blocks)],
        table,
        top,
        blocks,
    )


def _statistics(fitted: Fitted, accuracy: float | None, subjects: Subjects) -> list[Node]:
    criteria = fitted.criteria
    thresholds = len(fitted.thresholds.levels) if fitted.thresholds else 0
    out = [
        statistic("minus2LogLikelihood", criteria.minus2),
        statistic("AICC", criteria.aicc),
        statistic("BIC", criteria.bic),
    ]
    if accuracy is not None:
        out.append(statistic("classificationAccuracy", accuracy))
    if criteria.dispersion is not None:
        out.append(statistic("negBinDispersion", criteria.dispersion))
    return out + [
        statistic("numOfCovParamOfRepeated", 0 if fitted.residual.is_fixed else len(fitted.residual.parameters)),
        statistic("numOfCovParamOfRandom", sum(len(block.parameters) for block in fitted.blocks)),
        statistic("numOfColsOfFixed", len(fitted.design.rows) + thresholds),
        statistic("numOfColsOfRandom", random_columns(fitted, subjects)),
        statistic("numOfCommonSubjects", subjects.count),
    ]


def _test(description: str, number: str, kind: str, test: Test) -> Node:
    return node(
        "ModelTestStats",
        {"description": description, "testID": number, "testType": kind},
        f_test(test.f, test.df1, test.df2, test.p),
    )


def _random_covariance(block: Block, number: int, names: dict[str, tuple[str, Row]]) -> Node:
    n = len(block.matrix)
    labels = [
        node("Label", None, node("PrintableList", {"pattern": names[row.label][0], "mapId": 1})) for row in block.rows
    ]
    if block.structure == "UNSTRUCTURED":
        kind, figures = "symmetric", [block.matrix[i, j] for i in range(n) for j in range(i + 1)]
    else:
        kind, figures = "diagonal", list(np.diag(block.matrix))
    return node(
        "StructuredData",
        {"description": "randomEffectCovariances"},
        statistic("randomEffectBlock", number),
        node("MatrixLabels", None, node("RowColLabels", None, labels)),
        node("SegmentData", None, segment([]), node("Matrix", {"nbRows": n, "kind": kind}, real_array(figures))),
    )


# Parameters


def _training(fitted: Fitted, requests: Sequence[Request], options: Options) -> Node:
    numbers = itertools.count(1)

    def counter() -> str:
        return f"P{next(numbers):07d}"

    many = [("kGLMM_C24",)] if len(requests) >= MANY_REQUESTS else []
    return node(
        "TrainingSummary",
        None,
        _fixed(fitted, options, counter),
        node(
            "ParameterEstimates",
            {"parameterType": "repeated"},
            [_covariance_parameter(p, counter) for p in fitted.residual.parameters],
        ),
        [
            node(
                "ParameterEstimates",
                {"parameterType": "random", "block": index},
                [_covariance_parameter(p, counter) for p in block.parameters],
            )
            for index, block in enumerate(fitted.blocks)
        ],
        [message(*text) for text in [*fitted.messages, *many]],
    )


def _parameter_attributes(
    counter: Counter,
    label: str,
    *,
    estimate: float = np.nan,
    se: float = np.nan,
    df: float = np.nan,
    lower: float = np.nan,
    upper: float = np.nan,
    t: float = np.nan,
    z: float = np.nan,
    p: float = np.nan,
    exponentiated: tuple[float, ...] = (np.nan,) * 3,
    is_redundant: bool = False,
) -> dict[str, str]:
    figures = {
        "estimate": estimate,
        "stdError": se,
        "df": df,
        "confIntervalLower": lower,
        "confIntervalUpper": upper,
        "tTest": t,
        "zTest": z,
        "sig": p,
        "chiSquare": np.nan,
    }
    figures.update(zip(("expEstimate", "expCILower", "expCIUpper"), exponentiated))
    return {
        "paramName": counter(),
        "paramLabel": label,
        **{name: number_text(value) for name, value in figures.items()},
        "isRedundant": flag_text(is_redundant),
    }


def _fixed(fitted: Fitted, options: Options, counter: Counter) -> list[Node]:
    if not fitted.categories:
        return _coefficient_group(fitted, fitted.coefficients, options, counter, None)
    return [
        group
        for category, figures in fitted.categories
        for group in _coefficient_group(fitted, figures, options, counter, segment([(fitted.target.name, category)]))
    ]


def _coefficient_group(
    fitted: Fitted, figures: Coefficients, options: Options, counter: Counter, where: Node | None
) -> list[Node]:
    """One set of coefficients: thresholds first where there are any."""
    rows = []
    if fitted.thresholds is not None:
        name = fitted.target.name
        for i, level in enumerate(fitted.thresholds.levels):
            row = Row(f"[{name}={level}]", factors=[(name, level, False)], column=i)
            rows.append(_coefficient(row, fitted.thresholds.figures, fitted, options, counter))
    rows += [_coefficient(row, figures, fitted, options, counter) for row in fitted.design.rows]
    return [node("ParameterEstimates", {"parameterType": "fixed"}, where, rows)] if rows else []


def _coefficient(row: Row, figures: Coefficients, fitted: Fitted, options: Options, counter: Counter) -> Node:
    from scipy import stats

    at = row.column
    if at is None:
        attributes = _parameter_attributes(counter, row.label, estimate=0, is_redundant=True)
    else:
        estimate, se = float(figures.estimate[at]), float(figures.se[at])
        half = float(stats.t.ppf(0.5 + options.level / 2, figures.df)) * se
        exponentiated: tuple[float, ...] = (np.nan,) * 3
        if fitted.distribution.is_exponentiated:
            with np.errstate(over="ignore"):
                exponentiated = tuple(float(x) for x in np.exp([estimate, estimate - half, estimate + half]))
        attributes = _parameter_attributes(
            counter,
            row.label,
            estimate=estimate,
            se=se,
            df=figures.df,
            lower=estimate - half,
            upper=estimate + half,
            t=float(figures.stat[at]),
            p=float(figures.p[at]),
            exponentiated=exponentiated,
        )
    return node(
        "ParameterStats",
        attributes,
        parameter_node(row),
        statistic("fixedEffectIndex", str(row.effect)) if row.effect >= 0 else None,
    )


def _covariance_parameter(of: Parameter, counter: Counter) -> Node:
    attributes = _parameter_attributes(
        counter, of.label, estimate=of.estimate, se=of.se, lower=of.lower, upper=of.upper, z=of.z, p=of.p
    )
    return node(
        "ParameterStats",
        attributes,
        node(
            "PrintableList",
            {"pattern": of.pattern, "isKey": "true"},
            [node("PrintableList", {"pattern": text}) for text in of.arguments],
        ),
    )
