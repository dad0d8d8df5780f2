"""Effects, rows and tests of the fixed part under every coding."""

import warnings

import numpy as np
import pytest
import statsmodels.formula.api as smf

import hierfit
from conftest import estimated, same
from hierfit.bridge.grid import effect_tests
from hierfit.bridge.variables import describe
from hierfit.fitters import fitted_of


def test_variables_of_a_formula_are_fields_and_powers():
    fields = {
        "x": ("x", 1),
        'C(Q("a b"))': ("a b", 1),
        "C(g, Treatment('b'))": ("g", 1),
        "I(x ** 3)": ("x", 3),
        "I(z ** 2)": ("I(z ** 2)", 1),  # z does not stand alone
        "I(x ** 2 + 1)": ("I(x ** 2 + 1)", 1),
        "C(x > 1)": ("C(x > 1)", 1),
    }
    found = {code: describe(code, frozenset("x")) for code in fields}
    assert {code: (variable.field, variable.power) for code, variable in found.items()} == fields


# Effects are tested as their own columns are where factors are coded by sums to zero.
CODINGS = [
    ("y ~ g * h * C(n5)", "y ~ C(g, Sum) * C(h, Sum) * C(n5, Sum)"),
    ("y ~ x * n * g", "y ~ x * n * C(g, Sum)"),
    ("y ~ x + I(x ** 2) + x:g + g", "y ~ x + I(x ** 2) + x:C(g, Sum) + C(g, Sum)"),
    ("y ~ bs(x, 4) * g", "y ~ bs(x, 4) * C(g, Sum)"),
    ("y ~ g / h", "y ~ C(g, Sum) / C(h, Sum)"),
    ("y ~ 0 + g * h", "y ~ 0 + C(g, Sum) * C(h, Sum)"),
    ("y ~ C(g, Helmert) * C(h, Treatment('v'))", "y ~ C(g, Sum) * C(h, Sum)"),
    ("y ~ g + g:x", "y ~ g + g:x"),
    ("y ~ g:h", "y ~ g:h"),
]


@pytest.mark.parametrize("formula, summed", CODINGS)
@pytest.mark.parametrize("fit", [lambda f, d: smf.ols(f, d).fit(), lambda f, d: smf.glm(f, d).fit()])
def test_effects_are_tested_whatever_the_coding(fit, formula, summed, data):
    data = data.assign(n5=data.n % 2)
    tests, untested = effect_tests(fitted_of(fit(formula, data), 0.95))
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        other = fit(summed, data)
        expected = other.wald_test_terms(scalar=True).table.drop(index="Intercept", errors="ignore")
    assert not untested
    df1 = expected["df_constraint"].astype(int).to_numpy()
    f = expected["statistic"].astype(float).to_numpy() / (1 if other.use_t else df1)
    assert [test.df1 for test in tests] == list(df1)
    same([test.f for test in tests], f, 1e-8)
    same([test.p for test in tests], expected["pvalue"], 1e-7)


def test_an_effect_that_cannot_be_told_apart_is_not_tested(data):
    fit = smf.ols("y ~ g:h + g:h:x", data).fit()
    tests, untested = effect_tests(fitted_of(fit, 0.95))
    assert len(tests) == 2 and all(test.f > 0 for test in tests) and not untested
    fit = smf.ols("y ~ g:h + g:h:C(two)", data).fit()
    assert len(effect_tests(fitted_of(fit, 0.95))[1]) == 1
    with pytest.warns(UserWarning, match="a test of g:h"):
        hierfit.run(fit)


def test_every_coefficient_stands_in_the_row_of_its_levels(data, chain):
    fit = smf.ols("y ~ g * h * x", data).fit()
    table = chain(fit)["FixedCoefficients-1"]
    names = {"Intercept": "Intercept", "[h=v]": "h[T.v]", "[g=c]*[h=v]": "g[T.c]:h[T.v]", "x*[g=c]": "g[T.c]:x"}
    same(table["Coefficient"][list(names)], fit.params[list(names.values())])
    redundant = table[table["Std. Error"].isna()]
    assert set(redundant.index) >= {"[g=a]", "[g=a]*[h=u]", "[g=b]*[h=u]", "[g=a]*[h=v]"}
    assert (redundant["Coefficient"] == 0).all() and len(estimated(table)) == len(fit.params)
    # A factor that stands in no smaller term is nested.
    fit = smf.ols("y ~ g + g:h", data).fit()
    tables = chain(fit)
    assert list(tables["FixedEffects-1"].index[1:]) == ["g", "h(g)"]
    same(tables["FixedCoefficients-1"]["Coefficient"]["[h=v]([g=c])"], fit.params["g[c]:h[T.v]"])


FORMULAS = [
    "y ~ 0 + g + h:g",
    "y ~ C(g, Poly):x + g",
    "y ~ np.exp(x) * g + I(x ** 2) + np.log(n)",
    "y ~ C(x > 2) + center(n)",
    "y ~ bs(x, df=4) + g:h",
    "y ~ 1",
    "y ~ 0 + x",
]


@pytest.mark.parametrize("formula", FORMULAS)
def test_coefficients_keep_their_figures_under_every_formula(formula, data, chain):
    fit = smf.ols(formula, data).fit()
    rows = estimated(chain(fit)["FixedCoefficients-1"])
    assert sorted(rows["t"]) == pytest.approx(sorted(fit.tvalues), rel=1e-10)
