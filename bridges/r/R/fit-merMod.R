# lmer, glmer and glmer.nb of lme4; lmer of lmerTest.

#' @export
hf_frame.merMod <- function(fit) {
  needs("lme4", "A fit of lme4")
  contrasts <- attr(lme4::getME(fit, "X"), "contrasts")
  list(
    frame = stats::model.frame(fit), terms = stats::terms(fit, fixed.only = TRUE),
    contrasts = contrasts,
    data = original_data(stats::getCall(fit), stats::formula(fit)),
    beta = lme4::fixef(fit, add.dropped = TRUE)[colnames_of_design(fit)],
    random = lme4::getME(fit, "flist")
  )
}

# All columns of the design, those that the fit dropped included, in the design's order.
colnames_of_design <- function(fit) {
  names <- names(lme4::fixef(fit, add.dropped = TRUE))
  dropped <- attr(lme4::getME(fit, "X"), "col.dropped")
  if (length(dropped) == 0L) return(names)
  kept <- setdiff(names, names(dropped))
  order <- character(length(names))
  order[dropped] <- names(dropped)
  order[order == ""] <- kept
  order
}

#' @export
hf_distribution.lmerMod <- function(fit) {
  list(distribution = "NORMAL", link = "IDENTITY", power = NA_real_, scaled = TRUE)
}

#' @export
hf_distribution.glmerMod <- function(fit) distribution_of_family(stats::family(fit))

# lmerTest's version of the fit, which has tests and the covariance of its parameters.
tested_lmer <- function(fit) {
  needs("lmerTest", "Tests of a fit of lmer")
  if (inherits(fit, "lmerModLmerTest")) return(fit)
  tryCatch(lmerTest::as_lmerModLmerTest(fit), error = function(e) {
    stop("The tests of this fit cannot be computed (", conditionMessage(e),
      "). Fit the model with ",
      "lmerTest::lmer() where its data are at hand.", call. = FALSE)
  })
}

lmer_method <- function(options) {
  if (options$df != "kenward-roger") return("Satterthwaite")
  needs("pbkrtest", "Kenward-Roger degrees of freedom")
  "Kenward-Roger"
}

#' @export
hf_coefficients.lmerMod <- function(fit, info, design, options) {
  table <- if (options$df == "kenward-roger") kenward_roger_table(fit)
  if (is.null(table)) table <- stats::coef(summary(options$tested, ddf = lmer_method(options)))
  out <- from_summary(design, info$beta, table, "df", "t value", "Pr(>|t|)")
  replace_df(out, options)
}

# What summary(ddf = "Kenward-Roger") of lmerTest gives, which computes the adjusted covariance anew
# for each coefficient. NULL where it cannot be computed; the summary then warns and goes on.
kenward_roger_table <- function(fit) {
  tryCatch({
    adjusted <- pbkrtest::vcovAdj(fit)
    plain <- stats::vcov(fit)
    estimate <- lme4::fixef(fit)
    df <- apply(diag(length(estimate)), 1L,
      function(l) pbkrtest::Lb_ddf(l, V0 = plain, Vadj = adjusted))
    se <- sqrt(diag(as.matrix(adjusted)))
    t <- estimate / se
    cbind(Estimate = estimate, `Std. Error` = se, df = df, `t value` = t,
      `Pr(>|t|)` = 2 * stats::pt(-abs(t), df))
  }, error = function(e) NULL)
}

#' @export
hf_coefficients.glmerMod <- function(fit, info, design, options) {
  table <- stats::coef(summary(fit))
  replace_df(from_summary(design, info$beta, table, Inf, 3L, 4L), options)
}

#' @export
hf_tests.lmerMod <- function(fit, info, design, options) {
  method <- lmer_method(options)
  effects <- data.frame(f = numeric(), df1 = numeric(), df2 = numeric(), p = numeric())
  if (length(design$effects)) {
    table <- taken_by("lmerTest", stats::anova(options$tested, type = 3, ddf = method), plain_names)
    labels <- vapply(design$effects, `[[`, "", "label")
    at <- match(labels, rownames(table))
    effects <- data.frame(
      f = table[at, "F value"], df1 = table[at, "NumDF"], df2 = table[at, "DenDF"],
      p = table[at, "Pr(>F)"]
    )
  }
  list(effects = replace_df2(effects, options),
    all = replace_df2(all_effects_lmer(info, design, options, method), options))
}

all_effects_lmer <- function(info, design, options, method) {
  kept <- names(lme4::fixef(options$tested))
  l <- diag(length(kept))[kept != "(Intercept)", , drop = FALSE]
  if (nrow(l) == 0L || !design$intercept) return(no_test())
  table <- lmerTest::contest(options$tested, l, joint = TRUE, ddf = method)
  data.frame(f = table[1L, "F value"], df1 = table[1L, "NumDF"], df2 = table[1L, "DenDF"],
    p = table[1L, "Pr(>F)"])
}

# Blocks, those with the fewest levels first. Terms of one grouping factor that hold one column each
# are one block.
mer_blocks <- function(fit) {
  components <- lme4::VarCorr(fit)
  names <- names(lme4::getME(fit, "cnms"))
  single <- vapply(components, nrow, 1L) == 1L
  blocks <- list()
  for (k in seq_along(names)) {
    same <- Filter(function(b) blocks[[b]]$group == names[k] && blocks[[b]]$single && single[k],
      seq_along(blocks))
    if (length(same)) {
      blocks[[same[1L]]]$terms <- c(blocks[[same[1L]]]$terms, k)
    } else {
      blocks[[length(blocks) + 1L]] <- list(group = names[k], single = single[[k]], terms = k)
    }
  }
  groups <- vapply(lme4::getME(fit, "flist"), nlevels, 1L)
  size <- vapply(blocks, function(b) groups[[b$group]], 1L)
  blocks <- blocks[order(size)]
  list(blocks = blocks, components = lapply(components, function(m) {
    matrix <- as.matrix(m)
    attributes(matrix) <- list(dim = dim(m), dimnames = dimnames(m))
    matrix
  }))
}

#' @export
hf_random.merMod <- function(fit, info, options) {
  parts <- mer_blocks(fit)
  errors <- mer_errors(fit, options)
  others <- other_groups(vapply(parts$blocks, `[[`, "", "group"), info)
  lapply(parts$blocks, function(block) {
    matrices <- parts$components[block$terms]
    matrix <- block_diagonal(matrices)
    error <- block_diagonal(errors[block$terms])
    make_block(block$group, unlist(lapply(matrices, colnames)), matrix, error,
      if (length(block$terms) > 1L) "DIAG" else if (nrow(matrix) > 1L) "UNSTRUCTURED" else "VC",
      info, others, options)
  })
}

block_diagonal <- function(matrices) {
  sizes <- vapply(matrices, nrow, 1L)
  out <- matrix(0, sum(sizes), sum(sizes))
  at <- 0L
  for (m in matrices) {
    inside <- at + seq_len(nrow(m))
    out[inside, inside] <- m
    at <- at + nrow(m)
  }
  out
}

# Errors of the entries of each term's matrix, by the delta method from the parameters of the fit.
mer_errors <- function(fit, options) {
  sizes <- vapply(lme4::getME(fit, "cnms"), length, 1L)
  theta <- lme4::getME(fit, "theta")
  sigma <- stats::sigma(fit)
  scaled <- inherits(fit, "lmerMod")
  covariance <- mer_parameter_covariance(fit, options)
  at <- 0L
  lapply(without_names(sizes), function(q) {
    inside <- at + seq_len(q * (q + 1L) / 2L)
    at <<- at + length(inside)
    if (is.null(covariance)) return(matrix(NA_real_, q, q))
    term_errors(theta[inside], sigma, q, covariance, inside, if (scaled) length(theta) + 1L)
  })
}

mer_parameter_covariance <- function(fit, options) {
  if (inherits(fit, "lmerMod")) return(options$tested@vcov_varpar)
  hessian <- fit@optinfo$derivs$Hessian
  if (is.null(hessian)) return(NULL)
  n <- length(lme4::getME(fit, "theta"))
  tryCatch(2 * solve(hessian)[seq_len(n), seq_len(n), drop = FALSE], error = function(e) NULL)
}

# The matrix of one term is sigma^2 L L', with theta the lower triangle of L by columns.
term_errors <- function(theta, sigma, q, covariance, inside, sigma_at) {
  factor <- matrix(0, q, q)
  factor[lower.tri(factor, diag = TRUE)] <- theta
  positions <- which(lower.tri(factor, diag = TRUE), arr.ind = TRUE)
  out <- matrix(NA_real_, q, q)
  for (i in seq_len(q)) for (j in seq_len(i)) {
    gradient <- apply(positions, 1L, function(p) {
      sigma^2 * ((p[1L] == i) * factor[j, p[2L]] + (p[1L] == j) * factor[i, p[2L]])
    })
    which <- inside
    if (!is.null(sigma_at)) {
      gradient <- c(gradient, 2 * sigma * sum(factor[i, ] * factor[j, ]))
      which <- c(inside, sigma_at)
    }
    variance <- drop(gradient %*% covariance[which, which, drop = FALSE] %*% gradient)
    out[i, j] <- out[j, i] <- if (isTRUE(variance > 0)) sqrt(variance) else NA_real_
  }
  out
}

#' @export
hf_residual.lmerMod <- function(fit, info, options) {
  covariance <- options$tested@vcov_varpar
  last <- nrow(covariance)
  sigma <- stats::sigma(fit)
  variance <- covariance[last, last]
  se <- if (isTRUE(variance > 0)) 2 * sigma * sqrt(variance) else NA_real_
  list(type = "ID", parameters = list(variance_parameter(sigma^2, se, options)))
}

#' @export
hf_residual.glmerMod <- function(fit, info, options) {
  if (!hf_distribution(fit)$scaled) return(fixed_scale())
  list(type = "ID", parameters = list(variance_parameter(stats::sigma(fit)^2, NA_real_, options)))
}

#' @export
hf_messages.merMod <- function(fit, random) {
  code <- fit@optinfo$conv$opt
  said <- unlist(fit@optinfo$conv$lme4$messages)
  failed <- isTRUE(code != 0) ||
    any(grepl("failed to converge|unable to evaluate|degenerate|nearly unidentifiable",
    said))
  c(
    singular_messages(random, hf_distribution(fit), stats::sigma(fit)),
    if (failed) list(caution("kGLMM_C18"))
  )
}

#' @export
hf_grid_arguments.lmerMod <- function(fit, options) {
  if (options$df == "residual") return(list(df = options$residual_df))
  list(lmer.df = options$df, lmerTest.limit = Inf, pbkrtest.limit = Inf)
}

#' @export
hf_left_out.merMod <- function(fit) {
  offset <- lme4::getME(fit, "offset")
  weights <- stats::weights(fit)
  trials <- has_trials(fit)
  c(
    if (any(offset != 0)) "an offset",
    if (!trials && length(unique(weights)) > 1L) "weights"
  )
}
