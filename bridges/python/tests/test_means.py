"""Estimated means and contrasts are linear functions of the coefficients, as the fit's own t_test has them."""

import re

import numpy as np
import pandas as pd
import pytest
import statsmodels.api as sm
import statsmodels.formula.api as smf
from statsmodels.miscmodels.ordinal_model import OrderedModel
from statsmodels.tools.numdiff import approx_fprime

import hierfit
from conftest import INTERVAL, same
from hierfit.bridge.adjust import adjust_p, step_levels
from hierfit.bridge.documents import documents_of

NO_MEAN = ('in table "Grand Mean" is missing',) * 4


def test_means_within_the_other_factor_are_linear_functions(data, chain):
    fit = smf.ols("y ~ g * h + x", data).fit()
    tables = chain(fit, means=["g | h", "g"], contrasts=["pairwise", "deviation"])
    cells = [(h, g) for h in "uv" for g in "abc"]
    hit = [[True, g == "b", g == "c", h == "v", (g, h) == ("b", "v"), (g, h) == ("c", "v"), True] for h, g in cells]
    rows = np.array(hit) * [1, 1, 1, 1, 1, 1, data.x.mean()]
    expected, table = fit.t_test(rows), tables["Estimates-1"]
    assert list(table.index) == cells
    same(table["Mean"], expected.effect)
    same(table["Std. Error"], expected.sd)
    same(table[INTERVAL], expected.conf_int())
    pairs = np.array([rows[3 * k + i] - rows[3 * k + j] for k in range(2) for i, j in ((0, 1), (0, 2), (1, 2))])
    expected, table = fit.t_test(pairs), tables["Contrasts-1"]
    assert [label[-1] for label in table.index] == ["a - b", "a - c", "b - c"] * 2
    same(table["Contrast Estimate"], expected.effect)
    same(table["Adj. Sig."], expected.pvalue)
    same(table["df"], np.full(6, fit.df_resid))
    same(table[INTERVAL], expected.conf_int())
    same(tables["OverallTestResults-1"]["F"], [fit.f_test(pairs[3 * k : 3 * k + 2]).fvalue for k in range(2)])
    averaged = (rows[:3] + rows[3:]) / 2
    same(tables["Estimates-2"]["Mean"], fit.t_test(averaged).effect)
    same(tables["Contrasts-2"]["Contrast Estimate"], fit.t_test(averaged - averaged.mean(axis=0)).effect)
    same(tables["GrandMeans-1"]["Mean"], fit.t_test(averaged.mean(axis=0)).effect)


def test_a_block_of_three_factors_compares_the_first_one_within_the_others(data, chain):
    fit = smf.ols("y ~ g + h + word", data).fit()
    tables = chain(fit, means="h:word | g", contrasts="pairwise", adjust="sidak-sequential")
    others = [(g, word) for g in "abc" for word in ("no", "yes")]
    assert list(tables["Contrasts-1"].index) == [(*other, "u - v") for other in others]
    assert list(tables["Estimates-1"].index) == [(*other, h) for other in others for h in "uv"]


def test_the_chart_of_significant_effects_has_the_strongest_first(data):
    fit = smf.ols("z ~ h + word + g", data.assign(z=data.y + 5 * data.two + 1.5 * (data.g == "a"))).fit()
    found = re.findall(r'description="Emmeans".*?field="(\w+)"', documents_of(fit)[1], re.DOTALL)
    assert found == ["word", "g"] and fit.pvalues["h[T.v]"] > 0.05


@pytest.mark.parametrize("link", ["log", "inverse_power"])
def test_means_stand_on_the_scale_of_the_target(link, data, chain):
    family = sm.families.Gamma(getattr(sm.families.links, link)())
    fit = smf.glm("size ~ g", data, family=family).fit()
    tables = chain(fit, means="g", contrasts="simple", reference="a")
    frame = fit.get_prediction({"g": list("abc")}).summary_frame()
    mean, table = frame["mean"].to_numpy(), tables["Estimates-1"]
    same(table["Mean"], mean)
    same(table["Std. Error"], frame["mean_se"])
    same(np.sort(table[INTERVAL]), np.sort(frame[["mean_ci_lower", "mean_ci_upper"]]))
    same(tables["Contrasts-1"]["Contrast Estimate"], mean[1:] - mean[0])
    # The error of a difference of means by the delta method.
    gradient = np.array([[1, 0, 0], [1, 1, 0]]) * family.link.inverse_deriv(family.link(mean[:2]))[:, None]
    difference = gradient[1] - gradient[0]
    same(tables["Contrasts-1"]["Std. Error"].iloc[0], np.sqrt(difference @ fit.cov_params().to_numpy() @ difference))


def test_offsets_stand_at_their_mean(data, chain):
    exposure = data.n
    fit = smf.glm("count ~ g", data, family=sm.families.Poisson(), exposure=exposure).fit()
    with pytest.warns(UserWarning, match="an offset"):
        hierfit.run(fit)
    expected = np.exp(np.log(exposure).mean() + fit.params["Intercept"] + [0, *fit.params[["g[T.b]", "g[T.c]"]]])
    same(chain(fit, means="g")["Estimates-1"]["Mean"], expected)
    other = smf.poisson("count ~ g", data, exposure=exposure).fit(disp=0, tol=1e-12)
    same(chain(other, means="g")["Estimates-1"]["Mean"], expected, 1e-6)
    ranks = OrderedModel(data["rank"], data[["x"]], offset=data.n / 10, distr="logit").fit(disp=0, method="bfgs")
    at = ranks.model.predict(ranks.params, exog=np.array([[2.0]]), offset=data.n.mean() / 10)
    same(chain(ranks, NO_MEAN, means="rank | x", at={"x": 2})["Estimates-1"]["Mean"], at, 1e-6)


def test_a_continuous_predictor_stands_where_it_is_put(data, chain):
    fit = smf.ols("y ~ np.log(n) * g + x + I(x ** 2)", data).fit()
    tables = chain(
        fit, means=["g", "n", ("g", "x")], at={"x": [1, 3], "n": [6, 12]}, contrasts=["none", "pairwise", "none"]
    )

    def predict(**values):
        return fit.get_prediction(pd.DataFrame(values)).predicted_mean

    n = tables["Estimates-2"]
    expected = [np.mean([predict(n=[value], g=[g], x=[x]) for g in "abc" for x in (1, 3)]) for value in (6, 12)]
    same(n["Mean"], expected)
    same(tables["Contrasts-1"]["Contrast Estimate"], expected[0] - expected[1])
    both = tables["Estimates-3"]
    assert [list(map(float, label[1:])) for label in both.index[:2]] == [[1], [3]]
    same(both["Mean"].iloc[1], np.mean([predict(n=[value], g=["a"], x=[3]) for value in (6, 12)]))
    held = chain(fit, means=["g"], at={"x": 1})["Estimates-1"]
    same(held["Mean"], predict(n=[data.n.mean()] * 3, g=list("abc"), x=[1] * 3))


def test_probabilities_are_the_means_of_categories(data, chain):
    ordered = OrderedModel.from_formula("rank ~ g + h", data, distr="logit").fit(disp=0, method="bfgs")
    nominal = smf.mnlogit("kind ~ g + h", data).fit(disp=0)
    for fit, target, leading in ((ordered, "rank", []), (nominal, "kind", [1.0])):
        exog = np.array([[*leading, g == "b", g == "c", h == "v"] for g in "abc" for h in "uv"], dtype=float)
        params = np.asarray(fit.params)

        def averaged(flat):
            return fit.model.predict(flat.reshape(params.T.shape).T, exog=exog).reshape(3, 2, -1).mean(axis=1).ravel()

        tables = chain(fit, NO_MEAN, means=[f"g | {target}", ("g", target)], contrasts=["pairwise", "none"])
        expected = averaged(params.T.ravel())
        same(tables["Estimates-1"]["Mean"], expected.reshape(3, -1).T)
        same(tables["Estimates-2"]["Mean"], expected)
        gradient, covariance = approx_fprime(params.T.ravel(), averaged, centered=True), np.asarray(fit.cov_params())
        same(tables["Estimates-2"]["Std. Error"], np.sqrt(np.diag(gradient @ covariance @ gradient.T)), 1e-6)
        k = len(expected) // 3
        difference, first = gradient[0] - gradient[k], tables["Contrasts-1"].iloc[0]
        same(first["Contrast Estimate"].iloc[0], expected[0] - expected[k])
        same(first["Std. Error"].iloc[0], np.sqrt(difference @ covariance @ difference), 1e-6)
        assert tables["GrandMeans-1"].isna().all().all()
        for means, words in (("g", f"such as 'g | {target}'"), (f"{target} | g", "its own categories")):
            with pytest.raises(ValueError, match=re.escape(words)):
                hierfit.run(fit, means=means, contrasts="pairwise")


def test_sequential_adjustments_follow_their_definition():
    p = np.array([0.04, 0.001, 0.03, np.nan, 0.5, 0.03])
    bonferroni = adjust_p(p, "bonferroni-sequential")
    same(bonferroni, [0.12, 0.005, 0.12, np.nan, 0.5, 0.12])
    sidak = adjust_p(p, "sidak-sequential")
    same(sidak, [1 - 0.97**4, 1 - 0.999**5, 1 - 0.97**4, np.nan, 0.5, 1 - 0.97**4])
    same(step_levels(p, "bonferroni-sequential", 0.05), 0.05 / np.array([2, 5, 4, np.nan, 1, 4]))
    same(step_levels(p, "sidak-sequential", 0.05), 1 - 0.95 ** (1 / np.array([2, 5, 4, np.nan, 1, 4])))
    same(adjust_p(np.array([1.0, 0.0]), "sidak-sequential"), [1, 0])


@pytest.mark.parametrize("adjust", ["bonferroni-sequential", "sidak-sequential"])
def test_limits_exclude_zero_where_the_adjusted_p_is_small(adjust, data, chain):
    fit = smf.ols("y ~ C(s)", data).fit()
    table = chain(fit, means="s", contrasts="pairwise", adjust=adjust, level=0.9)["Contrasts-1"]
    limits = table["90% Confidence Interval"]
    excluded = (limits["Lower"] > 0) | (limits["Upper"] < 0)
    # Judged one by one, contrasts behind the first that is not significant may have limits that exclude zero.
    assert excluded[table["Adj. Sig."] < 0.1].all() and 10 < excluded.sum() < 150


def test_means_that_cannot_be_asked_are_refused_by_name(data, tmp_path):
    fit = smf.ols("y ~ g + x + np.log(n)", data).fit()
    wrong = [
        (dict(means="z"), "z, which the model does not have. It has: g, x"),
        (dict(means="x"), "at={'x': "),
        (dict(means=3.0), "texts such as 'A', 'A:B' or 'A | B'; not 3.0"),
        (dict(means={"g": 1}), "texts such as"),
        (dict(means="g", contrasts="all"), "pairwise"),
        (dict(means=["g"], contrasts=["none", "none"]), "one for each of the 1"),
        (dict(means="g", contrasts="simple", reference="q"), "not a level of g. Levels are: a, b, c"),
        (dict(means="g", at={"g": 1}), "g, which is no continuous predictor"),
        (dict(at={"x": "many"}), "x has 'many'"),
        (dict(at={"x": np.nan}), "x has nan"),
        (dict(adjust="tukey"), "sidak-sequential"),
        (dict(level=95), "between 0 and 1"),
        (dict(formats={"x": "%d"}), "F8.2"),
        (dict(formats={"x": "F2.2"}), "not 'F2.2'"),
        (dict(labels="Y"), "labels is a dict by columns of the data; not 'Y'"),
        (dict(value_labels={"g": "A"}), "g has 'A'"),
        (dict(mean="g"), "There is no option mean; there are means, contrasts, "),
    ]
    for options, words in wrong:
        with pytest.raises((ValueError, TypeError), match=re.escape(words)):
            hierfit.documents(fit, tmp_path, **options)
    assert not list(tmp_path.iterdir())


@pytest.mark.parametrize("formula", ["y ~ g + I(x * (g == 'a'))", "y ~ C(kind) + np.log(kind + x ** 2)"])
def test_numbers_that_are_made_of_factors_have_no_means(formula, data, chain):
    fit = smf.ols(formula, data).fit()
    same(chain(fit)["FixedCoefficients-1"]["t"].dropna().iloc[-1], fit.tvalues.iloc[-1])
    with pytest.raises(ValueError, match="is a number that is made of a factor"):
        hierfit.run(fit, means=fit.model.data.design_info.term_names[1].removeprefix("C(").removesuffix(")"))
