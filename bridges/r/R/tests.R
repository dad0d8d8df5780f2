# Tests of effects where the fitter has none of its own: emmeans.

no_test <- function(n = 1L) {
  data.frame(f = rep(NA_real_, n), df1 = rep(NA_real_, n), df2 = rep(NA_real_, n),
    p = rep(NA_real_, n))
}

replace_df <- function(table, options) {
  if (options$df != "residual") return(table)
  table$df <- options$residual_df
  table$p <- 2 * stats::pt(-abs(table$stat), options$residual_df)
  table
}

replace_df2 <- function(table, options) {
  if (options$df != "residual" || nrow(table) == 0L) return(table)
  table$df2 <- options$residual_df
  table$p <- stats::pf(table$f, table$df1, table$df2, lower.tail = FALSE)
  table
}

# The test that all rows of an object of emmeans are zero, as its test(joint = TRUE), which rounds F
# and df2.
exact_joint_test <- function(object, by = NULL) {
  # Where it finds none estimable, it prints the error of a solution that it tries.
  old <- options(show.error.messages = FALSE)
  on.exit(options(old))
  rounded <- as.data.frame(emmeans::test(object, joint = TRUE, by = by))
  rows <- if (is.null(by)) list(seq_len(nrow(object@grid))) else rows_by(object@grid, by)
  exact <- lapply(rows, function(r) unrounded_f(object, object@linfct[r, , drop = FALSE]))
  for (i in seq_along(exact)) {
    same <- !is.null(exact[[i]]) && isTRUE(abs(exact[[i]]$f - rounded$F.ratio[i]) <= 6e-4)
    if (same) rounded[i, c("F.ratio", "df2")] <- c(exact[[i]]$f, exact[[i]]$df2)
  }
  given <- object@misc$df
  if (is.null(given)) return(rounded)
  rounded$df2 <- given
  rounded$p.value <- stats::pf(rounded$F.ratio, rounded$df1, given, lower.tail = FALSE)
  rounded
}

rows_by <- function(grid, by) {
  key <- do.call(paste, c(without_names(lapply(grid[by], as.character)), sep = "\r"))
  without_names(split(seq_along(key), factor(key, levels = unique(key))))
}

unrounded_f <- function(object, l) {
  known <- !is.na(object@bhat)
  l <- l[, , drop = FALSE]
  if (anyNA(l)) return(NULL)
  l <- estimable_rows(l, object@nbasis)
  l[abs(l) < 1e-7] <- 0
  l <- l[rowSums(l != 0) > 0, , drop = FALSE]
  q <- qr(t(l))
  if (q$rank == 0L) return(NULL)
  basis <- t(qr.Q(q))[seq_len(q$rank), , drop = FALSE][, known, drop = FALSE]
  z <- basis %*% object@bhat[known]
  f <- tryCatch(drop(crossprod(z, solve(basis %*% object@V %*% t(basis), z))) / q$rank,
    error = function(e) NA_real_)
  list(f = f, df2 = min(apply(basis, 1L, function(k) object@dffun(k, object@dfargs))))
}

# Combinations of rows that the data tell: those without a part in the basis of what they do not.
estimable_rows <- function(l, basis) {
  if (anyNA(basis)) return(l)
  parts <- qr(l %*% basis, tol = 1e-8)
  if (parts$rank == 0L) return(l)
  t(qr.Q(parts, complete = TRUE)[, -seq_len(parts$rank), drop = FALSE]) %*% l
}

from_joint <- function(table) {
  table[is.na(table$F.ratio), c("df1", "df2", "p.value")] <- NA
  data.frame(f = table$F.ratio, df1 = table$df1, df2 = table$df2, p = table$p.value)
}

# The Wald test of some coefficients, by emmeans, which takes a basis and a covariance.
wald_test <- function(beta, covariance, columns, df) {
  columns <- columns[!is.na(beta[columns])]
  if (length(columns) == 0L) return(no_test())
  kept <- which(!is.na(beta))
  basis <- diag(length(kept))[match(columns, kept), , drop = FALSE]
  object <- emmeans::emmobj(
    bhat = without_names(beta[kept]), V = covariance, levels = list(k = seq_along(columns)),
    linfct = basis, df = df
  )
  from_joint(exact_joint_test(object))
}

# One effect's test as joint_tests() makes it: consecutive differences, within what the effect is
# nested in.
effect_test <- function(grid, variables) {
  nesting <- grid@model.info$nesting
  nesters <- unique(unlist(nesting[intersect(variables, names(nesting))]))
  if (!all(variables %in% names(grid@levels)) || !all(nesters %in% variables)) return(no_test())
  contrasts <- taken_by("emmeans",
    emmeans::contrast(emmeans::emmeans(grid, variables), interaction = "consec", by = nesters), plain_names)
  from_joint(exact_joint_test(contrasts))
}

# joint_tests() works on variables. A covariate in several terms, or in several columns, needs its
# own test.
needs_wald <- function(design) {
  used <- lapply(design$effects, function(e) unique(e$fields))
  repeated <- any(vapply(design$effects,
    function(e) e$numeric && (anyDuplicated(e$fields) > 0L || e$coded), NA))
  keys <- vapply(used, function(fields) paste(sort(fields), collapse = ":"), "")
  transformed <- any(vapply(design$effects,
    function(e) e$numeric && any(grepl("(", e$variables, fixed = TRUE)), NA))
  repeated || transformed || anyDuplicated(keys) > 0L
}

# A test of a term's own coefficients says the same for every coding only where no other term holds
# it.
is_marginal <- function(effect, design, only_unbalanced = FALSE) {
  any(vapply(design$effects, function(other) {
    if (only_unbalanced && other$sums_to_zero) return(FALSE)
    length(other$variables) > length(effect$variables) && all(effect$variables %in% other$variables)
  }, NA))
}

joint_term_tests <- function(fit, info, design, options) {
  all <- no_test()
  n <- length(design$effects)
  if (n == 0L) return(list(effects = no_test(0L), all = all))
  needs("emmeans", "The tests of effects of this fit")
  covariance <- tryCatch(hf_vcov(fit, info), error = function(e) NULL)
  if (is.null(covariance) || !all(is.finite(covariance))) {
    message("The effects are not tested: the fit has no covariance of its coefficients.")
    return(list(effects = no_test(n), all = all))
  }
  wald <- function(columns) wald_test(info$beta, covariance, columns, options$test_df)
  if (design$intercept) all <- wald(setdiff(seq_len(design$columns), design$first))
  grid <- do.call(joint_grid, c(list(fit), options$grid_arguments))
  of_effect <- function(effect) suppressMessages(effect_test(grid, unique(effect$fields)))
  effects <- if (needs_wald(design)) wald_effects(design, wald, of_effect)
    else joint_effects(design, wald, of_effect)
  list(effects = replace_df2(effects, options), all = replace_df2(all, options))
}

# Effects of factors alone are tested as by joint_tests(); others by their coefficients, where these
# say enough.
wald_effects <- function(design, wald, of_factors) {
  tests <- lapply(design$effects, function(effect) {
    if (!effect$numeric) return(of_factors(effect))
    if (!is_marginal(effect, design)) return(wald(effect$columns))
    message("The effect ", effect$label,
      " stands in an interaction of this model and is not tested.")
    no_test()
  })
  do.call(rbind, tests)
}

# The reference grid of joint_tests(), in which covariates have two values about their means; tests
# are those of linear predictors.
joint_grid <- function(fit, ...) {
  reduce <- eval(formals(emmeans::joint_tests)$cov.reduce, asNamespace("emmeans"))
  on_target_scale(reference_grid(list(fit, ..., cov.reduce = reduce)), "IDENTITY")
}

reference_grid <- function(arguments) {
  # A column that lost its coding in a copy of the data has the fit's own in the grid; so has a factor
  # whose name has blanks. Nothing here stands on the guess that emmeans makes of a transformation in
  # the response.
  expected <- paste("contrasts dropped", "contrasts? will be ignored", "is not a factor",
    "unevaluated constants in the response", sep = "|")
  quietly <- function(w) {
    if (grepl(expected, conditionMessage(w))) invokeRestart("muffleWarning")
  }
  make <- function() suppressMessages(do.call(emmeans::ref_grid, arguments))
  taken_by("emmeans", withCallingHandlers(make(), warning = quietly),
    "Its data must be at hand as they were, and codings be set by contrasts() on the data.")
}

# The value of an expression, or an error that says which package does not take the fit, and what to do.
taken_by <- function(package, expression, advice) {
  tryCatch(expression, error = function(e) {
    stop(package, " cannot take this fit (",
      strtrim(gsub("[[:space:]]+", " ", conditionMessage(e)), 300L), "). ", advice, call. = FALSE)
  })
}

plain_names <- "Give the columns of the data names of letters, digits and dots."

# What emmeans finds not estimable is tested by its coefficients where no other term holds it.
joint_effects <- function(design, wald, of_effect) {
  tests <- do.call(rbind, lapply(design$effects, function(effect) {
    test <- of_effect(effect)
    if (is.na(test$f) && !is_marginal(effect, design)) wald(effect$columns) else test
  }))
  if (anyNA(tests$f)) message("Not tested, since not estimable: ",
    paste(vapply(design$effects[is.na(tests$f)], `[[`, "", "label"), collapse = ", "), ".")
  tests
}
