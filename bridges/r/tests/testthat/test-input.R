skip_if_not_installed("emmeans")

test_that("names, levels, labels and formats come through as they are", {
  data <- data.frame(y = c(1.5, 2, 4, 3, 6, 5), check.names = FALSE)
  data$`a "b" <&>` <- factor(rep(c("x y", "\u00e9\"t", "<&>"), 2))
  data$n <- 1:6
  attr(data$n, "label") <- "Num & <ber>"
  attr(data$n, "format.data") <- "F5.1"
  data$o <- factor(c(1, 2, 2, 3, 3, 1), ordered = TRUE)
  attr(data$o, "labels") <- c(high = 3, low = 1)
  pmml <- fields_of(lm(y ~ n + o, data))
  expect_match(pmml, "name=\"n\" displayName=\"Num &amp; &lt;ber&gt;\"", fixed = TRUE)
  expect_match(pmml, "value=\"F5.1\"", fixed = TRUE)
  expect_match(pmml, "name=\"o\" optype=\"ordinal\" dataType=\"integer\"", fixed = TRUE)
  expect_match(pmml, "<Value value=\"3\" displayValue=\"high\"/>", fixed = TRUE)
  tables <- chain(lm(y ~ `a "b" <&>` + n, data), means = ~ `a "b" <&>`)
  expect_identical(tables[["Estimates-1"]][[1]], levels(data[[2]]))
})

test_that("levels and columns that read alike are refused", {
  data <- data.frame(y = c(1.5, 2, 4, 3, 6, 5), g = rep(c("u\x01", "u "), 3), x = c(3, 1, 4, 1, 5, 9))
  expect_error(written(lm(y ~ g, data)), "Two levels of g read alike")
  fields <- lapply(c("x\x01", "x "), hierfit:::make_field, x = 1:3)
  expect_error(hierfit:::pmml_document(fields, "x ", TRUE), "Two columns of the data read alike")
})

test_that("coefficients stand in the rows of their levels, nested ones within the factor that nests", {
  cases <- list(
    list(lm(breaks ~ wool * tension, warpbreaks), "[wool=B]*[tension=M]", "woolB:tensionM"),
    list(lm(breaks ~ 0 + tension + wool:tension, warpbreaks), "[wool=B]([tension=M])", "tensionM:woolB"),
    list(lm(breaks ~ wool * tension, warpbreaks, contrasts = list(wool = contr.treatment(2, base = 2))),
      "[wool=A]*[tension=H]", "wool1:tensionH"),
    list(lm(strength ~ batch / cask, lme4::Pastes), "[cask=c]([batch=D])", "batchD:caskc")
  )
  for (case in cases) {
    table <- suppressMessages(chain(case[[1L]]))[["FixedCoefficients-1"]]
    expect_figures(table$Coefficient[table[["Model Term"]] == case[[2L]]], coef(case[[1L]])[[case[[3L]]]],
      info = case[[2L]])
  }
})

test_that("terms made in the formula are fields or powers, and are tested by their own columns", {
  fit <- lm(mpg ~ poly(wt, 2) + log(hp) + qsec + I(qsec^2) + factor(gear), mtcars)
  effects <- chain(fit)[["FixedEffects-1"]]
  expect_figures(effects$F[-1], drop1(fit, test = "F")[["F value"]][-1], 1e-8)
  expect_true("qsec * qsec" %in% effects$Source)
})

test_that("an effect that is not estimable is named", {
  text <- suppressMessages(written(lm(yield ~ block + N * P * K, npk)))
  expect_match(text, "kGLMM_C27.*value=\"N\\*P\\*K\"")
})

test_that("records are those of the fit, without missing values and within its subset", {
  data <- case_data$miss
  fits <- list(lme4::lmer(Reaction ~ Days + (1 | Subject), data),
    nlme::lme(Reaction ~ Days, data, random = ~ 1 | Subject, na.action = na.omit),
    nlme::lme(Reaction ~ Days, case_data$sleep, random = ~ 1 | Subject, subset = Days < 8))
  records <- c(96, 96, 144)
  for (i in seq_along(fits)) {
    expect_match(suppressMessages(written(fits[[i]])), paste0("<Counts totalFreq=\"", records[i], "\"/>"),
      fixed = TRUE)
  }
})

test_that("a class that is not known is an error that lists those that are", {
  expect_error(written(nls(mpg ~ a + b * wt, mtcars, start = list(a = 30, b = -5))),
    "nls is not known.*glmmTMB.*multinom")
})

test_that("crossed blocks have no common subject, nested ones the outer field", {
  blocks <- list(list(diameter ~ 1 + (1 | plate) + (1 | sample), lme4::Penicillin, subjects = 1, columns = 30),
    list(strength ~ 1 + (1 | batch / cask), lme4::Pastes, subjects = 10, columns = 4),
    list(y ~ 1 + (1 | a / b), case_data$three[case_data$three$a != "1" | case_data$three$b == "2", ],
      subjects = 6, columns = 6))
  for (block in blocks) {
    text <- suppressMessages(written(lme4::lmer(block[[1L]], block[[2L]]), df = "satterthwaite"))
    expect_identical(criterion(text, "numOfCommonSubjects"), block$subjects)
    expect_identical(criterion(text, "numOfColsOfRandom"), block$columns)
  }
})

test_that("repeated measures stand beside the first subject's records, by name or by the correlation's covariate", {
  sleep <- transform(lme4::sleepstudy[sample(180), ], Day = factor(Days))
  fit <- lme4::lmer(Reaction ~ Days + (1 | Subject), sleep)
  table <- chain(fit, df = "satterthwaite", repeated = "Day")[["DataStructure-1"]]
  first <- sleep[sleep$Subject == sleep$Subject[1], ]
  measured <- table[["Repeated Measures Day"]]
  expect_identical(as.character(measured[1:10]), as.character(first$Day))
  expect_identical(as.numeric(measured[11]), 10)
  expect_error(written(fit, repeated = "Days"), "copy of it")
  expect_error(written(fit, repeated = "Weeks"), "Weeks is not in the data")
  serial <- nlme::gls(y ~ x, case_data$serial, correlation = nlme::corAR1(form = ~ t | g))
  expect_match(written(serial), "repeatedMeasures.*field=\"t\"")
})
