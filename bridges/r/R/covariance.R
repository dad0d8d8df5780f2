# Covariance parameters: estimates, errors, tests and limits by the rules that readers expect.

caution <- function(key, ...) list(key = key, values = c(...))

# A block is singular where a combination of its effects has a deviation below this share of the
# residual's, or of 1 where the scale is fixed: the tolerance of lme4.
singular_share <- 1e-4

singular_messages <- function(random, distribution, sigma = 1) {
  variances <- unlist(lapply(random, function(b) diag(b$matrix)))
  least <- vapply(random, function(b) {
    min(eigen(b$matrix, symmetric = TRUE, only.values = TRUE)$values)
  }, 1)
  if (!isTRUE(any(least < (singular_share * sigma)^2))) return(list())
  if (any(variances > 0)) return(list(caution("kGLMM_C10")))
  if (distribution$distribution %in% c("NORMAL", "GAMMA", "IGAUSS")) list(caution("kGLMM_C8"))
  else list(caution("kGLMM_C9"))
}

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

# The parameters of a block from its matrix and the errors of the matrix's entries. Variances have
# their effect's name, or that of their row where an effect has several.
block_parameters <- function(matrix, errors, structure, rows, options) {
  labels <- vapply(rows, `[[`, "", "label")
  if (structure == "UNSTRUCTURED") return(entry_parameters(matrix, errors, options))
  if (structure == "ID" && nrow(matrix) > 1L) {
    return(list(variance_parameter(matrix[1L, 1L], errors[1L, 1L], options, "Variance")))
  }
  fields <- lapply(rows, row_fields)
  single <- anyDuplicated(fields) == 0L
  lapply(seq_along(rows), function(i) {
    parameter(if (single) "VarOfEffect" else "Var(^1)", paste0("Var(", labels[i], ")"),
      matrix[i, i], errors[i, i], options, arguments = if (single) as.character(i - 1L) else labels[i])
  })
}

entry_parameters <- function(matrix, errors, options) {
  at <- do.call(rbind, lapply(seq_len(nrow(matrix)), function(i) cbind(i, seq_len(i))))
  lapply(seq_len(nrow(at)), function(k) {
    i <- at[k, 1L]
    j <- at[k, 2L]
    parameter("UN (^1,^2)", sprintf("UN (%d,%d)", i, j), matrix[i, j], errors[i, j], options,
      scale = if (i == j) "log" else "none", arguments = as.character(c(i, j)))
  })
}

row_fields <- function(row) c(rep(names(row$covariates), row$covariates), names(row$factors))

# The fields in the name of a grouping factor, such as c:(b:a); `known` are columns of the data.
group_fields <- function(name, known) {
  if (name %in% known) return(name)
  parsed <- tryCatch(all.vars(str2lang(name)), error = function(e) NULL)
  if (length(parsed)) parsed else strsplit(name, ":", fixed = TRUE)[[1L]]
}

other_groups <- function(names, info) lapply(unique(names), group_fields, names(info$frame))

# Subject fields of a grouping factor named as in (1 | a/b): the inner field first, nested in the
# outer.
subject_of <- function(name, others, known) {
  fields <- group_fields(name, known)
  outer <- others[vapply(others, function(o) all(o %in% fields) && length(o) < length(fields), NA)]
  within <- intersect(fields, unlist(outer))
  own <- setdiff(fields, within)
  levels <- if (length(own)) c(integer(length(own)), seq_along(within)) else integer(length(fields))
  list(fields = c(own, within), levels = levels)
}

# The rows of a block that its labels describe: intercept, covariates, levels of factors.
block_rows <- function(columns, frame) {
  lapply(columns, function(column) {
    if (column == "(Intercept)") return(intercept_row())
    row <- list(intercept = FALSE, covariates = integer(), factors = character())
    whole <- column_row(row, column, columns, frame)
    if (!is.null(whole)) return(whole)
    for (piece in strsplit(column, ":", fixed = TRUE)[[1L]]) {
      row <- column_row(row, piece, strsplit(columns, ":", fixed = TRUE), frame)
      if (is.null(row)) break
    }
    if (is.null(row)) row <- list(intercept = FALSE, factors = character(),
      covariates = stats::setNames(1L, gsub("`", "", column, fixed = TRUE)))
    row$label <- row_label(row)
    row
  })
}

# Adds what one name of a column says; NULL where the frame has nothing of that name.
column_row <- function(row, column, columns, frame) {
  column <- gsub("`", "", column, fixed = TRUE)
  columns <- gsub("`", "", unlist(columns), fixed = TRUE)
  plain <- gsub("`", "", names(frame), fixed = TRUE)
  at <- match(column, plain)
  if (!is.na(at) && is.numeric(frame[[at]]) && !is.matrix(frame[[at]])) {
    variable <- describe_variable(names(frame)[at], frame[[at]], names(frame))
    row$covariates[variable$field] <- variable$power
  } else {
    level <- level_of_column(column, columns, frame)
    if (is.null(level)) return(NULL)
    row$factors <- c(row$factors, level)
  }
  row$label <- row_label(row)
  row
}

# The level that a column stands for, where the factor's columns are indicators of levels.
level_of_column <- function(column, columns, frame) {
  for (name in names(frame)) {
    if (!is_categorical(frame[[name]]) || !startsWith(column, name)) next
    level <- substring(column, nchar(name) + 1L)
    levels <- as_levels(frame[[name]])
    full <- all(paste0(name, levels) %in% columns)
    coding <- coding_of(frame[[name]], NULL, FALSE)
    indicator <- full || !is.null(columns_of_levels(coding))
    if (level %in% levels && indicator) return(stats::setNames(level, name))
  }
  NULL
}

# A block of a structure that the documents cannot name has the name "" and its own parameters.
make_block <- function(group, columns, matrix, errors, structure, info, others, options,
  parameters = NULL) {
  rows <- block_rows(columns, info$frame)
  if (is.null(parameters)) parameters <- block_parameters(matrix, errors, structure, rows, options)
  list(
    subject = subject_of(group, others, names(info$frame)), rows = rows, structure = structure,
    matrix = without_names(matrix),
    intercept = any(vapply(rows, `[[`, NA, "intercept")), group = group,
    effects = unique(lapply(Filter(function(r) !r$intercept, rows), row_fields)),
    parameters = parameters
  )
}
