# Salamanders in streams below mines: glmmTMB, negative binomial counts, mined sites against others
library(hierfit)

data <- glmmTMB::Salamanders
attr(data$count, "label") <- "Salamanders"
attr(data$mined, "label") <- "Mined above"
attr(data$spp, "label") <- "Species"
fit <- glmmTMB::glmmTMB(count ~ mined * spp + (1 | site), data, family = glmmTMB::nbinom2)
hf_report(fit, file.path(commandArgs(TRUE)[1], "salamanders.html"), means = ~ mined | spp, contrasts = "pairwise",
  adjust = "sidak-sequential", title = "Salamanders below mines")
