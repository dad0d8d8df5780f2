"""Reports of fitted models: documents for the program hierfit, and its tables and charts.

    import hierfit, statsmodels.formula.api as smf
    fit = smf.ols("breaks ~ wool * tension", data).fit()
    hierfit.report(fit, "warpbreaks.html", means=["tension | wool"], contrasts="pairwise")
    out = hierfit.run(fit)
    out.tables["FixedCoefficients-1"].frame()

Importing this package takes the standard library alone.
"""

from .bridge.documents import documents
from .host.errors import DocumentError, HierfitError
from .host.items import Chart, Item, Items, Table
from .host.library import version
from .host.many import Outcome
from .host.many import map_models as map
from .host.run import Diagnostic, Run, read, report, run

__version__ = "0.1.0"

__all__ = [
    "Chart",
    "Diagnostic",
    "DocumentError",
    "HierfitError",
    "Item",
    "Items",
    "Outcome",
    "Run",
    "Table",
    "documents",
    "map",
    "read",
    "report",
    "run",
    "version",
]
