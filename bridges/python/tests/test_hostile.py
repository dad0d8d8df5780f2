"""Frames with names, levels and figures of any kind: either documents that are read without a remark, or an error of
the package's own. HIERFIT_CASES says how many are tried."""

import os
import traceback
import warnings
from pathlib import Path

import numpy as np
import pandas as pd
import pytest
import statsmodels.api as sm
import statsmodels.formula.api as smf

import hierfit
from conftest import check
from hierfit.bridge.fields import level_text

hypothesis = pytest.importorskip("hypothesis")
st = hypothesis.strategies

PACKAGE = str(Path(hierfit.__file__).parent)
# What is markup, a quote, a blank, no character, or of another direction somewhere on the way.
ODD = list(" \t\n\r\"'\\<>&=|%#$~^{}[];,.-_*:")
ODD += list("\x01\x0b\x1f\x7f\x85\xa0é\u0301\u200b\u2028\u202eא\ufeff\ufffe\U0001f600") + [
    "__MISSING__", "]]>", "\\\"", "a", "b", "1", "1.0", "nan", "Intercept", "T", "x" * 300,
]  # fmt: skip
words = st.lists(st.sampled_from(ODD), min_size=1, max_size=4).map("".join)
level_lists = st.one_of(
    st.lists(words, min_size=2, max_size=4, unique=True),
    st.lists(st.one_of(st.integers(-3, 3), st.floats(allow_nan=False, width=32)), min_size=2, max_size=3, unique=True),
    st.just([False, True]),
)
FITS = {
    "ols": lambda formula, data: smf.ols(formula, data).fit(),
    "poisson": lambda formula, data: smf.glm(formula, data, family=sm.families.Poisson()).fit(),
    "logit": lambda formula, data: smf.glm(formula, data, family=sm.families.Binomial()).fit(),
    "mixed": lambda formula, data: smf.mixedlm(formula, data, groups="subject").fit(),
}


@st.composite
def cases(draw):
    """The kind of a fit, its formula, its data, and the factors that means are asked of."""
    kind = draw(st.sampled_from(sorted(FITS)))
    names = draw(st.lists(words, min_size=4, max_size=4, unique=True))
    target, g, h, x = (f"Q({name!r})" for name in names)
    generator = np.random.default_rng(draw(st.integers(0, 99)))
    n = draw(st.sampled_from([12, 40]))
    scale = draw(st.sampled_from([0.0, 1e-300, 1e-6, 1.0, 1e8, 1e150]))
    data = pd.DataFrame({names[3]: scale * generator.normal(2, 1, n), "subject": np.repeat(np.arange(n // 4), 4)})
    for name in names[1:3]:
        levels = draw(level_lists)
        codes = generator.integers(0, len(levels), n)
        how = draw(st.sampled_from(["texts", "categories", "empty level", "holes"]))
        data[name] = pd.Series([levels[code] for code in codes], dtype=object)
        if how == "holes":
            data.loc[draw(st.integers(0, n - 1)), name] = None
        elif how != "texts":
            filled = codes % max(1, len(levels) - (how == "empty level"))
            data[name] = pd.Categorical.from_codes(filled, categories=levels)
    y = generator.normal(0, draw(st.sampled_from([0.0, 1.0, 1e100])), n)
    data[names[0]] = {"poisson": generator.poisson(2, n), "logit": generator.integers(0, 2, n)}.get(kind, y)
    if draw(st.booleans()):
        data.loc[draw(st.integers(0, n - 1)), names[3]] = draw(st.sampled_from([np.nan, np.inf]))
    right = draw(st.sampled_from([f"C({g})", f"C({g}) + {x}", f"C({g}) * C({h})", f"C({g}) * {x}", f"{x}", "1"]))
    return kind, f"{target} ~ {right}", data, [names[1]] if "C(" in right else []


def documents_or_error(fit, folder, **options):
    """The folder, or nothing where the package itself says clearly why there is none."""
    try:
        return hierfit.documents(fit, folder, **options)
    except (ValueError, TypeError, hierfit.HierfitError) as error:
        raised = traceback.extract_tb(error.__traceback__)[-1]
        assert raised.filename.startswith(PACKAGE), f"{error!r} comes from {raised.filename}:{raised.lineno}"
        assert len(str(error)) > 20


def is_finite(fit):
    """Whether the fit has all that a report shows, and neither squares nor exponentials of it are infinite."""
    if not np.all(np.abs(fit.model.endog) < 1e60) or not fit.scale > 0:
        return False
    figures = [fit.pvalues < 1, np.isfinite(fit.params), fit.bse > 0, np.isfinite(fit.bse)]
    if isinstance(fit.model, sm.GLM):
        figures.append(fit.bse < 100)
    return all(np.all(figure) for figure in figures)


@hypothesis.settings(
    max_examples=int(os.environ.get("HIERFIT_CASES", "60")), deadline=None, database=None,
    derandomize="HIERFIT_CASES" not in os.environ, suppress_health_check=list(hypothesis.HealthCheck),
)  # fmt: skip
@hypothesis.given(cases())
def test_any_frame_has_documents_without_remarks_or_a_clear_error(tmp_path_factory, case):
    kind, formula, data, factors = case
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        try:
            fit = FITS[kind](formula, data)
        except Exception:  # noqa: BLE001 - what the fitter refuses is not the package's
            hypothesis.reject()
        folder = tmp_path_factory.getbasetemp() / "hostile"
        made = documents_or_error(fit, folder, means=factors, contrasts="pairwise" if factors else None)
        hypothesis.event("documents" if made else "error")
        if made is None:
            return
        # Of a fit without errors the program remarks what it lacks.
        assert not [said for said in check(made) if is_finite(fit) or "rror" in said and "validity" in said]
        tables = hierfit.run(made).tables
    for name in factors:
        # A text "nan" is none to the fitter.
        levels = {level_text(v) for v in fit.model.data.frame[name] if not pd.isna(v) and v != "nan"}
        assert len(tables["Estimates-1"].frame()) == len(levels)
