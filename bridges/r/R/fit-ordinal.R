# clm and clmm of ordinal.

clm_info <- function(fit) {
  needs("ordinal", "A fit of ordinal")
  if (!is.null(fit$nom.terms) && length(attr(fit$nom.terms, "term.labels"))) {
    stop("Nominal effects (", paste(attr(fit$nom.terms, "term.labels"), collapse = ", "),
      ") of clm have no place in ",
      "the documents; fit the model without `nominal`.", call. = FALSE)
  }
  list(
    frame = stats::model.frame(fit), terms = fit$terms, contrasts = fit$contrasts,
    thresholds = TRUE,
    data = original_data(fit$call, stats::formula(fit$terms)),
    beta = if (is.null(fit$beta)) numeric() else fit$beta,
    alpha = fit$alpha
  )
}

#' @export
hf_frame.clm <- function(fit) clm_info(fit)

#' @export
hf_frame.clmm <- function(fit) {
  info <- clm_info(fit)
  info$random <- fit$gfList
  if (is.null(info$random)) info$random <- info$frame[intersect(names(fit$ranef),
    names(info$frame))]
  info
}

clm_distribution <- function(fit) {
  link <- link_table[fit$link]
  if (is.na(link)) stop("The link ", fit$link,
    " has no name in the documents. Known are: logit, probit, cloglog, ",
    "loglog, cauchit.", call. = FALSE)
  list(distribution = "ORDINAL", link = without_names(link), power = NA_real_, scaled = FALSE)
}

#' @export
hf_distribution.clm <- function(fit) clm_distribution(fit)

#' @export
hf_distribution.clmm <- function(fit) clm_distribution(fit)

clm_coefficients <- function(fit, info, design, options) {
  table <- suppressWarnings(stats::coef(summary(fit)))
  n <- length(info$alpha)
  if (!identical(fit$threshold, "flexible")) {
    stop("Thresholds that are ", fit$threshold,
      " have no place in the documents; fit the model with ",
      "threshold = \"flexible\".", call. = FALSE)
  }
  alpha <- table[seq_len(n), , drop = FALSE]
  levels <- as_levels(stats::model.response(info$frame))
  thresholds <- data.frame(
    level = levels[seq_len(n)], estimate = alpha[, 1L], se = alpha[, 2L], df = Inf,
    stat = alpha[, 3L], p = alpha[, 4L]
  )
  beta <- from_summary(design, info$beta, table[-seq_len(n), , drop = FALSE], Inf, 3L, 4L)
  list(thresholds = replace_df(thresholds, options), beta = replace_df(beta, options))
}

#' @export
hf_coefficients.clm <- function(fit, info, design, options) clm_coefficients(fit, info, design,
  options)

#' @export
hf_coefficients.clmm <- function(fit, info, design, options) clm_coefficients(fit, info, design,
  options)

# The matrix of a block from its parameters: scales, then the lower triangle of a unit triangular
# factor.
st_matrix <- function(par, q) {
  factor <- diag(q)
  factor[lower.tri(factor)] <- par[-seq_len(q)]
  tcrossprod(factor %*% diag(par[seq_len(q)], q))
}

st_parameters <- function(st) c(diag(st), st[lower.tri(st)])

# With one scalar block ordinal works on the log of its standard deviation, otherwise on the
# factors' entries.
clmm_errors <- function(st, matrix, covariance, on_log) {
  q <- nrow(st)
  out <- matrix * NA_real_
  par <- st_parameters(st)
  if (on_log) par <- log(par)
  entries <- function(p) st_matrix(if (on_log) exp(p) else p, q)
  if (is.null(covariance) ||
    !isTRUE(all.equal(entries(par), without_names(matrix), tolerance = 1e-6))) return(out)
  for (i in seq_len(q)) for (j in seq_len(i)) {
    gradient <- gradient_of(function(p) entries(p)[i, j], par)
    out[i, j] <- out[j, i] <- delta_error(covariance, gradient)
  }
  out
}

clmm_covariance <- function(fit, fixed, size) {
  covariance <- tryCatch(stats::vcov(fit), error = function(e) NULL)
  usable <- !is.null(covariance) && nrow(covariance) == fixed + size && !anyNA(covariance)
  if (usable) covariance[fixed + seq_len(size), fixed + seq_len(size), drop = FALSE]
}

#' @export
hf_random.clmm <- function(fit, info, options) {
  components <- ordinal::VarCorr(fit)
  sizes <- lengths(lapply(fit$ST, st_parameters))
  covariance <- clmm_covariance(fit, length(info$alpha) + sum(!is.na(info$beta)), sum(sizes))
  groups <- names(components)
  others <- other_groups(groups, info)
  ends <- cumsum(sizes)
  lapply(seq_along(components), function(k) {
    component <- components[[k]]
    matrix <- matrix(as.numeric(component), nrow(component), dimnames = dimnames(component))
    inside <- seq.int(ends[k] - sizes[k] + 1L, ends[k])
    errors <- clmm_errors(fit$ST[[k]], matrix, covariance[inside, inside, drop = FALSE],
      sum(sizes) == 1L)
    make_block(groups[k], colnames(component), matrix, errors,
      if (nrow(matrix) > 1L) "UNSTRUCTURED" else "VC",
      info, others, options)
  })
}

#' @export
hf_residual.clm <- function(fit, info, options) fixed_scale()

#' @export
hf_residual.clmm <- function(fit, info, options) fixed_scale()

#' @export
hf_fitted.clm <- function(fit) clm_probabilities(fit)

#' @export
hf_fitted.clmm <- function(fit) clm_probabilities(fit)

# Probabilities of the categories, for clmm at the modes of the random effects; ordinal predicts them
# for clm alone, and there from data that hold the formula's own variables. Missing where they do not
# agree with those that the fit has for the observed categories.
clm_probabilities <- function(fit) {
  frame <- stats::model.frame(fit)
  eta <- linear_predictor(fit$terms, fit$contrasts, fit$beta, frame)
  if (!is.null(fit$ranef)) eta <- eta + random_predictor(fit)
  scale <- if (length(fit$zeta)) exp(linear_predictor(fit$S.terms, fit$S.contrasts, fit$zeta, frame)) else 1
  inverse <- switch(fit$link, logit = stats::plogis, probit = stats::pnorm,
    cauchit = stats::pcauchy,
    cloglog = function(x) -expm1(-exp(x)), loglog = function(x) exp(-exp(-x)))
  below <- cbind(0, vapply(fit$alpha, function(a) inverse((a - eta) / scale), eta), 1)
  all <- below[, -1L, drop = FALSE] - below[, -ncol(below), drop = FALSE]
  observed <- all[cbind(seq_len(nrow(all)), as.integer(stats::model.response(frame)))]
  given <- as.numeric(fit$fitted.values)
  given <- given[!is.na(given)]
  if (!isTRUE(all.equal(observed, given, tolerance = 1e-5))) all[] <- NA_real_
  all
}

linear_predictor <- function(terms, contrasts, beta, frame) {
  beta <- beta[!is.na(beta)]
  terms <- stats::delete.response(terms)
  offset <- attr(terms, "offset")
  out <- rep(0, nrow(frame))
  for (i in offset) out <- out + frame[[variable_names(terms)[i]]]
  if (length(beta) == 0L) return(out)
  design <- stats::model.matrix(terms, frame, contrasts.arg = contrasts)
  out + drop(design[, names(beta), drop = FALSE] %*% beta)
}

random_predictor <- function(fit) {
  modes <- ordinal::ranef(fit)
  frame <- stats::model.frame(fit)
  total <- 0
  for (name in names(modes)) {
    group <- do.call(paste,
      c(without_names(lapply(frame[group_fields(name, names(frame))], as.character)), sep = ":"))
    table <- modes[[name]]
    rows <- block_rows(colnames(table), frame)
    for (k in seq_along(rows)) {
      total <- total + row_values(rows[[k]], frame) * table[match(group, rownames(table)), k]
    }
  }
  total
}

# The column that a row of a block describes.
row_values <- function(row, frame) {
  if (!all(c(names(row$covariates), names(row$factors)) %in% names(frame))) return(NA_real_)
  value <- rep(1, nrow(frame))
  for (field in names(row$covariates)) value <- value * frame[[field]]^row$covariates[[field]]
  for (field in names(row$factors)) value <- value * (frame[[field]] == row$factors[[field]])
  value
}

#' @export
hf_messages.clm <- function(fit, random) {
  if (isTRUE(fit$convergence$code != 0)) list(caution("kGLMM_C18")) else list()
}

#' @export
hf_messages.clmm <- function(fit, random) {
  failed <- isTRUE(fit$optRes$convergence != 0) || 
    !all(is.finite(suppressWarnings(stats::coef(summary(fit)))[, 2L]))
  c(singular_messages(random, hf_distribution(fit)), if (failed) list(caution("kGLMM_C18")))
}

clm_left_out <- function(fit) {
  frame <- stats::model.frame(fit)
  weights <- stats::model.weights(frame)
  c(
    if (!is.null(stats::model.offset(frame))) "an offset",
    if (!is.null(weights) && any(weights != 1)) "weights",
    if (length(attr(fit$S.terms, "term.labels"))) "a model of the scale"
  )
}

#' @export
hf_left_out.clm <- function(fit) clm_left_out(fit)

#' @export
hf_left_out.clmm <- function(fit) clm_left_out(fit)
