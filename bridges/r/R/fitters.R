# What each fitter gives. Every generic has one method a fitter and, where fitters agree, a default.

# The model frame, the terms of the fixed part, their codings and the data that labels come from.
hf_frame <- function(fit) UseMethod("hf_frame")
# The distribution, the link, and whether the scale is estimated.
hf_distribution <- function(fit) UseMethod("hf_distribution")
# Estimates of the fixed part by design column: estimate, se, df, stat, p; missing where not
# estimable.
hf_coefficients <- function(fit, info, design, options) UseMethod("hf_coefficients")
# Tests of the effects and of all of them together: f, df1, df2, p.
hf_tests <- function(fit, info, design, options) UseMethod("hf_tests")
# Blocks of random effects.
hf_random <- function(fit, info, options) UseMethod("hf_random")
# The residual: structure, grouping, parameters.
hf_residual <- function(fit, info, options) UseMethod("hf_residual")
# Fitted values on the scale of the target; a matrix of probabilities for several categories.
hf_fitted <- function(fit) UseMethod("hf_fitted")
# The log-likelihood and what comes from it.
hf_criteria <- function(fit) UseMethod("hf_criteria")
# Messages of the fit by key.
hf_messages <- function(fit, random) UseMethod("hf_messages")
# What the reference grid of estimated means needs beside the fit.
hf_grid_arguments <- function(fit, options) UseMethod("hf_grid_arguments")
# Arguments of the reference grid of probabilities of a target's categories.
hf_category_grid <- function(fit) UseMethod("hf_category_grid")
# The covariance of the estimable coefficients of the fixed part.
hf_vcov <- function(fit, info) UseMethod("hf_vcov")
# What the documents cannot hold, in words.
hf_left_out <- function(fit) UseMethod("hf_left_out")

supported <- c(
  "lmer, glmer, glmer.nb (lme4, lmerTest)", "glmmTMB", "lme, gls (nlme)", "clmm, clm (ordinal)",
  "multinom (nnet)", "glm, lm"
)

refuse_class <- function(fit) {
  stop("A fit of class ", paste(class(fit), collapse = "/"), " is not known. Known are: ",
    paste(supported, collapse = "; "), ".", call. = FALSE)
}

needs <- function(package, what) {
  if (requireNamespace(package, quietly = TRUE)) return(invisible(TRUE))
  stop(what, " needs the package ", package, ": install.packages(\"", package, "\").",
    call. = FALSE)
}

original_data <- function(call, formula) {
  environment <- environment(formula)
  if (is.null(environment)) environment <- parent.frame()
  data <- tryCatch(eval(call$data, environment), error = function(e) NULL)
  if (is.data.frame(data)) data else NULL
}

#' @export
hf_frame.default <- function(fit) refuse_class(fit)

#' @export
hf_distribution.default <- function(fit) refuse_class(fit)

#' @export
hf_random.default <- function(fit, info, options) list()

#' @export
hf_messages.default <- function(fit, random) list()

#' @export
hf_grid_arguments.default <- function(fit, options) {
  if (options$df == "residual") list(df = options$residual_df) else list()
}

#' @export
hf_category_grid.default <- function(fit) list(fit, mode = "prob")

#' @export
hf_fitted.default <- function(fit) stats::fitted(fit)

# Fitted values without the records that na.exclude puts back.
of_records <- function(fitted, fit, info) {
  if (NROW(fitted) == nrow(info$frame)) return(fitted)
  left_out <- attr(info$frame, "na.action")
  if (is.null(left_out) && is.list(fit)) left_out <- fit$na.action
  kept <- if (inherits(left_out, "exclude")) seq_len(NROW(fitted))[-as.integer(left_out)]
  if (length(kept) != nrow(info$frame)) stop("The fit has fitted values of ", NROW(fitted),
    " records where its data have ", nrow(info$frame), "; fit it with na.action = na.omit.",
    call. = FALSE)
  if (is.matrix(fitted)) fitted[kept, , drop = FALSE] else fitted[kept]
}

#' @export
hf_vcov.default <- function(fit, info) {
  names <- names(info$beta)[!is.na(info$beta)]
  covariance <- as.matrix(stats::vcov(fit))
  covariance[names, names, drop = FALSE]
}

#' @export
hf_left_out.default <- function(fit) {
  c(
    if (!is.null(fit$offset) && any(fit$offset != 0)) "an offset",
    if (!is.null(fit$prior.weights) && length(unique(fit$prior.weights)) > 1L) "weights"
  )
}

#' @export
hf_criteria.default <- function(fit) {
  likelihood <- stats::logLik(fit)
  n <- attr(likelihood, "nobs")
  if (is.null(n)) n <- stats::nobs(fit)
  criteria_of(-2 * as.numeric(likelihood), attr(likelihood, "df"), n, stats::BIC(fit))
}

criteria_of <- function(minus2, k, n, bic) {
  room <- n - k - 1
  aicc <- if (isTRUE(room > 0)) minus2 + 2 * k + 2 * k * (k + 1) / room else NA_real_
  list(minus2 = minus2, aicc = aicc, bic = bic)
}

# Some fitters keep columns that are combinations of others; their coefficients are one choice of
# many.
refuse_aliased <- function(x) {
  q <- qr(x, tol = 1e-9)
  if (q$rank == ncol(x)) return(invisible())
  stop("The coefficients ", paste(colnames(x)[q$pivot[-seq_len(q$rank)]], collapse = ", "),
    " cannot be estimated beside the others, which this fitter does not tell; leave their terms or ",
    "empty levels out of the model.", call. = FALSE)
}

#' @export
hf_tests.default <- function(fit, info, design, options) joint_term_tests(fit, info, design,
  options)

# Links by the names that R gives them.
link_table <- c(
  identity = "IDENTITY", log = "LOG", logit = "LOGIT", probit = "PROBIT", cloglog = "CLOGLOG",
  loglog = "NLOGLOG", cauchit = "CAUCHIT", inverse = "POWER", `1/mu^2` = "POWER", sqrt = "POWER"
)

link_powers <- c(inverse = -1, `1/mu^2` = -2, sqrt = 0.5)

distribution_table <- c(
  gaussian = "NORMAL", binomial = "BINOMIAL", quasibinomial = "BINOMIAL", poisson = "POISSON",
  quasipoisson = "POISSON", Gamma = "GAMMA", inverse.gaussian = "IGAUSS"
)

distribution_of_family <- function(family) {
  name <- family$family
  kind <- if (grepl("^(Negative Binomial|negative binomial|nbinom2)",
    name)) "NEGBIN" else distribution_table[name]
  power <- regmatches(family$link, regexec("^mu\\^(-?[0-9.]+)$", family$link))[[1L]]
  link <- if (length(power) == 2L) "POWER" else link_table[family$link]
  if (is.na(kind)) stop("The family ", name, " has no name in the documents. Known are: gaussian, ",
    "binomial, poisson, Gamma, inverse.gaussian, negative binomial.", call. = FALSE)
  if (is.na(link) || (link == "CAUCHIT")) stop("The link ", family$link,
    " has no name in the documents ",
    "for the family ", name, ". Known are: identity, log, logit, probit, cloglog, and powers.",
    call. = FALSE)
  value <- if (length(power) == 2L) as.numeric(power[2L])
    else without_names(link_powers[family$link])
  scaled <- !(kind %in% c("BINOMIAL", "POISSON", "NEGBIN")) || grepl("^quasi", name)
  list(distribution = without_names(kind), link = without_names(link), power = value,
    scaled = scaled)
}

# Puts figures by coefficient name into the columns of the design.
by_column <- function(design, names, estimate, se, df, stat, p) {
  given <- length(names)
  if (given != design$columns) {
    stop("The fit has ", given, " coefficients where its formula makes ", design$columns,
      "; a term of it cannot be put into the documents.", call. = FALSE)
  }
  out <- data.frame(estimate = estimate, se = se, df = df, stat = stat, p = p)
  out[is.na(estimate), c("se", "df", "stat", "p")] <- NA
  out
}

# Figures from the table of a summary, whose rows lack the coefficients that are not estimable.
from_summary <- function(design, beta, table, df, stat, p) {
  at <- match(names(beta), rownames(table))
  if (anyDuplicated(names(beta))) at <- cumsum(!is.na(beta)) * ifelse(is.na(beta), NA, 1)
  pick <- function(column) without_names(table[at, column])
  by_column(design, names(beta), without_names(beta), pick(2L),
    if (length(df) == 1L && !is.character(df)) rep(df, length(beta)) else pick(df), pick(stat),
    pick(p))
}
