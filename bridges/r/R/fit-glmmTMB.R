# glmmTMB.

#' @export
hf_frame.glmmTMB <- function(fit) {
  needs("glmmTMB", "A fit of glmmTMB")
  design <- stats::model.matrix(fit)
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
  table <- summary(fit)$coefficients$cond
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

tmb_structure <- function(component) {
  code <- names(attr(component, "blockCode"))
  if (nrow(component) == 1L) return("VC")
  switch(code, diag = "DIAG", us = "UNSTRUCTURED", code)
}

# Logs of standard deviations, then the lower triangle by rows of a factor of the correlation.
tmb_matrix <- function(theta, q, structure) {
  sd <- exp(theta[seq_len(q)])
  if (structure != "UNSTRUCTURED") return(diag(sd^2, q))
  factor <- diag(q)
  rest <- theta[-seq_len(q)]
  at <- 0L
  for (i in seq_len(q)[-1L]) for (j in seq_len(i - 1L)) factor[i, j] <- rest[at <- at + 1L]
  stats::cov2cor(tcrossprod(factor)) * tcrossprod(sd)
}

#' @export
hf_random.glmmTMB <- function(fit, info, options) {
  components <- glmmTMB::VarCorr(fit)$cond
  if (length(components) == 0L) return(list())
  given <- tmb_theta(fit)
  groups <- names(fit$modelInfo$reTrms$cond$cnms)
  others <- lapply(unique(groups), function(g) strsplit(g, ":", fixed = TRUE)[[1L]])
  at <- 0L
  blocks <- lapply(seq_along(components), function(k) {
    component <- components[[k]]
    q <- nrow(component)
    structure <- tmb_structure(component)
    size <- fit$modelInfo$reStruc$condReStruc[[k]]$blockNumTheta
    inside <- at + seq_len(size)
    at <<- at + size
    if (!(structure %in% c("VC", "DIAG", "UNSTRUCTURED"))) {
      message("The random effects of ", groups[k], " have the structure ", structure,
        ", whose parameters the documents cannot name; their matrix is given as unstructured.")
      return(tmb_block(component, NULL, groups[k], "UNSTRUCTURED", info, others, options))
    }
    covariance <- if (!is.null(given$covariance)) given$covariance[inside, inside, drop = FALSE]
    errors <- tmb_errors(given$theta[inside], covariance, component, q, structure)
    tmb_block(component, errors, groups[k], structure, info, others, options)
  })
  blocks[order(vapply(blocks, function(b) nlevels(info$random[[b$group]]), 1L))]
}

tmb_block <- function(component, errors, group, structure, info, others, options) {
  matrix <- matrix(as.numeric(component), nrow(component), dimnames = dimnames(component))
  if (is.null(errors)) errors <- matrix * NA_real_
  make_block(group, colnames(component), matrix, errors, structure, info, others, options)
}

tmb_errors <- function(theta, covariance, component, q, structure) {
  out <- matrix(NA_real_, q, q)
  agrees <- isTRUE(all.equal(tmb_matrix(theta, q, structure), matrix(as.numeric(component), q),
    tolerance = 1e-4))
  if (is.null(covariance) || !agrees) return(out)
  for (i in seq_len(q)) for (j in seq_len(i)) {
    if (i != j && structure != "UNSTRUCTURED") next
    gradient <- gradient_of(function(p) tmb_matrix(p, q, structure)[i, j], theta)
    out[i, j] <- out[j, i] <- delta_error(covariance, gradient)
  }
  out
}

#' @export
hf_residual.glmmTMB <- function(fit, info, options) {
  if (!hf_distribution(fit)$scaled) return(fixed_scale())
  covariance <- tryCatch(stats::vcov(fit, full = TRUE), error = function(e) NULL)
  at <- grep("^(d|disp)~", rownames(covariance))
  estimate <- stats::sigma(fit)^2
  se <- if (length(at) == 1L) estimate * sqrt(covariance[at, at]) else NA_real_
  list(type = "ID", parameters = list(variance_parameter(estimate, se, options)))
}

#' @export
hf_messages.glmmTMB <- function(fit, random) {
  failed <- isTRUE(fit$fit$convergence != 0) || isFALSE(fit$sdr$pdHess)
  if (failed) list(caution("kGLMM_C18")) else list()
}

#' @export
hf_left_out.glmmTMB <- function(fit) {
  formulas <- fit$modelInfo$allForm
  plain <- function(formula) identical(all.vars(formula), character())
  trials <- is.matrix(stats::model.response(stats::model.frame(fit)))
  weights <- stats::weights(fit)
  c(
    if (any(stats::model.offset(stats::model.frame(fit)) != 0)) "an offset",
    if (!trials && !is.null(weights) && length(unique(weights)) > 1L) "weights",
    if (!identical(deparse(formulas$ziformula), "~0")) "zero inflation",
    if (!plain(formulas$dispformula)) "a model of the dispersion"
  )
}
