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
  wanted <- unique(c(grouping, all.vars(terms)))
  complete <- stats::complete.cases(as.data.frame(data)[intersect(wanted, names(data))])
  if (sum(complete) != fit$dims$N) complete <- rep(TRUE, nrow(data))
  if (sum(complete) != fit$dims$N) stop("The data of this fit of nlme have changed since it was ",
    "fitted.", call. = FALSE)
  frame <- without_empty_levels(frame[complete, , drop = FALSE])
  for (name in setdiff(grouping, names(frame))) frame[[name]] <- data[[name]][complete]
  list(frame = frame, terms = terms, contrasts = fit$contrasts, data = data, records = fit$dims$N,
    grouping = grouping)
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
  sigma <- fit$sigma
  covariance <- approximate_covariance(fit)
  outer <- character()
  lapply(names(structures), function(name) {
    part <- structures[[name]]
    matrix <- as.matrix(part) * sigma^2
    structure <- block_structures[intersect(class(part), names(block_structures))[1L]]
    if (is.na(structure)) {
      message("The random effects of ", name, " have a structure that the documents cannot name (",
        class(part)[1L], "); their matrix is given as unstructured.")
      structure <- "UNSTRUCTURED"
    }
    if (nrow(matrix) == 1L) structure <- "VC"
    errors <- lme_errors(part, matrix, covariance, paste0("reStruct.", name), structure)
    subject <- list(fields = c(name, rev(outer)), levels = seq_len(length(outer) + 1L) - 1L)
    outer <<- c(outer, name)
    block <- make_block(name, colnames(matrix), matrix, errors,
      if (structure == "CS") "UNSTRUCTURED" else without_names(structure), info, list(), options)
    block$subject <- subject
    block
  })
}

# Parameters are logs of standard deviations, then of (1 + r) / (1 - r) for each correlation.
lme_errors <- function(part, matrix, covariance, prefix, structure) {
  q <- nrow(matrix)
  out <- matrix(NA_real_, q, q)
  pars <- pars_of(covariance)
  at <- which(sub("[0-9]*$", "", names(pars)) == prefix | names(pars) == prefix)
  size <- if (structure == "UNSTRUCTURED") q * (q + 1L) /
    2L else if (structure %in% c("ID", "CS")) 1L else q
  if (is.null(covariance) || length(at) != size || structure == "CS") return(out)
  sd <- sqrt(diag(matrix))
  if (!isTRUE(all.equal(exp(pars[at][seq_len(min(q, size))]), rep_len(sd, min(q, size)),
    tolerance = 1e-4,
    check.attributes = FALSE))) return(out)
  entry <- function(i, j) function(p) {
    s <- exp(if (size == 1L) rep(p[at], q) else p[at][seq_len(q)])
    if (i == j) return(s[i]^2)
    z <- p[at][q + pair_index(i, j, q)]
    s[i] * s[j] * tanh(z / 2)
  }
  for (i in seq_len(q)) out[i, i] <- delta_of(covariance, entry(i, i))
  if (structure == "UNSTRUCTURED") for (i in seq_len(q)) for (j in seq_len(i - 1L)) {
    out[i, j] <- out[j, i] <- delta_of(covariance, entry(j, i))
  }
  out
}

# The place of the pair (i, j), i < j, among pairs that run over the rows of the upper triangle.
pair_index <- function(i, j, q) sum(q - seq_len(i - 1L)) + j - i

#' @export
hf_residual.lme <- function(fit, info, options) nlme_residual(fit, info, options)

#' @export
hf_residual.gls <- function(fit, info, options) nlme_residual(fit, info, options)

nlme_residual <- function(fit, info, options) {
  correlation <- nlme_correlation(fit$modelStruct$corStruct)
  groups <- nlme_variance_groups(fit)
  covariance <- approximate_covariance(fit)
  sigma <- function(p) exp(p[["lSigma"]])
  out <- list(type = correlation$type, grouping = groups$fields, subject = correlation$subject)
  made <- lapply(groups$list, function(group) {
    variance <- function(p) (sigma(p) * group$ratio(p))^2
    list(values = group$values,
      parameters = correlation$parameters(fit, variance, fit$sigma^2 * group$weight^2,
      covariance, options))
  })
  if (length(groups$fields)) out$groups <- made else out$parameters <- made[[1L]]$parameters
  if (length(groups$fields) && out$type == "ID") out$type <- "VC"
  out
}

# One group, or one for each stratum of varIdent: its ratio to the first as a function of the
# parameters.
nlme_variance_groups <- function(fit) {
  variance <- fit$modelStruct$varStruct
  single <- list(fields = character(),
    list = list(list(values = character(), weight = 1, ratio = function(p) 1)))
  if (!inherits(variance, "varIdent") || is.null(attr(variance, "groupNames"))) return(single)
  fields <- all.vars(nlme::getGroupsFormula(variance))
  names <- attr(variance, "groupNames")
  weights <- stats::coef(variance, unconstrained = FALSE, allCoef = TRUE)
  free <- if (is.null(attr(variance, "whichFix"))) rep(TRUE,
    length(names) - 1L) else !attr(variance, "whichFix")
  list(fields = fields, list = lapply(seq_along(names), function(k) {
    par <- paste0("varStruct", if (sum(free) > 1L) sum(free[seq_len(k - 1L)]) else "")
    values <- stats::setNames(strsplit(names[k], "*", fixed = TRUE)[[1L]], fields)
    list(values = values, weight = without_names(weights[names[k]]), ratio = function(p) {
      if (k == 1L || !(par %in% names(p))) 1 else exp(p[[par]])
    })
  }))
}

# What a correlation structure is called, whose records it joins, and its parameters.
nlme_correlation <- function(structure) {
  if (is.null(structure)) return(list(type = "ID", parameters = plain_parameters))
  fields <- all.vars(nlme::getGroupsFormula(structure))
  subject <- if (length(fields)) list(fields = rev(fields), levels = seq_along(fields) - 1L)
  arma <- inherits(structure, "corARMA") && attr(structure, "p") == 1L && attr(structure, "q") == 1L
  kind <- if (inherits(structure, "corAR1")) "AR1" else if (arma) "ARMA11"
    else if (inherits(structure, "corCompSymm")) "CS" else "OTHER"
  parameters <- switch(kind, AR1 = ar1_parameters, ARMA11 = arma_parameters, CS = cs_parameters,
    plain_parameters)
  list(type = kind, subject = subject, parameters = parameters)
}

plain_parameters <- function(fit, variance, estimate, covariance, options) {
  list(variance_parameter(estimate, delta_of(covariance, variance), options))
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

nlme_messages <- function(fit) if (is.character(fit$apVar)) list(caution("kGLMM_C18")) else list()

#' @export
hf_messages.lme <- function(fit, random) nlme_messages(fit)

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
    if (kind == "OTHER") paste0("a correlation structure of class ",
      class(fit$modelStruct$corStruct)[1L])
  )
}

#' @export
hf_left_out.lme <- function(fit) nlme_left_out(fit)

#' @export
hf_left_out.gls <- function(fit) nlme_left_out(fit)
