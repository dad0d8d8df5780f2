"""Many models: in threads and over a cluster, with failures, repeated runs, and workers that die."""

import os
import shutil
import subprocess
import time

import pytest

import hierfit
from conftest import REPOSITORY
from hierfit.host import many

EXAMPLES = sorted(path.parent for path in (REPOSITORY / "examples").glob("*/model.pmml"))
PROGRAM = os.environ.get("HIERFIT", "")

pytestmark = pytest.mark.filterwarnings("ignore:index.html was not written")


def copies(folder, n: int) -> list:
    return [shutil.copytree(EXAMPLES[i % len(EXAMPLES)], folder / f"model{i:03}") for i in range(n)]


@pytest.fixture(scope="module")
def cluster():
    distributed = pytest.importorskip("distributed")
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None, silence_logs=50) as made:
        with distributed.Client(made) as client:
            yield client


def test_what_is_there_and_newer_is_kept(tmp_path):
    folders, out = copies(tmp_path, 3), tmp_path / "reports"
    hierfit.map(folders, out)
    pages = {folder.name: (out / f"{folder.name}.html").stat().st_mtime_ns for folder in folders}
    time.sleep(0.01)
    os.utime(folders[1] / "model.pmml")
    again = hierfit.map(folders, out)
    assert [path.stem for path in again.written] == ["model001"] and len(again.skipped) == 2
    assert (out / "model000.html").stat().st_mtime_ns == pages["model000"]
    assert len(hierfit.map(folders, out, force=True).written) == 3


def test_names_that_are_taken_have_numbers_in_the_order_of_the_folders(tmp_path):
    for folder, example in (("b/oats", "oats"), ("a/oats", "npk"), ("c/index", "oats")):
        shutil.copytree(REPOSITORY / "examples" / example, tmp_path / folder)
    folders = [tmp_path / "b/oats", tmp_path / "a/oats", tmp_path / "a/oats", tmp_path / "c/index"]
    outcome = hierfit.map(folders, tmp_path / "reports")
    assert sorted(path.name for path in outcome.written) == ["index-2.html", "oats-2.html", "oats.html"]
    assert (tmp_path / "reports" / "oats.html").read_bytes() == hierfit.run(tmp_path / "a/oats").render("html")


def test_pairs_may_have_any_names(tmp_path):
    pairs = [(tmp_path / f"{name}.pmml", tmp_path / f"{name}.statxml") for name in ("first", "second")]
    for pair in pairs:
        for path in pair:
            shutil.copy(REPOSITORY / "examples" / "oats" / f"model{path.suffix}", path)
    outcome = hierfit.map(pairs, tmp_path / "charts", format="svg")
    assert sorted(path.name for path in outcome.written) == ["first", "second"]
    assert {path.suffix for path in outcome.written[0].iterdir()} == {".svg"}
    assert len(hierfit.map(pairs, tmp_path / "charts", format="svg").skipped) == 2
    for wrong, words in (([3], "a folder or a pair"), (str(tmp_path), "a list of folders"), (3, "a list of folders")):
        with pytest.raises(TypeError, match=words):
            hierfit.map(wrong, tmp_path / "charts")


def test_failures_are_told_the_rest_goes_on_and_the_index_is_the_program_s(tmp_path):
    folders = [*copies(tmp_path, 3), tmp_path / "nowhere"]
    (folders[1] / "model.statxml").write_text("<StatXML>")
    with pytest.warns(UserWarning, match="2 of 4 models have no report"):
        outcome = hierfit.map(folders, tmp_path / "ours")
    assert sorted(path.name for path in outcome.written) == ["model000.html", "model002.html"]
    assert "model.statxml:1:" in outcome.failures[str(folders[1])]
    assert "No such file" in outcome.failures[str(folders[3])]
    subprocess.run([PROGRAM, "batch", "-o", tmp_path / "theirs", "-f", "html", *folders], capture_output=True)
    assert outcome.index.read_text() == (tmp_path / "theirs" / "index.html").read_text()
    # A report is kept only for the model that the index knows it for.
    other = shutil.copytree(folders[2], tmp_path / "elsewhere" / "model000")
    past = time.time() - 1000
    for name in ("model.pmml", "model.statxml"):
        os.utime(other / name, (past, past))
    assert hierfit.map([other], tmp_path / "ours").written


def test_a_worker_that_dies_loses_nothing(tmp_path, cluster, monkeypatch):
    victim = next(iter(cluster.run(os.getpid).values()))
    written, write = [], many._write

    def write_and_kill(report, files):
        write(report, files)
        written.append(report)
        if len(written) == 5:
            os.kill(victim, 9)

    monkeypatch.setattr(many, "_write", write_and_kill)
    folders = copies(tmp_path, 40)
    (folders[2] / "model.pmml").write_text("<PMML")
    with pytest.warns(UserWarning, match="1 of 40"):
        outcome = hierfit.map(folders, tmp_path / "reports", client=cluster, title="All")
    assert len(set(outcome.written)) == 39 and "model.pmml:1:" in outcome.failures[str(folders[2])]
    assert (tmp_path / "reports" / "model000.html").read_bytes() == hierfit.run(folders[0]).render("html", title="All")
    assert all(path.stat().st_size > 1000 for path in outcome.written)
    cluster.wait_for_workers(2, timeout=30)
    assert victim not in cluster.run(os.getpid).values()
