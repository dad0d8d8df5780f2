# How blocks of random effects stand in the settings: effects, subjects and what nests them.

# The values of an attribute of each block, its nesting levels behind them.
attribute_of <- function(text, name) {
  specs <- sub("(?s).*?name=\"RandomSpecs\"(.*?)</Parameter>.*", "\\1", text, perl = TRUE)
  whole <- regmatches(specs, gregexpr(paste0("(?s)<Attribute name=\"", name, "\">.*?</StructuredValue>"), specs,
    perl = TRUE))[[1L]]
  vapply(whole, function(part) {
    values <- regmatches(part, gregexpr("(?<=<Value value=\")[^\"]*", part, perl = TRUE))[[1L]]
    paste(values, collapse = " ")
  }, "", USE.NAMES = FALSE)
}

test_that("subjects name their fields, what nests behind what is nested; effects are fields, powers and products", {
  cases <- list(
    list("SubjectSpec", quote(lme4::lmer(y ~ x + (1 | a / b / half), three)), c("a 0", "b a 0 1", "half b a 0 1 2")),
    list("SubjectSpec", quote(lme4::lmer(y ~ x + (1 | a) + (1 | b) + (1 | a:b), three)), c("b 0", "a 0", "a b 0 0")),
    list("SubjectSpec", quote(lme4::lmer(y ~ x + (1 | a:b), three)), "a b 0 0"),
    list("SubjectSpec", quote(glmmTMB::glmmTMB(y ~ x + (1 | a / b), three)), c("a 0", "b a 0 1")),
    list("SubjectSpec", quote(nlme::lme(y ~ x, three, random = ~ 1 | a / b)), c("a 0", "b a 0 1")),
    list("SubjectSpec", quote(ordinal::clmm(o ~ x + (1 | a) + (1 | a:b), data = three)), c("b a 0 1", "a 0")),
    list("EffectList", quote(lme4::lmer(Reaction ~ Days + (Days | Subject), sleep)), "Days 0"),
    list("EffectList", quote(lme4::lmer(Reaction ~ Days + (I(Days^2) | Subject), sleep)), "Days Days 0 0"),
    list("EffectList", quote(lme4::lmer(Reaction ~ Days + (0 + Days:late | Subject), sleep)), "Days late 0 0"),
    list("EffectList", quote(glmmTMB::glmmTMB(Reaction ~ Days + diag(0 + late | Subject), sleep)), "late 0")
  )
  for (case in cases) {
    text <- suppressMessages(suppressWarnings(written(fitted_case(case[[2L]]))))
    expect_identical(attribute_of(text, case[[1L]]), case[[3L]], info = deparse1(case[[2L]]))
  }
})

test_that("random slopes keep the names of their columns, and are levels where the coding is one of levels", {
  data <- transform(case_data$sleep, late = factor(late, labels = c("1", "2")))
  data$`my days` <- data$Days
  data$summed <- C(data$late, contr.sum)
  cases <- list(list(Reaction ~ `my days` + (`my days` | Subject), c("Intercept", "my days")),
    list(Reaction ~ Days + (0 + late | Subject), c("late=1", "late=2")),
    list(Reaction ~ Days + (late | Subject), c("Intercept", "late=2")),
    list(Reaction ~ Days + (summed | Subject), c("Intercept", "summed1")))
  for (case in cases) {
    tables <- chain(suppressMessages(lme4::lmer(case[[1L]], data)), df = "satterthwaite")
    expect_identical(names(tables[["RandomEffects-1"]])[-1], case[[2L]])
  }
})

test_that("categories are predicted at the modes, scales and offsets of the fit", {
  skip_if_not_installed("ordinal")
  three <- case_data$three
  fits <- list(
    ordinal::clmm(o ~ x + (x | a), data = three),
    ordinal::clmm(o ~ x + (0 + half | a), data = three),
    ordinal::clmm(o ~ x + (1 | a) + (1 | c), data = three, link = "probit"),
    ordinal::clm(o ~ x, scale = ~half, data = three),
    ordinal::clm(o ~ a + offset(2 * x), data = three, link = "cloglog")
  )
  for (fit in fits) {
    expect_match(suppressMessages(written(fit)), "classificationAccuracy\" value=\"0\\.[0-9]")
    probabilities <- hierfit:::clm_probabilities(fit)
    expect_equal(rowSums(probabilities), rep(1, 120), tolerance = 1e-8, ignore_attr = TRUE)
    observed <- probabilities[cbind(1:120, as.integer(three$o))]
    expect_equal(observed, as.numeric(fitted(fit)), tolerance = 1e-6)
  }
})

test_that("a report has the title that it is given, and the ending says its format", {
  program()
  folder <- tempfile("reports-")
  dir.create(folder)
  fit <- lm(breaks ~ wool, warpbreaks)
  page <- hf_report(fit, file.path(folder, "page.html"), title = "Yarn & \"wool\"")
  expect_match(paste(readLines(page), collapse = " "), "<title>Yarn &amp; (&quot;|\")wool", perl = TRUE)
  expect_error(hf_report(fit, file.path(folder, "missing", "page.html")), "status 3")
})
