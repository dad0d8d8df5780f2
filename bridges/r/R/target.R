# The target: its field, its trials, its distribution, and how well it is predicted.

# Events and trials of cbind(events, failures); the trials have a field's name where one can be
# seen.
trials_of_matrix <- function(response, expression) {
  events <- response[, 1L]
  trials <- response[, 1L] + response[, 2L]
  name <- function(x) paste(deparse(x, width.cutoff = 500L), collapse = " ")
  if (!is.call(expression) || !identical(expression[[1L]], as.name("cbind")) ||
    length(expression) != 3L) {
    return(list(name = "events", events = events, trials_name = "trials", trials = trials))
  }
  second <- expression[[3L]]
  of_difference <- is.call(second) && identical(second[[1L]], as.name("-")) &&
    length(second) == 3L &&
    identical(second[[3L]], expression[[2L]])
  list(
    name = name(expression[[2L]]), events = events, trials = trials,
    trials_name = if (of_difference) name(second[[2L]]) else
      paste(name(expression[[2L]]), name(second), sep = " + ")
  )
}

# Events and trials of a proportion with the trials as weights.
trials_of_proportion <- function(response, expression, weights) {
  name <- function(x) paste(deparse(x, width.cutoff = 500L), collapse = " ")
  named <- is.call(expression) && identical(expression[[1L]], as.name("/"))
  list(
    name = if (named) name(expression[[2L]]) else name(expression),
    events = round(response * weights),
    trials = weights, trials_name = if (named) name(expression[[3L]]) else "trials"
  )
}

proportion_weights <- function(fit, frame, response) {
  weights <- stats::model.weights(frame)
  if (is.null(weights) || is.factor(response) || is.matrix(response)) return(NULL)
  whole <- abs(response * weights - round(response * weights)) < 1e-6
  if (all(whole) && any(response > 0 & response < 1)) weights else NULL
}

# Whether weights, if there are any, are numbers of trials.
has_trials <- function(fit) {
  frame <- stats::model.frame(fit)
  response <- stats::model.response(frame)
  if (hf_distribution(fit)$distribution != "BINOMIAL") return(FALSE)
  is.matrix(response) || !is.null(proportion_weights(fit, frame, response))
}

target_of <- function(fit, info, distribution) {
  response <- stats::model.response(info$frame)
  expression <- as.list(attr(info$terms, "variables"))[[2L]]
  name <- variable_names(info$terms)[1L]
  if (distribution$distribution == "BINOMIAL") {
    if (is.matrix(response)) return(trials_of_matrix(response, expression))
    weights <- proportion_weights(fit, info$frame, response)
    if (!is.null(weights)) return(trials_of_proportion(as.numeric(response), expression, weights))
  }
  if (is.matrix(response) && !inherits(response, "AsIs")) {
    stop("The response ", name, " has several columns, which only a binomial model may have.",
      call. = FALSE)
  }
  categorical <- distribution$distribution %in% c("BINOMIAL", "ORDINAL", "NOMINAL")
  values <- if (categorical && !is_categorical(response)) factor(response) else response
  list(name = name, values = values, categorical = categorical, weights = info$case_weights)
}

log_mean <- function(y) mean(log(y))

gamma_shape <- function(y) {
  gap <- log(mean(y)) - log_mean(y)
  if (!isTRUE(gap > 0)) return(NA_real_)
  stats::uniroot(function(s) log(s) - digamma(s) - gap, c(1e-6, 1e8), tol = 1e-12)$root
}

negbin_size <- function(y) {
  if (!requireNamespace("MASS", quietly = TRUE)) return(NA_real_)
  tryCatch(suppressWarnings(as.numeric(MASS::theta.ml(y, mean(y), limit = 50))),
    error = function(e) NA_real_)
}

# Parameters of the target's own distribution, and the bars that stand for its values.
distribution_figures <- function(target, distribution) {
  kind <- distribution$distribution
  y <- target$values
  y <- if (is_categorical(y)) match(as.character(y), as_levels(y)) else as.numeric(y)
  y <- rep(y, if (is.null(target$weights)) 1L else target$weights)
  figures <- list(n = length(y), mean = mean(y), sd = stats::sd(y), shape = NA, rate = NA, r = NA,
    p = NA)
  if (kind == "GAMMA") {
    figures$shape <- gamma_shape(y)
    figures$rate <- figures$shape / figures$mean
  } else if (kind == "IGAUSS") {
    figures$shape <- length(y) / sum(1 / y - 1 / mean(y))
  } else if (kind == "NEGBIN") {
    figures$r <- negbin_size(y)
    figures$p <- figures$r / (figures$r + figures$mean)
  }
  c(figures, bars_of(y, discrete = kind %in% c("NEGBIN", "POISSON", "ORDINAL", "NOMINAL")))
}

bars_of <- function(y, discrete) {
  if (discrete) {
    values <- sort(unique(y))
    return(list(bars = values, heights = tabulate(match(y, values), length(values))))
  }
  bins <- graphics::hist(y, plot = FALSE)
  list(bars = bins$mids, heights = bins$counts)
}

distribution_node <- function(target, distribution) {
  if (!is.null(target$trials) || distribution$distribution == "BINOMIAL") return(NULL)
  f <- distribution_figures(target, distribution)
  statistics <- lapply(c(mean = "mean", sd = "stdDeviation", shape = "shape", rate = "rate",
    r = "r", p = "p"), identity)
  node(
    "UnivariateData", c(description = "TargetDistribution"), node("Counts", c(totalFreq = f$n)),
    without_names(Map(function(key, name) statistic_node(name, number_text(f[[key]])),
      names(statistics), statistics)),
    coordinates_node(real_array(f$bars), "observed"),
    coordinates_node(real_array(f$heights), "frequency")
  )
}

# Beyond this many records, points stand for cells of a grid.
most_points <- 100L
grid_size <- 20L

grid_points <- function(observed, predicted) {
  cell <- function(x) {
    width <- diff(range(x)) / grid_size
    if (!isTRUE(width > 0)) return(list(index = rep(0L, length(x)), middle = x))
    index <- pmin(grid_size - 1L, floor((x - min(x)) / width))
    list(index = index, middle = min(x) + (index + 0.5) * width)
  }
  a <- cell(observed)
  b <- cell(predicted)
  key <- a$index * grid_size + b$index
  first <- !duplicated(key)
  first <- which(first)[order(key[first])]
  list(observed = a$middle[first], predicted = b$middle[first],
    n = tabulate(match(key, key[first])))
}

predicted_node <- function(target, fitted) {
  observed <- as.numeric(target$values)
  known <- is.finite(observed) & is.finite(fitted)
  if (!any(known)) return(NULL)
  points <- list(observed = observed[known], predicted = fitted[known], n = rep(1L, sum(known)))
  if (sum(known) > most_points) points <- grid_points(points$observed, points$predicted)
  node(
    "BivariateData", c(description = "observedByPredicted"),
    node("Counts", c(totalFreq = sum(known))),
    coordinates_node(real_array(points$observed), "observed"),
    coordinates_node(real_array(points$predicted), "statistic", statistic = "predicted"),
    coordinates_node(real_array(points$n), "frequency")
  )
}

# Counts of observed by predicted categories, by rows, and the share of the diagonal.
classification_of <- function(target, fitted) {
  if (!is.null(target$trials)) {
    predicted <- fitted > 0.5
    cells <- c(sum((target$trials - target$events)[!predicted]),
      sum((target$trials - target$events)[predicted]),
      sum(target$events[!predicted]), sum(target$events[predicted]))
    return(list(counts = matrix(cells, 2L, byrow = TRUE), labels = NULL))
  }
  levels <- as_levels(target$values)
  observed <- match(as.character(target$values), levels)
  predicted <- if (is.matrix(fitted)) max.col(fitted, ties.method = "first") else 1L +
    (fitted > 0.5)
  weights <- if (is.null(target$weights)) rep(1, length(observed)) else target$weights
  counts <- matrix(0, length(levels), length(levels))
  for (i in which(!is.na(predicted))) {
    counts[observed[i], predicted[i]] <- counts[observed[i], predicted[i]] + weights[i]
  }
  list(counts = counts, labels = levels)
}

classification_node <- function(classification) {
  labels <- if (!is.null(classification$labels)) {
    node("MatrixLabels", character(),
      node("RowColLabels", character(), lapply(classification$labels, function(l) {
      node("Label", c(label = l))
    })))
  }
  node(
    "Matrix", c(description = "classificationTable", nbRows = nrow(classification$counts)), labels,
    real_array(t(classification$counts))
  )
}
