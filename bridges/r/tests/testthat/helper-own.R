# What the fitters themselves say, in one form for all of them.

# Estimate, error, statistic and p of the estimated coefficients.
own_coefficients <- function(fit) UseMethod("own_coefficients")

own_coefficients.default <- function(fit) last_four(coef(summary(fit)))
own_coefficients.aov <- function(fit) last_four(coef(summary.lm(fit)))
own_coefficients.lmerMod <- function(fit) {
  method <- if (lme4::isREML(fit)) "Kenward-Roger" else "Satterthwaite"
  last_four(coef(summary(lmerTest::as_lmerModLmerTest(fit), ddf = method)))
}
own_coefficients.lmerModLmerTest <- own_coefficients.lmerMod
own_coefficients.glmmTMB <- function(fit) last_four(summary(fit)$coefficients$cond)
own_coefficients.clm <- function(fit) {
  last_four(coef(summary(fit))[c(names(fit$alpha), names(fit$beta)[!is.na(fit$beta)]), , drop = FALSE])
}
own_coefficients.multinom <- function(fit) {
  s <- summary(fit)
  estimate <- as.numeric(t(s$coefficients))
  se <- as.numeric(t(s$standard.errors))
  cbind(estimate, se, estimate / se, 2 * pnorm(-abs(estimate / se)))
}

last_four <- function(table) {
  n <- ncol(table)
  table <- table[!is.na(table[, 1L]), , drop = FALSE]
  table[, c(1L, 2L, n - 1L, n), drop = FALSE]
}

# Rows in the order of their estimates, since documents and fitters order terms in their own ways.
expect_own_coefficients <- function(tables, fit, info) {
  got <- estimated(tables[["FixedCoefficients-1"]])
  expected <- own_coefficients(fit)
  # A fit on the verge of singular has one more digit lost in its inverse.
  by <- function(x) order(signif(x, 8))
  expected <- expected[by(expected[, 1L]), , drop = FALSE]
  got <- got[by(got$Coefficient), ]
  expect_figures(got[c("Coefficient", "Std. Error", "t", "Sig.")], expected, info = info)
}

# Entries of all covariance matrices of random effects.
own_covariances <- function(fit) UseMethod("own_covariances")
own_covariances.default <- function(fit) numeric()
own_covariances.merMod <- function(fit) unlist(lapply(lme4::VarCorr(fit), as.numeric))
own_covariances.glmmTMB <- function(fit) unlist(lapply(glmmTMB::VarCorr(fit)$cond, as.numeric))
own_covariances.clmm <- function(fit) unlist(lapply(ordinal::VarCorr(fit), as.numeric))
own_covariances.lme <- function(fit) unlist(lapply(fit$modelStruct$reStruct,
  function(part) as.numeric(as.matrix(part)) * fit$sigma^2))

expect_own_covariances <- function(tables, fit, info) {
  blocks <- tables[grepl("^RandomEffects-", names(tables))]
  entries <- unlist(lapply(blocks, function(b) Filter(is.numeric, b)))
  expected <- own_covariances(fit)
  # Blocks that a fitter keeps apart have zeros between them.
  expect_figures(sort(entries[entries != 0]), sort(expected[expected != 0]), info = info)
}

# Covariance parameters: those that the likelihood counts beside coefficients and dispersions.
own_count <- function(fit) {
  family <- if (inherits(fit, c("glm", "glmmTMB", "glmerMod"))) family(fit)$family else ""
  if (inherits(fit, "multinom")) return(0)
  if (inherits(fit, "glm")) return(as.numeric(!grepl("^(binomial|poisson|Negative)", family)))
  thresholds <- if (inherits(fit, c("clm", "clmm"))) length(fit$alpha) + length(fit$zeta) else 0
  slopes <- nrow(own_coefficients(fit)) - if (thresholds > 0) length(fit$alpha) else 0
  attr(logLik(fit), "df") - slopes - thresholds - grepl("nbinom2|Negative", family)
}

# Tests of the effects, whose names have stars and powers in the documents. joint_tests() rounds F.
expect_own_tests <- function(tables, fit, info) {
  got <- tables[["FixedEffects-1"]][-1, ]
  if (inherits(fit, c("lme", "gls"))) {
    expected <- as.data.frame(anova(fit, type = "marginal"))[-1, ]
    terms <- rownames(expected)
    columns <- c(F = "F-value", df1 = "numDF", df2 = "denDF", Sig. = "p-value")
  } else {
    expected <- as.data.frame(emmeans::joint_tests(fit))
    terms <- expected[["model term"]]
    columns <- c(df1 = "df1", df2 = "df2", Sig. = "p.value")
  }
  expected <- expected[match(got$Source, gsub("I\\((\\w+)\\^2\\)", "\\1 * \\1", gsub(":", " * ", terms))), ]
  columns <- columns[columns %in% names(expected)]
  expect_figures(got[names(columns)], expected[columns], info = info)
}

# Means, contrasts and overall tests on the scale of the target, in the order of the tables.
expect_own_means <- function(tables, fit, formula, info) {
  data <- if (inherits(fit, c("lme", "gls"))) eval(fit$call$data, case_data)
  arguments <- c(list(fit, formula), if (!is.null(data)) list(data = data))
  if (inherits(fit, "lme")) arguments$mode <- "containment"
  if (inherits(fit, "gls")) arguments$df <- nobs(fit) - length(coef(fit))
  if (inherits(fit, "lmerMod")) arguments$lmer.df <- "kenward-roger"
  grid <- suppressMessages(do.call(emmeans::emmeans, arguments))
  figures <- as.data.frame(summary(grid, type = "response"))
  expected <- figures[c(length(all.vars(formula)) + 1L, match("SE", names(figures)))]
  expect_figures(tables[["Estimates-1"]][c("Mean", "Std. Error")], expected, info = info)
  response <- if (is.null(grid@misc$tran)) grid else suppressMessages(emmeans::regrid(grid))
  pairs <- emmeans::contrast(response, "pairwise", adjust = "none")
  figures <- as.data.frame(pairs)
  got <- tables[["Contrasts-1"]]
  expect_figures(got[c("Contrast Estimate", "Std. Error", "df")], figures[c("estimate", "SE", "df")], info = info)
  families <- if (length(pairs@misc$by.vars)) figures[[pairs@misc$by.vars]] else rep(1, nrow(figures))
  sidak <- ave(figures$p.value, families, FUN = function(p) {
    order <- order(p)
    p[order] <- cummax(-expm1(rev(seq_along(p)) * log1p(-p[order])))
    p
  })
  expect_figures(got[["Adj. Sig."]], sidak, info = info)
  joint <- as.data.frame(emmeans::test(pairs, joint = TRUE))
  expect_figures(tables[["OverallTestResults-1"]][["Sig."]], joint$p.value, tolerance = 1e-9, info = info)
}

# Points of the chart of predicted by observed, where each record is one; counts of the
# classification.
expect_own_predictions <- function(text, fit, info) {
  fitted <- as.numeric(stats::na.omit(as.numeric(fitted(fit))))
  if (length(fitted) <= 100 && grepl("observedByPredicted", text, fixed = TRUE)) {
    expect_figures(array_behind(text, "statistic=\"predicted\""), fitted, info = info)
  }
  if (!grepl("classificationTable", text, fixed = TRUE)) return()
  response <- model.response(model.frame(fit))
  if (is.matrix(response)) return()
  levels <- if (is.factor(response)) levels(response) else sort(unique(as.character(response)))
  predicted <- if (inherits(fit, "multinom")) predict(fit)
    else if (inherits(fit, "clm")) clm_classes(fit)
    else if (!inherits(fit, "clmm")) levels[1 + (fitted(fit) > 0.5)]
  weights <- if (inherits(fit, "multinom")) as.numeric(fit$weights) else model.weights(model.frame(fit))
  weighted <- length(unique(weights)) > 1
  if (is.null(predicted) || weighted) return()
  counts <- table(factor(response, levels), factor(predicted, levels))
  expect_identical(array_behind(text, "classificationTable"), as.numeric(t(counts)), info = info)
}

# predict() of ordinal wants the formula's own variables where it is called.
clm_classes <- function(fit) {
  data <- eval(fit$call$data, case_data)
  predictors <- data[setdiff(names(data), all.vars(fit$terms)[1])]
  predict(fit, newdata = predictors, type = "class")$fit
}
