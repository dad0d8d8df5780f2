# The fields of a model: what the columns of its frame are called, and what they hold.

# The names of a formula's variables as a model frame has them.
variable_names <- function(terms) {
  variables <- as.list(attr(terms, "variables"))[-1L]
  vapply(variables, function(v) paste(deparse(v, width.cutoff = 500L), collapse = " "), "")
}

is_categorical <- function(x) is.factor(x) || is.character(x) || is.logical(x)

as_levels <- function(x) {
  if (is.factor(x)) return(levels(x))
  if (is.logical(x)) return(c("FALSE", "TRUE")[c(FALSE, TRUE) %in% x])
  sort(unique(as.character(x[!is.na(x)])))
}

# Levels are numbers when each reads back as it stands.
levels_are_numbers <- function(levels) {
  numbers <- suppressWarnings(as.numeric(levels))
  length(levels) > 0L && !anyNA(numbers) && all(is.finite(numbers)) &&
    all(as.character(numbers) == levels)
}

decimals_of <- function(x, most = 4L) {
  x <- x[is.finite(x)]
  for (digits in 0:most) {
    if (all(abs(round(x, digits) - x) <= 1e-9 * pmax(1, abs(x)))) return(digits)
  }
  most
}

number_format <- function(x) {
  x <- x[is.finite(x)]
  if (length(x) == 0L) return("F8.2")
  decimals <- decimals_of(x)
  width <- max(nchar(sprintf("%.*f", decimals, x)))
  sprintf("F%d.%d", min(40L, width), decimals)
}

# Readers of labelled data leave a column's print format in an attribute "format.WHENCE".
given_format <- function(x) {
  every <- attributes(x)
  for (given in every[grepl("^format\\.", names(every))]) {
    if (is.character(given) && grepl("^F[0-9]+(\\.[0-9]+)?$", given[1L])) return(given[1L])
  }
}

print_format <- function(x, levels = NULL) {
  given <- given_format(x)
  if (!is.null(given)) return(given)
  if (is.null(levels)) return(number_format(as.numeric(x)))
  if (levels_are_numbers(levels)) return(number_format(as.numeric(levels)))
  sprintf("A%d", min(32767L, max(1L, nchar(levels, type = "bytes"))))
}

# What a value is called: the names of the attribute that haven and labelled set.
value_labels <- function(x, levels) {
  labels <- attr(x, "labels", exact = TRUE)
  if (is.null(labels) || is.null(names(labels))) return(rep(NA_character_, length(levels)))
  names(labels)[match(levels, as.character(labels))]
}

variable_label <- function(x) {
  label <- attr(x, "label", exact = TRUE)
  if (is.character(label) && length(label) == 1L && !is.na(label)) label else NULL
}

# One field: `source` is the column of the data that labels come from, where there is one.
make_field <- function(name, x, source = x, categorical = is_categorical(x)) {
  levels <- if (categorical) as_levels(x) else NULL
  if (anyDuplicated(legible(levels))) {
    stop("Two levels of ", name, " read alike; rename one of them: ", paste(legible(levels), collapse = ", "), ".",
      call. = FALSE)
  }
  labels <- if (categorical) value_labels(source, levels) else NULL
  type <- if (is.null(levels)) "double"
    else if (!levels_are_numbers(levels)) "string"
    else if (decimals_of(as.numeric(levels)) == 0L) "integer" else "double"
  list(
    name = name, label = variable_label(source), levels = levels, labels = labels,
    ordered = is.ordered(x), type = type, format = print_format(source, levels)
  )
}

field_node <- function(field) {
  kind <- if (is.null(field$levels)) "continuous"
    else if (field$ordered) "ordinal" else "categorical"
  values <- Map(function(level, label) {
    node("Value", c(value = level, if (!is.na(label)) c(displayValue = label)))
  }, field$levels, field$labels)
  label <- if (!is.null(field$label)) c(displayName = field$label)
  node(
    "DataField", c(name = field$name, label, optype = kind, dataType = field$type),
    node("Extension", c(name = "format", value = field$format)), without_names(values)
  )
}

pmml_document <- function(fields, target, has_regression) {
  names <- vapply(fields, `[[`, "", "name")
  if (anyDuplicated(legible(names))) {
    stop("Two columns of the data read alike; rename one of them: ", paste(legible(names), collapse = ", "), ".",
      call. = FALSE)
  }
  usage <- ifelse(names == target, "target", "active")
  first <- c(which(names == target), which(names != target))
  mining <- Map(function(name, use) node("MiningField", c(name = name, usageType = use)),
    names[first], usage[first])
  kind <- if (has_regression) "regression" else "classification"
  node(
    "PMML", c(version = "4.4", xmlns = "http://www.dmg.org/PMML-4_4"), node("Header"),
    node("DataDictionary", c(numberOfFields = length(fields)),
      lapply(without_names(fields), field_node)),
    node(
      "GeneralRegressionModel",
      c(functionName = kind, modelType = "generalizedLinear", algorithmName = "GLMM"),
      node("MiningSchema", character(), without_names(mining))
    )
  )
}
