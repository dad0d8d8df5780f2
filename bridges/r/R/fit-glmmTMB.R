# glmmTMB.

#' @export
hf_frame.glmmTMB <- function(fit) {
  needs("glmmTMB", "A fit of glmmTMB")
  design <- stats::model.matrix(fit)
  refuse_aliased(glmmTMB::getME(fit, "X"))
  list(
    frame = stats::model.frame(fit), terms = tmb_terms(fit), contrasts = attr(design, "contrasts"),
    data = original_data(stats::getCall(fit), stats::formula(fit)), beta = glmmTMB::fixef(fit)$cond,
    random = fit$modelInfo$reTrms$cond$flist
  )
}

# Terms of the conditional model's fixed part, with the response.
tmb_terms <- function(fit) {
  stats::terms(stats::formula(fit, fixed.only = TRUE), data = stats::model.frame(fit))
}

#' @export
hf_distribution.glmmTMB <- function(fit) {
  family <- stats::family(fit)
  if (!(family$family %in% c("gaussian", "binomial", "poisson", "Gamma", "nbinom2"))) {
    stop("The family ", family$family,
      " of glmmTMB has no name in the documents. Known are: gaussian, binomial, ",
      "poisson, Gamma, nbinom2.", call. = FALSE)
  }
  distribution_of_family(family)
}

#' @export
hf_coefficients.glmmTMB <- function(fit, info, design, options) {
  table <- suppressWarnings(summary(fit))$coefficients$cond
  replace_df(from_summary(design, info$beta, table, Inf, 3L, 4L), options)
}

#' @export
hf_vcov.glmmTMB <- function(fit, info) as.matrix(stats::vcov(fit)$cond)

# Parameters of the conditional model's blocks, in their order.
tmb_theta <- function(fit) {
  covariance <- tryCatch(stats::vcov(fit, full = TRUE), error = function(e) NULL)
  par <- fit$fit$par
  theta <- without_names(par[names(par) == "theta"])
  named <- grep("^theta_", rownames(covariance))
  usable <- !is.null(covariance) && length(named) == length(theta) &&
    !anyNA(covariance[named, named])
  list(theta = theta, covariance = if (usable) covariance[named, named, drop = FALSE])
}

# The matrix that the parameters of a structure make; NULL where it is not told here. Each begins with
# logs of standard deviations, all of them or one for all.
tmb_matrix <- function(theta, q, code) {
  common <- code %in% c("ar1", "ou")
  sd <- exp(if (common) rep(theta[1L], q) else theta[seq_len(q)])
  rest <- theta[-seq_len(if (common) 1L else q)]
  lag <- abs(outer(seq_len(q), seq_len(q), "-"))
  correlation <- switch(code, diag = diag(q), us = us_correlation(rest, q),
    ar1 = (rest / sqrt(1 + rest^2))^lag, ou = exp(-exp(rest) * lag),
    cs = cs_correlation(rest, q),
    toep = matrix(c(1, rest / sqrt(1 + rest^2))[lag + 1L], q))
  if (!is.null(correlation)) correlation * tcrossprod(sd)
}

# The lower triangle by rows of a factor of the correlation.
us_correlation <- function(rest, q) {
  factor <- diag(q)
  at <- 0L
  for (i in seq_len(q)[-1L]) for (j in seq_len(i - 1L)) factor[i, j] <- rest[at <- at + 1L]
  stats::cov2cor(tcrossprod(factor))
}

cs_correlation <- function(rest, q) {
  least <- -1 / (q - 1)
  out <- matrix(least + (1 - least) * stats::plogis(rest), q, q)
  diag(out) <- 1
  out
}

# Structures that the documents can name, by those of glmmTMB. An "ou" is autoregressive where its
# coordinates are consecutive whole numbers, which is so where tmb_matrix() makes its matrix.
tmb_names <- c(diag = "DIAG", us = "UNSTRUCTURED", ar1 = "AR1", ou = "AR1")

#' @export
hf_random.glmmTMB <- function(fit, info, options) {
  components <- glmmTMB::VarCorr(fit)$cond
  if (length(components) == 0L) return(list())
  given <- tmb_theta(fit)
  groups <- names(fit$modelInfo$reTrms$cond$cnms)
  others <- other_groups(groups, info)
  at <- 0L
  blocks <- lapply(seq_along(components), function(k) {
    size <- fit$modelInfo$reStruc$condReStruc[[k]]$blockNumTheta
    inside <- at + seq_len(size)
    at <<- at + size
    covariance <- if (!is.null(given$covariance)) given$covariance[inside, inside, drop = FALSE]
    block <- tmb_block(components[[k]], given$theta[inside], covariance, groups[k], info, others,
      options)
    c(block, free = size)
  })
  blocks[order(vapply(blocks, function(b) nlevels(info$random[[b$group]]), 1L))]
}

tmb_block <- function(component, theta, covariance, group, info, others, options) {
  q <- nrow(component)
  code <- names(attr(component, "blockCode"))
  matrix <- matrix(as.numeric(component), q, dimnames = dimnames(component))
  made <- if (q > 1L || code %in% c("diag", "us")) tmb_matrix(theta, q, code)
  known <- isTRUE(all.equal(made, without_names(matrix), tolerance = 1e-4))
  structure <- if (q == 1L) "VC" else if (known) tmb_names[code] else NA
  if (is.na(structure)) message("The documents cannot name the structure ", code,
    " of the random effects of ", group, "; its matrix and parameters stand without a name.")
  errors <- tmb_errors(if (known) theta, covariance, q, code)
  parameters <- if (q > 1L && known) tmb_parameters(theta, covariance, matrix, code, options)
  if (q > 1L && !known) parameters <- entry_parameters(matrix, errors, options)
  make_block(group, colnames(component), matrix, errors,
    if (is.na(structure)) "" else without_names(structure), info, others, options, parameters)
}

# Errors of the entries of a matrix; missing where its parameters are not known.
tmb_errors <- function(theta, covariance, q, code) {
  out <- matrix(NA_real_, q, q)
  if (is.null(theta) || is.null(covariance)) return(out)
  for (i in seq_len(q)) for (j in seq_len(i)) {
    if (i != j && code == "diag") next
    gradient <- gradient_of(function(p) tmb_matrix(p, q, code)[i, j], theta)
    out[i, j] <- out[j, i] <- delta_error(covariance, gradient)
  }
  out
}

# Parameters of structures other than diagonal and unstructured: variances, then correlations.
tmb_parameters <- function(theta, covariance, matrix, code, options) {
  if (code %in% c("diag", "us")) return(NULL)
  q <- nrow(matrix)
  correlation <- stats::cov2cor(matrix)
  error <- function(i, j, scale) {
    if (is.null(covariance)) return(NA_real_)
    delta_error(covariance, gradient_of(function(p) scale(tmb_matrix(p, q, code))[i, j], theta))
  }
  variance <- function(i, pattern, ...) parameter(pattern, pattern, matrix[i, i],
    error(i, i, identity), options, ...)
  rho <- function(lag, pattern, ...) parameter(pattern, pattern, correlation[lag + 1L, 1L],
    error(lag + 1L, 1L, stats::cov2cor), options, "fisher", ...)
  if (code %in% c("ar1", "ou")) return(list(variance(1L, "AR1 diagonal"), rho(1L, "AR1 rho")))
  variances <- lapply(seq_len(q), function(i) {
    variance(i, "Var(^1)", arguments = colnames(matrix)[i])
  })
  lags <- if (code == "cs") list(rho(1L, "CS rho")) else lapply(seq_len(q - 1L), function(lag) {
    rho(lag, "TP rho ^1", arguments = as.character(lag))
  })
  c(variances, lags)
}

#' @export
hf_residual.glmmTMB <- function(fit, info, options) {
  if (!hf_distribution(fit)$scaled) return(fixed_scale())
  covariance <- tryCatch(stats::vcov(fit, full = TRUE), error = function(e) NULL)
  at <- grep("^(d|disp)~", rownames(covariance))
  estimate <- stats::sigma(fit)^2
  se <- if (length(at) == 1L) estimate * sqrt(covariance[at, at]) else NA_real_
  list(type = "ID", parameters = list(variance_parameter(estimate, se, options)),
    free = length(fit$fit$par[names(fit$fit$par) == "betad"]))
}

#' @export
hf_messages.glmmTMB <- function(fit, random) {
  failed <- isTRUE(fit$fit$convergence != 0) || isFALSE(fit$sdr$pdHess)
  distribution <- hf_distribution(fit)
  sigma <- if (distribution$scaled) stats::sigma(fit) else 1
  c(singular_messages(random, distribution, sigma), if (failed) list(caution("kGLMM_C18")))
}

#' @export
hf_left_out.glmmTMB <- function(fit) {
  formulas <- fit$modelInfo$allForm
  plain <- function(formula) identical(all.vars(formula), character())
  trials <- has_trials(fit)
  weights <- stats::weights(fit)
  c(
    if (any(stats::model.offset(stats::model.frame(fit)) != 0)) "an offset",
    if (!trials && !is.null(weights) && length(unique(weights)) > 1L) "weights",
    if (!identical(deparse(formulas$ziformula), "~0")) "zero inflation (means are those of the conditional model)",
    if (!plain(formulas$dispformula)) "a model of the dispersion"
  )
}
