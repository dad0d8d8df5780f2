# The two documents of a fit.

#' Write the documents of a fitted model
#'
#' Writes `model.pmml`, which describes the fields, and `model.statxml`, which holds the results,
#' into a folder. Figures come from the fitter; tests from lmerTest, nlme or emmeans; means and
#' contrasts from emmeans.
#'
#' @param fit A fitted model: `lmer`, `glmer`, `glmer.nb`, `glmmTMB`, `lme`, `gls`, `clmm`, `clm`,
#'   `multinom`, `glm` or `lm`.
#' @param folder The folder, which is made where it does not exist.
#' @param means A formula, or a list of them, each for one block of estimated means: `~ A`, `~ A:B`,
#'   or `~ A | B`, which compares the levels of A within those of B. A continuous predictor stands
#'   at the values that `at` gives, else at its own values where they are ten or fewer. A target of
#'   several categories has probabilities for means, and stands in the formula itself: `~ target | A`.
#' @param contrasts `"pairwise"`, `"deviation"` (from the mean of all levels), `"simple"` (from
#'   `reference`) or `"none"`; one value, or one for each block.
#' @param reference The level that simple contrasts compare with, the last one if it is missing; one
#'   value, or a list with one for each block.
#' @param adjust How the p values and limits of contrasts are adjusted: `"none"`,
#'   `"bonferroni-sequential"` or `"sidak-sequential"`. Contrasts within one combination of the
#'   other factors are one family.
#' @param level The confidence level.
#' @param df Denominator degrees of freedom: `"kenward-roger"` or `"satterthwaite"` for a fit of
#'   `lmer`, or `"residual"`, which is records less coefficients, for any fit. The default is
#'   Kenward-Roger for `lmer` (Satterthwaite where it was not fitted by REML) and what the fitter has
#'   for others.
#' @param repeated Names of fields that tell the records of one subject apart, such as a time; the table
#'   of the first subject's records shows them. The default is the covariate of a correlation of nlme.
#' @param at A named list of values at which continuous predictors are fixed.
#' @return The folder, invisibly.
#' @examples
#' fit <- lm(breaks ~ wool * tension, warpbreaks)
#' folder <- file.path(tempdir(), "warpbreaks")
#' if (requireNamespace("emmeans", quietly = TRUE)) {
#'   hf_documents(fit, folder, means = ~ tension | wool, contrasts = "pairwise")
#'   list.files(folder)
#' }
#' @export
hf_documents <- function(fit, folder, means = NULL, contrasts = "none", reference = NULL,
  adjust = "none",
                         level = 0.95, df = NULL, at = list(), repeated = NULL) {
  check_path(folder, "folder")
  options <- make_options(adjust, level, df, at, repeated)
  model <- build_model(fit, requests_of(means, contrasts, reference), options)
  if (!dir.exists(folder) && !dir.create(folder, recursive = TRUE, showWarnings = FALSE)) {
    stop("The folder ", folder, " cannot be made.", call. = FALSE)
  }
  write_xml(model$pmml, file.path(folder, "model.pmml"))
  write_xml(model$statxml, file.path(folder, "model.statxml"))
  invisible(folder)
}

df_methods <- c("kenward-roger", "satterthwaite", "residual")

check_path <- function(path, name) {
  if (!is.character(path) || length(path) != 1L || is.na(path) || !nzchar(path)) {
    stop("`", name, "` is one path; not ", shown(path), ".", call. = FALSE)
  }
}

# A value in a message.
shown <- function(x) strtrim(paste(deparse(x), collapse = " "), 60L)

one_of <- function(given, name, choices) {
  at <- if (is.character(given)) pmatch(given[1L], choices) else NA
  if (is.na(at)) stop("`", name, "` is one of ", paste(choices, collapse = ", "), "; not ", shown(given), ".",
    call. = FALSE)
  choices[at]
}

make_options <- function(adjust, level, df, at, repeated) {
  adjust <- one_of(adjust, "adjust", adjustments)
  if (!is.numeric(level) || length(level) != 1L || is.na(level) || level <= 0 || level >= 1) {
    stop("`level` is a number between 0 and 1; not ", shown(level), ".", call. = FALSE)
  }
  if (!is.null(df)) df <- one_of(df, "df", df_methods)
  if (!is.list(at) || (length(at) && is.null(names(at)))) {
    stop("`at` is a named list of numbers, such as list(x = 3).", call. = FALSE)
  }
  if (!is.null(repeated) && !is.character(repeated)) stop("`repeated` holds names of fields.",
    call. = FALSE)
  list(adjust = adjust, level = level, df = df, at = at, repeated = repeated)
}

# Method of degrees of freedom that this fit has.
settle_df <- function(fit, options) {
  if (inherits(fit, "lmerMod")) return(settle_lmer_df(fit, options$df))
  if (identical(options$df, "residual")) return("residual")
  if (!is.null(options$df)) message("A fit of class ", class(fit)[1L],
    " has no degrees of freedom by the method ",
    options$df, "; those that the fitter has are used.")
  "fitter"
}

# Kenward and Roger's covariance is one of restricted likelihood.
settle_lmer_df <- function(fit, df) {
  restricted <- lme4::isREML(fit)
  if (is.null(df)) return(if (restricted) "kenward-roger" else "satterthwaite")
  if (df == "kenward-roger" && !restricted) stop("The method kenward-roger needs a fit by REML; ",
    "fit with REML = TRUE, or take df = \"satterthwaite\".", call. = FALSE)
  df
}

complete_options <- function(fit, info, options) {
  options$df <- settle_df(fit, options)
  options$residual_df <- residual_df(fit, info)
  options$data <- info$data
  normal <- inherits(fit, "lm") && hf_distribution(fit)$distribution == "NORMAL"
  options$test_df <- if (normal) stats::df.residual(fit) else Inf
  if (inherits(fit, "lmerMod")) options$tested <- tested_lmer(fit)
  options$grid_arguments <- hf_grid_arguments(if (is.null(options$tested)) fit else options$tested,
    options)
  options
}

residual_df <- function(fit, info) {
  n <- if (is.null(info$records)) stats::nobs(fit) else info$records
  equations <- if (is.null(info$equations)) 1L else info$equations
  n - equations * sum(!is.na(info$beta)) - length(info$alpha)
}

build_model <- function(fit, requests, options) {
  distribution <- hf_distribution(fit)
  info <- hf_frame(fit)
  left_out <- hf_left_out(fit)
  if (length(left_out)) message("The documents have no place for ",
    paste(left_out, collapse = ", "),
    " of this model; the figures take account of it.")
  check_places(options$at, info)
  options <- complete_options(fit, info, options)
  target <- target_of(fit, info, distribution)
  design <- design_of(info)
  info$repeated <- repeated_fields(info, options$repeated)
  info$fields_by_name <- model_fields(info, target)
  lapply(requests, check_request, predictors_of(design), target$name, has_categories(distribution))
  random <- hf_random(fit, info, options)
  part <- list(
    info = info, target = target, design = design, distribution = distribution, options = options,
    random = random,
    coefficients = hf_coefficients(fit, info, design, options),
    tests = hf_tests(fit, info, design, options),
    residual = hf_residual(fit, info, options), criteria = hf_criteria(fit),
    messages = hf_messages(fit, random), requests = requests
  )
  part$messages <- c(part$messages, inestimable_messages(part))
  part$subjects <- subjects_of(random, info, part$residual)
  fields <- lapply(info$fields_by_name, `[[`, "field")
  regression <- !(distribution$distribution %in% c("ORDINAL", "NOMINAL") ||
    (distribution$distribution == "BINOMIAL" && is.null(target$trials)))
  list(pmml = pmml_document(fields, target$name, regression), statxml = results_document(fit, part))
}

# Repeated measures are counted by their levels, which a covariate has none of.
repeated_fields <- function(info, asked) {
  covariates <- Filter(function(name) is.numeric(info$frame[[name]]), variable_names(info$terms))
  if (is.null(asked)) return(setdiff(info$repeated, covariates))
  wrong <- intersect(asked, covariates)
  if (length(wrong)) stop("`repeated` names ", wrong[1L], ", which is a covariate of the model and so ",
    "has no levels; add a copy of it to the data and name that.", call. = FALSE)
  asked
}

# Effects without a single coefficient of their own.
inestimable_messages <- function(part) {
  beta <- part$info$beta
  empty <- vapply(part$design$effects, function(e) all(is.na(beta[e$columns])), NA)
  lapply(part$design$effects[empty],
    function(e) caution("kGLMM_C27", paste(e$fields, collapse = "*")))
}

predictors_of <- function(design) unique(unlist(lapply(design$effects, `[[`, "fields")))

# All fields by name, each with its column and its description.
model_fields <- function(info, target) {
  columns <- list()
  names <- variable_names(info$terms)
  for (name in names[-1L]) {
    field <- describe_variable(name, NULL, names)$field
    if (is.null(columns[[field]])) columns[[field]] <- info$frame[[name]]
  }
  for (name in setdiff(c(all_random_fields(info), info$repeated), names(columns))) {
    columns[[name]] <- further_column(name, info)
  }
  out <- list()
  events <- if (!is.null(target$trials)) target$events else target$values
  out[[target$name]] <- described(target$name, events, info, isTRUE(target$categorical))
  if (!is.null(target$trials)) out[[target$trials_name]] <- described(target$trials_name,
    target$trials, info, FALSE)
  for (name in setdiff(names(columns), names(out))) {
    x <- columns[[name]]
    told_apart <- name %in% c(all_random_fields(info, grouping = TRUE),
      setdiff(info$repeated, variable_names(info$terms)))
    out[[name]] <- described(name, x, info, is_categorical(x) || told_apart)
  }
  out
}

described <- function(name, x, info, categorical) {
  if (is.matrix(x)) x <- x[, 1L]
  source <- info$data[[name]]
  if (is.null(source) || is.matrix(source)) source <- x
  if (categorical && is.numeric(x)) x <- factor(x)
  list(values = x, field = make_field(name, x, source, categorical))
}

all_random_fields <- function(info, grouping = FALSE) {
  groups <- unique(unlist(lapply(names(info$random), group_fields, names(info$frame))))
  if (grouping) return(c(groups, info$grouping))
  unique(c(groups, info$grouping, setdiff(names(info$frame), variable_names(info$terms))))
}

# A column of the records of the fit that no term holds, by the names of its rows where it is only in
# the data.
further_column <- function(name, info) {
  if (!is.null(info$frame[[name]])) return(info$frame[[name]])
  if (!is.null(info$random[[name]])) return(info$random[[name]])
  at <- match(rownames(info$frame), rownames(info$data))
  if (is.null(info$data[[name]]) || anyNA(at)) stop("The field ", name,
    " is not in the data of the fit.", call. = FALSE)
  info$data[[name]][at]
}
