skip_if_not_installed("lmerTest")
skip_if_not_installed("emmeans")

test_that("tests and coefficients of lmer are those of lmerTest, by either method", {
  skip_if_not_installed("pbkrtest")
  data <- oats()
  fit <- lmerTest::lmer(yield ~ nitro * Variety + (1 | Block / Variety), data)
  methods <- c(satterthwaite = "Satterthwaite", `kenward-roger` = "Kenward-Roger")
  for (df in names(methods)) {
    tables <- chain(fit, df = df)
    expected <- anova(fit, type = 3, ddf = methods[[df]])
    effects <- tables[["FixedEffects-1"]]
    expect_identical(effects$Source[-1], c("nitro", "Variety", "nitro * Variety"))
    expect_figures(effects$F[-1], expected[["F value"]])
    expect_figures(effects$df1[-1], expected$NumDF)
    expect_figures(effects$df2[-1], expected$DenDF)
    expect_figures(effects[["Sig."]][-1], expected[["Pr(>F)"]])
    s <- coef(summary(fit, ddf = methods[[df]]))
    order <- c(1:6, 7, 10, 8, 11, 9, 12)
    expect_coefficients(tables, s[order, 1], s[order, 2], s[order, 4], s[order, 5])
  }
})

test_that("covariance parameters are those of VarCorr, the outer block first", {
  data <- oats()
  fit <- lme4::lmer(yield ~ nitro + (1 | Block / Variety), data)
  tables <- chain(fit, df = "satterthwaite")
  expected <- as.data.frame(lme4::VarCorr(fit))
  expect_figures(tables[["CovarianceParameters-1"]]$Estimate,
    expected$vcov[expected$grp == "Block"])
  expect_figures(tables[["CovarianceParameters-2"]]$Estimate,
    expected$vcov[expected$grp == "Variety:Block"])
  expect_figures(tables[["ResidualEffect-1"]]$Estimate, sigma(fit)^2)
  summary <- tables[["CovarianceParametersSummary-1"]]
  expect_identical(summary$Value, c(1, 2, 5, 4, 6))
})

test_that("slopes that are correlated, and slopes that are not, keep their matrices", {
  sleep <- lme4::sleepstudy
  fit <- lme4::lmer(Reaction ~ Days + (Days | Subject), sleep)
  tables <- chain(fit, df = "satterthwaite")
  expected <- as.data.frame(lme4::VarCorr(fit), order = "lower.tri")
  expect_figures(tables[["CovarianceParameters-1"]]$Estimate, expected$vcov[1:3])
  expect_figures(as.matrix(tables[["RandomEffects-1"]][-1]), as.numeric(lme4::VarCorr(fit)$Subject))
  apart <- lme4::lmer(Reaction ~ Days + (Days || Subject), sleep)
  tables <- chain(apart, df = "satterthwaite")
  variances <- as.data.frame(lme4::VarCorr(apart))$vcov[1:2]
  expect_figures(tables[["CovarianceParameters-1"]]$Estimate, variances)
  expect_figures(as.matrix(tables[["RandomEffects-1"]][-1]), diag(variances))
})

# The error of a variance by a profile-free check: the second derivative of the deviance where it is
# plain.
test_that("errors of variances come from the covariance of the fit's parameters", {
  fit <- lmerTest::lmer(Reaction ~ 1 + (1 | Subject), lme4::sleepstudy)
  tables <- chain(fit)
  theta <- lme4::getME(fit, "theta")
  v <- fit@vcov_varpar
  gradient <- c(2 * theta * sigma(fit)^2, 2 * theta^2 * sigma(fit))
  expect_figures(tables[["CovarianceParameters-1"]][["Std. Error"]],
    sqrt(drop(gradient %*% v %*% gradient)), 1e-8)
  expect_figures(tables[["ResidualEffect-1"]][["Std. Error"]], 2 * sigma(fit) * sqrt(v[2, 2]), 1e-8)
})

test_that("a singular fit says so and shows its zero variances as zero", {
  sleep <- transform(lme4::sleepstudy, g = factor(rep(1:3, 60)))
  suppressMessages(fit <- lme4::lmer(Reaction ~ 1 + (1 | g), sleep))
  expect_match(written(fit, df = "satterthwaite"), "kGLMM_C8", fixed = TRUE)
  suppressMessages(partly <- lme4::lmer(Reaction ~ Days + (1 | Subject) + (1 | g), sleep))
  expect_match(written(partly, df = "satterthwaite"), "kGLMM_C10", fixed = TRUE)
})

test_that("criteria are those of logLik and BIC", {
  fit <- lme4::lmer(Reaction ~ Days + (1 | Subject), lme4::sleepstudy)
  text <- written(fit, df = "satterthwaite")
  value <- function(name) as.numeric(sub(paste0(".*name=\"", name, "\" value=\"([^\"]*)\".*"),
    "\\1", text))
  expect_figures(value("minus2LogLikelihood"), -2 * as.numeric(logLik(fit)))
  expect_figures(value("BIC"), BIC(fit))
  expect_figures(value("AICC"), AIC(fit) + 2 * 4 * 5 / (180 - 5))
})
