# Covariance parameters of nlme: blocks of random effects, and the residual's correlations and
# variances.

# The covariance of the parameters, with their estimates; NULL where the fit has none.
approximate_covariance <- function(fit) if (is.matrix(fit$apVar)) fit$apVar else NULL

pars_of <- function(covariance) attr(covariance, "Pars")

# The error of a function of the parameters, by the delta method.
delta_error <- function(covariance, gradient) {
  if (is.null(covariance)) return(NA_real_)
  variance <- drop(gradient %*% covariance %*% gradient)
  if (isTRUE(variance > 0)) sqrt(variance) else NA_real_
}

gradient_of <- function(f, at) {
  vapply(seq_along(at), function(i) {
    h <- 1e-5 * max(1, abs(at[i]))
    up <- down <- at
    up[i] <- at[i] + h
    down[i] <- at[i] - h
    (f(up) - f(down)) / (2 * h)
  }, 1)
}

delta_of <- function(covariance, f) {
  if (is.null(covariance)) return(NA_real_)
  delta_error(covariance, gradient_of(f, pars_of(covariance)))
}

block_structures <- c(pdDiag = "DIAG", pdIdent = "ID", pdCompSymm = "CS", pdSymm = "UNSTRUCTURED",
  pdLogChol = "UNSTRUCTURED", pdNatural = "UNSTRUCTURED")

#' @export
hf_random.lme <- function(fit, info, options) {
  structures <- rev(fit$modelStruct$reStruct)
  covariance <- approximate_covariance(fit)
  outer <- character()
  lapply(names(structures), function(name) {
    block <- lme_block(structures[[name]], name, fit$sigma, covariance, info, options)
    block$subject <- list(fields = c(name, rev(outer)), levels = seq_len(length(outer) + 1L) - 1L)
    outer <<- c(outer, name)
    block
  })
}

lme_block <- function(part, name, sigma, covariance, info, options) {
  matrix <- as.matrix(part) * sigma^2
  structure <- block_structures[intersect(class(part), names(block_structures))[1L]]
  if (nrow(matrix) == 1L) structure <- "VC"
  if (is.na(structure)) {
    message("The documents cannot name the structure ", class(part)[1L], " of the random effects of ",
      name, "; its matrix stands without a name.")
    structure <- ""
  }
  made <- lme_matrix(part, matrix, covariance, name, structure)
  errors <- matrix * NA_real_
  for (i in seq_len(nrow(matrix))) for (j in seq_len(i)) {
    if (matrix[i, j] == 0 && i != j) next
    errors[i, j] <- errors[j, i] <- delta_of(made$covariance, function(p) made$of(p)[i, j])
  }
  parameters <- if (structure == "") entry_parameters(matrix, errors, options)
  if (structure == "CS") parameters <- cs_block_parameters(matrix, made, options)
  block <- make_block(name, colnames(matrix), matrix, errors, without_names(structure), info, list(),
    options, parameters)
  c(block, free = length(stats::coef(part)))
}

# The matrix as a function of the fit's parameters: logs of standard deviations, then of
# (1 + r) / (1 - r) for each correlation; for compound symmetry of (r + 1 / (q - 1)) / (1 - r).
# Without a covariance where the function does not give the fit's own matrix.
lme_matrix <- function(part, matrix, covariance, name, structure) {
  if (is.null(covariance)) return(list(covariance = NULL))
  q <- nrow(matrix)
  pars <- pars_of(covariance)
  at <- which(sub("[0-9]*$", "", names(pars)) == sub("[0-9]*$", "", paste0("reStruct.", name)))
  at <- at[startsWith(names(pars)[at], paste0("reStruct.", name))]
  of <- function(p) {
    p <- without_names(p[at])
    sd <- exp(if (structure %in% c("ID", "CS")) rep(p[1L], q) else p[seq_len(q)])
    r <- diag(q)
    if (structure == "UNSTRUCTURED") r[lower.tri(r)] <- tanh(p[-seq_len(q)] / 2)
    if (structure == "CS") r[lower.tri(r)] <- (exp(p[2L]) - 1 / (q - 1)) / (1 + exp(p[2L]))
    r[upper.tri(r)] <- t(r)[upper.tri(r)]
    r * tcrossprod(sd)
  }
  known <- length(at) == length(stats::coef(part)) &&
    isTRUE(all.equal(of(pars), without_names(matrix), tolerance = 1e-4, check.attributes = FALSE))
  list(of = of, covariance = if (known) covariance)
}

cs_block_parameters <- function(matrix, made, options) {
  list(
    parameter("CS diagonal offset", "CS diagonal offset", matrix[1L, 1L] - matrix[2L, 1L],
      delta_of(made$covariance, function(p) made$of(p)[1L, 1L] - made$of(p)[2L, 1L]), options),
    parameter("CS covariance", "CS covariance", matrix[2L, 1L],
      delta_of(made$covariance, function(p) made$of(p)[2L, 1L]), options, "none")
  )
}

#' @export
hf_residual.lme <- function(fit, info, options) nlme_residual(fit, info, options)

#' @export
hf_residual.gls <- function(fit, info, options) nlme_residual(fit, info, options)

# One set of parameters, or one for each stratum of varIdent. Strata within the subjects of a
# correlation are variances of one matrix instead.
nlme_residual <- function(fit, info, options) {
  structure <- fit$modelStruct
  correlation <- nlme_correlation(structure$corStruct)
  strata <- nlme_strata(structure$varStruct)
  covariance <- approximate_covariance(fit)
  free <- length(stats::coef(structure$corStruct)) + length(stats::coef(structure$varStruct)) + 1L
  out <- list(type = correlation$type, subject = correlation$subject, free = free)
  within <- strata_within(structure)
  if (correlation$type == "UNSTRUCTURED" && (length(strata$list) == 1L || !is.null(within))) {
    out$parameters <- symmetric_parameters(fit, strata$list, within, covariance, options)
    return(out)
  }
  if (correlation$type == "UNSTRUCTURED" || (crosses_strata(structure) && correlation$type != "ID")) {
    out$type <- ""
    out$parameters <- free_parameters(fit, strata$list, covariance, options)
    return(out)
  }
  made <- lapply(strata$list, function(stratum) {
    variance <- function(p) (exp(p[["lSigma"]]) * stratum$ratio(p))^2
    list(values = stratum$values, parameters = correlation$parameters(fit, variance,
      fit$sigma^2 * stratum$weight^2, covariance, options))
  })
  if (length(strata$fields) == 0L) return(c(out, made[[1L]]["parameters"]))
  if (out$type == "ID") out$type <- "VC"
  c(out, list(grouping = strata$fields, groups = made))
}

# One stratum, or those of varIdent: the ratio of each to the first as a function of the parameters.
nlme_strata <- function(variance) {
  single <- list(fields = character(),
    list = list(list(values = character(), weight = 1, ratio = function(p) 1)))
  if (!inherits(variance, "varIdent") || is.null(attr(variance, "groupNames"))) return(single)
  fields <- all.vars(nlme::getGroupsFormula(variance))
  names <- attr(variance, "groupNames")
  weights <- stats::coef(variance, unconstrained = FALSE, allCoef = TRUE)
  fixed <- attr(variance, "whichFix")
  free <- if (is.null(fixed)) rep(TRUE, length(names) - 1L) else !fixed
  list(fields = fields, list = lapply(seq_along(names), function(k) {
    par <- paste0("varStruct", if (sum(free) > 1L) sum(free[seq_len(k - 1L)]) else "")
    values <- stats::setNames(strsplit(names[k], "*", fixed = TRUE)[[1L]], fields)
    list(name = names[k], values = values, weight = without_names(weights[names[k]]),
      ratio = function(p) if (k == 1L || !(par %in% names(p))) 1 else exp(p[[par]]))
  }))
}

# Whether records of one subject of the correlation are of different strata.
crosses_strata <- function(structure) {
  strata <- attr(structure$varStruct, "groups")
  subjects <- attr(structure$corStruct, "groups")
  if (is.null(strata) || is.null(subjects)) return(FALSE)
  any(tapply(as.character(strata), as.character(subjects), function(s) length(unique(s))) > 1L)
}

# The stratum of each place of a symmetric correlation, where each place has one and the other way
# round.
strata_within <- function(structure) {
  if (!inherits(structure$corStruct, "corSymm") || !crosses_strata(structure)) return(NULL)
  places <- unlist(lapply(nlme::getCovariate(structure$corStruct), as.integer))
  places <- places - min(places) + 1L
  pairs <- unique(data.frame(place = places, stratum = as.character(attr(structure$varStruct, "groups"))))
  if (anyDuplicated(pairs$place) || anyDuplicated(pairs$stratum)) return(NULL)
  pairs$stratum[order(pairs$place)]
}

# All entries of the matrix of a subject.
symmetric_parameters <- function(fit, strata, within, covariance, options) {
  q <- attr(fit$modelStruct$corStruct, "maxCov")
  places <- if (is.null(within)) rep(1L, q)
    else match(within, vapply(strata, `[[`, "", "name"))
  matrix_of <- function(sigma, ratios, correlations) {
    out <- diag(q)
    out[lower.tri(out)] <- correlations
    out[upper.tri(out)] <- t(out)[upper.tri(out)]
    out * tcrossprod(sigma * ratios)
  }
  now <- matrix_of(fit$sigma, vapply(strata[places], `[[`, 1, "weight"),
    stats::coef(fit$modelStruct$corStruct, unconstrained = FALSE))
  of <- function(p) matrix_of(exp(p[["lSigma"]]), vapply(strata[places], function(s) s$ratio(p), 1),
    tanh(p[grepl("^corStruct", names(p))] / 2))
  known <- !is.null(covariance) && isTRUE(all.equal(of(pars_of(covariance)), now, tolerance = 1e-4))
  errors <- now * NA_real_
  for (i in seq_len(q)) for (j in seq_len(i)) {
    errors[i, j] <- delta_of(if (known) covariance, function(p) of(p)[i, j])
  }
  entry_parameters(now, errors, options)
}

# What a correlation structure is called, whose records it joins, and its parameters.
nlme_correlation <- function(structure) {
  if (is.null(structure)) return(list(type = "ID", parameters = plain_parameters))
  fields <- all.vars(nlme::getGroupsFormula(structure))
  subject <- if (length(fields)) list(fields = rev(fields), levels = seq_along(fields) - 1L)
  arma <- inherits(structure, "corARMA") && attr(structure, "p") == 1L && attr(structure, "q") == 1L
  kind <- if (inherits(structure, "corAR1")) "AR1" else if (arma) "ARMA11"
    else if (inherits(structure, "corCompSymm")) "CS"
    else if (inherits(structure, "corSymm")) "UNSTRUCTURED" else ""
  parameters <- switch(kind, AR1 = ar1_parameters, ARMA11 = arma_parameters, CS = cs_parameters,
    function(fit, variance, estimate, covariance, options) free_parameters(fit, NULL, covariance, options))
  list(type = kind, subject = subject, parameters = parameters)
}

plain_parameters <- function(fit, variance, estimate, covariance, options) {
  c(list(variance_parameter(estimate, delta_of(covariance, variance), options)),
    variance_function_parameters(fit, covariance, options))
}

# Parameters by the names that nlme gives them: a variance, or one a stratum, and the correlation's.
free_parameters <- function(fit, strata, covariance, options) {
  if (length(strata) < 2L) strata <- list(list(weight = 1, ratio = function(p) 1))
  variances <- lapply(strata, function(stratum) {
    of <- function(p) (exp(p[["lSigma"]]) * stratum$ratio(p))^2
    estimate <- fit$sigma^2 * stratum$weight^2
    if (is.null(stratum$name)) return(variance_parameter(estimate, delta_of(covariance, of), options))
    parameter("Var(^1)", "Var(^1)", estimate, delta_of(covariance, of), options,
      arguments = stratum$name)
  })
  now <- stats::coef(fit$modelStruct$corStruct, unconstrained = FALSE)
  values <- correlation_values(fit)
  known <- !is.null(covariance) &&
    isTRUE(all.equal(without_names(values(pars_of(covariance))), without_names(now), tolerance = 1e-4))
  correlations <- lapply(seq_along(now), function(i) {
    error <- delta_of(if (known) covariance, function(p) values(p)[[i]])
    scale <- if (names(now)[i] == "range") "log" else "none"
    parameter(names(now)[i], names(now)[i], now[[i]], error, options, scale)
  })
  c(variances, correlations, variance_function_parameters(fit, covariance, options))
}

# Parameters of a variance function other than strata.
variance_function_parameters <- function(fit, covariance, options) {
  structure <- fit$modelStruct$varStruct
  if (is.null(structure) || inherits(structure, c("varIdent", "varComb"))) return(NULL)
  now <- stats::coef(structure, unconstrained = FALSE)
  value <- function(p) stats::coef(nlme::`coef<-`(structure,
    value = without_names(p[grepl("^varStruct", names(p))])), unconstrained = FALSE)
  lapply(seq_along(now), function(i) {
    parameter(names(now)[i], names(now)[i], now[[i]], delta_of(covariance, function(p) value(p)[[i]]),
      options, "none")
  })
}

# The constrained parameters of the correlation, from those of the fit.
correlation_values <- function(fit) {
  structure <- fit$modelStruct$corStruct
  function(p) {
    coef <- p[grepl("^corStruct", names(p))]
    stats::coef(nlme::`coef<-`(structure, value = without_names(coef)), unconstrained = FALSE)
  }
}

ar1_parameters <- function(fit, variance, estimate, covariance, options) {
  values <- correlation_values(fit)
  rho <- without_names(stats::coef(fit$modelStruct$corStruct, unconstrained = FALSE))
  list(
    parameter("AR1 diagonal", "AR1 diagonal", estimate, delta_of(covariance, variance), options),
    parameter("AR1 rho", "AR1 rho", rho, delta_of(covariance, function(p) values(p)[[1L]]), options,
      "fisher")
  )
}

# The autoregressive parameter, and the correlation of records that follow each other.
arma_parameters <- function(fit, variance, estimate, covariance, options) {
  values <- correlation_values(fit)
  first <- function(v) (1 + v[[1L]] * v[[2L]]) * (v[[1L]] + v[[2L]]) /
    (1 + 2 * v[[1L]] * v[[2L]] + v[[2L]]^2)
  now <- stats::coef(fit$modelStruct$corStruct, unconstrained = FALSE)
  list(
    parameter("ARMA11 diagonal", "ARMA11 diagonal", estimate, delta_of(covariance, variance),
      options),
    parameter("ARMA11 rho", "ARMA11 rho", without_names(now[[1L]]),
      delta_of(covariance, function(p) values(p)[[1L]]),
      options, "fisher"),
    parameter("ARMA11 phi", "ARMA11 phi", first(now),
      delta_of(covariance, function(p) first(values(p))), options,
      "fisher")
  )
}

cs_parameters <- function(fit, variance, estimate, covariance, options) {
  values <- correlation_values(fit)
  rho <- without_names(stats::coef(fit$modelStruct$corStruct, unconstrained = FALSE))
  list(
    parameter("CS diagonal offset", "CS diagonal offset", estimate * (1 - rho),
      delta_of(covariance, function(p) variance(p) * (1 - values(p)[[1L]])), options),
    parameter("CS covariance", "CS covariance", estimate * rho,
      delta_of(covariance, function(p) variance(p) * values(p)[[1L]]), options, "none")
  )
}

