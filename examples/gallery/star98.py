"""Pupils above the median in the districts of California: GLM, events out of trials."""
import sys

import hierfit
import pandas as pd
import statsmodels.api as sm
import statsmodels.formula.api as smf

data = sm.datasets.star98.load_pandas().data.assign(income=lambda d: pd.qcut(d.LOWINC, 3, ["few", "some", "many"]))
fit = smf.glm("NABOVE + NBELOW ~ income + PTRATIO + AVYRSEXP", data, family=sm.families.Binomial()).fit()
labels = {"NABOVE": "Pupils above the median", "income": "Pupils of low income", "PTRATIO": "Pupils to a teacher",
          "AVYRSEXP": "Years of experience"}
hierfit.report(fit, f"{sys.argv[1]}/star98.html", means="income", contrasts="pairwise", adjust="sidak-sequential",
               labels=labels, title="Pupils above the median")
