# Covariance parameters by two fitters that reach the same maximum in different ways. Errors rest on
# numerical second derivatives, and so agree but to some digits.

parameters_of <- function(fit, table = "CovarianceParameters-1") {
  figures <- suppressMessages(chain(fit, df = if (inherits(fit, "lmerMod")) "satterthwaite"))[[table]]
  figures[c(names(figures)[1], "Estimate", "Std. Error")]
}

residual_of <- function(fit) parameters_of(fit, "ResidualEffect-1")

expect_same_parameters <- function(ours, theirs, rows = TRUE, info) {
  expect_equal(ours$Estimate[rows], theirs$Estimate, tolerance = 2e-3, info = info)
  expect_equal(ours[["Std. Error"]][rows], theirs[["Std. Error"]], tolerance = 3e-2, info = info)
}

test_that("structures of glmmTMB agree with residual correlations of gls", {
  skip_if_not_installed("glmmTMB")
  serial <- case_data$serial
  tmb <- function(term) {
    formula <- as.formula(paste("y ~ x +", term))
    suppressWarnings(glmmTMB::glmmTMB(formula, serial, dispformula = ~0))
  }
  gls <- function(correlation, weights = NULL) {
    nlme::gls(y ~ x, serial, correlation = correlation, weights = weights, method = "ML")
  }
  by_time <- nlme::varIdent(form = ~ 1 | f)
  serially <- residual_of(gls(nlme::corAR1(form = ~ t | g)))
  expect_identical(serially[[1]], c("AR(1) diagonal", "AR(1) rho"))
  for (term in c("ar1(0 + f | g)", "ou(0 + at | g)")) {
    ours <- parameters_of(tmb(term))
    expect_identical(ours[[1]], serially[[1]])
    expect_same_parameters(ours, serially, info = term)
  }
  whole <- residual_of(gls(nlme::corSymm(form = ~ 1 | g), by_time))
  ours <- parameters_of(tmb("us(0 + f | g)"))
  expect_identical(ours[[1]], whole[[1]])
  expect_same_parameters(ours, whole, info = "us")
  symmetric <- residual_of(gls(nlme::corCompSymm(form = ~ 1 | g), by_time))
  ours <- parameters_of(tmb("cs(0 + f | g)"))
  expect_identical(ours[[1]], c(paste0("Var(f", 1:4, ")"), "CS rho"))
  expect_same_parameters(ours, symmetric, info = "cs")
})

test_that("a Toeplitz matrix is made of its variances and correlations by lag", {
  skip_if_not_installed("glmmTMB")
  fit <- suppressWarnings(glmmTMB::glmmTMB(y ~ x + toep(0 + f | g), case_data$serial, dispformula = ~0))
  ours <- parameters_of(fit)
  expected <- glmmTMB::VarCorr(fit)$cond$g
  expect_figures(ours$Estimate[1:4], diag(as.matrix(expected)))
  expect_figures(ours$Estimate[5:7], attr(expected, "correlation")[2:4, 1])
  # The errors of variances are those of logs of deviations, the first parameters.
  log_sd <- sqrt(diag(vcov(fit, full = TRUE)))[3:6]
  expect_figures(ours[["Std. Error"]][1:4], 2 * ours$Estimate[1:4] * log_sd, tolerance = 1e-6)
})

test_that("matrices of lme agree with blocks of lmer", {
  skip_if_not_installed("lmerTest")
  data <- oats()
  same <- nlme::lme(yield ~ nitro, data, list(Block = nlme::pdCompSymm(~ Variety - 1)))
  blocks <- lmerTest::lmer(yield ~ nitro + (1 | Block) + (1 | Block:Variety), data)
  ours <- parameters_of(same)
  expect_identical(ours[[1]], c("CS diagonal offset", "CS covariance"))
  expect_same_parameters(ours, parameters_of(blocks, "CovarianceParameters-2"), rows = 1, info = "offset")
  expect_same_parameters(ours, parameters_of(blocks), rows = 2, info = "covariance")
  alone <- nlme::lme(yield ~ nitro, data, list(Block = nlme::pdIdent(~ Variety - 1)))
  other <- lmerTest::lmer(yield ~ nitro + (1 | Block:Variety), data)
  expect_identical(parameters_of(alone)[[1]], "Variance")
  expect_same_parameters(parameters_of(alone), parameters_of(other), info = "identity")
})

test_that("strata that cross subjects are variances beside the correlation, others have sets of their own", {
  data <- as.data.frame(nlme::Orthodont)
  crossing <- nlme::gls(distance ~ age, data, correlation = nlme::corAR1(form = ~ 1 | Subject),
    weights = nlme::varIdent(form = ~ 1 | age))
  ours <- residual_of(crossing)
  ratios <- coef(crossing$modelStruct$varStruct, unconstrained = FALSE, allCoef = TRUE)
  expect_identical(ours[[1]], c(paste0("Var(", names(ratios), ")"), "Phi"))
  expect_figures(ours$Estimate[1:4], (crossing$sigma * ratios)^2)
  expect_figures(ours$Estimate[5], coef(crossing$modelStruct$corStruct, unconstrained = FALSE))
  within <- nlme::intervals(crossing, which = "var-cov")
  ours <- suppressMessages(chain(crossing))[["ResidualEffect-1"]]
  # On the log scale the interval of the first variance is twice that of its deviation.
  expect_figures(ours[["95% Confidence Interval Lower"]][1], within$sigma[["lower"]]^2, tolerance = 1e-3)
  apart <- update(crossing, weights = nlme::varIdent(form = ~ 1 | Sex))
  residual <- suppressMessages(chain(apart))[["ResidualEffect-1"]]
  ratio <- coef(apart$modelStruct$varStruct, unconstrained = FALSE, allCoef = TRUE)
  expect_figures(sort(residual$Estimate[c(1, 3)]), sort((apart$sigma * ratio)^2))
  expect_figures(residual$Estimate[c(2, 4)], rep(coef(apart$modelStruct$corStruct, unconstrained = FALSE), 2))
  lower <- nlme::intervals(apart, which = "var-cov")$corStruct[1, "lower"]
  expect_figures(residual[["95% Confidence Interval Lower"]][2], lower, 1e-2)
  symmetric <- nlme::gls(effort ~ Type, nlme::ergoStool, correlation = nlme::corCompSymm(form = ~ 1 | Subject))
  expect_figures(sum(residual_of(symmetric)$Estimate), symmetric$sigma^2)
})

test_that("the matrix of a subject is that of getVarCov", {
  data <- as.data.frame(nlme::Orthodont)
  for (weights in list(NULL, nlme::varIdent(form = ~ 1 | age))) {
    fit <- nlme::gls(distance ~ age, data, correlation = nlme::corSymm(form = ~ 1 | Subject), weights = weights)
    expected <- unclass(nlme::getVarCov(fit))
    expect_figures(residual_of(fit)$Estimate, expected[upper.tri(expected, diag = TRUE)])
  }
})

test_that("parameters that the documents cannot name have the fitter's names and values", {
  data <- as.data.frame(nlme::Orthodont)
  by_age <- nlme::corExp(form = ~ age | Subject, nugget = TRUE)
  near <- residual_of(nlme::gls(distance ~ age, data, correlation = by_age))
  expect_identical(near[[1]][-1], c("range", "nugget"))
  fit <- nlme::gls(distance ~ age, data, weights = nlme::varPower(form = ~age))
  power <- residual_of(fit)
  expect_identical(power[[1]], c("Variance", "power"))
  expect_figures(power$Estimate, c(sigma(fit)^2, coef(fit$modelStruct$varStruct)))
})
