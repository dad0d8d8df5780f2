# Breaks of yarn on looms: lm, tensions compared within each wool
library(hierfit)

data <- warpbreaks
attr(data$breaks, "label") <- "Breaks for each loom"
attr(data$tension, "labels") <- c(low = "L", medium = "M", high = "H")
fit <- lm(breaks ~ wool * tension, data)
hf_report(fit, file.path(commandArgs(TRUE)[1], "breaks.html"), means = ~ tension | wool, contrasts = "pairwise",
  adjust = "bonferroni-sequential", title = "Breaks of yarn")
