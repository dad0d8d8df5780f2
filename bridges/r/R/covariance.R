# Covariance parameters: estimates, errors, tests and limits by the rules that readers expect.

caution <- function(key, ...) list(key = key, values = c(...))

parameter <- function(pattern, label, estimate, se, options, scale = "log",
  arguments = character()) {
  z <- stats::qnorm(1 - (1 - options$level) / 2)
  known <- isTRUE(is.finite(se)) && isTRUE(se > 0)
  if (!known) se <- NA_real_
  limits <- limits_of(estimate, se, z, scale)
  list(
    pattern = pattern, label = label, estimate = estimate, se = se, lower = limits[1L],
    upper = limits[2L],
    z = estimate / se, p = 2 * stats::pnorm(-abs(estimate / se)), arguments = arguments
  )
}

limits_of <- function(estimate, se, z, scale) {
  if (is.na(se)) return(c(NA_real_, NA_real_))
  if (scale == "log") return(estimate * exp(c(-1, 1) * z * se / estimate))
  if (scale == "fisher") return(tanh(atanh(estimate) + c(-1, 1) * z * se / (1 - estimate^2)))
  estimate + c(-1, 1) * z * se
}

variance_parameter <- function(estimate, se, options, label = "Residual") {
  parameter("Variance ", label, estimate, se, options)
}

fixed_scale <- function() {
  list(type = "VC", fixed = TRUE, parameters = list(list(
    pattern = "Variance ", label = "Residual", estimate = 1, se = NA, lower = NA, upper = NA,
    z = NA, p = NA,
    arguments = character()
  )))
}

# The parameters of a block from its matrix and the errors of the matrix's entries.
block_parameters <- function(matrix, errors, structure, labels, options) {
  n <- nrow(matrix)
  if (structure != "UNSTRUCTURED") {
    return(lapply(seq_len(n), function(i) {
      parameter("VarOfEffect", paste0("Var(", labels[i], ")"), matrix[i, i], errors[i, i], options,
        arguments = as.character(i - 1L))
    }))
  }
  at <- do.call(rbind, lapply(seq_len(n), function(i) cbind(i, seq_len(i))))
  lapply(seq_len(nrow(at)), function(k) {
    i <- at[k, 1L]
    j <- at[k, 2L]
    parameter("UN (^1,^2)", sprintf("UN (%d,%d)", i, j), matrix[i, j], errors[i, j], options,
      scale = if (i == j) "log" else "none", arguments = as.character(c(i, j)))
  })
}

# Subject fields of a grouping factor named as in (1 | a/b): the inner field first, nested in the
# outer.
subject_of <- function(name, others) {
  fields <- strsplit(name, ":", fixed = TRUE)[[1L]]
  fields <- gsub("^`|`$", "", trimws(fields))
  outer <- others[vapply(others, function(o) all(o %in% fields) && length(o) < length(fields), NA)]
  within <- unique(unlist(outer))
  fields <- c(setdiff(fields, within), intersect(fields, within))
  depth <- integer(length(fields))
  if (length(within)) depth[fields %in% within] <- length(outer) - 0L
  if (length(within)) depth[fields %in% within] <- seq_len(sum(fields %in% within))
  list(fields = fields, levels = depth)
}

# The rows of a block that its labels describe: intercept, covariates, levels of factors.
block_rows <- function(columns, frame) {
  lapply(columns, function(column) {
    if (column == "(Intercept)") return(intercept_row())
    row <- list(label = column, intercept = FALSE, covariates = integer(), factors = character())
    if (column %in% names(frame) && is.numeric(frame[[column]])) {
      row$covariates <- stats::setNames(1L, column)
      return(row)
    }
    level <- level_of_column(column, frame)
    if (is.null(level)) row$covariates <- stats::setNames(1L, column) else row$factors <- level
    row$label <- row_label(row)
    row
  })
}

level_of_column <- function(column, frame) {
  for (name in names(frame)) {
    if (!is_categorical(frame[[name]]) || !startsWith(column, name)) next
    level <- substring(column, nchar(name) + 1L)
    if (level %in% as_levels(frame[[name]])) return(stats::setNames(level, name))
  }
  NULL
}
