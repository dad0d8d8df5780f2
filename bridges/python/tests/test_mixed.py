"""Random effects, their errors, subjects, and what is said of fits that went wrong."""

import re
import warnings

import numpy as np
import pandas as pd
import pytest
import statsmodels.api as sm
import statsmodels.formula.api as smf
from statsmodels.regression.mixed_linear_model import MixedLMParams
from statsmodels.tools.numdiff import approx_hess

import hierfit
from conftest import INTERVAL, same
from hierfit.bridge.documents import documents_of


def mixed(formula, data, reml=True, fit=None, **options):
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        return smf.mixedlm(formula, data, **options).fit(reml=reml, **(fit or {}))


def texts(fit, **options):
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        return documents_of(fit, **options)


def full_likelihood(fit, values):
    """Of the covariance parameters and the residual variance themselves, up to a constant: by V = Z G Z' + s I."""
    model, k = fit.model, fit.k_re
    g = np.zeros((k, k))
    g[np.tril_indices(k)] = values[: fit.k_re2]
    g = g + np.tril(g, -1).T
    cross, right, total, pieces = 0.0, 0.0, 0.0, []
    for i, (x, y) in enumerate(zip(model.exog_li, model.endog_li)):
        v = values[-1] * np.eye(len(y))
        if k:
            v = v + model.exog_re_li[i] @ g @ model.exog_re_li[i].T
        for variance, mats in zip(values[fit.k_re2 : -1], model.exog_vc.mats):
            v = v + variance * np.asarray(mats[i]) @ np.asarray(mats[i]).T
        inverse = np.linalg.inv(v)
        cross, right = cross + x.T @ inverse @ x, right + x.T @ inverse @ y
        pieces.append((x, y, inverse))
        total += np.linalg.slogdet(v)[1]
    beta = np.linalg.solve(cross, right)
    total += sum((y - x @ beta) @ inverse @ (y - x @ beta) for x, y, inverse in pieces)
    return -0.5 * (total + (np.linalg.slogdet(cross)[1] if fit.reml else 0))


def errors_by_hessian(fit):
    lower = np.asarray(fit.cov_re)[np.tril_indices(fit.k_re)]
    values = np.concatenate((lower, fit.vcomp, [fit.scale]))
    hessian = approx_hess(values, lambda v: full_likelihood(fit, v), 1e-3 * np.maximum(np.abs(values), 0.05))
    return np.sqrt(np.diag(np.linalg.inv(-hessian)))


PARTS = [dict(re_formula="~x"), dict(), dict(vc_formula={"in": '0 + C(Q("in"))'}, re_formula="1")]


@pytest.mark.parametrize("reml", [True, False])
@pytest.mark.parametrize("options", PARTS)
def test_errors_are_those_of_the_likelihood(options, reml, data, chain):
    fit = mixed("y ~ g + x", data, reml, groups="s", **options)
    tables = chain(fit)
    names = [name for name in tables if name.startswith("CovarianceParameters-")]
    table = pd.concat([tables[name] for name in [*names, "ResidualEffect-1"]])
    same(np.sort(table["Std. Error"]), np.sort(errors_by_hessian(fit)), 2e-3)
    given = np.concatenate((np.asarray(fit.cov_re)[np.tril_indices(fit.k_re)], fit.vcomp, [fit.scale]))
    same(np.sort(table["Estimate"]), np.sort(given))
    residual = tables["ResidualEffect-1"]
    reach = 1.959963984540054 * residual["Std. Error"].iloc[0] / fit.scale
    same(residual[INTERVAL], fit.scale * np.exp([-reach, reach]))


def test_the_matrix_of_an_unstructured_block_is_the_fit_s(data, chain):
    fit = mixed("y ~ g", data, groups="s", re_formula="~x")
    tables = chain(fit)
    matrix = tables["RandomEffects-1"]
    assert list(matrix.columns) == ["Intercept", "x"]
    same(matrix, fit.cov_re)
    summary = tables["CovarianceParametersSummary-1"]["Value"]
    same(summary["Common Subjects"], 20)
    same(summary["Design Matrix Columns"], [4, 2])
    structure = tables["DataStructure-1"]
    assert list(structure.columns.get_level_values(1)) == ["s", "y"]
    same(structure.iloc[:10, -1].astype(float), data.y[:10])


# Blocks: formulas, and the subjects, structure and labels that come of them.
BLOCKS = [
    (dict(groups="s", vc_formula={"in": '0 + C(Q("in"))'}, re_formula="1"), ["s", "in(s)"], "VC", 20),
    (dict(groups="s", vc_formula={"late": "0 + x"}, re_formula="1"), ["s", "s"], "VC", 20),
    (dict(groups=np.ones(240), vc_formula={"s": "0 + C(s)", "in": '0 + C(Q("in"))'}), ["in", "s"], "VC", 1),
    (dict(groups="s", re_formula="0 + C(h)"), ["s"], "UNSTRUCTURED", 20),
    (dict(groups="s", re_formula="~np.log(n)"), ["s"], "UNSTRUCTURED", 20),
]


@pytest.mark.parametrize("options, subjects, structure, common", BLOCKS)
def test_blocks_have_their_subjects(options, subjects, structure, common, data, chain):
    fit = mixed("y ~ g", data, **options)
    _, text = texts(fit)
    found = []
    for spec in re.findall(r'<Attribute name="SubjectSpec">(.*?)</StructuredValue>', text, re.DOTALL):
        fields, levels = (re.findall('value="([^"]*)"', part) for part in spec.split('name="NestingLevels"'))
        found.append("".join(f"({field})" if level == "1" else field for field, level in zip(fields, levels)))
    assert found == subjects
    assert re.findall('name="CovarianceType" value="([A-Z0-9]*)"', text) == [structure] * len(subjects)
    assert f'name="numOfCommonSubjects" value="{common}"' in text
    assert sum(name.startswith("RandomEffects") for name in chain(fit)) == len(subjects)


def test_levels_of_components_may_hold_anything(data):
    data = data.assign(inner=data["in"].map({"p": "a:b", "q": "c [d]", "r": 'e"f'}))[(data.s > 0) | (data["in"] == "p")]
    fit = mixed("y ~ g", data, groups="s", re_formula="1", vc_formula={"v": "0 + C(inner)", "w": "0 + C(inner):x"})
    pmml, text = texts(fit)
    assert text.count('<Value value="inner"/>') == 2 and '<Value value="c [d]"/>' in pmml
    assert '<Covariate field="x" power="1"/>' in text
    # The first subject has one level, others three.
    assert 'name="numOfColsOfRandom" value="7"' in text


def test_a_block_without_covariances_is_diagonal(data, chain):
    free = MixedLMParams.from_components(np.ones(3), np.eye(2))
    fit = mixed("y ~ g", data, groups="s", re_formula="~x", fit=dict(free=free, method="bfgs"))
    assert 'name="CovarianceType" value="DIAG"' in texts(fit)[1]
    table = chain(fit)["CovarianceParameters-1"]
    same(table["Estimate"], np.diag(fit.cov_re))
    assert table["Std. Error"].notna().all()
    # Levels of one factor have one effect, and are told by their rows.
    levels = mixed("y ~ g", data, groups="s", re_formula="0 + C(h)", fit=dict(free=free, method="bfgs"))
    assert texts(levels)[1].count('pattern="Var(^1)"') == 2


GROUPS = [
    ("s", dict(groups="s")),
    ("s", dict(groups="s", missing="drop")),
    ("s", dict(groups="s", vc_formula={"x": "0 + x"})),
    ("Group", dict(groups=np.repeat(["one", "two", "<3>"], 80))),
]


@pytest.mark.parametrize("name, options", GROUPS)
def test_groups_have_their_name_where_it_can_be_told(name, options, data):
    pmml, text = texts(mixed("y ~ g", data, **options))
    assert f'<MiningField name="{name}"' in pmml
    assert f'numOfCommonSubjects" value="{3 if name == "Group" else 20}"' in text


def test_a_variance_of_zero_is_said(chain):
    # Groups that are as alike as can be.
    y = np.random.default_rng(3).normal(size=(12, 8))
    y -= y.mean(axis=1, keepdims=True)
    alike = pd.DataFrame({"y": y.ravel(), "s": np.repeat(np.arange(12), 8), "x": np.tile(np.arange(8.0), 12)})
    fit = mixed("y ~ x", alike, groups="s", fit=dict(method="powell"))
    assert 'pattern="kGLMM_C8"' in texts(fit)[1]
    same(chain(fit)["CovarianceParameters-1"]["Estimate"], 0)
    # Stopped on the way there: no convergence, and no errors from a matrix that is not positive definite.
    stopped = mixed("y ~ x", alike, groups="s", fit=dict(method="bfgs"))
    assert 'pattern="kGLMM_C18"' in texts(stopped)[1]
    assert chain(stopped)["CovarianceParameters-1"]["Std. Error"].isna().all()


def test_a_matrix_that_is_singular_is_said(data, chain):
    fit = mixed("y ~ x", data, groups="s", re_formula="~h")
    root = np.array([[0.5], [0.8]])
    fit._results.cov_re = pd.DataFrame(root @ root.T, *[fit.cov_re.index] * 2)
    assert 'pattern="kGLMM_C10"' in texts(fit)[1]


def test_no_convergence_is_said(data):
    _, text = texts(mixed("y ~ g", data, groups="s", re_formula="~x", fit=dict(maxiter=1, method="bfgs")))
    assert 'pattern="kGLMM_C18"' in text and "The fit did not converge." in text
    for most, said in ((1, True), (35, False)):
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            fit = smf.logit("two ~ x", data).fit(disp=0, maxiter=most)
        assert ("kGLMM_C18" in texts(fit)[1]) == said


def test_errors_that_the_hessian_does_not_give_are_missing(data):
    fit = smf.logit("two ~ x", data).fit(disp=0)
    fit._results.normalized_cov_params = np.full((2, 2), np.nan)
    _, text = texts(fit)
    assert "kGLMM_C23" in text and f'estimate="{float(fit.params["x"])!r}" stdError="" df=""' in text


def test_repeated_measures_of_gee_have_subjects(data):
    fit = smf.gee("y ~ g", "s", data, cov_struct=sm.cov_struct.Independence()).fit()
    assert 'name="numOfCommonSubjects" value="20"' in texts(fit)[1]
    with pytest.warns(UserWarning, match="a working correlation of class Stationary"):
        other = smf.gee("y ~ g", "s", data, cov_struct=sm.cov_struct.Stationary(max_lag=1)).fit()
        hierfit.run(other)
