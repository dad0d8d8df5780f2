# Reaction times without sleep: lmer, a level and a slope for each person
library(hierfit)

data <- transform(lme4::sleepstudy, Day = factor(Days))
attr(data$Reaction, "label") <- "Average reaction time (ms)"
attr(data$Days, "label") <- "Days without sleep"
fit <- lme4::lmer(Reaction ~ Days + (Days | Subject), data)
hf_report(fit, file.path(commandArgs(TRUE)[1], "sleep.html"), repeated = "Day", title = "Reaction times without sleep")
