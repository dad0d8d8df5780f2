# Frames with names and levels of any kind: either documents that are read without a remark, or an error of the
# package's own. HIERFIT_CASES says how many are tried, HIERFIT_SEED where they begin.

skip_if_not_installed("emmeans")
skip_if_not_installed("jsonlite")

# What is markup, a quote, a blank, no character, or of another direction somewhere on the way.
odd <- c(" ", "\t", "\n", "\r", "\"", "'", "\\", "<", ">", "&", "=", "|", "%", "#", "$", "~", "^", "{", "]", ";", ",",
  ".", "-", "_", "*", ":", "\x01", "\x1f", "\x7f",
  "\u0085", "\u00a0", "\u00e9", "e\u0301", "\u200b", "\u2028", "\u202e",
  "\u05d0", "\ufeff", "\ufffe", "\U0001f600", "__MISSING__", "]]>", "\\\"", "a", "b", "1", "1.0", "NA", "NaN", "TRUE",
  "(Intercept)", strrep("x", 300))

pick <- function(from) from[[sample.int(length(from), 1L)]]

word <- function() paste(sample(odd, sample.int(3L, 1L), replace = TRUE), collapse = "")

words <- function(n) utils::head(unique(replicate(20L * n, word())), n)

hostile_frame <- function() {
  n <- 40L
  levels <- words(sample(2:4, 1L))
  g <- factor(sample(seq_along(levels), n, replace = TRUE), seq_along(levels))
  levels(g) <- levels
  x <- pick(c(0, 1e-300, 1e-6, 1, 1e8)) * rnorm(n, 2)
  if (runif(1L) < 0.2) x[3L] <- NA
  if (runif(1L) < 0.2) g[5L] <- NA
  if (runif(1L) < 0.2) g <- factor(g, c(levels, "never"))
  frame <- data.frame(rnorm(n, sd = pick(c(0, 1, 1e50))), g, x, factor(rep(1:10, 4L)), rpois(n, 2), rbinom(n, 1L, 0.5))
  # A formula's names are symbols, which R keeps from some characters.
  names(frame) <- make.unique(c(words(3L), "s", "n", "b"))
  frame
}

hostile_fit <- function(frame, kind) {
  name <- lapply(names(frame), as.name)
  right <- pick(list(name[[2L]], name[[3L]], call("+", name[[2L]], name[[3L]]), call("*", name[[2L]], name[[3L]]), 1))
  formula <- function(target, right) as.formula(call("~", name[[target]], right))
  list(means = if (names(frame)[2L] %in% all.vars(right)) as.formula(call("~", name[[2L]])),
    fit = switch(kind,
      lm = lm(formula(1L, right), frame),
      poisson = glm(formula(5L, right), poisson, frame),
      logit = glm(formula(6L, right), binomial, frame),
      lmer = lme4::lmer(formula(1L, call("+", right, quote((1 | s)))), frame)
    ))
}

# The fit has all that a report shows, and no square or exponential of it is infinite.
is_regular <- function(fit) {
  table <- coef(summary(fit))
  estimates <- if (isS4(fit)) lme4::fixef(fit) else coef(fit)
  all(is.finite(table)) && nrow(table) == length(estimates) && all(table[, 2L] > 0) && max(table[, 2L]) < 1e20 &&
    all(table[, ncol(table)] < 1) &&
    (!inherits(fit, "glm") || max(table[, 2L]) < 100)
}

test_that("any frame has documents without remarks or a clear error", {
  hierfit <- program()
  seed <- as.integer(Sys.getenv("HIERFIT_SEED", "1"))
  kinds <- c("lm", "poisson", "logit", if (requireNamespace("lme4", quietly = TRUE)) "lmer")
  read <- 0L
  for (case in seed + seq_len(as.integer(Sys.getenv("HIERFIT_CASES", "40")))) {
    set.seed(case)
    kind <- pick(kinds)
    made <- tryCatch(suppressWarnings(suppressMessages(hostile_fit(hostile_frame(), kind))), error = function(e) NULL)
    if (is.null(made)) next
    folder <- tempfile("hostile-")
    error <- tryCatch(suppressWarnings(suppressMessages(hf_documents(made$fit, folder, means = made$means))),
      error = function(e) e)
    info <- paste("case", case, kind, deparse1(formula(made$fit)))
    if (inherits(error, "error")) {
      # Said in a sentence, not by R on the way.
      expect_match(conditionMessage(error), "^.{20,}$", info = info)
      expect_null(conditionCall(error), info = paste(info, conditionMessage(error)))
      next
    }
    said <- lines_of(hierfit, c("check", "--strict", folder))
    if (is_regular(made$fit)) expect_identical(as.character(said), character(), info = info)
    expect_false(any(grepl("error", said) & grepl("model\\.(pmml|statxml):", said)), info = paste(info, said))
    read <- read + 1L
    unlink(folder, recursive = TRUE)
  }
  expect_gt(read, 0L)
})
