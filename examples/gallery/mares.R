# Follicles of mares from day to day: gls, residuals that are an autoregressive moving average
library(hierfit)

data <- transform(as.data.frame(nlme::Ovary), sine = sin(2 * pi * Time), cosine = cos(2 * pi * Time))
data$occasion <- ave(data$Time, data$Mare, FUN = seq_along)
attr(data$follicles, "label") <- "Follicles above 10 mm"
fit <- nlme::gls(follicles ~ sine + cosine, data,
  correlation = nlme::corARMA(form = ~ occasion | Mare, p = 1, q = 1))
hf_report(fit, file.path(commandArgs(TRUE)[1], "mares.html"), title = "Follicles of mares")
