"""Packages that are imported when they are used."""

from __future__ import annotations

import importlib
from types import ModuleType

_INSTALL = {
    "pandas": "pandas",
    "numpy": "numpy",
    "scipy": "scipy",
    "statsmodels": "statsmodels",
    "distributed": "distributed",
}


def need(module: str, what: str) -> ModuleType:
    """The module, or an ImportError that says what to install for `what`."""
    try:
        return importlib.import_module(module)
    except ImportError as error:
        package = _INSTALL.get(module.partition(".")[0], module)
        raise ImportError(
            f"{what} takes the package {package}, which cannot be imported ({error}): " f"pip install {package}"
        ) from error
