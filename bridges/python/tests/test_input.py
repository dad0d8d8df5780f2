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
from hierfit.bridge.documents import documents_of
from hierfit.bridge.fields import decimals_of, level_text, levels_are_numbers
from hierfit.bridge.xml import document_text, node, number_text, real_array, text_array


def test_importing_takes_the_standard_library_alone():
    missing = ["numpy", "pandas", "scipy", "statsmodels", "patsy", "distributed"]
    code = f"import sys; sys.modules.update(dict.fromkeys({missing})); import hierfit; hierfit.documents(object(), 'a')"
    done = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True)
    assert "ImportError: A fitted model takes the package statsmodels" in done.stderr
    assert "pip install statsmodels" in done.stderr


def test_numbers_read_back_as_they_are():
    texts = ["0.1", "3", "-2", "0.3333333333333333", "5e-324", "1e+22"]
    assert [number_text(float(text)) for text in texts] == texts
    assert [number_text(value) for value in (np.float64(0.05), -2, np.nan, np.inf, None)] == ["0.05", "-2", "", "", ""]


def test_texts_are_fit_for_xml():
    made = document_text(node("a", {"b": 'x & "<y>"\n\x01\ud800', "c": None}, node("d", None, "1 < 2"), [[node("e")]]))
    expected = ['<a b="x &amp; &quot;&lt;y&gt;&quot;&#10;  ">', "  <d>1 &lt; 2</d>", "  <e/>", "</a>"]
    assert made.splitlines()[1:] == expected
    assert text_array(["a\x01b"]).children == ['"a b"']
    tokens = text_array(["b c", 'd"e', "", None, "__MISSING__"]).children
    assert tokens == ['"b c" "d\\"e" "" __MISSING__ "__MISSING__"']
    assert real_array([1.5, np.nan, np.inf]).children == ["1.5 __MISSING__ __MISSING__"]
    with pytest.raises(ValueError, match="backslash"):
        text_array(["a b\\"])


def test_levels_are_told_from_numbers():
    assert [level_text(v) for v in (3.0, 3, True, "3.0", 0.25, np.int64(2))] == ["3", "3", "True", "3.0", "0.25", "2"]
    assert levels_are_numbers(["1", "2.5"]) and not levels_are_numbers(["1", "2.0"]) and not levels_are_numbers(["nan"])
    assert [decimals_of(np.array(v)) for v in ([1.0, 2.0], [0.25], [np.nan, 1 / 3], [])] == [0, 2, 4, 0]


def test_odd_names_and_levels_come_through(chain):
    generator = np.random.default_rng(1)
    name, levels = 'a "b" <&> é', ["x y", 'é"t', "<&>"]
    data = pd.DataFrame({name: generator.choice(levels, 90), "the y": generator.normal(size=90)})
    options = dict(labels={"the y": "Yield & <more>"}, value_labels={name: {"x y": "both"}})
    tables = chain(ols(f"Q('the y') ~ Q('{name}')", data), means=[name], contrasts="pairwise", **options)
    assert set(tables["Estimates-1"].index) == {"both", 'é"t', "<&>"}
    assert "Yield & <more>" in str(tables["ModelSummary-1"]["Value"].to_list())


def test_labels_and_formats_come_from_the_frame_or_the_call(data):
    data = data.copy()
    data.attrs.update(labels={"y": "Yield", "x": "Dose"}, value_labels={"g": {"a": "first"}}, formats={"x": "F5.1"})
    pmml, _ = documents_of(ols("y ~ g + x", data), labels={"x": "Amount"})
    assert 'name="y" displayName="Yield"' in pmml and 'name="x" displayName="Amount"' in pmml
    assert '<Value value="a" displayValue="first"/>' in pmml and 'value="F5.1"' in pmml
    rank, _ = documents_of(OrderedModel.from_formula("rank ~ x", data).fit(disp=0, method="bfgs"))
    assert 'name="rank" optype="ordinal" dataType="string"' in rank
    kind, _ = documents_of(smf.ols("y ~ C(kind)", data).fit())
    assert 'name="kind" optype="categorical" dataType="integer"' in kind


def test_records_with_missing_values_are_left_out_as_the_fit_leaves_them_out(data):
    holes = data.copy()
    holes.loc[[3, 7], "x"] = np.nan
    holes.loc[11, "g"] = None
    holes.loc[20, "y"] = np.nan
    _, text = documents_of(ols("y ~ g + x", holes))
    assert text == documents_of(ols("y ~ g + x", data.drop(index=[3, 7, 11, 20])))[1]
    ranked = holes.assign(rank=data["rank"].where(holes.index > 4))
    for fit, records in [
        (smf.mixedlm("y ~ g + x", holes, groups="s", missing="drop").fit(), 236),
        (OrderedModel.from_formula("rank ~ x", ranked).fit(disp=0, method="bfgs"), 234),
    ]:
        assert f'<Counts totalFreq="{records}"/>' in documents_of(fit)[1]


def ols(formula, data):
    return smf.ols(formula, data).fit()


def glm(formula, data, family, **options):
    return smf.glm(formula, data, family=family, **options).fit()


def changed(fit, column, values):
    fit.model.data.frame[column] = values
    return fit


def removed(fit):
    fit.remove_data()
    return fit


# Models that have no place in the documents: each one error that names the term and what to do.
REFUSED = {
    "empty level": (
        lambda d: ols("y ~ g", d.assign(g=pd.Categorical(d.g, list("abcz")))),
        "level z of g.*remove_unused_categories",
    ),
    "empty cell": (
        lambda d: ols("y ~ g * h", d[(d.g != "b") | (d.h != "v")]),
        "The term g:h cannot be estimated.*join levels",
    ),
    "same twice": (lambda d: ols("y ~ x + z", d.assign(z=1 - 2 * d.x)), "The term z cannot be estimated"),
    "factor and number": (lambda d: ols("y ~ C(kind) + kind", d), "kind stands in the model both as a factor"),
    "target on both sides": (lambda d: ols("y ~ y", d), "y is the target and a predictor"),
    "levels read alike": (
        lambda d: ols("y ~ m", d.assign(m=pd.Categorical(d.h.map({"u": 1, "v": "1"})))),
        "Two levels of m read alike",
    ),
    "levels without letters": (
        lambda d: ols("y ~ m", d.assign(m=d.h.map({"u": "u\x01", "v": "u "}))),
        "Two levels of m read alike",
    ),
    "columns read alike": (
        lambda d: ols("y ~ Q('x\x01') + Q('x ')", d.assign(**{"x\x01": d.x**2, "x ": d.x**3})),
        "Two columns of the data read alike",
    ),
    "shares": (lambda d: glm("p ~ x", d.assign(p=d.events / d.n), sm.families.Binomial()), "events and failures"),
    "tweedie": (lambda d: glm("size ~ x", d, sm.families.Tweedie(var_power=1.5)), "family Tweedie"),
    "cauchy": (lambda d: glm("two ~ x", d, sm.families.Binomial(sm.families.links.cauchy())), "cauchy.*Known are"),
    "arrays": (lambda d: sm.OLS(d.y.to_numpy(), d[["x"]].to_numpy()).fit(), "use a formula, or a data frame"),
    "constrained": (lambda d: smf.glm("y ~ x + n", d).fit_constrained("x = n"), "Constraints on coefficients"),
    "removed": (lambda d: removed(ols("y ~ g", d)), "does not hold its data"),
    "changed": (lambda d: changed(ols("y ~ g + x", d.copy()), "x", 1.0), "columns of x differ"),
}


@pytest.mark.parametrize("name", REFUSED)
def test_a_model_without_a_place_is_refused_by_its_term(name, data, tmp_path):
    make, words = REFUSED[name]
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        fit = make(data)
    with pytest.raises(ValueError, match=words):
        hierfit.documents(fit, tmp_path / "model")
    assert not (tmp_path / "model").exists()


UNKNOWN = [
    lambda d: smf.wls("y ~ x", d, weights=d.n).fit(),
    lambda d: smf.logit("two ~ x", d).fit_regularized(disp=0),
    lambda d: smf.ols("y ~ x", d).fit_regularized(),
    lambda d: smf.probit("two ~ x", d).fit(disp=0),
    lambda d: smf.ols("y ~ x", d),
    lambda d: None,
]


@pytest.mark.parametrize("make", UNKNOWN)
def test_a_class_that_is_not_known_is_an_error_that_lists_those_that_are(make, data, tmp_path):
    with pytest.raises(TypeError, match="not known.*MixedLM, GLM, OLS, Logit, .*OrderedModel, GEE"):
        hierfit.documents(make(data), tmp_path)


TOLD = [
    (lambda d: glm("count ~ x", d, sm.families.Poisson(), offset=d.x), "an offset"),
    (lambda d: smf.glm("y ~ x", d, freq_weights=d.n).fit(), "weights"),
    (lambda d: glm("word ~ x", d, sm.families.Binomial()), "the modelled level, no of word"),
    (lambda d: smf.negativebinomial("count ~ x", d, loglike_method="nb1").fit(disp=0), "proportional to the mean"),
    (lambda d: OrderedModel(d["rank"], d[["x"]], offset=d.n / 10).fit(disp=0, method="bfgs"), "an offset"),
]


@pytest.mark.parametrize("make, words", TOLD)
def test_what_the_documents_cannot_hold_is_told(make, words, data):
    fit = make(data)
    with pytest.warns(UserWarning, match=f"no place for .*{words}"):
        documents_of(fit)


def test_the_documents_are_there_whole_or_not_at_all(data, tmp_path, monkeypatch):
    fit = ols("y ~ g", data)
    folder = hierfit.documents(fit, tmp_path / "a" / "b")
    assert sorted(path.name for path in folder.iterdir()) == ["model.pmml", "model.statxml"]
    assert (folder / "model.pmml").read_text(encoding="utf-8") == documents_of(fit)[0]

    def refuse(source, target):
        raise OSError("no room")

    monkeypatch.setattr("os.replace", refuse)
    with pytest.raises(OSError, match="no room"):
        hierfit.documents(fit, tmp_path / "full")
    assert not list((tmp_path / "full").iterdir())
