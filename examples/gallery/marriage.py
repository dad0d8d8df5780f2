"""How women rate their marriage: OrderedModel, and the probability of each rating by religiousness."""
import sys

import hierfit
import pandas as pd
from statsmodels.datasets import fair
from statsmodels.miscmodels.ordinal_model import OrderedModel

data = fair.load_pandas().data.astype({"religious": int})
ratings = ["very poor", "poor", "fair", "good", "very good"]
data["rating"] = pd.Categorical.from_codes(data.rate_marriage.astype(int) - 1, ratings, ordered=True)
fit = OrderedModel.from_formula("rating ~ C(religious) + yrs_married + educ", data, distr="logit").fit(method="bfgs", disp=0)
names = {"religious": {1: "not", 2: "mildly", 3: "fairly", 4: "strongly"}}
hierfit.report(fit, f"{sys.argv[1]}/marriage.html", means="religious | rating", contrasts="simple", reference=1,
               value_labels=names, labels={"yrs_married": "Years married", "educ": "Years of school"}, title="Ratings of marriage")
