skip_if_not_installed("emmeans")

test_that("means and contrasts are those of emmeans, within the other factor", {
  fit <- lm(breaks ~ wool * tension, warpbreaks)
  tables <- chain(fit, means = list(~ tension | wool, ~tension, ~tension),
    contrasts = c("pairwise", "deviation", "simple"),
    reference = list(NULL, NULL, "M"))
  emm <- suppressMessages(emmeans::emmeans(fit, ~ tension | wool))
  expected <- as.data.frame(summary(emm))
  expect_figures(tables[["Estimates-1"]][c("Mean", "Std. Error")], expected[c("emmean", "SE")])
  pairs <- as.data.frame(summary(emmeans::contrast(emm, "pairwise"), infer = TRUE, adjust = "none"))
  got <- tables[["Contrasts-1"]]
  expect_identical(got[[2]], rep(c("L - M", "L - H", "M - H"), 2))
  expect_figures(got[["Contrast Estimate"]], pairs$estimate)
  expect_figures(got[["Adj. Sig."]], pairs$p.value)
  expect_figures(got[["95% Confidence Interval Lower"]], pairs$lower.CL)
  joint <- as.data.frame(emmeans::test(emmeans::contrast(emm, "pairwise"), joint = TRUE))
  expect_figures(tables[["OverallTestResults-1"]][["Sig."]], joint$p.value)
  alone <- suppressMessages(emmeans::emmeans(fit, ~tension))
  effects <- as.data.frame(emmeans::contrast(alone, "eff", adjust = "none"))
  expect_figures(tables[["Contrasts-2"]][["Contrast Estimate"]], effects$estimate)
  simple <- tables[["Contrasts-3"]]
  expect_identical(simple[[1]], c("L - M", "H - M"))
})

test_that("means stand on the scale of the target, contrasts are differences there", {
  fit <- glm(count ~ spray, InsectSprays, family = poisson)
  tables <- chain(fit, means = ~spray, contrasts = "pairwise")
  emm <- emmeans::emmeans(fit, ~spray)
  expected <- as.data.frame(summary(emm, type = "response"))
  expect_figures(tables[["Estimates-1"]][c("Mean", "Std. Error")], expected[c("rate", "SE")])
  difference <- as.data.frame(emmeans::contrast(emmeans::regrid(emm), "pairwise", adjust = "none"))
  expect_figures(tables[["Contrasts-1"]][["Contrast Estimate"]], difference$estimate)
  expect_figures(tables[["Contrasts-1"]][["Adj. Sig."]], difference$p.value)
})

test_that("sequential adjustments follow their definition", {
  p <- c(0.04, 0.001, 0.03, NA, 0.5)
  bonferroni <- hierfit:::adjust_p(p, "bonferroni-sequential")
  expect_equal(bonferroni, p.adjust(p, "holm"))
  sidak <- hierfit:::adjust_p(p, "sidak-sequential")
  expect_equal(sidak[2], 1 - (1 - 0.001)^4)
  expect_equal(sidak[c(1, 3)], rep(1 - (1 - 0.03)^3, 2))
  expect_identical(order(sidak[-4]), c(2L, 1L, 3L, 4L))
  expect_equal(hierfit:::step_levels(p, "bonferroni-sequential", 0.05), 0.05 / c(2, 4, 3, NA, 1))
})

test_that("a continuous predictor stands where it is put", {
  fit <- lm(mpg ~ wt + factor(cyl), mtcars)
  tables <- chain(fit, means = list(~cyl, ~wt), at = list(wt = c(2, 3)))
  expect_figures(tables[["Estimates-2"]]$Mean,
    as.data.frame(emmeans::emmeans(fit, ~wt, at = list(wt = c(2, 3))))$emmean)
  expect_figures(chain(fit, means = ~cyl, at = list(wt = 3))[["Estimates-1"]]$Mean,
    as.data.frame(emmeans::emmeans(fit, ~cyl, at = list(wt = 3)))$emmean)
  expect_error(written(fit, means = ~wt), "at = list(wt", fixed = TRUE)
})

test_that("means that cannot be asked are refused by name", {
  fit <- lm(breaks ~ wool, warpbreaks)
  expect_error(written(fit, means = ~tension), "tension.*does not have")
  expect_error(written(fit, means = ~wool, contrasts = "simple", reference = "C"),
    "not a level of wool")
  expect_error(written(fit, means = ~wool, contrasts = "all"), "contrasts")
  expect_error(written(fit, means = "wool"), "formulas")
})

test_that("probabilities are the means of a target of several categories", {
  skip_if_not_installed("ordinal")
  skip_if_not_installed("nnet")
  fits <- list(
    quote(ordinal::clm(o ~ a + x, data = three)), quote(ordinal::clmm(o ~ a + x + (1 | c), data = three)),
    quote(nnet::multinom(o ~ a + x, three, trace = FALSE))
  )
  for (call in fits) {
    fit <- fitted_case(call)
    tables <- suppressMessages(chain(fit, means = list(~ o | a, ~ a | o), contrasts = c("none", "simple"),
      reference = list(NULL, "1")))
    emm <- suppressMessages(emmeans::emmeans(fit, ~ o | a, mode = "prob"))
    expected <- as.data.frame(summary(emm))
    got <- tables[["Estimates-1"]]
    expect_identical(got[[2]], as.character(expected$o))
    expect_figures(got[c("Mean", "Std. Error")], expected[c("prob", "SE")])
    contrasts <- as.data.frame(emmeans::contrast(emm, "trt.vs.ctrl", ref = 1, by = "o", adjust = "none"))
    got <- tables[["Contrasts-1"]]
    expect_figures(got[["Contrast Estimate"]], contrasts$estimate)
    expect_figures(got[["Adj. Sig."]], contrasts$p.value)
    expect_error(suppressMessages(written(fit, means = ~a)), "such as ~ a \\| o")
    expect_error(suppressMessages(written(fit, means = ~ o | a, contrasts = "pairwise")), "such as ~ a \\| o")
  }
})

test_that("a factor of any coding has its means in the chart of significant effects", {
  fit <- glm(cbind(ncases, ncontrols) ~ agegp, binomial, esoph)
  expected <- as.data.frame(summary(emmeans::emmeans(fit, ~agegp), type = "response"))
  expect_figures(array_behind(written(fit), "description=\"Emmeans\".*?statistic=\"mean\""), expected$prob)
})

test_that("what emmeans cannot take is an error that says so", {
  data <- warpbreaks
  fit <- lm(breaks ~ wool * tension, data)
  assign("vanished", data)
  fit$call$data <- as.name("vanished")
  environment(fit$terms) <- emptyenv()
  expect_error(suppressMessages(written(fit, means = ~wool)), "emmeans cannot take this fit")
})

test_that("degrees of freedom of a fit of lmer follow its likelihood", {
  skip_if_not_installed("lmerTest")
  fit <- lme4::lmer(Reaction ~ Days + (1 | Subject), lme4::sleepstudy, REML = FALSE)
  expected <- coef(summary(lmerTest::as_lmerModLmerTest(fit), ddf = "Satterthwaite"))
  expect_figures(estimated(chain(fit)[["FixedCoefficients-1"]])[["Sig."]], expected[, 5])
  expect_error(written(fit, df = "kenward-roger"), "REML = TRUE")
})

test_that("contrasts stand at values of a continuous predictor, and between them", {
  fit <- lm(Reaction ~ Days * late, case_data$sleep)
  expect_message(tables <- chain(fit, means = list(~ late | Days, ~ Days | late), contrasts = "pairwise",
    at = list(Days = c(2, 7))), "overall tests.*Days")
  grid <- suppressMessages(emmeans::emmeans(fit, ~ late * Days, at = list(Days = c(2, 7))))
  for (i in 1:2) {
    by <- c("Days", "late")[i]
    expected <- as.data.frame(emmeans::contrast(grid, "pairwise", by = by, adjust = "none"))
    got <- tables[[paste0("Contrasts-", i)]]
    expect_figures(got[["Contrast Estimate"]], expected$estimate)
    expect_figures(got[["Adj. Sig."]], expected$p.value)
  }
  expect_identical(sum(grepl("^OverallTestResults", names(tables))), 1L)
})

test_that("means of a response made in the formula stand on its own scale", {
  data <- transform(warpbreaks, half = breaks / 2)
  fits <- list(
    lm(log(breaks) ~ wool, data), lm(sqrt(breaks) ~ wool, data), lm(scale(breaks) ~ wool, data),
    lm(asin(sqrt(breaks / 100)) ~ wool, data), lm(I(breaks / 2) ~ wool, data),
    glm(log(breaks) ~ wool, Gamma("log"), data), glm(I(breaks^2) ~ wool, Gamma("inverse"), data),
    nlme::gls(log(breaks) ~ wool, data), lme4::lmer(log(breaks) ~ wool + (1 | tension), data)
  )
  for (fit in fits) {
    tables <- suppressMessages(chain(fit, means = ~wool, contrasts = "pairwise"))
    expected <- as.numeric(tapply(fitted(fit), data$wool, mean))
    name <- deparse(formula(fit))
    expect_figures(tables[["Estimates-1"]]$Mean, expected, tolerance = 1e-7, info = name)
    expect_figures(tables[["Contrasts-1"]][["Contrast Estimate"]], expected[1] - expected[2], 1e-7, info = name)
  }
})

test_that("contrasts within a factor that nests stand in the order of its levels", {
  tables <- chain(lm(breaks ~ tension / wool, warpbreaks), means = ~ wool | tension, contrasts = "pairwise")
  means <- tapply(warpbreaks$breaks, warpbreaks[c("wool", "tension")], mean)
  expect_identical(tables[["Contrasts-1"]][[1]], colnames(means))
  expect_figures(tables[["Contrasts-1"]][["Contrast Estimate"]], means["A", ] - means["B", ])
  expect_identical(tables[["OverallTestResults-1"]][[1]], colnames(means))
})
