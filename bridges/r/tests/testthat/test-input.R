skip_if_not_installed("emmeans")

test_that("names, levels and labels come through as they are", {
  data <- data.frame(y = c(1.5, 2, 4, 3, 6, 5), check.names = FALSE)
  data$`a "b" <&>` <- factor(rep(c("x y", "\u00e9\"t", "<&>"), 2))
  data$n <- 1:6
  attr(data$n, "label") <- "Num & <ber>"
  fit <- lm(y ~ `a "b" <&>` + n, data)
  pmml <- fields_of(fit)
  expect_match(pmml, "name=\"a &quot;b&quot; &lt;&amp;&gt;\"", fixed = TRUE)
  expect_match(pmml, "displayName=\"Num &amp; &lt;ber&gt;\"", fixed = TRUE)
  tables <- chain(fit, means = ~ `a "b" <&>`)
  expect_identical(tables[["Estimates-1"]][[1]], levels(data[[2]]))
  s <- coef(summary(fit))
  expect_figures(estimated(tables[["FixedCoefficients-1"]])$Coefficient, s[, 1])
})

test_that("levels and columns that read alike are refused", {
  data <- data.frame(y = c(1.5, 2, 4, 3, 6, 5), g = rep(c("u\x01", "u "), 3), x = c(3, 1, 4, 1, 5, 9))
  expect_error(written(lm(y ~ g, data)), "Two levels of g read alike")
  fields <- lapply(c("x\x01", "x "), hierfit:::make_field, x = 1:3)
  expect_error(hierfit:::pmml_document(fields, "x ", TRUE), "Two columns of the data read alike")
})

test_that("a name that another package stumbles over is told with what to do", {
  data <- stats::setNames(warpbreaks, c("y", "b{", "h"))
  expect_error(suppressWarnings(written(lm(y ~ `b{` * h, data))),
    "emmeans cannot take this fit .*columns of the data names")
})

test_that("coefficients keep their places under every coding", {
  data <- warpbreaks
  codings <- list(
    lm(breaks ~ wool * tension, data), lm(breaks ~ 0 + tension + wool:tension, data),
    lm(breaks ~ wool * tension, data, contrasts = list(wool = contr.treatment(2, base = 2), tension = "contr.sum")),
    lm(breaks ~ tension * wool, data, contrasts = list(tension = "contr.poly"))
  )
  for (fit in codings) {
    tables <- suppressMessages(chain(fit))
    got <- estimated(tables[["FixedCoefficients-1"]])
    expect_setequal(signif(got$Coefficient, 10), signif(coef(fit), 10))
  }
  named <- chain(codings[[1]])[["FixedCoefficients-1"]]
  at <- function(label) named$Coefficient[named[["Model Term"]] == label]
  expect_figures(at("[wool=B]*[tension=H]"), coef(codings[[1]])[["woolB:tensionH"]])
  expect_figures(at("[wool=B]*[tension=M]"), coef(codings[[1]])[["woolB:tensionM"]])
})

test_that("terms made in the formula are fields or powers, and are tested by their own columns", {
  fit <- lm(mpg ~ poly(wt, 2) + log(hp) + qsec + I(qsec^2) + factor(gear), mtcars)
  tables <- chain(fit)
  s <- coef(summary(fit))
  expect_figures(estimated(tables[["FixedCoefficients-1"]])$t, s[, 3])
  effects <- tables[["FixedEffects-1"]]
  expected <- drop1(fit, test = "F")
  expect_figures(effects$F[-1], expected[["F value"]][-1], 1e-8)
  expect_true("qsec * qsec" %in% effects$Source)
})

test_that("coefficients that are not estimable are redundant, their effects named", {
  fit <- lm(yield ~ block + N * P * K, npk)
  text <- suppressMessages(written(fit))
  expect_match(text, "kGLMM_C27", fixed = TRUE)
  expect_match(text, "value=\"N*P*K\"", fixed = TRUE)
  s <- coef(summary(fit))
  expect_figures(estimated(suppressMessages(chain(fit))[["FixedCoefficients-1"]])$Coefficient,
    s[, 1])
})

test_that("records with missing values are left out as the fit leaves them out", {
  data <- lme4::sleepstudy
  data$Reaction[3:5] <- NA
  data$Days[10] <- NA
  fit <- lme4::lmer(Reaction ~ Days + (1 | Subject), data)
  expect_match(written(fit, df = "satterthwaite"), "<Counts totalFreq=\"176\"/>", fixed = TRUE)
  skip_if_not_installed("nlme")
  other <- nlme::lme(Reaction ~ Days, data, random = ~ 1 | Subject, na.action = na.omit)
  expect_match(written(other), "<Counts totalFreq=\"176\"/>", fixed = TRUE)
})

test_that("logical, text and number responses of two values are categories", {
  data <- transform(mtcars, t = ifelse(am == 1, "manual", "auto"))
  for (fit in list(glm(am ~ wt, binomial, data), glm(am == 1 ~ wt, binomial, data),
    glm(factor(t) ~ wt, binomial, data))) {
    table <- chain(fit)[["Classification-1"]]
    counts <- unlist(table[table[[2]] != "% within Observed", -(1:2)])
    expect_identical(sum(counts), 32)
    expect_identical(sum(counts[c(1, 4)]), as.numeric(sum((fitted(fit) > 0.5) == (data$am == 1))))
  }
})

test_that("what the documents cannot hold is told", {
  expect_message(written(glm(ncases ~ agegp + offset(log(ncases + ncontrols)), poisson, esoph)),
    "an offset")
  expect_message(written(lm(breaks ~ wool, warpbreaks, weights = breaks)), "weights")
  skip_if_not_installed("ordinal")
  expect_error(written(ordinal::clm(rating ~ temp, nominal = ~contact, data = ordinal::wine)),
    "contact")
})

test_that("a class that is not known is an error that lists those that are", {
  fit <- nls(mpg ~ a + b * wt, mtcars, start = list(a = 30, b = -5))
  expect_error(written(fit), "nls is not known.*glmmTMB.*multinom")
  expect_error(written(lm(cbind(mpg, hp) ~ wt, mtcars)), "mlm")
  expect_error(written(glm(breaks ~ wool, warpbreaks, family = gaussian("log")), level = 2),
    "level")
})

test_that("crossed blocks have no common subject, nested ones the outer field", {
  crossed <- lme4::lmer(diameter ~ 1 + (1 | plate) + (1 | sample), lme4::Penicillin)
  text <- written(crossed, df = "satterthwaite")
  expect_match(text, "name=\"numOfCommonSubjects\" value=\"1\"", fixed = TRUE)
  expect_match(text, "name=\"numOfColsOfRandom\" value=\"30\"", fixed = TRUE)
  nested <- lme4::lmer(strength ~ 1 + (1 | batch / cask), lme4::Pastes)
  text <- written(nested, df = "satterthwaite")
  expect_match(text, "name=\"numOfCommonSubjects\" value=\"10\"", fixed = TRUE)
  expect_match(text, "name=\"numOfColsOfRandom\" value=\"4\"", fixed = TRUE)
})

test_that("a factor without an effect of its own is nested in the factor that it is crossed with", {
  fit <- lm(strength ~ batch / cask, lme4::Pastes)
  tables <- chain(fit)
  expect_true("cask(batch)" %in% tables[["FixedEffects-1"]]$Source)
  table <- tables[["FixedCoefficients-1"]]
  at <- table[["Model Term"]] == "[cask=c]([batch=D])"
  expect_figures(table$Coefficient[at], coef(fit)[["batchD:caskc"]])
})

test_that("random slopes keep the names of their columns, be they odd ones", {
  data <- lme4::sleepstudy
  data$`my days` <- data$Days
  data$late <- factor(data$Days > 4)
  odd <- lme4::lmer(Reaction ~ `my days` + (`my days` | Subject), data)
  tables <- chain(odd, df = "satterthwaite")
  expect_identical(names(tables[["RandomEffects-1"]])[-1], c("Intercept", "my days"))
  suppressMessages(levels <- lme4::lmer(Reaction ~ Days + (0 + late | Subject), data))
  tables <- chain(levels, df = "satterthwaite")
  expect_identical(names(tables[["RandomEffects-1"]])[-1], c("late=FALSE", "late=TRUE"))
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
  skip_if_not_installed("nlme")
  serial <- nlme::gls(y ~ x, case_data$serial, correlation = nlme::corAR1(form = ~ t | g))
  expect_match(written(serial), "repeatedMeasures.*field=\"t\"")
})
