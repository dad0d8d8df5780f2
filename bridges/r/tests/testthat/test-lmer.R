skip_if_not_installed("lmerTest")
skip_if_not_installed("emmeans")

test_that("tests and coefficients of lmer are those of lmerTest in the order of the terms, by either method", {
  skip_if_not_installed("pbkrtest")
  fit <- lmerTest::lmer(yield ~ nitro * Variety + (1 | Block / Variety), oats())
  methods <- c(satterthwaite = "Satterthwaite", `kenward-roger` = "Kenward-Roger")
  for (df in names(methods)) {
    tables <- chain(fit, df = df)
    expected <- anova(fit, type = 3, ddf = methods[[df]])
    effects <- tables[["FixedEffects-1"]][-1, ]
    expect_identical(effects$Source, c("nitro", "Variety", "nitro * Variety"))
    expect_figures(effects[c("F", "df1", "df2", "Sig.")], expected[c("F value", "NumDF", "DenDF", "Pr(>F)")])
    summary <- coef(summary(fit, ddf = methods[[df]]))[c(1:7, 10, 8, 11, 9, 12), ]
    expect_figures(estimated(tables[["FixedCoefficients-1"]])[c("Coefficient", "Std. Error", "t", "Sig.")],
      summary[, -3])
  }
})

test_that("covariance parameters are those of VarCorr, the outer block first", {
  fit <- lme4::lmer(yield ~ nitro + (1 | Block / Variety), oats())
  tables <- chain(fit, df = "satterthwaite")
  variances <- vapply(c("CovarianceParameters-1", "CovarianceParameters-2", "ResidualEffect-1"),
    function(item) tables[[item]]$Estimate, 1)
  expect_figures(variances, c(lme4::VarCorr(fit)$Block, lme4::VarCorr(fit)$`Variety:Block`, sigma(fit)^2))
  expect_identical(tables[["CovarianceParametersSummary-1"]]$Value, c(1, 2, 5, 4, 6))
})

test_that("slopes that are correlated, and slopes that are not, keep their matrices", {
  fit <- lme4::lmer(Reaction ~ Days + (Days | Subject), lme4::sleepstudy)
  tables <- chain(fit, df = "satterthwaite")
  matrix <- as.numeric(lme4::VarCorr(fit)$Subject)
  expect_figures(tables[["CovarianceParameters-1"]]$Estimate, matrix[-2])
  expect_figures(as.matrix(tables[["RandomEffects-1"]][-1]), matrix)
  apart <- lme4::lmer(Reaction ~ Days + (Days || Subject), lme4::sleepstudy)
  variances <- as.data.frame(lme4::VarCorr(apart))$vcov[1:2]
  expect_figures(as.matrix(chain(apart, df = "satterthwaite")[["RandomEffects-1"]][-1]), diag(variances))
})

test_that("errors of variances come from the covariance of the fit's parameters", {
  fit <- lmerTest::lmer(Reaction ~ 1 + (1 | Subject), lme4::sleepstudy)
  tables <- chain(fit)
  theta <- lme4::getME(fit, "theta")
  v <- fit@vcov_varpar
  gradient <- c(2 * theta * sigma(fit)^2, 2 * theta^2 * sigma(fit))
  expect_figures(tables[["CovarianceParameters-1"]][["Std. Error"]], sqrt(drop(gradient %*% v %*% gradient)), 1e-8)
  expect_figures(tables[["ResidualEffect-1"]][["Std. Error"]], 2 * sigma(fit) * sqrt(v[2, 2]), 1e-8)
})

test_that("criteria are those of logLik and BIC", {
  fit <- lme4::lmer(Reaction ~ Days + (1 | Subject), lme4::sleepstudy)
  text <- written(fit, df = "satterthwaite")
  expect_figures(criterion(text, "minus2LogLikelihood"), -2 * as.numeric(logLik(fit)))
  expect_figures(criterion(text, "BIC"), BIC(fit))
  expect_figures(criterion(text, "AICC"), AIC(fit) + 2 * 4 * 5 / (180 - 5))
})
