# Tables of a fit through the whole chain: documents, program, JSON, data frames.
chain <- function(fit, ...) {
  skip_if_not_installed("jsonlite")
  program <- tryCatch(hierfit:::find_program(), error = function(e) NULL)
  if (is.null(program)) skip("the program hierfit is not at hand")
  hf_tables(fit, ...)
}

# Each figure to 1e-10 of the one expected; missing where it is missing.
expect_figures <- function(actual, expected, tolerance = 1e-10) {
  actual <- as.numeric(unlist(actual))
  expected <- as.numeric(unlist(expected))
  expect_length(actual, length(expected))
  expect_identical(is.na(actual), is.na(expected) | is.infinite(expected))
  known <- is.finite(expected) & is.finite(actual)
  gap <- abs(actual - expected)[known] / pmax(abs(expected[known]), 1e-300)
  expect_true(all(gap <= tolerance | actual[known] == expected[known]),
    info = paste(format(gap), collapse = " "))
}

# Rows of coefficients that are estimated, as the documents list them after the redundant ones are
# left out.
estimated <- function(table) table[!is.na(table[["Std. Error"]]), ]

expect_coefficients <- function(tables, estimate, se, stat, p, rows = TRUE) {
  table <- estimated(tables[["FixedCoefficients-1"]])[rows, ]
  expect_figures(table$Coefficient, estimate)
  expect_figures(table[["Std. Error"]], se)
  expect_figures(table$t, stat)
  expect_figures(table[["Sig."]], p)
}

written <- function(fit, ...) {
  folder <- tempfile("documents-")
  hf_documents(fit, folder, ...)
  paste(readLines(file.path(folder, "model.statxml"), encoding = "UTF-8"), collapse = "\n")
}

fields_of <- function(fit, ...) {
  folder <- tempfile("documents-")
  hf_documents(fit, folder, ...)
  paste(readLines(file.path(folder, "model.pmml"), encoding = "UTF-8"), collapse = "\n")
}

oats <- function() {
  data <- as.data.frame(nlme::Oats)
  data$nitro <- factor(data$nitro)
  data$Block <- factor(as.character(data$Block))
  data
}
