"""Figures of each class of model in the program's tables are those of its summary."""

import re
import warnings

import numpy as np
import pandas as pd
import pytest
import statsmodels.api as sm
import statsmodels.formula.api as smf
from scipy import stats
from statsmodels.miscmodels.ordinal_model import OrderedModel
from statsmodels.tools.numdiff import approx_fprime

from conftest import INTERVAL, estimated, same
from hierfit.bridge.documents import documents_of

families = sm.families
NO_LIKELIHOOD = ("-2 log likelihood and information criteria in table",)

FITS = {
    "ols": lambda d: smf.ols("y ~ g * h + x", d).fit(),
    "ols robust": lambda d: smf.ols("y ~ g + x", d).fit(cov_type="HC3"),
    "gaussian": lambda d: smf.glm("y ~ g * x", d).fit(),
    "binomial": lambda d: smf.glm("two ~ g + x", d, family=families.Binomial()).fit(),
    "text": lambda d: smf.glm("word ~ g + x", d, family=families.Binomial(families.links.probit())).fit(),
    "trials": lambda d: smf.glm("events + I(n - events) ~ g + x", d, family=families.Binomial()).fit(),
    "trials that predict": lambda d: smf.glm("events + I(n - events) ~ n", d, family=families.Binomial()).fit(),
    "shares": lambda d: smf.glm("I(events / n) ~ g", d, family=families.Binomial(), var_weights=d.n).fit(),
    "poisson": lambda d: smf.glm("count ~ g * h", d, family=families.Poisson()).fit(),
    "quasi": lambda d: smf.glm("count ~ g", d, family=families.Poisson()).fit(scale="X2"),
    "gamma": lambda d: smf.glm("size ~ g + x", d, family=families.Gamma(families.links.log())).fit(),
    "inverse gaussian": lambda d: smf.glm("size ~ g", d, family=families.InverseGaussian()).fit(),
    "negbin": lambda d: smf.glm("count ~ g", d, family=families.NegativeBinomial(alpha=0.5)).fit(),
    "Logit": lambda d: smf.logit("two ~ g + x", d).fit(disp=0),
    "NegativeBinomial": lambda d: smf.negativebinomial("count ~ g + x", d).fit(disp=0),
    "GEE": lambda d: smf.gee(
        "count ~ g + x", "s", d, family=families.Poisson(), cov_struct=sm.cov_struct.Exchangeable()
    ).fit(),
    "GEE normal": lambda d: smf.gee("y ~ g", "s", d, cov_struct=sm.cov_struct.Autoregressive()).fit(),
    "MixedLM": lambda d: smf.mixedlm("y ~ g + x", d, groups="s", re_formula="~x").fit(),
    "MixedLM ML": lambda d: smf.mixedlm("y ~ g * h", d, groups="s").fit(reml=False),
}


def quiet_fit(name, data):
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        return FITS[name](data)


@pytest.mark.parametrize("name", FITS)
def test_coefficients_are_those_of_the_summary(name, data, chain):
    fit = quiet_fit(name, data)
    tables = chain(fit, expected=NO_LIKELIHOOD if name.startswith("GEE") else ())
    n = fit.model.exog.shape[1]
    table = estimated(tables["FixedCoefficients-1"])
    params = fit.fe_params if name.startswith("Mixed") else fit.params[:n]
    same(table["Coefficient"], params)
    same(table["Std. Error"], fit.bse[:n])
    same(table["t"], fit.tvalues[:n])
    same(table["Sig."], fit.pvalues[:n])
    same(table[INTERVAL], fit.conf_int().iloc[:n])
    summary = tables["FixedEffects-1"].iloc[0]
    slopes = np.eye(len(fit.params))[1:n]
    joint = fit.wald_test(slopes, use_f=bool(fit.use_t), scalar=True)
    same([summary.F, summary["Sig."]], [joint.statistic / (1 if fit.use_t else n - 1), joint.pvalue])


@pytest.mark.parametrize("name", ["ols", "binomial", "Logit", "negbin", "gamma", "NegativeBinomial", "MixedLM ML"])
def test_criteria_and_the_scale_are_the_fit_s(name, data, chain):
    fit = quiet_fit(name, data)
    tables = chain(fit)
    values = tables["ModelSummary-1"]["Value"]
    k = fit.aic / 2 + fit.llf
    same(values["Information Criterion", "Akaike Corrected"], fit.aic + 2 * k * (k + 1) / (fit.nobs - k - 1))
    same(values["Information Criterion", "Bayesian"], fit.bic_llf if hasattr(fit, "bic_llf") else fit.bic)
    same(tables["ResidualEffect-1"]["Estimate"], getattr(fit, "scale", 1))


@pytest.mark.parametrize("distr", ["logit", "probit", stats.gumbel_r])
def test_thresholds_increase_and_have_errors_by_the_delta_method(distr, data, chain):
    fit = OrderedModel.from_formula("rank ~ g + x", data, distr=distr).fit(disp=0, method="bfgs", gtol=1e-8)
    table = estimated(chain(fit)["FixedCoefficients-1"])
    thresholds = fit.model.transform_threshold_params
    same(table["Coefficient"], [*thresholds(fit.params)[1:-1], *fit.params[:3]])
    same(table["Std. Error"].iloc[[0, 3, 4, 5]], fit.bse.iloc[[3, 0, 1, 2]])
    # The second one's error, by differences of the fitter's own transformation.
    gradient = approx_fprime(np.asarray(fit.params), lambda p: thresholds(p)[2], centered=True)
    same(table["Std. Error"].iloc[1], np.sqrt(gradient @ np.asarray(fit.cov_params()) @ gradient), 1e-6)


def test_categories_have_sets_of_their_own_and_joint_tests(data, chain):
    fit = smf.mnlogit("kind ~ g + x", data).fit(disp=0)
    tables = chain(fit)
    table = estimated(tables["FixedCoefficients-1"])
    same(table["Coefficient"], fit.params.values.T)
    same(table["Std. Error"], fit.bse.values.T)
    without = smf.mnlogit("kind ~ x", data).fit(disp=0)
    effects = tables["FixedEffects-1"]
    assert list(effects["df1"]) == [6, 4, 2]
    # A Wald test and a likelihood ratio say about the same.
    assert effects["F"]["g"] * 4 == pytest.approx(2 * (fit.llf - without.llf), rel=0.1)
    cells = pd.crosstab(data.kind, np.asarray(fit.predict()).argmax(axis=1)).to_numpy()
    assert np.isin(cells, tables["Classification-1"].to_numpy(dtype=float)).all()


@pytest.mark.parametrize("name, event", [("binomial", 1), ("text", 0)])
def test_the_event_is_the_level_whose_probability_is_modelled(name, event, data, chain):
    fit = quiet_fit(name, data)
    hit = np.where(fit.fittedvalues > 0.5, event, 1 - event)
    share = np.mean(hit == data.two)
    assert f"{100 * share:.1f}%" in chain(fit)["Classification-1"].attrs["title"]


@pytest.mark.parametrize("name", ["trials", "shares"])
def test_trials_are_named_and_counted(name, data, chain):
    fit = quiet_fit(name, data)
    assert 'name="TrialsField" value="n"' in documents_of(fit)[1]
    table = chain(fit)["Classification-1"].to_numpy(dtype=float)
    hit = fit.fittedvalues > 0.5
    assert data.events[hit].sum() in table and (data.n - data.events)[~hit].sum() in table


def test_the_target_s_distribution_and_points_are_those_of_its_values(data):
    _, text = documents_of(quiet_fit("gamma", data))
    shape, rate = (float(re.search(f'name="{name}" value="([^"]+)"', text)[1]) for name in ("shape", "rate"))
    same([shape, shape / rate], [stats.gamma.fit(data["size"], floc=0)[0], data["size"].mean()], 1e-4)
    # Beyond 100 records, points are the middles of cells, of which 20 make the range.
    points = re.search(r'"observedByPredicted".*?<Array[^>]*>([^<]*)', text, re.DOTALL)[1].split()
    places = (np.array(points, dtype=float) - data["size"].min()) / (np.ptp(data["size"]) / 20)
    np.testing.assert_allclose(places % 1, 0.5)


def test_working_correlations_are_covariance_parameters(data, chain):
    exchangeable, auto = quiet_fit("GEE", data), quiet_fit("GEE normal", data)
    table = chain(exchangeable, expected=NO_LIKELIHOOD)["ResidualEffect-1"]["Estimate"]
    same(table.sum(), exchangeable.scale)
    same(table["CS covariance"], exchangeable.scale * exchangeable.model.cov_struct.dep_params)
    table = chain(auto, expected=NO_LIKELIHOOD)["ResidualEffect-1"]["Estimate"]
    same(table.iloc[:2], [auto.scale, auto.model.cov_struct.dep_params])


def test_arrays_with_names_are_covariates(data, chain):
    exog = sm.add_constant(data[["x", "n"]])
    fit = sm.OLS(data.y, exog).fit()
    same(estimated(chain(fit, means=["x"], at={"x": [1, 2]})["FixedCoefficients-1"])["t"], fit.tvalues)
    ordered = OrderedModel(data["rank"], data[["x"]], distr="logit").fit(disp=0, method="bfgs")
    same(estimated(chain(ordered)["FixedCoefficients-1"])["Coefficient"].iloc[-1], ordered.params["x"])
