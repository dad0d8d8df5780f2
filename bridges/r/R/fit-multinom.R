# multinom of nnet.

#' @export
hf_frame.multinom <- function(fit) {
  needs("nnet", "A fit of multinom")
  frame <- stats::model.frame(fit)
  weights <- multinom_weights(fit)
  counts <- !is.null(weights) && all(weights == round(weights))
  categories <- multinom_categories(fit)
  beta <- categories[[1L]]
  refuse_aliased(stats::model.matrix(stats::terms(fit), frame, fit$contrasts))
  list(
    frame = frame, terms = stats::terms(fit), contrasts = fit$contrasts,
    data = original_data(fit$call, stats::formula(fit)), beta = beta,
    case_weights = if (counts) weights,
    records = if (counts) sum(weights) else nrow(frame), equations = length(categories),
    random = list()
  )
}

# Counts of the records, where the fit has other weights than 1.
multinom_weights <- function(fit) {
  weights <- as.numeric(fit$weights)
  if (length(weights) && any(weights != 1)) weights
}

# Coefficients by category, named by category.
multinom_categories <- function(fit) {
  beta <- stats::coef(fit)
  if (!is.matrix(beta)) return(stats::setNames(list(beta), fit$lev[2L]))
  stats::setNames(lapply(seq_len(nrow(beta)), function(i) beta[i, ]), rownames(beta))
}

#' @export
hf_distribution.multinom <- function(fit) {
  response <- stats::model.response(stats::model.frame(fit))
  if (is.matrix(response)) stop("A response of multinom that is a matrix of counts has no place ",
    "in the documents; ",
    "give the category as a factor and the counts as weights.", call. = FALSE)
  offset <- attr(stats::terms(fit), "offset")
  if (length(offset)) stop("The term ", variable_names(stats::terms(fit))[offset[1L]],
    " of multinom has no place in the documents, and emmeans cannot take it; fit the model without it.",
    call. = FALSE)
  list(distribution = "NOMINAL", link = "LOGIT", power = NA_real_, scaled = FALSE)
}

#' @export
hf_coefficients.multinom <- function(fit, info, design, options) {
  categories <- multinom_categories(fit)
  errors <- sqrt(diag(multinom_covariance(fit)))
  size <- length(categories[[1L]])
  tables <- lapply(seq_along(categories), function(k) {
    estimate <- categories[[k]]
    se <- without_names(errors[(k - 1L) * size + seq_len(size)])
    z <- without_names(estimate) / se
    replace_df(by_column(design, names(estimate), without_names(estimate), se, Inf, z,
      2 * stats::pnorm(-abs(z))), options)
  })
  list(categories = stats::setNames(tables, names(categories)))
}

# vcov() runs the fit again for its Hessian where it was fitted without.
multinom_covariance <- function(fit) {
  tryCatch(stats::vcov(fit), error = function(e) {
    stop("The errors of this fit of multinom cannot be computed (", conditionMessage(e),
      "). Fit it with Hess = TRUE.",
      call. = FALSE)
  })
}

#' @export
hf_tests.multinom <- function(fit, info, design, options) {
  n <- length(design$effects)
  if (n == 0L) return(list(effects = no_test(0L), all = no_test()))
  needs("emmeans", "The tests of effects of this fit")
  beta <- unlist(without_names(multinom_categories(fit)))
  names(beta) <- rownames(stats::vcov(fit))
  first <- seq.int(1L, by = design$columns, length.out = info$equations)
  all <- if (design$intercept) wald_test(beta, stats::vcov(fit), setdiff(seq_along(beta), first),
    fit$edf) else no_test()
  wald <- function(columns) {
    wald_test(beta, stats::vcov(fit), as.integer(outer(columns, first - 1L, "+")), fit$edf)
  }
  # An effect on all equations together is its interaction with the category on the scale of the
  # logits.
  grid <- joint_grid(multinom_for_grid(fit), mode = "latent", vcov. = stats::vcov(fit))
  of_effect <- function(effect) {
    suppressMessages(effect_test(grid, c(unique(effect$fields), grid@roles$multresp)))
  }
  effects <- if (needs_wald(design)) wald_effects(design, wald, of_effect)
    else joint_effects(design, wald, of_effect)
  list(effects = replace_df2(effects, options), all = replace_df2(all, options))
}

# emmeans wants a response that is a name, not a call.
multinom_for_grid <- function(fit) {
  formula <- stats::formula(stats::terms(fit))
  formula[[2L]] <- as.name(variable_names(stats::terms(fit))[1L])
  fit$call$formula <- formula
  fit
}

#' @export
hf_category_grid.multinom <- function(fit) {
  list(multinom_for_grid(fit), mode = "prob", vcov. = stats::vcov(fit))
}

#' @export
hf_residual.multinom <- function(fit, info, options) fixed_scale()

#' @export
hf_fitted.multinom <- function(fit) {
  fitted <- stats::fitted(fit)
  if (ncol(fitted) == 1L) cbind(1 - fitted[, 1L], fitted[, 1L]) else fitted
}

#' @export
hf_criteria.multinom <- function(fit) {
  weights <- multinom_weights(fit)
  n <- if (is.null(weights)) nrow(stats::model.frame(fit)) else sum(weights)
  criteria_of(fit$deviance, fit$edf, n, fit$deviance + fit$edf * log(n))
}

#' @export
hf_left_out.multinom <- function(fit) {
  weights <- multinom_weights(fit)
  if (!is.null(weights) && any(weights != round(weights))) "weights"
}

#' @export
hf_messages.multinom <- function(fit,
  random) if (isTRUE(fit$convergence != 0)) list(caution("kGLMM_C18")) else list()
