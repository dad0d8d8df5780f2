# Estimated means and contrasts, by emmeans.

contrast_kinds <- c("pairwise", "deviation", "simple")

# A request from a formula: the fields of its block, and the factor whose levels are compared.
parse_request <- function(formula, contrast) {
  if (!inherits(formula, "formula") || length(formula) != 2L) {
    stop("`means` holds formulas such as ~ A or ~ A | B.", call. = FALSE)
  }
  right <- formula[[2L]]
  split <- is.call(right) && identical(right[[1L]], as.name("|"))
  inner <- request_names(if (split) right[[2L]] else right)
  outer <- if (split) request_names(right[[3L]]) else character()
  if (length(inner) == 0L) stop("A formula of `means` names no factor: ", deparse(formula),
    call. = FALSE)
  fields <- if (split) unique(c(outer, inner[-1L], inner[1L])) else inner
  list(fields = fields, compare = if (contrast == "none") "" else inner[1L], contrast = contrast)
}

request_names <- function(expression) {
  if (is.name(expression)) return(as.character(expression))
  if (is.call(expression) && as.character(expression[[1L]]) %in% c("*", ":", "+", "|", "(")) {
    return(unique(unlist(lapply(as.list(expression)[-1L], request_names))))
  }
  if (is.call(expression)) return(all.vars(expression))
  character()
}

check_contrasts <- function(contrasts, n) {
  if (is.null(contrasts)) contrasts <- "none"
  contrasts <- vapply(as.list(contrasts),
    function(x) if (is.null(x) || is.na(x)) "none" else as.character(x), "")
  wrong <- setdiff(contrasts, c("none", contrast_kinds))
  if (length(wrong)) stop("`contrasts` is one of ", paste(contrast_kinds, collapse = ", "),
    ", none; not ",
    paste(wrong, collapse = ", "), ".", call. = FALSE)
  if (!(length(contrasts) %in% c(1L, n))) stop("`contrasts` has one value or one for each of the ",
    n,
    " formulas of `means`.", call. = FALSE)
  rep_len(contrasts, n)
}

requests_of <- function(means, contrasts, reference) {
  if (is.null(means)) return(list())
  if (!is.list(means)) means <- list(means)
  contrasts <- check_contrasts(contrasts, length(means))
  if (!is.list(reference)) reference <- as.list(reference)
  if (length(reference) > max(1L, length(means))) stop("`reference` has one value or one for each of the ",
    length(means), " formulas of `means`.", call. = FALSE)
  Map(function(formula, contrast, index) {
    request <- parse_request(formula, contrast)
    at <- if (length(reference) == 1L) 1L else index
    chosen <- if (length(reference) >= at) reference[[at]]
    request$reference <- if (contrast == "simple" && !is.null(chosen)) as.character(chosen)
    request
  }, means, contrasts, seq_along(means))
}

# A variable as the model has it, or else as the data have it.
variable_in <- function(name, info) {
  column <- info$frame[[name]]
  if (is.null(column)) info$data[[name]] else column
}

# Levels at which a continuous predictor stands when means are asked at it.
most_values <- 10L

values_at <- function(request, info, options) {
  at <- options$at
  for (field in request$fields) {
    column <- variable_in(field, info)
    if (is.null(column)) next
    if (!is.numeric(column) || field %in% names(at) || wrapped_factor(field, info)) next
    values <- sort(unique(as.numeric(column)))
    if (length(values) > most_values) {
      stop("The predictor ", field, " is continuous with ", length(values),
        " values; say at which its means ",
        "stand: at = list(", field, " = c(...)).", call. = FALSE)
    }
    at[[field]] <- values
  }
  at
}

# The columns of the data that stand in the model as numbers.
numbers_of <- function(info) {
  names <- all.vars(stats::delete.response(info$terms))
  Filter(function(name) {
    column <- variable_in(name, info)
    (is.null(column) || is.numeric(column)) && !wrapped_factor(name, info)
  }, names)
}

check_places <- function(at, info) {
  known <- if (length(at)) numbers_of(info)
  for (name in names(at)) {
    if (!(name %in% known)) stop("`at` names ", name, ", which is no continuous predictor of the model. It has: ",
      if (length(known)) paste(known, collapse = ", ") else "none", ".", call. = FALSE)
    if (!is.numeric(at[[name]]) || length(at[[name]]) == 0L || !all(is.finite(at[[name]]))) {
      stop("`at` fixes continuous predictors at numbers; ", name, " has ", shown(at[[name]]), ".", call. = FALSE)
    }
  }
}

wrapped_factor <- function(field, info) {
  any(vapply(variable_names(info$terms), function(name) {
    describe <- describe_variable(name, NULL, character())
    describe$field == field && name != field
  }, NA))
}

has_categories <- function(distribution) distribution$distribution %in% c("ORDINAL", "NOMINAL")

# A target of several categories has no mean; the probabilities of its categories are the means of a
# block with the target as one of its factors.
check_request <- function(request, predictors, target, of_categories) {
  unknown <- setdiff(request$fields, c(predictors, if (of_categories) target))
  if (length(unknown)) stop("`means` names ", paste(unknown, collapse = ", "),
    ", which the model does not have. ",
    "It has: ", paste(predictors, collapse = ", "), ".", call. = FALSE)
  if (!of_categories) return()
  if (!(target %in% request$fields)) stop("A target of several categories has the probabilities of ",
    "its categories for means; name it in `means`, such as ~ ", request$fields[1L], " | ", target, ".",
    call. = FALSE)
  if (identical(request$compare, target)) stop("Contrasts of ", target, " would compare its own ",
    "categories; name a factor first, such as ~ ", c(setdiff(request$fields, target), "A")[1L], " | ",
    target, ".", call. = FALSE)
}

# The target of log(y) is log(y): no transformation in the response is undone, none but the link.
on_target_scale <- function(grid, link) {
  grid@misc$tran2 <- NULL
  if (link == "IDENTITY") grid@misc[c("tran", "inv.lbl")] <- NULL
  grid
}

# A maker of reference grids, which makes each but once.
grid_maker <- function(fit, options, of_categories, link) {
  made <- list()
  arguments <- c(list(fit), options$grid_arguments)
  if (of_categories) arguments <- hf_category_grid(fit)
  function(at) {
    key <- paste0("at ", paste(names(at), at, collapse = ";"))
    if (is.null(made[[key]])) {
      grid <- reference_grid(c(arguments, if (length(at)) list(at = at)))
      made[[key]] <<- if (of_categories) grid else on_target_scale(grid, link)
    }
    made[[key]]
  }
}

# On the scale of the target, columns by what they are.
summary_figures <- function(object, level, type = "response") {
  table <- summary(object, infer = c(TRUE, TRUE), level = level, type = type, adjust = "none")
  limits <- attr(table, "clNames")
  name <- attr(table, "estName")
  frame <- as.data.frame(table)
  list(
    frame = frame, estimate = frame[[name]], se = frame$SE, df = frame$df,
    t = frame[[intersect(c("t.ratio", "z.ratio"), names(frame))[1L]]], p = frame$p.value,
    lower = frame[[limits[1L]]], upper = frame[[limits[2L]]]
  )
}

level_texts <- function(frame, fields) {
  lapply(stats::setNames(fields, fields), function(field) {
    x <- frame[[field]]
    if (is.numeric(x)) number_text(x) else as.character(x)
  })
}

# First field slowest, as the reader's tables run.
row_order <- function(frame, fields) {
  keys <- lapply(fields, function(field) {
    x <- frame[[field]]
    if (is.numeric(x)) x else match(as.character(x), as_levels(x))
  })
  do.call(order, c(without_names(keys), list(method = "radix")))
}

means_of <- function(grid, request, options) {
  object <- taken_by("emmeans", suppressMessages(emmeans::emmeans(grid, request$fields)), plain_names)
  figures <- summary_figures(object, options$level)
  order <- row_order(figures$frame, request$fields)
  list(object = object, figures = figures, order = order,
    levels = level_texts(figures$frame[order, , drop = FALSE],
    request$fields))
}

fields_nodes <- function(levels) {
  Map(function(name, values) coordinates_node(text_array(values), "fields", field = name),
    names(levels), levels)
}

statistic_columns <- function(columns, order) {
  Map(function(name, values) {
    coordinates_node(real_array(values[order]), "statistic", statistic = name)
  }, names(columns), columns)
}

estimates_node <- function(means) {
  f <- means$figures
  columns <- list(mean = f$estimate, stdErr = f$se, confIntervalLower = f$lower,
    confIntervalUpper = f$upper)
  node(
    "MultivariateData", c(description = "estimates"),
    node("CoordinatesGroup", character(), without_names(fields_nodes(means$levels))),
    without_names(statistic_columns(columns, means$order))
  )
}

contrast_method <- function(request, levels) {
  if (request$contrast == "pairwise") return(list(method = "pairwise"))
  if (request$contrast == "deviation") return(list(method = "eff"))
  reference <- if (is.null(request$reference)) levels[length(levels)] else request$reference
  if (!(reference %in% levels)) stop("The reference ", reference, " is not a level of ",
    request$compare,
    ". Levels are: ", paste(levels, collapse = ", "), ".", call. = FALSE)
  list(method = "trt.vs.ctrl", ref = match(reference, levels))
}

# The levels that each contrast of a group compares, in the order of emmeans.
contrast_pairs <- function(request, levels) {
  n <- length(levels)
  if (request$contrast == "pairwise") {
    first <- rep(seq_len(n - 1L), (n - 1L):1L)
    second <- unlist(lapply(seq_len(n - 1L), function(i) (i + 1L):n))
    return(list(first = levels[first], second = levels[second]))
  }
  if (request$contrast == "deviation") return(list(first = levels, second = rep(NA_character_, n)))
  reference <- contrast_method(request, levels)$ref
  list(first = levels[-reference], second = rep(levels[reference], n - 1L))
}

on_response <- function(object) {
  if (is.null(object@misc$tran)) return(object)
  suppressMessages(emmeans::regrid(object, transform = "response"))
}

contrasts_of <- function(means, request, options) {
  others <- setdiff(request$fields, request$compare)
  levels <- unique(means$levels[[request$compare]][order(row_rank(means, request$compare))])
  how <- contrast_method(request, levels)
  arguments <- c(list(on_response(means$object)), how,
    list(by = if (length(others)) others, adjust = "none"))
  object <- suppressMessages(do.call(emmeans::contrast, arguments))
  figures <- summary_figures(object, options$level)
  figures$frame <- levels_as_in(figures$frame, means, others)
  pairs <- contrast_pairs(request, levels)
  groups <- length(figures$estimate) / length(pairs$first)
  if (groups != round(groups)) return(NULL)
  c(list(object = object, others = others, groups = groups, means = means),
    adjusted(figures, length(pairs$first), groups, options),
    list(figures = figures, first = rep(pairs$first, groups), second = rep(pairs$second, groups)))
}

# Contrasts of nested factors have texts where the means have levels in their order.
levels_as_in <- function(frame, means, fields) {
  for (field in fields) {
    if (!is.character(frame[[field]])) next
    known <- means$figures$frame[[field]]
    frame[[field]] <- factor(frame[[field]], as_levels(known))
  }
  frame
}

row_rank <- function(means, field) {
  x <- means$figures$frame[means$order, field]
  if (is.numeric(x)) x else match(as.character(x), as_levels(x))
}

# Adjusted p and limits; contrasts of one group are one family.
adjusted <- function(figures, size, groups, options) {
  p <- figures$p
  lower <- figures$lower
  upper <- figures$upper
  for (g in seq_len(groups)) {
    at <- (g - 1L) * size + seq_len(size)
    levels <- step_levels(p[at], options$adjust, 1 - options$level)
    if (options$adjust != "none") {
      reach <- stats::qt(1 - levels / 2, figures$df[at]) * figures$se[at]
      lower[at] <- figures$estimate[at] - reach
      upper[at] <- figures$estimate[at] + reach
    }
    p[at] <- adjust_p(figures$p[at], options$adjust)
  }
  list(p = p, lower = lower, upper = upper)
}

contrasts_node <- function(contrasts, request, options) {
  f <- contrasts$figures
  others <- contrasts$others
  order <- if (length(others)) row_order(f$frame, others) else seq_along(f$estimate)
  levels <- level_texts(f$frame[order, , drop = FALSE], contrasts$others)
  columns <- list(
    contrastEstimate = f$estimate, stdErr = f$se, tTest = f$t, df = f$df, adjustedSig = contrasts$p,
    confIntervalLower = contrasts$lower, confIntervalUpper = contrasts$upper
  )
  compare <- list(contrasts$first[order], contrasts$second[order])
  names(compare) <- rep(request$compare, 2L)
  node(
    "MultivariateData", c(description = "contrasts"),
    statistic_node("adjustedSigLevel", number_text(1 - options$level)),
    node("CoordinatesGroup", c(description = paste0(request$contrast, "Contrast")),
      without_names(fields_nodes(c(levels, compare)))),
    without_names(statistic_columns(columns, order))
  )
}

# The test that all contrasts of a group are zero. Groups are told apart by levels of factors.
overall_nodes <- function(contrasts, info) {
  continuous <- Filter(function(name) is.null(info$fields_by_name[[name]]$field$levels),
    contrasts$others)
  if (length(continuous)) {
    message("The overall tests of contrasts at values of ", continuous[1L], " are left out: the ",
      "documents hold them for levels of factors alone.")
    return(NULL)
  }
  table <- exact_joint_test(contrasts$object, by = if (length(contrasts$others)) contrasts$others)
  table <- levels_as_in(table, contrasts$means, contrasts$others)
  order <- if (length(contrasts$others)) row_order(table, contrasts$others) else 1L
  levels <- level_texts(table[order, , drop = FALSE], contrasts$others)
  lapply(seq_along(order), function(i) {
    row <- table[order[i], ]
    segment <- if (length(levels)) {
      node("SegmentInfo", character(), without_names(Map(function(field, values) {
        node("FieldInfo", c(fieldName = field, fieldValue = values[i]))
      }, names(levels), levels)))
    }
    node("ModelTestStats", c(testID = i - 1L), segment,
      f_test_node(row$F.ratio, row$df1, row$df2, row$p.value))
  })
}

f_test_node <- function(f, df1, df2, p) {
  node("FTest", c(fStatistic = number_text(f), df1 = number_text(df1), df2 = number_text(df2),
    sig = number_text(p)))
}

# Continuous predictors that the grid holds at one value.
fixed_predictors <- function(grid, request, info) {
  names <- setdiff(names(grid@levels), request$fields)
  Filter(function(name) {
    is.numeric(info$fields_by_name[[name]]$values) && length(grid@levels[[name]]) == 1L
  }, names)
}

fixed_node <- function(grid, request, info) {
  names <- fixed_predictors(grid, request, info)
  if (length(names) == 0L) return(NULL)
  node("Label", character(),
    node("PrintableList", c(pattern = "fixedAt"), lapply(names, function(name) {
    node("PrintableList", c(pattern = name),
      node("PrintableList", c(pattern = number_text(grid@levels[[name]]))))
  })))
}

block_message <- function(key, ...) {
  values <- lapply(list(...), function(v) node("PrintableValue", c(storage = "string", value = v)))
  node("Message", character(), node("PrintableList", c(pattern = key, isKey = "true"), values))
}

# One block: its means, and its contrasts where they can be computed.
request_node <- function(request, index, make_grid, info, options) {
  grid <- make_grid(values_at(request, info, options))
  means <- means_of(grid, request, options)
  contrasts <- if (request$contrast != "none" &&
    length(unique(means$levels[[request$compare]])) > 1L) {
    contrasts_of(means, request, options)
  }
  is_refused <- request$contrast != "none" && is.null(contrasts)
  refused <- if (is_refused) block_message("kGLMM_C19_1", request$compare)
  node(
    "DataGroup", c(description = "customEmmeans"), statistic_node("EMMEANSIndex", index),
    fixed_node(grid, request, info), estimates_node(means),
    if (!is.null(contrasts)) list(contrasts_node(contrasts, request, options),
      overall_nodes(contrasts, info)), refused
  )
}

# Means of the effects of factors that are significant, the strongest first.
most_top_effects <- 10L

top_nodes <- function(design, tests, make_grid, options) {
  if (nrow(tests) == 0L) return(NULL)
  plain <- vapply(design$effects, function(e) !e$numeric && length(e$fields) <= 2L, NA)
  chosen <- which(plain & !is.na(tests$p) & tests$p < 1 - options$level)
  chosen <- utils::head(chosen[order(tests$p[chosen])], most_top_effects)
  lapply(chosen, function(i) {
    request <- list(fields = design$effects[[i]]$fields)
    node("DataGroup", c(description = "Emmeans"),
      estimates_node(means_of(make_grid(options$at), request, options)))
  })
}

grand_mean_nodes <- function(make_grid, options) {
  figures <- summary_figures(suppressMessages(emmeans::emmeans(make_grid(options$at), ~1)),
    options$level)
  values <- c(grandMean = figures$estimate, grandMeanStdErr = figures$se,
    grandMeanCILower = figures$lower,
    grandMeanCIUpper = figures$upper)
  Map(statistic_node, names(values), number_text(values))
}
