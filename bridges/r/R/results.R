# The document of the results.

setting <- function(name, value = NULL, ...) {
  node("Parameter", c(name = name, if (!is.null(value)) c(value = value)), ...)
}

value_list <- function(values) {
  node("ListValue", character(), lapply(values, function(v) node("Value", c(value = v))))
}

subject_node <- function(spec) if (!is.null(spec)) effect_node(spec$fields, spec$levels)

random_spec_node <- function(block) {
  attribute <- function(name, ..., value = NULL) node("Attribute",
    c(name = name, if (!is.null(value)) c(value = value)), ...)
  node(
    "StructuredValue", character(),
    attribute("EffectList", node("ListValue", character(), lapply(block$effects, effect_node))),
    attribute("Intercept", value = flag_text(block$intercept)),
    attribute("SubjectSpec", subject_node(block$subject)),
    attribute("GroupSpec", value_list(block$grouping)),
    if (nzchar(block$structure)) attribute("CovarianceType", value = block$structure),
    attribute("CovarianceTBand", value = "")
  )
}

request_setting <- function(request) {
  attribute <- function(name, value) node("Attribute", c(name = name, value = value))
  kinds <- c(pairwise = "Pairwise", deviation = "Deviation", simple = "Simple", none = "None")
  node(
    "StructuredValue", character(),
    node("Attribute", c(name = "Factors"), effect_node(request$fields)),
    attribute("EstimateMeans", "true"), attribute("CompareFactor", request$compare),
    attribute("ContrastType", kinds[[request$contrast]]),
    attribute("ReferenceType", if (is.null(request$reference)) "Last" else "Value"),
    attribute("ReferenceValue", if (is.null(request$reference)) "" else request$reference)
  )
}

adjustment_names <- c(none = "LSD", `bonferroni-sequential` = "SEQBONFERRONI",
  `sidak-sequential` = "SEQSIDAK")

settings_node <- function(part) {
  target <- part$target
  d <- part$distribution
  residual <- part$residual
  subject <- if (!is.null(residual$subject)) residual$subject
    else if (d$scaled && length(part$subjects$common)) list(fields = part$subjects$common,
      levels = integer(length(part$subjects$common)))
  list_of <- function(nodes) node("ListValue", character(), nodes)
  node(
    "BuildSettings", character(),
    setting("TargetField", target$name), setting("UseTrials", flag_text(!is.null(target$trials))),
    if (!is.null(target$trials)) setting("TrialsField", target$trials_name),
    setting("DistributionOfTarget", d$distribution), setting("LinkFunctionType", d$link),
    setting("LinkFunctionParam", number_text(d$power)),
    setting("Intercept", flag_text(part$design$intercept)),
    if (nzchar(residual$type)) setting("ResidualCovarianceType", residual$type),
    setting("ResidualCovarianceTBand", ""),
    setting("ResidualSubjectSpec", NULL, subject_node(subject)),
    setting("ResidualGroupSpec", NULL, value_list(residual$grouping)),
    setting("CIn", number_text(part$options$level)),
    setting("FixedEffectList", NULL,
      list_of(lapply(part$design$effects, function(e) effect_node(e$fields, e$levels)))),
    if (length(part$random)) setting("RandomSpecs", NULL,
      list_of(lapply(part$random, random_spec_node))),
    if (length(part$requests)) setting("EMMEANS", NULL,
      list_of(lapply(without_names(part$requests), request_setting))),
    setting("pAdjustment", adjustment_names[[part$options$adjust]])
  )
}

# Rows of all blocks' matrices, each once, by the names P1, P2, ...
string_map <- function(random) {
  rows <- list(intercept_row())
  for (block in random) rows <- c(rows, block$rows)
  rows <- rows[!duplicated(vapply(rows, `[[`, "", "label"))]
  stats::setNames(rows, paste0("P", seq_along(rows)))
}

string_map_node <- function(map) {
  entries <- Map(function(name, row) {
    node("MapEntry", c(name = name), node("Label", character(), parameter_node(row)))
  }, names(map), map)
  node("StringMap", c(mapId = 1L), without_names(entries))
}

segment_node <- function(values) {
  node("SegmentInfo", character(), without_names(Map(function(field, value) {
    node("FieldInfo", c(fieldName = field, fieldValue = value))
  }, names(values), values)))
}

matrix_node <- function(matrix, structure) {
  n <- nrow(matrix)
  if (structure %in% c("VC", "DIAG", "ID")) {
    return(node("Matrix", c(nbRows = n, kind = "diagonal"), real_array(diag(matrix))))
  }
  lower <- unlist(lapply(seq_len(n), function(i) matrix[i, seq_len(i)]))
  node("Matrix", c(nbRows = n, kind = "symmetric"), real_array(lower))
}

random_covariance_node <- function(block, index, map) {
  labels <- vapply(map, `[[`, "", "label")
  names <- names(map)[match(vapply(block$rows, `[[`, "", "label"), labels)]
  groups <- block_groups(block)
  node(
    "StructuredData", c(description = "randomEffectCovariances"),
    statistic_node("randomEffectBlock", index),
    node("MatrixLabels", character(),
      node("RowColLabels", character(), lapply(names, function(name) {
      node("Label", character(), node("PrintableList", c(pattern = name, mapId = 1L)))
    }))),
    lapply(groups, function(group) {
      node("SegmentData", character(), segment_node(group$values),
        matrix_node(group$matrix, block$structure))
    })
  )
}

# A block has one matrix and one set of parameters, or one for each group.
block_groups <- function(block) {
  if (!is.null(block$groups)) return(block$groups)
  list(list(values = character(), matrix = block$matrix, parameters = block$parameters))
}

test_node <- function(description, id, type, row) {
  node("ModelTestStats", c(description = description, testID = id, testType = type),
    f_test_node(row$f, row$df1, row$df2, row$p))
}

# Parameters that the fit has, which are fewer than those shown where groups share some.
count_parameters <- function(part) {
  shown <- function(groups) sum(vapply(groups, function(g) length(g$parameters), 1L))
  count <- function(x, groups) if (is.null(x$free)) shown(groups) else x$free
  random <- vapply(part$random, function(block) as.integer(count(block, block_groups(block))), 1L)
  residual <- part$residual
  list(residual = if (isTRUE(residual$fixed)) 0L else count(residual, residual_groups(residual)),
    random = sum(random))
}

residual_groups <- function(residual) {
  if (!is.null(residual$groups)) return(residual$groups)
  list(list(values = character(), parameters = residual$parameters))
}

fit_statistics <- function(part, accuracy, grand) {
  counts <- count_parameters(part)
  rows <- length(part$design$rows) + length(part$coefficients$thresholds$level)
  statistic <- function(name, value) statistic_node(name, number_text(value))
  list(
    statistic("minus2LogLikelihood", part$criteria$minus2), statistic("AICC", part$criteria$aicc),
    statistic("BIC", part$criteria$bic),
    if (!is.null(accuracy)) statistic("classificationAccuracy", accuracy),
    statistic("numOfCovParamOfRepeated", counts$residual),
    statistic("numOfCovParamOfRandom", counts$random),
    statistic("numOfColsOfFixed", rows),
    statistic("numOfColsOfRandom", random_columns(part$random, part$subjects)),
    statistic("numOfCommonSubjects", part$subjects$n), without_names(grand)
  )
}

diagnostics_node <- function(fit, part) {
  fitted <- of_records(hf_fitted(fit), fit, part$info)
  categorical <- part$distribution$distribution %in% c("BINOMIAL", "ORDINAL", "NOMINAL")
  classes <- if (categorical) classification_of(part$target, fitted)
  accuracy <- if (categorical) sum(diag(classes$counts)) / sum(classes$counts)
  tests <- part$tests$effects
  means <- means_nodes(fit, part)
  map <- string_map(part$random)
  node(
    "ModelDiagnostics", character(), fit_statistics(part, accuracy, means$grand),
    distribution_node(part$target, part$distribution),
    if (!categorical) predicted_node(part$target, as.numeric(fitted)),
    test_node("correctedModel", "", "", part$tests$all),
    lapply(seq_len(nrow(tests)), function(i) test_node("fixedEffect", i - 1L, "III", tests[i, ])),
    first_subject_node(part),
    Map(random_covariance_node, part$random, seq_along(part$random), MoreArgs = list(map = map)),
    if (categorical) classification_node(classes), means$top, means$blocks
  )
}

means_nodes <- function(fit, part) {
  asked <- length(part$requests) > 0L
  of_categories <- has_categories(part$distribution)
  if (!asked && (of_categories || length(part$design$effects) == 0L)) return(list())
  if (!requireNamespace("emmeans", quietly = TRUE)) {
    if (asked) needs("emmeans", "Estimated means")
    message("The chart of the significant effects' means needs emmeans: ",
      "install.packages(\"emmeans\").")
    return(list())
  }
  make_grid <- grid_maker(if (is.null(part$options$tested)) fit else part$options$tested,
    part$options, of_categories, part$distribution$link)
  list(
    grand = if (asked && !of_categories) grand_mean_nodes(make_grid, part$options),
    top = if (!of_categories) tryCatch(
      top_nodes(part$design, part$tests$effects, make_grid, part$options), error = function(e) {
        message("The chart of the significant effects' means is left out: ", conditionMessage(e))
      }),
    blocks = without_names(Map(request_node, part$requests, seq_along(part$requests) - 1L,
      MoreArgs = list(make_grid = make_grid, info = part$info, options = part$options)))
  )
}

exponentiated <- function(distribution) distribution$link %in% c("LOGIT", "LOG") &&
  distribution$distribution != "NORMAL"

# Attributes of one parameter in the order of the document.
parameter_attributes <- function(name, label, f) {
  c(
    paramName = name, paramLabel = label, estimate = number_text(f$estimate),
    stdError = number_text(f$se),
    df = number_text(f$df), confIntervalLower = number_text(f$lower),
    confIntervalUpper = number_text(f$upper),
    tTest = number_text(f$t), zTest = number_text(f$z), sig = number_text(f$p), chiSquare = "",
    expEstimate = number_text(f$exp[1L]), expCILower = number_text(f$exp[2L]),
    expCIUpper = number_text(f$exp[3L]),
    isRedundant = flag_text(f$redundant)
  )
}

missing_figures <- function() {
  list(estimate = NA, se = NA, df = NA, lower = NA, upper = NA, t = NA, z = NA, p = NA,
    exp = c(NA, NA, NA), redundant = FALSE)
}

redundant_figures <- function() utils::modifyList(missing_figures(),
  list(estimate = 0, redundant = TRUE))

coefficient_figures <- function(row, options, exponentiate) {
  half <- stats::qt(1 - (1 - options$level) / 2, row$df) * row$se
  lower <- row$estimate - half
  upper <- row$estimate + half
  list(
    estimate = row$estimate, se = row$se, df = row$df, lower = lower, upper = upper, t = row$stat,
    z = NA, p = row$p,
    exp = if (exponentiate) exp(c(row$estimate, lower, upper)) else c(NA, NA, NA), redundant = FALSE
  )
}

coefficient_node <- function(row, figures, counter) {
  statistic <- if (row$effect >= 0L) statistic_node("fixedEffectIndex", row$effect)
  node("ParameterStats", parameter_attributes(counter(), row$label, figures), parameter_node(row),
    statistic)
}

# One group of coefficients: thresholds first where there are any.
coefficient_group <- function(part, table, counter, segment = NULL) {
  exponentiate <- exponentiated(part$distribution)
  thresholds <- lapply(seq_along(table$thresholds$level), function(i) {
    level <- table$thresholds$level[i]
    row <- list(
      label = sprintf("[%s=%s]", part$target$name, level), intercept = FALSE, effect = -1L,
      covariates = integer(),
      factors = stats::setNames(level, part$target$name)
    )
    coefficient_node(row, coefficient_figures(table$thresholds[i, ], part$options, exponentiate),
      counter)
  })
  rows <- lapply(part$design$rows, function(row) {
    at <- row$column
    estimable <- !is.na(at) && !is.na(table$beta$estimate[at])
    figures <- if (estimable) coefficient_figures(table$beta[at, ], part$options,
      exponentiate) else redundant_figures()
    coefficient_node(row, figures, counter)
  })
  if (length(thresholds) + length(rows) == 0L) return(NULL)
  node("ParameterEstimates", c(parameterType = "fixed"), segment, thresholds, rows)
}

coefficient_groups <- function(part, counter) {
  tables <- part$coefficients
  if (is.data.frame(tables)) return(coefficient_group(part, list(beta = tables), counter))
  if (is.null(tables$categories)) return(coefficient_group(part, tables, counter))
  Map(function(table, category) {
    coefficient_group(part, list(beta = table), counter,
      segment_node(stats::setNames(category, part$target$name)))
  }, tables$categories, names(tables$categories))
}

covariance_node <- function(parameter, counter) {
  figures <- utils::modifyList(missing_figures(),
    parameter[c("estimate", "se", "lower", "upper", "z", "p")])
  arguments <- lapply(parameter$arguments, function(a) node("PrintableList", c(pattern = a)))
  node(
    "ParameterStats", parameter_attributes(counter(), parameter$label, figures),
    node("PrintableList", c(pattern = parameter$pattern, isKey = "true"), arguments)
  )
}

covariance_groups <- function(groups, type, counter) {
  lapply(groups, function(group) {
    node(
      "ParameterEstimates", type, if (length(group$values)) segment_node(group$values),
      lapply(group$parameters, covariance_node, counter = counter)
    )
  })
}

make_counter <- function() {
  n <- 0L
  function() {
    n <<- n + 1L
    sprintf("P%07d", n)
  }
}

message_node <- function(message) do.call(block_message,
  c(list(message$key), as.list(message$values)))

training_node <- function(part) {
  counter <- make_counter()
  fixed <- coefficient_groups(part, counter)
  residual <- covariance_groups(residual_groups(part$residual), c(parameterType = "repeated"),
    counter)
  random <- Map(function(block, index) {
    covariance_groups(block_groups(block), c(parameterType = "random", block = index), counter)
  }, part$random, seq_along(part$random) - 1L)
  many <- if (length(part$requests) >= 20L) list(caution("kGLMM_C24"))
  node("TrainingSummary", character(), fixed, residual, random,
    lapply(c(part$messages, many), message_node))
}

results_document <- function(fit, part) {
  node(
    "StatXML", character(), settings_node(part),
    node(
      "PMMLModel", character(), node("PredictiveSummary", c(algorithmName = "GLMM")),
      string_map_node(string_map(part$random)), diagnostics_node(fit, part), training_node(part)
    )
  )
}
