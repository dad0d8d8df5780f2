# lm and glm.

#' @export
hf_frame.lm <- function(fit) {
  if (inherits(fit, "mlm")) refuse_class(fit)
  list(
    frame = stats::model.frame(fit), terms = stats::terms(fit), contrasts = fit$contrasts,
    data = original_data(fit$call, stats::formula(fit)), beta = stats::coef(fit), random = list()
  )
}

#' @export
hf_distribution.lm <- function(fit) {
  list(distribution = "NORMAL", link = "IDENTITY", power = NA_real_, scaled = TRUE)
}

#' @export
hf_distribution.glm <- function(fit) distribution_of_family(stats::family(fit))

# aov() makes fits of lm with a summary of its own.
lm_summary <- function(fit) if (inherits(fit, "aov")) stats::summary.lm(fit) else summary(fit)

#' @export
hf_coefficients.lm <- function(fit, info, design, options) {
  table <- stats::coef(lm_summary(fit))
  tested <- colnames(table)[3L] == "t value"
  from_summary(design, info$beta, table, if (tested) stats::df.residual(fit) else Inf, 3L, 4L)
}

#' @export
hf_residual.lm <- function(fit, info, options) {
  list(type = "ID", parameters = list(variance_parameter(lm_summary(fit)$sigma^2, NA_real_,
    options)))
}

#' @export
hf_residual.glm <- function(fit, info, options) {
  if (!hf_distribution(fit)$scaled) return(fixed_scale())
  list(type = "ID", parameters = list(variance_parameter(summary(fit)$dispersion, NA_real_,
    options)))
}

#' @export
hf_messages.glm <- function(fit,
  random) if (isFALSE(fit$converged)) list(caution("kGLMM_C18")) else list()

#' @export
hf_left_out.lm <- function(fit) {
  c(
    if (!is.null(fit$offset)) "an offset",
    if (!is.null(fit$weights)) "weights"
  )
}

#' @export
hf_left_out.glm <- function(fit) {
  trials <- has_trials(fit)
  c(
    if (!is.null(fit$offset) && any(fit$offset != 0)) "an offset",
    if (!trials && length(unique(fit$prior.weights)) > 1L) "weights"
  )
}
