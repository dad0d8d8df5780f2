# Infected cattle of fifteen herds: glmer, events out of trials in four periods
library(hierfit)

data <- lme4::cbpp
attr(data$incidence, "label") <- "New infections"
attr(data$size, "label") <- "Cattle in the herd"
fit <- lme4::glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), data, binomial)
hf_report(fit, file.path(commandArgs(TRUE)[1], "herds.html"), means = ~period, contrasts = "simple", reference = "1",
  adjust = "sidak-sequential", title = "Infected cattle")
