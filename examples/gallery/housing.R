# How content tenants are: multinom, counted records, the probability of each answer by influence
library(hierfit)

data <- MASS::housing
attr(data$Sat, "label") <- "Satisfaction"
attr(data$Infl, "label") <- "Influence on management"
attr(data$Cont, "label") <- "Contact with neighbours"
fit <- nnet::multinom(Sat ~ Infl + Type + Cont, data, weights = Freq, trace = FALSE)
hf_report(fit, file.path(commandArgs(TRUE)[1], "housing.html"), means = list(~ Infl | Sat, ~ Type | Sat),
  contrasts = c("pairwise", "none"), adjust = "bonferroni-sequential", title = "Content tenants")
