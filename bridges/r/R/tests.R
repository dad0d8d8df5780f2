# Tests of effects where the fitter has none of its own: emmeans.

no_test <- function(n = 1L) {
  data.frame(f = rep(NA_real_, n), df1 = rep(NA_real_, n), df2 = rep(NA_real_, n), p = rep(NA_real_, n))
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

# The wald test of some coefficients, by emmeans, which takes a basis and a covariance.
wald_test <- function(beta, covariance, columns, df) {
  columns <- columns[!is.na(beta[columns])]
  if (length(columns) == 0L) return(no_test())
  kept <- which(!is.na(beta))
  basis <- diag(length(kept))[match(columns, kept), , drop = FALSE]
  object <- emmeans::emmobj(
    bhat = unname(beta[kept]), V = covariance, levels = list(k = seq_along(columns)), linfct = basis, df = df
  )
  table <- emmeans::test(object, joint = TRUE)
  data.frame(f = table[["F.ratio"]], df1 = table[["df1"]], df2 = table[["df2"]], p = table[["p.value"]])
}

term_key <- function(variables) paste(sort(variables), collapse = ":")

# The rows of joint_tests() by the variables of each term.
joint_rows <- function(fit, options) {
  arguments <- c(list(fit), options$grid_arguments)
  quiet <- function(...) suppressMessages(emmeans::joint_tests(...))
  table <- as.data.frame(do.call(quiet, arguments))
  keys <- vapply(strsplit(as.character(table[["model term"]]), ":", fixed = TRUE), term_key, "")
  list(table = table, keys = keys)
}

# joint_tests() works on variables. A covariate in several terms, or in several columns, needs its own test.
needs_wald <- function(design) {
  used <- lapply(design$effects, function(e) unique(e$fields))
  repeated <- any(vapply(design$effects, function(e) e$numeric && (anyDuplicated(e$fields) > 0L || e$coded), NA))
  keys <- vapply(used, term_key, "")
  transformed <- any(vapply(design$effects, function(e) e$numeric && any(grepl("(", e$variables, fixed = TRUE)), NA))
  repeated || transformed || anyDuplicated(keys) > 0L
}

# A test of a term's own coefficients says the same for every coding only where no other term holds it.
is_marginal <- function(effect, design) {
  any(vapply(design$effects, function(other) {
    length(other$variables) > length(effect$variables) && all(effect$variables %in% other$variables)
  }, NA))
}

joint_term_tests <- function(fit, info, design, options) {
  all <- no_test()
  n <- length(design$effects)
  if (n == 0L) return(list(effects = no_test(0L), all = all))
  needs("emmeans", "The tests of effects of this fit")
  covariance <- as.matrix(stats::vcov(fit))
  covariance <- covariance[!is.na(diag(covariance)), !is.na(diag(covariance)), drop = FALSE]
  wald <- function(columns) wald_test(info$beta, covariance, columns, options$test_df)
  if (design$intercept) all <- wald(setdiff(seq_len(design$columns), 1L))
  effects <- if (needs_wald(design)) wald_effects(design, wald) else joint_effects(fit, design, options)
  list(effects = replace_df2(effects, options), all = replace_df2(all, options))
}

wald_effects <- function(design, wald) {
  tests <- lapply(design$effects, function(effect) {
    if (!is_marginal(effect, design)) return(wald(effect$columns))
    message("The effect ", effect$label, " stands in an interaction of this model and is not tested.")
    no_test()
  })
  do.call(rbind, tests)
}

joint_effects <- function(fit, design, options) {
  rows <- joint_rows(fit, options)
  keys <- vapply(design$effects, function(e) term_key(unique(e$fields)), "")
  at <- match(keys, rows$keys)
  if (anyNA(at)) message("Not tested, since not estimable: ",
    paste(vapply(design$effects[is.na(at)], `[[`, "", "label"), collapse = ", "), ".")
  data.frame(
    f = rows$table[at, "F.ratio"], df1 = rows$table[at, "df1"], df2 = rows$table[at, "df2"],
    p = rows$table[at, "p.value"]
  )
}
