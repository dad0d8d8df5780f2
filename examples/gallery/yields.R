# Oats on split plots: lmer, blocks and plots within them, tests by Kenward and Roger
library(hierfit)

data <- transform(as.data.frame(nlme::Oats), nitro = factor(nitro))
attr(data$yield, "label") <- "Yield (quarter pounds)"
attr(data$nitro, "label") <- "Nitrogen (cwt per acre)"
fit <- lme4::lmer(yield ~ nitro * Variety + (1 | Block / Variety), data)
hf_report(fit, file.path(commandArgs(TRUE)[1], "yields.html"), means = list(~nitro, ~ Variety | nitro),
  contrasts = c("simple", "pairwise"), reference = list("0"), adjust = "sidak-sequential", title = "Yields of oats")
