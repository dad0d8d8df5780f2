# lme and gls of nlme.

# The data as the fit took them: where its formula was made, and within its subset.
nlme_data <- function(fit, formula) {
  data <- original_data(fit$call, formula)
  if (is.null(data) && is.data.frame(fit$data)) data <- fit$data
  if (is.null(data)) stop("The data of this fit of nlme are not at hand any more; fit it where ",
    "they are.", call. = FALSE)
  subset <- fit$call$subset
  if (is.null(subset)) return(data)
  chosen <- tryCatch(eval(if (inherits(subset, "formula")) subset[[2L]] else subset, data,
    environment(formula)),
    error = function(e) stop("The subset of this fit of nlme cannot be taken again: ",
      conditionMessage(e), call. = FALSE))
  if (inherits(chosen, "formula")) chosen <- eval(chosen[[2L]], data, environment(formula))
  data[chosen & !is.na(chosen), , drop = FALSE]
}

nlme_frame <- function(fit, terms, grouping) {
  needs("nlme", "A fit of nlme")
  data <- nlme_data(fit, stats::formula(fit))
  frame <- stats::model.frame(terms, data, na.action = stats::na.pass)
  repeated <- nlme_repeated(fit)
  variance <- if (!is.null(fit$modelStruct$varStruct)) all.vars(stats::formula(fit$modelStruct$varStruct))
  wanted <- unique(c(grouping, repeated, variance, all.vars(terms)))
  complete <- stats::complete.cases(as.data.frame(data)[intersect(wanted, names(data))])
  if (sum(complete) != fit$dims$N) complete <- rep(TRUE, nrow(data))
  if (sum(complete) != fit$dims$N) stop("The data of this fit of nlme have changed since it was ",
    "fitted.", call. = FALSE)
  frame <- without_empty_levels(frame[complete, , drop = FALSE])
  for (name in setdiff(grouping, names(frame))) frame[[name]] <- data[[name]][complete]
  list(frame = frame, terms = terms, contrasts = fit$contrasts, data = data, records = fit$dims$N,
    grouping = grouping, repeated = repeated)
}

# The covariate of the correlation, where it is a field.
nlme_repeated <- function(fit) {
  correlation <- fit$modelStruct$corStruct
  if (is.null(correlation)) return(NULL)
  covariate <- nlme::getCovariateFormula(correlation)
  if (is.name(covariate[[2L]])) as.character(covariate[[2L]])
}

without_empty_levels <- function(frame) {
  for (name in names(frame)) {
    x <- frame[[name]]
    if (is.factor(x) && any(tabulate(x, nlevels(x)) == 0L)) frame[[name]] <- droplevels(x)
  }
  frame
}

#' @export
hf_frame.lme <- function(fit) {
  if (inherits(fit, "nlme")) refuse_class(fit)
  info <- nlme_frame(fit, stats::terms(stats::formula(fit), data = fit$data),
    nlme_grouping(fit, names(fit$groups)))
  info$beta <- nlme::fixef(fit)
  info
}

#' @export
hf_frame.gls <- function(fit) {
  if (inherits(fit, "gnls")) refuse_class(fit)
  info <- nlme_frame(fit, stats::terms(stats::formula(fit)), nlme_grouping(fit, character()))
  info$beta <- stats::coef(fit)
  info
}

# Fields that tell groups of records apart: of the blocks, of the correlation and of the variances.
nlme_grouping <- function(fit, blocks) {
  correlation <- fit$modelStruct$corStruct
  variance <- fit$modelStruct$varStruct
  unique(c(
    blocks, if (!is.null(correlation)) all.vars(nlme::getGroupsFormula(correlation)),
    if (inherits(variance, "varIdent")) all.vars(nlme::getGroupsFormula(variance))
  ))
}

normal_distribution <- function() list(distribution = "NORMAL", link = "IDENTITY", power = NA_real_,
  scaled = TRUE)

#' @export
hf_distribution.lme <- function(fit) normal_distribution()

#' @export
hf_distribution.gls <- function(fit) normal_distribution()

#' @export
hf_coefficients.lme <- function(fit, info, design, options) {
  table <- summary(fit)$tTable
  replace_df(from_summary(design, info$beta, table, "DF", "t-value", "p-value"), options)
}

#' @export
hf_coefficients.gls <- function(fit, info, design, options) {
  table <- summary(fit)$tTable
  replace_df(from_summary(design, info$beta, table, fit$dims$N - fit$dims$p, "t-value", "p-value"),
    options)
}

#' @export
hf_tests.lme <- function(fit, info, design, options) nlme_tests(fit, design, options)

#' @export
hf_tests.gls <- function(fit, info, design, options) nlme_tests(fit, design, options)

nlme_tests <- function(fit, design, options) {
  residual <- fit$dims$N - sum(fit$dims$p)
  read <- function(table) {
    df2 <- if (is.null(table$denDF)) rep(residual, nrow(table)) else table$denDF
    data.frame(f = table[["F-value"]], df1 = table$numDF, df2 = df2, p = table[["p-value"]])
  }
  n <- length(design$effects)
  if (n == 0L) return(list(effects = no_test(0L), all = no_test()))
  table <- stats::anova(fit, type = "marginal")
  effects <- read(table)[match(vapply(design$effects, `[[`, "", "label"), rownames(table)), ]
  warn_of_coding(design)
  l <- diag(design$columns)[-1L, , drop = FALSE]
  all <- if (design$intercept) tryCatch(read(stats::anova(fit, L = l)),
    error = function(e) no_test()) else no_test()
  list(effects = replace_df2(effects, options), all = replace_df2(all, options))
}

# Marginal tests are tests at the reference levels unless codings sum to zero.
warn_of_coding <- function(design) {
  held <- vapply(design$effects, is_marginal, NA, design = design, only_unbalanced = TRUE)
  if (any(held)) message("Tests are marginal: those of ",
    paste(vapply(design$effects[held], `[[`, "", "label"),
    collapse = ", "), " are at the reference levels of the factors that they interact with, ",
    "unless the factors are ",
    "coded by contr.sum.")
}

nlme_messages <- function(fit, random = list()) {
  c(singular_messages(random, normal_distribution(), fit$sigma),
    if (is.character(fit$apVar)) list(caution("kGLMM_C18")))
}

#' @export
hf_messages.lme <- function(fit, random) nlme_messages(fit, random)

#' @export
hf_messages.gls <- function(fit, random) nlme_messages(fit)

#' @export
hf_grid_arguments.lme <- function(fit, options) {
  c(list(data = options$data),
    if (options$df == "residual") list(df = options$residual_df) else list(mode = "containment"))
}

#' @export
hf_grid_arguments.gls <- function(fit, options) {
  list(data = options$data, df = options$residual_df)
}

nlme_left_out <- function(fit) {
  variance <- fit$modelStruct$varStruct
  kind <- nlme_correlation(fit$modelStruct$corStruct)$type
  c(
    if (!is.null(variance) && !inherits(variance, "varIdent")) "a variance function",
    if (kind == "") paste0("a name of the correlation structure ",
      class(fit$modelStruct$corStruct)[1L])
  )
}

#' @export
hf_left_out.lme <- function(fit) nlme_left_out(fit)

#' @export
hf_left_out.gls <- function(fit) nlme_left_out(fit)
