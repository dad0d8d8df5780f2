# The fixed part of a model: its effects, and one row for each column of the full design.

# How the variables of a formula stand in the documents: the field, and the power of a covariate.
describe_variable <- function(name, x, names) {
  wrapped <- regmatches(name,
    regexec("^(as\\.)?(factor|ordered)\\(([A-Za-z.][A-Za-z0-9._]*)\\)$", name))[[1L]]
  if (length(wrapped) == 4L && !(wrapped[4L] %in% names)) {
    return(list(name = name, field = wrapped[4L], fields = wrapped[4L], power = 1L))
  }
  power <- regmatches(name, regexec("^I\\(([A-Za-z.][A-Za-z0-9._]*)\\^([2-9])\\)$", name))[[1L]]
  if (length(power) == 3L && power[2L] %in% names) {
    k <- as.integer(power[3L])
    return(list(name = name, field = power[2L], fields = rep(power[2L], k), power = k))
  }
  list(name = name, field = name, fields = name, power = 1L)
}

coding_of <- function(x, contrast, full) {
  x <- if (is.factor(x)) x else factor(as.character(x), levels = as_levels(x))
  if (full) {
    coding <- diag(nlevels(x))
    dimnames(coding) <- list(levels(x), levels(x))
    return(coding)
  }
  if (!is.null(contrast)) stats::contrasts(x) <- contrast
  stats::contrasts(x)
}

# For an indicator coding the column of each level, 0 for the reference; NULL for any other coding.
columns_of_levels <- function(coding) {
  ok <- all(coding %in% c(0, 1)) && all(colSums(coding) == 1) && all(rowSums(coding) <= 1)
  if (!ok) return(NULL)
  apply(coding, 1L, function(row) if (any(row == 1)) which(row == 1)[1L] else 0L)
}

# What a model matrix calls the columns of a term.
column_names <- function(parts) {
  Reduce(function(before, part) as.vector(outer(before, part$columns_are, paste, sep = ":")),
    parts[-1L], parts[[1L]]$columns_are)
}

# The figures of a fit go to columns by place; this makes sure that the places are the fit's own.
check_names <- function(expected, given) {
  plain <- function(x) gsub("`", "", x, fixed = TRUE)
  wrong <- which(plain(expected) != plain(given))
  if (length(wrong)) stop("The coefficient ", given[wrong[1L]], " stands where ",
    expected[wrong[1L]],
    " was expected; write its term in another way.", call. = FALSE)
}

# One variable within one term.
term_part <- function(variable, x, contrast, full) {
  if (is_categorical(x)) {
    coding <- coding_of(x, contrast, full)
    columns <- columns_of_levels(coding)
    names <- colnames(coding)
    if (is.null(names)) names <- as.character(seq_len(ncol(coding)))
    return(list(
      variable = variable, size = ncol(coding), levels = rownames(coding), columns = columns,
      sums_to_zero = all(abs(colSums(coding)) < 1e-8),
      names = paste0(variable$name, names), columns_are = paste0(variable$name, names),
      kind = if (is.null(columns)) "coded" else "factor"
    ))
  }
  size <- if (is.matrix(x)) ncol(x) else 1L
  names <- variable$field
  if (size > 1L) names <- paste0(variable$name,
    if (is.null(colnames(x))) seq_len(size) else colnames(x))
  columns_are <- if (size > 1L) names else variable$name
  list(variable = variable, size = size, names = names, columns_are = columns_are,
    sums_to_zero = TRUE, kind = if (size > 1L) "coded" else "covariate")
}

# Column numbers within a term run over the first variable fastest, as in a model matrix.
column_within <- function(index, sizes) {
  if (any(index == 0L)) return(0L)
  1L + sum((index - 1L) * c(1L, cumprod(sizes)[-length(sizes)]))
}

choices_of <- function(part) {
  if (part$kind == "factor") seq_along(part$levels) else seq_len(part$size)
}

# Rows of a term run over the last variable fastest, as readers expect them.
row_choices <- function(parts) {
  grid <- expand.grid(rev(lapply(parts, choices_of)), KEEP.OUT.ATTRS = FALSE)
  as.matrix(grid[, rev(seq_along(parts)), drop = FALSE])
}

term_row <- function(parts, choice, sizes) {
  covariates <- integer()
  factors <- character()
  index <- integer(length(parts))
  for (i in seq_along(parts)) {
    part <- parts[[i]]
    field <- part$variable$field
    index[i] <- if (part$kind == "factor") part$columns[[choice[i]]] else choice[i]
    if (part$kind == "factor") {
      factors <- c(factors, stats::setNames(part$levels[choice[i]], field))
    } else if (part$kind == "coded") {
      covariates <- c(covariates, stats::setNames(1L, part$names[choice[i]]))
    } else {
      before <- if (field %in% names(covariates)) covariates[[field]] else 0L
      covariates[field] <- before + part$variable$power
    }
  }
  list(covariates = covariates, factors = factors, within = column_within(index, sizes))
}

row_label <- function(row) {
  pieces <- c(
    unlist(Map(function(field, power) rep(field, power), names(row$covariates), row$covariates)),
    if (length(row$factors)) paste0("[", names(row$factors), "=", row$factors, "]")
  )
  paste(pieces, collapse = "*")
}

term_rows <- function(parts, effect, offset) {
  sizes <- vapply(parts, `[[`, 1L, "size")
  choices <- row_choices(parts)
  lapply(seq_len(nrow(choices)), function(i) {
    row <- term_row(parts, choices[i, ], sizes)
    row$label <- row_label(row)
    row$intercept <- FALSE
    row$effect <- effect
    row$column <- if (row$within > 0L) offset + row$within else NA_integer_
    row
  })
}

intercept_row <- function() {
  list(label = "Intercept", intercept = TRUE, effect = -1L, column = 1L,
    covariates = integer(), factors = character())
}

# Which variables a term has, and 2 where one is coded by all its levels. Without an intercept that
# is so, too, for the first factor of the first term that has one.
coding_codes <- function(info) {
  codes <- attr(info$terms, "factors")
  if (attr(info$terms, "intercept") == 1L || length(codes) == 0L) return(codes)
  categorical <- vapply(variable_names(info$terms),
    function(name) is_categorical(info$frame[[name]]), NA)
  at <- which(codes > 0L & categorical)
  if (length(at)) codes[at[1L]] <- 2L
  codes
}

# `info` is what hf_frame() gives. The result holds the effects, the rows, and the number of
# columns.
design_of <- function(info) {
  terms <- info$terms
  factors <- coding_codes(info)
  names <- variable_names(terms)
  has_intercept <- attr(terms, "intercept") == 1L
  has_column <- has_intercept && !isTRUE(info$thresholds)
  rows <- if (has_column) list(intercept_row()) else list()
  offset <- if (has_column) 1L else 0L
  effects <- list()
  expected <- if (has_column) "(Intercept)" else character()
  for (t in seq_along(attr(terms, "term.labels"))) {
    inside <- which(factors[, t] > 0L)
    parts <- lapply(inside, function(i) {
      x <- info$frame[[names[i]]]
      if (is.null(x)) stop("The term ", attr(terms, "term.labels")[t], " has the variable ",
        names[i],
        ", which the fit's model frame lacks; fit the model again with its data at hand.",
        call. = FALSE)
      term_part(describe_variable(names[i], x, names), x, info$contrasts[[names[i]]],
        factors[i, t] == 2L)
    })
    rows <- c(rows, term_rows(parts, t - 1L, offset))
    expected <- c(expected, column_names(parts))
    offset <- offset + prod(vapply(parts, `[[`, 1L, "size"))
    effects[[t]] <- list(
      label = attr(terms, "term.labels")[t], variables = names[inside],
      fields = unlist(lapply(parts, function(p) p$variable$fields)), columns = integer(),
      numeric = any(vapply(parts, function(p) p$kind != "factor" && is.null(p$levels), NA)),
      sums_to_zero = all(vapply(parts, `[[`, NA, "sums_to_zero")),
      coded = any(vapply(parts, function(p) p$kind == "coded", NA))
    )
    effects[[t]]$columns <- seq(to = offset, length.out = prod(vapply(parts, `[[`, 1L, "size")))
  }
  if (length(expected) == length(info$beta)) check_names(expected, names(info$beta))
  list(effects = effects, rows = rows, columns = as.integer(offset), intercept = has_intercept,
    first = if (has_column) 1L else 0L)
}

effect_attributes <- function(fields, levels = integer(length(fields))) {
  values <- function(x) node("ListValue", character(),
    lapply(x, function(v) node("Value", c(value = v))))
  list(
    node("Attribute", c(name = "Fields"), values(fields)),
    node("Attribute", c(name = "NestingLevels"), values(levels))
  )
}

effect_node <- function(fields, levels = integer(length(fields))) {
  node("StructuredValue", character(), effect_attributes(fields, levels))
}

parameter_node <- function(row) {
  covariates <- without_names(Map(function(field, power) {
    node("Covariate", c(field = field, power = power))
  }, names(row$covariates), row$covariates))
  factors <- without_names(Map(function(field, value) {
    node("Factor", c(field = field, value = value, nest = "false"))
  }, names(row$factors), row$factors))
  node(
    "RegressionParameter", c(isIntercept = flag_text(row$intercept), name = row$label),
    covariates, factors
  )
}
