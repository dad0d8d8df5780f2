"""Data, and the whole chain: documents, their schemas, the program, its JSON, data frames."""

from __future__ import annotations

import os
import subprocess
import warnings
from pathlib import Path

import numpy as np
import pandas as pd
import pytest

import hierfit

REPOSITORY = Path(__file__).resolve().parents[3]


@pytest.fixture(scope="session")
def data() -> pd.DataFrame:
    """Records of a factor g, a factor h, a factor s of 20 groups, a number x, and targets of all kinds."""
    generator = np.random.default_rng(7)
    n = 240
    data = pd.DataFrame(
        {
            "x": generator.normal(2, 1, n),
            "g": generator.choice(list("abc"), n),
            "h": generator.choice(["u", "v"], n),
            "s": np.repeat(np.arange(20), n // 20),
        }
    )
    data["in"] = np.tile(np.repeat(["p", "q", "r"], 4), 20)
    effect = (
        generator.normal(0, 1, 20)[data.s]
        + generator.normal(0, 0.8, 60)[data.s * 3 + data["in"].map({"p": 0, "q": 1, "r": 2})]
    )
    slope = 0.4 + generator.normal(0, 0.5, 20)[data.s]
    signal = slope * data.x + data.g.map({"a": 0, "b": 0.5, "c": -0.3}) + effect
    data["y"] = signal + generator.normal(0, 1, n)
    data["two"] = (signal + generator.logistic(0, 1, n) > 1).astype(int)
    data["word"] = data.two.map({0: "no", 1: "yes"})
    data["n"] = generator.integers(5, 15, n)
    data["events"] = generator.binomial(data.n, 1 / (1 + np.exp(-(signal - 1))))
    data["count"] = generator.negative_binomial(2, 2 / (2 + np.exp(0.3 * signal)))
    data["size"] = generator.gamma(3, np.exp(0.2 * signal) / 3)
    cut = pd.cut(signal + generator.logistic(0, 1, n), [-99, 0, 1, 2, 99], labels=["none", "a few", "some", "many"])
    data["rank"] = pd.Categorical(cut, ordered=True)
    data["kind"] = data["rank"].cat.codes % 3 + 1
    return data


def check(folder: Path) -> list[str]:
    """What the schemas and `hierfit check --strict` have to say."""
    said = []
    for name in ("model.pmml", "model.statxml"):
        grammar = REPOSITORY / "docs" / f"{name}.rng"
        done = subprocess.run(
            ["xmllint", "--noout", "--relaxng", grammar, folder / name], capture_output=True, text=True
        )
        said += [line for line in done.stderr.splitlines() if not line.endswith("validates")]
    done = subprocess.run([os.environ["HIERFIT"], "check", "--strict", folder], capture_output=True, text=True)
    return said + (done.stdout + done.stderr).splitlines() if done.returncode or said else []


@pytest.fixture()
def chain(tmp_path):
    """Tables of a fit by way of its documents, which must be without remarks but those `expected`."""

    def run(fit, expected: tuple[str, ...] = (), **options) -> dict[str, pd.DataFrame]:
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            folder = hierfit.documents(fit, tmp_path / "model", **options)
        remarks = check(folder)
        assert len(remarks) == len(expected) and all(e in r for e, r in zip(expected, remarks)), remarks
        return {name: table.frame() for name, table in hierfit.run(folder).tables.items()}

    return run


def same(actual, expected, tolerance: float = 1e-10) -> None:
    """Each figure within a relative tolerance; missing where it is missing or infinite."""
    actual, expected = (np.asarray(actual, dtype=float).ravel(), np.asarray(expected, dtype=float).ravel())
    expected = np.where(np.isinf(expected), np.nan, expected)
    np.testing.assert_allclose(actual, expected, rtol=tolerance, atol=0, equal_nan=True)


def estimated(table: pd.DataFrame) -> pd.DataFrame:
    """Rows of coefficients that are not redundant."""
    return table[table["Std. Error"].notna()]


INTERVAL = "95% Confidence Interval"
