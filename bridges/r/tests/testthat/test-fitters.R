skip_if_not_installed("emmeans")

test_that("lme gives its summary, marginal tests, variances and intervals", {
  skip_if_not_installed("nlme")
  data <- nlme::Orthodont
  fit <- nlme::lme(distance ~ age + Sex, data, random = ~ age | Subject)
  tables <- chain(fit)
  s <- summary(fit)$tTable
  expect_coefficients(tables, s[, 1], s[, 2], s[, 4], s[, 5])
  expected <- anova(fit, type = "marginal")[-1, ]
  effects <- tables[["FixedEffects-1"]][-1, ]
  expect_figures(effects$F, expected[["F-value"]])
  expect_figures(effects$df2, expected$denDF)
  matrix <- as.matrix(fit$modelStruct$reStruct[[1]]) * fit$sigma^2
  expect_figures(as.matrix(tables[["RandomEffects-1"]][-1]), matrix)
  pars <- attr(fit$apVar, "Pars")
  expect_figures(tables[["ResidualEffect-1"]][["Std. Error"]],
    2 * fit$sigma^2 * sqrt(fit$apVar["lSigma", "lSigma"]), 1e-6)
  # On the log scale the interval of a variance is twice that of its standard deviation.
  within <- nlme::intervals(fit, which = "var-cov")$reStruct$Subject["sd(age)", ]
  lower <- tables[["CovarianceParameters-1"]][["95% Confidence Interval Lower"]]
  expect_figures(lower[3], within[["lower"]]^2, 1e-4)
})

test_that("gls gives correlations of its residuals, and variances by group", {
  skip_if_not_installed("nlme")
  data <- as.data.frame(nlme::Orthodont)
  form <- ~ 1 | Subject
  fit <- nlme::gls(distance ~ age + Sex, data, correlation = nlme::corAR1(form = form),
    weights = nlme::varIdent(form = ~ 1 | Sex))
  tables <- chain(fit)
  s <- summary(fit)$tTable
  expect_coefficients(tables, s[, 1], s[, 2], s[, 3], s[, 4])
  residual <- tables[["ResidualEffect-1"]]
  ratio <- coef(fit$modelStruct$varStruct, unconstrained = FALSE, allCoef = TRUE)
  rho <- coef(fit$modelStruct$corStruct, unconstrained = FALSE)
  variances <- residual$Estimate[c(1, 3)]
  expect_figures(sort(variances), sort(unname((fit$sigma * ratio)^2)))
  expect_figures(residual$Estimate[c(2, 4)], rep(unname(rho), 2))
  within <- nlme::intervals(fit, which = "var-cov")$corStruct[1, ]
  expect_figures(residual[["95% Confidence Interval Lower"]][2], within[["lower"]], 1e-2)
})

test_that("compound symmetry adds up to the fit's variance", {
  skip_if_not_installed("nlme")
  data <- as.data.frame(nlme::ergoStool)
  fit <- nlme::gls(effort ~ Type, data, correlation = nlme::corCompSymm(form = ~ 1 | Subject))
  expect_figures(sum(chain(fit)[["ResidualEffect-1"]]$Estimate), fit$sigma^2)
})

test_that("glmmTMB gives its summary and matrices", {
  skip_if_not_installed("glmmTMB")
  fit <- glmmTMB::glmmTMB(Reaction ~ Days + (Days | Subject), lme4::sleepstudy)
  tables <- chain(fit)
  s <- summary(fit)$coefficients$cond
  expect_coefficients(tables, s[, 1], s[, 2], s[, 3], s[, 4])
  matrix <- glmmTMB::VarCorr(fit)$cond$Subject
  expect_figures(as.matrix(tables[["RandomEffects-1"]][-1]), as.numeric(matrix))
  expect_figures(tables[["ResidualEffect-1"]]$Estimate, sigma(fit)^2)
  # Both fitters find the same maximum, and so about the same errors.
  other <- lmerTest::lmer(Reaction ~ Days + (Days | Subject), lme4::sleepstudy, REML = FALSE)
  there <- chain(other, df = "satterthwaite")
  expect_equal(tables[["CovarianceParameters-1"]][["Std. Error"]],
    there[["CovarianceParameters-1"]][["Std. Error"]], tolerance = 0.02)
})

test_that("cumulative link models give thresholds, effects and errors of variances", {
  skip_if_not_installed("ordinal")
  wine <- ordinal::wine
  fit <- ordinal::clm(rating ~ temp + contact, data = wine)
  tables <- chain(fit)
  s <- coef(summary(fit))
  expect_coefficients(tables, s[, 1], s[, 2], s[, 3], s[, 4])
  share <- mean(as.character(predict(fit, type = "class")$fit) == as.character(wine$rating))
  expect_match(attr(tables[["Classification-1"]], "title"), sprintf("%.1f%%", 100 * share),
    fixed = TRUE)
  mixed <- ordinal::clmm(rating ~ temp + contact + (1 | judge), data = wine)
  tables <- chain(mixed)
  s <- coef(summary(mixed))
  expect_coefficients(tables, s[, 1], s[, 2], s[, 3], s[, 4])
  expect_figures(tables[["CovarianceParameters-1"]]$Estimate,
    as.numeric(ordinal::VarCorr(mixed)$judge))
})

test_that("multinom gives coefficients by category and tests over all equations", {
  skip_if_not_installed("nnet")
  fit <- nnet::multinom(Sat ~ Infl + Cont, MASS::housing, weights = Freq, trace = FALSE,
    Hess = TRUE)
  tables <- chain(fit)
  s <- summary(fit)
  table <- estimated(tables[["FixedCoefficients-1"]])
  expect_figures(table$Coefficient, t(s$coefficients))
  expect_figures(table[["Std. Error"]], t(s$standard.errors))
  effects <- tables[["FixedEffects-1"]]
  expect_identical(effects$df1, c(6, 4, 2))
  without <- update(fit, . ~ . - Infl)
  ratio <- without$deviance - fit$deviance
  expect_equal(effects$F[2] * 4, ratio, tolerance = 0.1)
})
