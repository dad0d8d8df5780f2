# Data for tables of cases.
case_data <- local({
  set.seed(1)
  sleep <- if (requireNamespace("lme4", quietly = TRUE)) lme4::sleepstudy
  if (!is.null(sleep)) sleep$late <- factor(sleep$Days > 4, labels = c("early", "late"))
  if (!is.null(sleep)) sleep$shuffled <- factor(rep(1:3, 60))
  three <- expand.grid(a = factor(1:6), b = factor(1:5), c = factor(1:4))
  three$x <- rnorm(120)
  three$y <- 0.5 * three$x + rnorm(6)[three$a] + rnorm(5)[three$b] + rnorm(4)[three$c] + rnorm(120)
  three$n <- rpois(120, exp(0.8 + 0.2 * three$x + rnorm(6, sd = 0.4)[three$a]))
  three$o <- cut(three$y, 3, labels = c("low", "mid", "high"), ordered_result = TRUE)
  three$half <- factor(three$c %in% 1:2)
  # A factor with an empty level, and one with a level that stands in one cell alone.
  three$empty <- factor(three$b, levels = c(1:5, 9))
  holes <- subset(three, !(a == "1" & b == "1"))
  miss <- sleep[seq_len(100), ]
  if (!is.null(miss)) miss$Reaction[3:5] <- NA
  if (!is.null(miss)) miss$Days[10] <- NA
  odd <- data.frame(y = three$y, n = three$n, o = three$o)
  odd$`my y` <- three$y
  odd$`a b` <- factor(three$a, labels = c("x y", "\u00e9\"t", "<&>", "`", "a:b", "z"))
  odd$`c&d` <- three$x
  odd$`g "q"` <- three$b
  odd$`back\`tick` <- factor(three$c)
  odd[["gr\u00f6\u00dfe"]] <- three$x^2
  # Correlated records, for the structures of glmmTMB.
  serial <- expand.grid(t = 1:4, g = factor(1:60))
  serial$f <- factor(serial$t)
  serial$x <- rnorm(240)
  noise <- matrix(rnorm(240), 4)
  root <- t(chol(0.7^abs(outer(1:4, 1:4, "-"))))
  serial$y <- as.numeric(root %*% noise) * c(1, 1.2, 1.4, 1.6) + rnorm(240, sd = 0.4)
  if (requireNamespace("glmmTMB", quietly = TRUE)) serial$at <- glmmTMB::numFactor(serial$t)
  separated <- data.frame(x = 1:20, y = rep(0:1, each = 10))
  gr <- as.name("gr\u00f6\u00dfe")
  environment()
})
