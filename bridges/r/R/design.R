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
  plain <- function(x) gsub("\\\\?`", "", x)
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
      variable = variable, size = ncol(coding), levels = as_levels(x), columns = columns,
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

# Adds what one variable says to the description of a row.
add_part <- function(row, part, choice) {
  field <- part$variable$field
  if (part$kind == "factor") {
    row$factors <- c(row$factors, stats::setNames(part$levels[choice], field))
    row$nest <- c(row$nest, part$nests)
  } else if (part$kind == "coded") {
    row$covariates <- c(row$covariates, stats::setNames(1L, part$names[choice]))
  } else {
    before <- if (field %in% names(row$covariates)) row$covariates[[field]] else 0L
    row$covariates[field] <- before + part$variable$power
  }
  row
}

row_label <- function(row) {
  covariates <- Map(function(field, power) rep(field, power), names(row$covariates),
    row$covariates)
  levels <- if (length(row$factors)) paste0("[", names(row$factors), "=", row$factors, "]")
  nested <- which(as.logical(row$nest))
  joints <- ifelse(seq_along(levels) %in% nested, "(", ifelse(seq_along(levels) == 1L, "", "*"))
  factors <- paste0(c(paste0(joints, levels), rep(")", length(nested))), collapse = "")
  paste(c(unlist(covariates), if (length(levels)) factors), collapse = "*")
}

# `order` is that of the variables in the documents: what nests stands after what is nested.
term_rows <- function(parts, effect, offset, order) {
  sizes <- vapply(parts, `[[`, 1L, "size")
  choices <- row_choices(parts[order])
  lapply(seq_len(nrow(choices)), function(i) {
    row <- list(intercept = FALSE, effect = effect, covariates = integer(), factors = character(),
      nest = logical())
    index <- integer(length(parts))
    for (k in seq_along(order)) {
      part <- parts[[order[k]]]
      choice <- choices[i, k]
      index[order[k]] <- if (part$kind == "factor") part$columns[[choice]] else choice
      row <- add_part(row, part, choice)
    }
    within <- column_within(index, sizes)
    row$label <- row_label(row)
    row$column <- if (within > 0L) offset + within else NA_integer_
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

# Which of a term's factors nest the others: those that smaller terms hold, where the others stand
# in none.
nesting_of <- function(inside, factors, parts) {
  plain <- all(vapply(parts, `[[`, "", "kind") == "factor")
  smaller <- colSums(factors[inside, , drop = FALSE] > 0L) == colSums(factors > 0L) &
    colSums(factors > 0L) < length(inside)
  held <- rowSums(factors[inside, smaller, drop = FALSE] > 0L) > 0L
  if (plain && any(held) && !all(held)) held else rep(FALSE, length(inside))
}

term_parts <- function(info, names, inside, codes, label) {
  lapply(inside, function(i) {
    x <- info$frame[[names[i]]]
    if (is.null(x)) stop("The term ", label, " has the variable ", names[i], ", which the fit's ",
      "model frame lacks; fit the model again with its data at hand.", call. = FALSE)
    variable <- describe_variable(names[i], x, names)
    term_part(variable, x, info$contrasts[[names[i]]], codes[i] == 2L)
  })
}

describe_effect <- function(label, variables, parts, order, columns) {
  fields <- lapply(parts, function(p) p$variable$fields)
  depth <- cumsum(vapply(parts[order], `[[`, NA, "nests"))
  list(
    label = label, variables = variables, fields = unlist(fields[order]),
    levels = rep(depth, lengths(fields[order])), columns = columns,
    numeric = any(vapply(parts, function(p) p$kind != "factor" && is.null(p$levels), NA)),
    sums_to_zero = all(vapply(parts, `[[`, NA, "sums_to_zero")),
    coded = any(vapply(parts, function(p) p$kind == "coded", NA))
  )
}

# One term: its effect, its rows, and what a model matrix calls its columns.
design_term <- function(t, info, factors, names, offset) {
  label <- attr(info$terms, "term.labels")[t]
  inside <- which(factors[, t] > 0L)
  parts <- term_parts(info, names, inside, factors[, t], label)
  nests <- nesting_of(inside, factors, parts)
  parts <- Map(function(part, nests) c(part, nests = nests), parts, nests)
  order <- order(nests)
  size <- prod(vapply(parts, `[[`, 1L, "size"))
  list(
    effect = describe_effect(label, names[inside], parts, order, offset + seq_len(size)),
    rows = term_rows(parts, t - 1L, offset, order), names = column_names(parts), size = size
  )
}

# `info` is what hf_frame() gives. The result holds the effects, the rows, and the number of
# columns.
design_of <- function(info) {
  factors <- coding_codes(info)
  names <- variable_names(info$terms)
  has_intercept <- attr(info$terms, "intercept") == 1L
  has_column <- has_intercept && !isTRUE(info$thresholds)
  first <- if (has_column) 1L else 0L
  offset <- first
  terms <- lapply(seq_along(attr(info$terms, "term.labels")), function(t) {
    term <- design_term(t, info, factors, names, offset)
    offset <<- as.integer(offset + term$size)
    term
  })
  expected <- c(if (has_column) "(Intercept)", unlist(lapply(terms, `[[`, "names")))
  if (length(expected) == length(info$beta)) check_names(expected, names(info$beta))
  rows <- do.call(c, lapply(terms, `[[`, "rows"))
  if (has_column) rows <- c(list(intercept_row()), rows)
  list(effects = lapply(terms, `[[`, "effect"), rows = rows, columns = offset,
    intercept = has_intercept, first = first)
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
  nest <- if (is.null(row$nest)) rep(FALSE, length(row$factors)) else row$nest
  factors <- without_names(Map(function(field, value, nest) {
    node("Factor", c(field = field, value = value, nest = flag_text(nest)))
  }, names(row$factors), row$factors, nest))
  node(
    "RegressionParameter", c(isIntercept = flag_text(row$intercept), name = row$label),
    covariates, factors
  )
}
