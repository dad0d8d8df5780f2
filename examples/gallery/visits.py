"""Visits to a doctor in a health insurance experiment: NegativeBinomial, means by health and plan."""
import sys

import hierfit
import statsmodels.formula.api as smf
from statsmodels.datasets import randhie

data = randhie.load_pandas().data
data["health"] = data.hlthp.where(data.hlthp == 1, 0) * 3 + data.hlthf * 2 + data.hlthg
fit = smf.negativebinomial("mdvis ~ C(health) * C(idp) + lncoins + disea", data).fit(disp=0, maxiter=200)
names = {"health": {0: "excellent", 1: "good", 2: "fair", 3: "poor"}, "idp": {0: "no", 1: "yes"}}
labels = {"mdvis": "Visits", "health": "Health", "idp": "Individual deductible", "disea": "Chronic diseases"}
hierfit.report(fit, f"{sys.argv[1]}/visits.html", means=["health", "idp | health"], contrasts="pairwise",
               adjust="bonferroni-sequential", labels=labels, value_labels=names, title="Visits to a doctor")
