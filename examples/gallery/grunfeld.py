"""What eleven firms invested in twenty years: MixedLM, a level and a slope for each firm."""
import sys

import hierfit
import statsmodels.formula.api as smf
from statsmodels.datasets import grunfeld

data = grunfeld.load_pandas().data.assign(value=lambda d: d.value / 1000, capital=lambda d: d.capital / 1000)
fit = smf.mixedlm("invest ~ value + capital", data, groups="firm", re_formula="~capital").fit()
labels = {"invest": "Investment", "value": "Market value (thousands)", "capital": "Capital (thousands)", "firm": "Firm"}
hierfit.report(fit, f"{sys.argv[1]}/grunfeld.html", labels=labels, title="Investment of firms")
