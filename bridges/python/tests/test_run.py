"""Runs in memory: their items, frames, pictures and files, and what is said of documents that cannot be read."""

import os
import pickle
import re
import shutil
import subprocess
import sys

import pytest
import statsmodels.formula.api as smf

import hierfit
from conftest import REPOSITORY, same
from hierfit.host import library

OATS = REPOSITORY / "examples" / "oats"
PROGRAM = os.environ.get("HIERFIT", "")


def program(*arguments) -> str:
    return subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, check=True).stdout


@pytest.fixture(scope="module")
def oats():
    return hierfit.run(OATS)


@pytest.mark.parametrize("example", sorted(path.parent.name for path in (REPOSITORY / "examples").glob("*/model.pmml")))
def test_items_bear_the_names_that_the_program_lists(example):
    folder = REPOSITORY / "examples" / example
    run = hierfit.run(folder)
    lines = [line.split(None, 2) for line in program("list", folder).splitlines()]
    assert [(line[0], line[1]) for line in lines] == [(name, item.content["kind"]) for name, item in run.items.items()]
    for table in run.tables.values():
        frame = table.frame()
        assert len(frame) and frame.attrs["title"] == table.title
        cells = [cell["content"] for cell in table.content["cells"]]
        numbers = {float(cell["from"]["number"]) for cell in cells if cell["from"].get("number") is not None}
        values = frame.to_numpy().ravel()
        assert numbers <= {x for x in values if isinstance(x, float)}
        assert {x for x in values if isinstance(x, str)} <= {cell["text"] for cell in cells}


def test_frames_nest_as_tables_do(oats):
    frame = oats.tables["FixedCoefficients-1"].frame()
    assert frame.index.name == "Model Term" and list(frame["95% Confidence Interval"]) == ["Lower", "Upper"]
    estimates = re.findall(r'<ParameterStats[^>]* estimate="([^"]+)"', (OATS / "model.statxml").read_text())
    same(frame["Coefficient"], estimates[: len(frame)])
    nested = next(t.frame() for t in oats.tables.values() if t.frame().index.nlevels == 2)
    assert nested.index.is_unique


@pytest.mark.parametrize("ending", ["html", "txt", "json"])
def test_saved_files_are_the_program_s(ending, oats, tmp_path):
    ours, theirs = tmp_path / f"a.{ending}", tmp_path / f"b.{ending}"
    assert oats.save(ours) == ours
    program("report", "-o", theirs, OATS)
    assert ours.read_bytes() == theirs.read_bytes()
    if ending == "json":
        assert hierfit.read(ours).render("html") == oats.render("html")


def test_pictures_are_saved_one_file_a_chart(oats, tmp_path):
    folder = oats.save(tmp_path / "charts.svg")
    assert sorted(path.stem for path in folder.iterdir()) == sorted(oats.charts)
    assert all(path.read_text().startswith("<svg") for path in folder.iterdir())
    (one,) = oats.save(tmp_path / "one", format="png", only="GLMMPredictedByObserved", scale=1).iterdir()
    assert one.name == "GLMMPredictedByObserved-1.png" and one.read_bytes().startswith(b"\x89PNG")
    with pytest.raises(ValueError, match="no chart Nothing"):
        oats.save(tmp_path / "none", format="svg", only="Nothing")


def test_items_show_themselves_in_a_notebook(oats):
    table, again = (oats["FixedCoefficients-1"]._repr_html_() for _ in range(2))
    assert table.count("<table") == 1 and "Fixed Coefficients" in table and "<script" not in table
    ids, others = (set(re.findall(r'\bid="([^"]+)"', text)) for text in (table, again))
    assert ids and not ids & others
    referred = {part for value in re.findall(r'headers="([^"]+)"', table) for part in value.split()}
    assert referred and referred | set(re.findall(r'href="#([^"]+)"', table)) <= ids
    chart = oats["GLMMPredictedByObserved-1"]
    assert chart._repr_html_().startswith("<svg") and chart._repr_svg_() == chart._repr_html_()
    assert oats._repr_html_().count("<table") == len(oats.tables)
    heading = next(item for item in oats.items.values() if item.content["kind"] == "heading")
    assert "<table" in heading._repr_html_() and heading.title in repr(heading)


def test_names_that_there_are_not_are_told_with_those_that_there_are(oats, tmp_path):
    with pytest.raises(KeyError, match="there is no 'Nothing-1'; there are ModelSummary-1"):
        oats["Nothing-1"]
    for call, words in [
        (lambda: oats.render("html", only="Nothing"), "no item is named Nothing"),
        (lambda: oats.render("html", colour="red"), "there is no setting colour"),
        (lambda: oats.render("html", title="a\0b"), "zero byte"),
        (lambda: oats.render("parchment"), "no format parchment"),
        (lambda: oats.save(tmp_path / "oats"), "says no format"),
        (lambda: hierfit.report(OATS, tmp_path / "oats"), "says no format"),
        (lambda: hierfit.run(OATS, lang="xx"), "xx is not one of"),
    ]:
        with pytest.raises(ValueError, match=words):
            call()
    with pytest.raises(TypeError, match="means: documents take no such option"):
        hierfit.run(OATS, means="nitro")
    with pytest.raises(FileNotFoundError, match="nowhere"):
        hierfit.run(tmp_path / "nowhere")
    assert not list(tmp_path.iterdir())


def test_settings_reach_the_run_and_the_page(tmp_path):
    page = hierfit.report(OATS, tmp_path / "oats.html", title="Oats & <all>", author="A. Grower", static=True, lang="C")
    text = page.read_text()
    assert "Oats &amp; &lt;all&gt;" in text and "A. Grower" in text and "<script" not in text
    assert hierfit.run(OATS, lang="C").document["language"] == "C"
    assert hierfit.report(OATS, tmp_path / "one.html", only=["FixedCoefficients-1"]).read_text().count("<table") == 1


# Changes to a document: what is put in place of what, and the element of the error.
BROKEN = [
    ("model.statxml", "<PMMLModel", "<Nothing", None),
    ("model.statxml", 'description="firstSubjectRecordsForDataStructure"', "", "StructuredData"),
    ("model.pmml", 'dataType="string"', 'dataType="string" dataType="string"', None),
]


@pytest.mark.parametrize("document, old, new, element", BROKEN)
def test_a_document_that_cannot_be_read_is_told_with_its_place(document, old, new, element, tmp_path):
    folder = shutil.copytree(OATS, tmp_path / "broken")
    text = (folder / document).read_text()
    (folder / document).write_text(text.replace(old, new))
    with pytest.raises(hierfit.DocumentError) as caught:
        hierfit.report(folder, tmp_path / "broken.html")
    assert not (tmp_path / "broken.html").exists()
    error = caught.value
    assert error.file == str(folder / document) and 1 <= error.line <= text.count("\n") + 1 and error.column >= 1
    assert str(error).startswith(f"{error.file}:{error.line}:{error.column}: ")
    if element:
        assert element in error.path and error.line == text[: text.index(old)].count("\n") + 1
    copy = pickle.loads(pickle.dumps(error))
    assert (copy.file, copy.line, copy.path, str(copy)) == (error.file, error.line, error.path, str(error))


@pytest.mark.parametrize(
    "text, line, inside",
    [('{"format": "hierfit-output", "version": "two"}', None, "/version"), ("{\n  x", 2, None), ("", 1, None)],
)
def test_saved_runs_that_cannot_be_read_are_told(text, line, inside, tmp_path):
    path = tmp_path / "run.json"
    path.write_text(text)
    with pytest.raises(hierfit.DocumentError, match="run.json:.*expected") as caught:
        hierfit.read(path)
    assert (caught.value.file, caught.value.line, caught.value.path) == (str(path), line, inside)


def test_diagnostics_have_levels_and_places(data, tmp_path):
    fit = smf.mixedlm("y ~ g", data, groups="s", re_formula="~x")
    with pytest.warns(Warning):
        stopped = fit.fit(maxiter=1, method="bfgs")
    run = hierfit.run(stopped)
    said = [d for d in run.diagnostics if d.text == "The fit did not converge."]
    assert said[0].level == "warning" and re.fullmatch(r"model\.statxml:[0-9]+:[0-9]+", said[0].place)
    assert str(said[0]).startswith("model.statxml:") and run.outcome == 0


def test_a_fit_runs_without_files(data, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    fit = smf.ols("y ~ g", data).fit()
    page = hierfit.run(fit, means="g", contrasts="pairwise", lang="en").render("html")
    folder = hierfit.documents(fit, tmp_path / "documents", means="g", contrasts="pairwise")
    pair = (folder / "model.pmml", folder / "model.statxml")
    for source in ((folder,), pair, (pair,)):
        assert hierfit.run(*source).render("html") == page
    assert [path.name for path in tmp_path.iterdir()] == ["documents"]


def test_the_library_is_looked_for_where_it_may_be(monkeypatch):
    given = os.environ["HIERFIT_LIBRARY"]
    assert list(library.candidates()) == [given]
    monkeypatch.setenv("HIERFIT_LIBRARY", "/nowhere/lib.so")
    monkeypatch.setattr(library, "_library", None)
    with pytest.raises(hierfit.HierfitError, match="/nowhere/lib.so.*HIERFIT_LIBRARY"):
        hierfit.version()
    monkeypatch.delenv("HIERFIT_LIBRARY")
    assert list(library.candidates())[-1] == library.NAME
    monkeypatch.setattr(library, "__file__", os.path.join(os.path.dirname(given), "python3", "site", "hierfit", "x.py"))
    assert os.path.realpath(given) in map(os.path.realpath, library.candidates())
    assert hierfit.__version__ == hierfit.version()


@pytest.mark.parametrize("script", sorted(path.name for path in (REPOSITORY / "examples" / "gallery").glob("*.py")))
def test_the_gallery_s_scripts_write_their_reports(script, tmp_path):
    path = REPOSITORY / "examples" / "gallery" / script
    assert sum(1 for line in path.read_text().splitlines() if line) < 15
    subprocess.run([sys.executable, "-W", "error::UserWarning", path, tmp_path], check=True)
    page = (tmp_path / f"{path.stem}.html").read_text()
    assert page.count("<table") > 4 and 'class="alerts"' not in page
