# How bitter wine tastes: clmm, the probability of each rating by warmth and contact with the skins
library(hierfit)

data <- ordinal::wine
attr(data$rating, "label") <- "Bitterness"
attr(data$temp, "label") <- "Temperature"
attr(data$contact, "label") <- "Contact with skins"
fit <- ordinal::clmm(rating ~ temp + contact + (1 | judge), data = data)
hf_report(fit, file.path(commandArgs(TRUE)[1], "wine.html"), means = list(~ contact | rating, ~ temp | rating),
  contrasts = "pairwise", repeated = "bottle", title = "Bitterness of wine")
