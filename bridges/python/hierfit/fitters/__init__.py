"""What each fitter of statsmodels gives: one module a family of fitters, one function a class of model."""

from .known import KNOWN, fitted_of

__all__ = ["KNOWN", "fitted_of"]
