"""Names, labels, missing values, and models that cannot be put into the documents."""

import subprocess
import sys
import warnings

import numpy as np
import pandas as pd
import pytest
import statsmodels.api as sm
import statsmodels.formula.api as smf
from statsmodels.miscmodels.ordinal_model import OrderedModel

import hierfit
from conftest import estimated, same
from hierfit.bridge.documents import documents_of
from hierfit.bridge.fields import decimals_of, level_text, levels_are_numbers
from hierfit.bridge.xml import document_text, node, number_text, real_array, text_array


def test_importing_takes_the_standard_library_alone():
    code = """
import sys, importlib.abc
class Refuse(importlib.abc.MetaPathFinder):
    def find_spec(self, name, path, target=None):
        if name.partition(".")[0] in ("numpy", "pandas", "scipy", "statsmodels", "patsy", "distributed"):
            raise ImportError("not installed")
sys.meta_path.insert(0, Refuse())
import hierfit
try:
    hierfit.documents(object(), "nowhere")
except ImportError as error:
    print(error)
"""
    done = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, check=True)
    assert "pip install statsmodels" in done.stdout


@pytest.mark.parametrize(
    "value, text",
    [
        (0.1, "0.1"),
        (3.0, "3"),
        (-2, "-2"),
        (1 / 3, "0.3333333333333333"),
        (5e-324, "5e-324"),
        (1e22, "1e+22"),
        (np.nan, ""),
        (np.inf, ""),
        (None, ""),
        (np.float64(0.05), "0.05"),
    ],
)
def test_numbers_read_back_as_they_are(value, text):
    assert number_text(value) == text
    assert not text or float(text) == value


def test_texts_are_fit_for_xml():
    made = document_text(
        node("a", {"b": 'x & "<y>"\n\x01\ud800', "c": None}, node("d", None, "1 < 2"), [[node("e")], None])
    )
    assert made.splitlines()[1:] == [
        '<a b="x &amp; &quot;&lt;y&gt;&quot;&#10;  ">',
        "  <d>1 &lt; 2</d>",
        "  <e/>",
        "</a>",
    ]
    assert text_array(["a\x01b"]).children == ['"a b"']
    assert text_array(["a", "b c", 'd"e', "", None, "__MISSING__"]).children == [
        'a "b c" "d\\"e" "" __MISSING__ "__MISSING__"'
    ]
    assert real_array([1.5, np.nan, np.inf]).children == ["1.5 __MISSING__ __MISSING__"]
    with pytest.raises(ValueError, match="backslash"):
        text_array(["a b\\"])


def test_levels_are_told_from_numbers():
    assert [level_text(v) for v in (3.0, 3, True, "3.0", 0.25, np.int64(2))] == ["3", "3", "True", "3.0", "0.25", "2"]
    assert levels_are_numbers(["1", "2.5"]) and not levels_are_numbers(["1", "2.0"]) and not levels_are_numbers(["nan"])
    assert [decimals_of(np.array(v)) for v in ([1.0, 2.0], [0.25], [np.nan, 1 / 3], [])] == [0, 2, 4, 0]


def test_odd_names_and_levels_come_through(chain):
    generator = np.random.default_rng(1)
    name = 'a "b" <&> é'
    levels = ["x y", 'é"t', "<&>"]
    data = pd.DataFrame({name: generator.choice(levels, 90), "my x": generator.normal(size=90)})
    data["the y"] = generator.normal(size=90)
    fit = smf.ols(f"Q('the y') ~ Q('{name}') * Q('my x')", data).fit()
    tables = chain(
        fit,
        means=[name],
        contrasts="pairwise",
        labels={"the y": "Yield & <more>"},
        value_labels={name: {"x y": "both"}},
    )
    same(estimated(tables["FixedCoefficients-1"])["Coefficient"].sort_values(), np.sort(fit.params))
    assert set(tables["Estimates-1"].index) == {"both", 'é"t', "<&>"}
    assert "Yield & <more>" in str(tables["ModelSummary-1"]["Value"].to_list())


def test_labels_and_formats_come_from_the_frame_or_the_call(data):
    data = data.copy()
    data.attrs.update(labels={"y": "Yield", "x": "Dose"}, value_labels={"g": {"a": "first"}}, formats={"x": "F5.1"})
    pmml, _ = documents_of(smf.ols("y ~ g + x", data).fit(), labels={"x": "Amount"})
    assert 'name="y" displayName="Yield"' in pmml and 'name="x" displayName="Amount"' in pmml
    assert '<Value value="a" displayValue="first"/>' in pmml and 'value="F5.1"' in pmml
    rank, _ = documents_of(OrderedModel.from_formula("rank ~ x", data).fit(disp=0, method="bfgs"))
    assert 'name="rank" optype="ordinal" dataType="string"' in rank
    kind, _ = documents_of(smf.ols("y ~ C(kind)", data).fit())
    assert 'name="kind" optype="categorical" dataType="integer"' in kind


def test_records_with_missing_values_are_left_out_as_the_fit_leaves_them_out(data, chain):
    holes = data.copy()
    holes.loc[[3, 7], "x"] = np.nan
    holes.loc[11, "g"] = None
    holes.loc[20, "y"] = np.nan
    fit = smf.ols("y ~ g + x", holes).fit()
    _, text = documents_of(fit)
    assert '<Counts totalFreq="236"/>' in text
    complete = smf.ols("y ~ g + x", data.drop(index=[3, 7, 11, 20])).fit()
    assert text == documents_of(complete)[1]
    mixed = smf.mixedlm("y ~ g + x", holes, groups="s", missing="drop").fit()
    assert '<Counts totalFreq="236"/>' in documents_of(mixed)[1]
    ranked = holes.assign(rank=data["rank"].where(holes.index > 4))
    ordered = OrderedModel.from_formula("rank ~ x", ranked).fit(disp=0, method="bfgs")
    assert '<Counts totalFreq="234"/>' in documents_of(ordered)[1]
    same(estimated(chain(ordered)["FixedCoefficients-1"])["Coefficient"].iloc[-1], ordered.params["x"])


def ols(formula):
    return lambda d: smf.ols(formula, d).fit()


# Models that have no place in the documents: each one error that names the term and what to do.
REFUSED = {
    "empty level": (ols("y ~ g"), "level z of g.*remove_unused_categories", "empty"),
    "empty cell": (ols("y ~ g * h"), "The term g:h cannot be estimated.*join levels", "cell"),
    "same twice": (ols("y ~ x + z"), "The term z cannot be estimated", "twice"),
    "factor and number": (ols("y ~ C(kind) + kind"), "kind stands in the model both as a factor", None),
    "target on both sides": (ols("y ~ y"), "y is the target and a predictor", None),
    "levels read alike": (ols("y ~ m"), "Two levels of m read alike", "alike"),
    "levels without letters": (ols("y ~ m"), "Two levels of m read alike", "control"),
    "columns read alike": (ols("y ~ x + Q('x\x01') + Q('x ')"), "Two columns of the data read alike", "columns"),
    "shares": (lambda d: smf.glm("p ~ x", d, family=sm.families.Binomial()).fit(), "events and failures", "share"),
    "tweedie": (
        lambda d: smf.glm("size ~ x", d, family=sm.families.Tweedie(var_power=1.5)).fit(),
        "family Tweedie",
        None,
    ),
    "cauchy": (
        lambda d: smf.glm("two ~ x", d, family=sm.families.Binomial(sm.families.links.cauchy())).fit(),
        "link cauchy.*Known are",
        None,
    ),
    "arrays": (lambda d: sm.OLS(d.y.to_numpy(), d[["x"]].to_numpy()).fit(), "use a formula, or a data frame", None),
    "constrained": (lambda d: smf.glm("y ~ x + n", d).fit_constrained("x = n"), "Constraints on coefficients", None),
    "removed": (lambda d: removed(smf.ols("y ~ g", d).fit()), "does not hold its data", None),
    "changed": (lambda d: changed(smf.ols("y ~ g + x", d).fit()), "columns of x differ", None),
}


def removed(fit):
    fit.model.data.frame = None
    return fit


def changed(fit):
    fit.model.data.frame["x"] = 1.0
    return fit


def bent(data, how):
    data = data.copy()
    if how == "empty":
        data["g"] = pd.Categorical(data["g"], list("abcz"))
    elif how == "cell":
        data = data[(data["g"] != "b") | (data["h"] != "v")]
    elif how == "twice":
        data["z"] = 1 - 2 * data["x"]
    elif how == "alike":
        data["m"] = pd.Categorical([1 if h == "u" else "1" for h in data["h"]])
    elif how == "control":
        data["m"] = ["u\x01" if h == "u" else "u " for h in data["h"]]
    elif how == "columns":
        data["x\x01"], data["x "] = data.x**2, data.x**3
    elif how == "share":
        data["p"] = data.events / data.n
    return data


@pytest.mark.parametrize("name", REFUSED)
def test_a_model_without_a_place_is_refused_by_its_term(name, data, tmp_path):
    make, words, how = REFUSED[name]
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        fit = make(bent(data, how))
    with pytest.raises(ValueError, match=words):
        hierfit.documents(fit, tmp_path / "model")
    assert not (tmp_path / "model").exists()


@pytest.mark.parametrize(
    "make",
    [
        lambda d: smf.wls("y ~ x", d, weights=d.n).fit(),
        lambda d: smf.quantreg("y ~ x", d).fit(),
        lambda d: smf.logit("two ~ x", d).fit_regularized(disp=0),
        lambda d: smf.ols("y ~ x", d).fit_regularized(),
        lambda d: smf.probit("two ~ x", d).fit(disp=0),
        lambda d: smf.ols("y ~ x", d),
        lambda d: d,
        lambda d: None,
    ],
)
def test_a_class_that_is_not_known_is_an_error_that_lists_those_that_are(make, data, tmp_path):
    with pytest.raises(TypeError, match="not known.*MixedLM, GLM, OLS, Logit, .*OrderedModel, GEE"):
        hierfit.documents(make(data), tmp_path)


@pytest.mark.parametrize(
    "make, words",
    [
        (lambda d: smf.glm("count ~ x", d, family=sm.families.Poisson(), offset=d.x).fit(), "an offset"),
        (lambda d: smf.glm("y ~ x", d, freq_weights=d.n).fit(), "weights"),
        (lambda d: smf.glm("word ~ x", d, family=sm.families.Binomial()).fit(), "the modelled level, no of word"),
        (lambda d: smf.negativebinomial("count ~ x", d, loglike_method="nb1").fit(disp=0), "proportional to the mean"),
        (lambda d: OrderedModel(d["rank"], d[["x"]], offset=d.n / 10).fit(disp=0, method="bfgs"), "an offset"),
    ],
)
def test_what_the_documents_cannot_hold_is_told(make, words, data):
    fit = make(data)
    with pytest.warns(UserWarning, match=f"no place for .*{words}"):
        documents_of(fit)


def test_the_documents_are_there_whole_or_not_at_all(data, tmp_path):
    fit = smf.ols("y ~ g", data).fit()
    folder = hierfit.documents(fit, tmp_path / "a" / "b")
    assert sorted(path.name for path in folder.iterdir()) == ["model.pmml", "model.statxml"]
    assert (folder / "model.pmml").read_text(encoding="utf-8") == documents_of(fit)[0]
