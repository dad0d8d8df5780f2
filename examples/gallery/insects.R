# Insects that are left after six sprays: glm, Poisson counts compared with their mean
library(hierfit)

data <- InsectSprays
attr(data$count, "label") <- "Insects left"
fit <- glm(count ~ spray, poisson, data)
hf_report(fit, file.path(commandArgs(TRUE)[1], "insects.html"), means = ~spray, contrasts = "deviation",
  adjust = "sidak-sequential", title = "Insects after spraying")
