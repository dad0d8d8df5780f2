skip_if_not_installed("emmeans")

# Figures of single fitters that no table of all classes compares.

test_that("errors and limits of lme rest on the covariance of its parameters", {
  fit <- nlme::lme(distance ~ age + Sex, nlme::Orthodont, random = ~ age | Subject)
  tables <- chain(fit)
  expect_figures(tables[["ResidualEffect-1"]][["Std. Error"]],
    2 * fit$sigma^2 * sqrt(fit$apVar["lSigma", "lSigma"]), 1e-6)
  # On the log scale the interval of a variance is twice that of its standard deviation.
  within <- nlme::intervals(fit, which = "var-cov")$reStruct$Subject["sd(age)", ]
  lower <- tables[["CovarianceParameters-1"]][["95% Confidence Interval Lower"]]
  expect_figures(lower[3], within[["lower"]]^2, 1e-4)
})

test_that("glmmTMB has about the errors of lmer, which finds the same maximum", {
  skip_if_not_installed("glmmTMB")
  fits <- list(glmmTMB::glmmTMB(Reaction ~ Days + (Days | Subject), lme4::sleepstudy),
    lmerTest::lmer(Reaction ~ Days + (Days | Subject), lme4::sleepstudy, REML = FALSE))
  expect_figures(chain(fits[[1]])[["ResidualEffect-1"]]$Estimate, sigma(fits[[1]])^2)
  for (item in c("CovarianceParameters-1", "ResidualEffect-1")) {
    errors <- lapply(fits, function(fit) chain(fit)[[item]][["Std. Error"]])
    expect_equal(errors[[1]], errors[[2]], tolerance = 0.02)
  }
})

test_that("multinom tests effects over all equations", {
  skip_if_not_installed("nnet")
  fit <- nnet::multinom(Sat ~ Infl + Cont, MASS::housing, weights = Freq, trace = FALSE, Hess = TRUE)
  tables <- chain(fit)
  expect_figures(estimated(tables[["FixedCoefficients-1"]])$Coefficient, t(summary(fit)$coefficients))
  effects <- tables[["FixedEffects-1"]]
  expect_identical(effects$df1, c(6, 4, 2))
  without <- update(fit, . ~ . - Infl)
  expect_equal(effects$F[2] * 4, without$deviance - fit$deviance, tolerance = 0.1)
  # The criteria and the classification count the records by their weights.
  text <- written(fit)
  expect_figures(sum(array_behind(text, "classificationTable")), sum(MASS::housing$Freq))
  expect_figures(criterion(text, "BIC"), fit$deviance + fit$edf * log(sum(MASS::housing$Freq)))
})
