skip_if_not_installed("emmeans")

test_that("contrasts are those of emmeans by every method, within the other factor", {
  fit <- lm(breaks ~ wool * tension, warpbreaks)
  tables <- chain(fit, means = list(~ tension | wool, ~tension, ~tension),
    contrasts = c("pairwise", "deviation", "simple"), reference = list(NULL, NULL, "M"))
  emm <- suppressMessages(emmeans::emmeans(fit, ~ tension | wool))
  pairs <- as.data.frame(summary(emmeans::contrast(emm, "pairwise"), infer = TRUE, adjust = "none"))
  got <- tables[["Contrasts-1"]]
  expect_identical(got[[2]], rep(c("L - M", "L - H", "M - H"), 2))
  expect_figures(got[c("Contrast Estimate", "Adj. Sig.", "95% Confidence Interval Lower")],
    pairs[c("estimate", "p.value", "lower.CL")])
  alone <- suppressMessages(emmeans::emmeans(fit, ~tension))
  effects <- as.data.frame(emmeans::contrast(alone, "eff", adjust = "none"))
  expect_figures(tables[["Contrasts-2"]][["Contrast Estimate"]], effects$estimate)
  expect_identical(tables[["Contrasts-3"]][[1]], c("L - M", "H - M"))
})

test_that("a block of three factors compares the first one's levels within the others", {
  fit <- lm(yield ~ N + P * K, npk)
  tables <- chain(fit, means = ~ P:N | K, contrasts = "pairwise", adjust = "sidak-sequential")
  expect_identical(names(tables[["Estimates-1"]])[1:3], c("K", "N", "P"))
  got <- vapply(tables[["Contrasts-1"]][1:3], `[`, "", 2L)
  expect_identical(got, c(K = "0", N = "1", `P Pairwise Contrasts` = "0 - 1"))
})

test_that("sequential adjustments follow their definition, and limits their levels", {
  p <- c(0.04, 0.001, 0.03, NA, 0.5, 0.03)
  expect_equal(hierfit:::adjust_p(p, "bonferroni-sequential"), p.adjust(p, "holm"))
  most <- 1 - 0.97^4
  expect_equal(hierfit:::adjust_p(p, "sidak-sequential"), c(most, 1 - 0.999^5, most, NA, 0.5, most))
  expect_equal(hierfit:::step_levels(p, "bonferroni-sequential", 0.05), 0.05 / c(2, 5, 4, NA, 1, 4))
  fit <- lm(breaks ~ tension, warpbreaks)
  got <- chain(fit, means = ~tension, contrasts = "pairwise", adjust = "bonferroni-sequential", level = 0.9)
  got <- got[["Contrasts-1"]]
  reach <- qt(1 - 0.1 / 2 / (4 - rank(-abs(got$t))), 51) * got[["Std. Error"]]
  expect_figures(got[["90% Confidence Interval Upper"]], got[["Contrast Estimate"]] + reach)
})

test_that("a continuous predictor stands where it is put", {
  fit <- lm(mpg ~ wt + factor(cyl), mtcars)
  tables <- chain(fit, means = list(~cyl, ~wt), at = list(wt = c(2, 3)))
  expect_figures(tables[["Estimates-2"]]$Mean,
    as.data.frame(emmeans::emmeans(fit, ~wt, at = list(wt = c(2, 3))))$emmean)
  expect_figures(chain(fit, means = ~cyl, at = list(wt = 3))[["Estimates-1"]]$Mean,
    as.data.frame(emmeans::emmeans(fit, ~cyl, at = list(wt = 3)))$emmean)
})

test_that("what cannot be asked is refused by name", {
  fit <- lm(breaks ~ wool + n, transform(warpbreaks, n = seq_len(54)))
  wrong <- list(
    list("tension.*does not have", means = ~tension), list("formulas such as", means = "wool"),
    list("at = list\\(n", means = ~n),
    list("not a level of wool", means = ~wool, contrasts = "simple", reference = "C"),
    list("`contrasts` is one of .*not all", means = ~wool, contrasts = "all"),
    list("`reference` has one value", means = ~wool, contrasts = "simple", reference = c("A", "B")),
    list("`at` names wool, .*It has: n.", at = list(wool = "A")),
    list("n has \"many\"", at = list(n = "many")),
    list("`level` .*not 2", level = 2), list("`adjust` is one of .*not \"tukey\"", adjust = "tukey"),
    list("`df` is one of .*not 10", df = 10)
  )
  for (case in wrong) expect_error(do.call(written, c(list(fit), case[-1L])), case[[1L]])
  expect_error(hf_documents(fit, 3), "`folder` is one path; not 3")
  expect_error(hf_report(fit, "a.html", title = c("a", "b")), "`title` is one text")
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
    expect_figures(tables[["Contrasts-1"]][c("Contrast Estimate", "Adj. Sig.")], contrasts[c("estimate", "p.value")])
    expect_error(suppressMessages(written(fit, means = ~a)), "such as ~ a \\| o")
    expect_error(suppressMessages(written(fit, means = ~ o | a, contrasts = "pairwise")), "such as ~ a \\| o")
  }
})

test_that("the chart of significant effects has means of their own scale, the strongest effect first", {
  fit <- glm(cbind(ncases, ncontrols) ~ agegp, binomial, esoph)
  expected <- as.data.frame(summary(emmeans::emmeans(fit, ~agegp), type = "response"))
  expect_figures(array_behind(written(fit), "description=\"Emmeans\".*?statistic=\"mean\""), expected$prob)
  text <- written(lm(len ~ supp + factor(dose), ToothGrowth))
  fields <- regmatches(text, gregexpr("(?s)description=\"Emmeans\".*?field=\"\\K\\w+", text, perl = TRUE))[[1L]]
  expect_identical(fields, c("dose", "supp"))
  expect_no_match(written(lm(Sepal.Length ~ cut, transform(iris, cut = rep(c("a", "b"), 75)))), "\"Emmeans\"")
})

test_that("what emmeans cannot take is an error that says so", {
  data <- stats::setNames(warpbreaks, c("y", "b{", "h"))
  expect_error(suppressWarnings(written(lm(y ~ `b{` * h, data))),
    "emmeans cannot take this fit .*columns of the data names")
})

test_that("Kenward and Roger's degrees of freedom are refused without REML", {
  skip_if_not_installed("lmerTest")
  fit <- lme4::lmer(Reaction ~ Days + (1 | Subject), lme4::sleepstudy, REML = FALSE)
  expect_error(written(fit, df = "kenward-roger"), "REML = TRUE")
})

test_that("contrasts stand at values of a continuous predictor, and between them", {
  fit <- lm(Reaction ~ Days * late, case_data$sleep)
  expect_message(tables <- chain(fit, means = list(~ late | Days, ~ Days | late), contrasts = "pairwise",
    at = list(Days = c(2, 7))), "overall tests.*Days")
  grid <- suppressMessages(emmeans::emmeans(fit, ~ late * Days, at = list(Days = c(2, 7))))
  for (i in 1:2) {
    expected <- as.data.frame(emmeans::contrast(grid, "pairwise", by = c("Days", "late")[i], adjust = "none"))
    expect_figures(tables[[paste0("Contrasts-", i)]][c("Contrast Estimate", "Adj. Sig.")],
      expected[c("estimate", "p.value")])
  }
  expect_identical(sum(grepl("^OverallTestResults", names(tables))), 1L)
})

test_that("means of a response made in the formula stand on its own scale", {
  data <- warpbreaks
  fits <- list(
    lm(log(breaks) ~ wool, data), lm(asin(sqrt(breaks / 100)) ~ wool, data), lm(I(breaks / 2) ~ wool, data),
    glm(I(breaks^2) ~ wool, Gamma("inverse"), data),
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
