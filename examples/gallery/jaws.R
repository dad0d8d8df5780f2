# Growth of jaws: lme, slopes of children, and residuals of girls and boys with variances of their own
library(hierfit)

data <- as.data.frame(nlme::Orthodont)
attr(data$distance, "label") <- "Distance in the jaw (mm)"
attr(data$age, "label") <- "Age in years"
fit <- nlme::lme(distance ~ age * Sex, data, random = ~ age | Subject, weights = nlme::varIdent(form = ~ 1 | Sex))
hf_report(fit, file.path(commandArgs(TRUE)[1], "jaws.html"), means = list(~Sex, ~ Sex | age), contrasts = "pairwise",
  at = list(age = c(8, 14)), title = "Growth of jaws")
