skip_if_not_installed("emmeans")

test_that("the test of an lm with one factor is its anova to the last digits", {
  fit <- lm(breaks ~ tension, warpbreaks)
  effects <- chain(fit)[["FixedEffects-1"]]
  expected <- anova(fit)
  expect_figures(effects$F, rep(expected[["F value"]][1], 2))
  expect_figures(effects[["Sig."]], rep(expected[["Pr(>F)"]][1], 2))
})

test_that("a glmer has its matrix, no denominator df but those that are asked for, and events classified", {
  skip_if_not_installed("lme4")
  fit <- lme4::glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), lme4::cbpp, binomial)
  tables <- chain(fit)
  expect_true(all(is.na(tables[["FixedEffects-1"]]$df2)))
  counts <- as.matrix(tables[["Classification-1"]][c(1, 3), -(1:2)])
  expect_identical(sum(counts), as.numeric(sum(lme4::cbpp$size)))
  hessian <- fit@optinfo$derivs$Hessian
  expect_figures(tables[["CovarianceParameters-1"]][["Std. Error"]],
    2 * lme4::getME(fit, "theta") * sqrt(2 * solve(hessian)[1, 1]), 1e-6)
  residual <- chain(fit, df = "residual")
  expect_identical(unique(residual[["FixedEffects-1"]]$df2), 52)
  expect_figures(estimated(residual[["FixedCoefficients-1"]])[["Sig."]], 2 * pt(-abs(coef(summary(fit))[, 3]), 52))
})

test_that("exponentiated coefficients stand with log and logit links only", {
  has <- function(fit) "Exp(Coefficient)" %in% names(chain(fit)[["FixedCoefficients-1"]])
  for (link in c("log", "sqrt")) expect_identical(has(glm(count ~ spray, poisson(link), InsectSprays)), link == "log")
})

test_that("events of trials are seen in each of the ways to give them", {
  data <- transform(esoph, n = ncases + ncontrols)
  ways <- list(
    `ncases + ncontrols` = glm(cbind(ncases, ncontrols) ~ agegp, data, family = binomial),
    n = glm(cbind(ncases, n - ncases) ~ agegp, data, family = binomial),
    n = glm(ncases / n ~ agegp, data, family = binomial, weights = n)
  )
  for (i in seq_along(ways)) {
    expect_message(text <- written(ways[[i]]), NA)
    expect_match(text, "name=\"TargetField\" value=\"ncases\"", fixed = TRUE)
    expect_match(text, paste0("name=\"TrialsField\" value=\"", names(ways)[i], "\""), fixed = TRUE)
  }
})

test_that("residual degrees of freedom reach the means and the contrasts of a glm", {
  fit <- glm(breaks ~ wool + tension, warpbreaks, family = Gamma("log"))
  tables <- chain(fit, means = ~tension, contrasts = "pairwise", df = "residual")
  got <- tables[["Contrasts-1"]]
  expect_identical(unique(got$df), 50)
  expect_figures(got[["Adj. Sig."]], 2 * pt(-abs(got$t), 50))
  expect_identical(tables[["OverallTestResults-1"]]$df2, 50)
})

test_that("beyond 100 records, points are the middles of cells, of which 20 make the range", {
  sleep <- lme4::sleepstudy
  observed <- array_behind(written(lm(Reaction ~ Days, sleep)), "observedByPredicted")
  cells <- (observed - min(sleep$Reaction)) / diff(range(sleep$Reaction)) * 20
  expect_equal(cells %% 1, rep(0.5, length(cells)))
})
