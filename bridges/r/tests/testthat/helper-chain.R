# Tables of a fit through the whole chain: documents, program, JSON, data frames.
chain <- function(fit, ...) {
  skip_if_not_installed("jsonlite")
  program()
  hf_tables(fit, ...)
}

tables_in <- function(folder) {
  file <- file.path(folder, "report.json")
  hierfit:::run_program(program(), c("report", "-o", file, folder))
  hierfit:::tables_of(jsonlite::fromJSON(file, simplifyVector = FALSE))
}

program <- function() {
  path <- tryCatch(hierfit:::find_program(), error = function(e) NULL)
  if (is.null(path)) skip("the program hierfit is not at hand")
  path
}

# Each figure to 1e-10 of the one expected; missing where it is missing.
expect_figures <- function(actual, expected, tolerance = 1e-10, info = "") {
  actual <- as.numeric(unlist(actual))
  expected <- as.numeric(unlist(expected))
  expect_identical(length(actual), length(expected), info = info)
  expect_identical(is.na(actual), is.na(expected) | is.infinite(expected), info = info)
  known <- is.finite(expected) & is.finite(actual)
  gap <- abs(actual - expected)[known] / pmax(abs(expected[known]), 1e-300)
  expect_true(all(gap <= tolerance | actual[known] == expected[known]),
    info = paste(info, paste(format(gap), collapse = " ")))
}

# Rows of coefficients that are estimated: redundant ones stand at 0 without an error.
estimated <- function(table) table[!is.na(table[["Std. Error"]]) | table$Coefficient != 0, ]

# What the two files say, in one text.
documents_of <- function(file, fit, ...) {
  folder <- tempfile("documents-")
  on.exit(unlink(folder, recursive = TRUE))
  hf_documents(fit, folder, ...)
  paste(readLines(file.path(folder, file), encoding = "UTF-8"), collapse = "\n")
}

written <- function(fit, ...) documents_of("model.statxml", fit, ...)

fields_of <- function(fit, ...) documents_of("model.pmml", fit, ...)

# Figures of the array that stands in the document behind a place that a pattern finds.
array_behind <- function(text, pattern) {
  from <- sub(paste0("(?s).*?", pattern), "", text, perl = TRUE)
  array <- sub("(?s).*?<Array[^>]*>([^<]*)</Array>.*", "\\1", from, perl = TRUE)
  as.numeric(strsplit(array, " ", fixed = TRUE)[[1L]])
}

lines_of <- function(program, arguments) {
  suppressWarnings(system2(program, shQuote(arguments), stdout = TRUE, stderr = TRUE))
}

# What an expression tells by messages.
told <- function(expression) {
  said <- character()
  withCallingHandlers(expression, message = function(m) {
    said <<- c(said, conditionMessage(m))
    invokeRestart("muffleMessage")
  })
  said
}

criterion <- function(text, name) {
  as.numeric(sub(paste0(".*<Statistic name=\"", name, "\" value=\"([^\"]*)\".*"), "\\1", text))
}

# Packages that a case calls.
packages_of <- function(case) {
  text <- paste(deparse(case), collapse = "")
  unique(regmatches(text, gregexpr("[A-Za-z0-9.]+(?=::)", text, perl = TRUE))[[1L]])
}

# Evaluates the call that makes a fit of a table of cases; what fitters say of such fits is theirs.
fitted_case <- function(case) suppressWarnings(suppressMessages(eval(case, case_data)))

oats <- function() {
  data <- as.data.frame(nlme::Oats)
  data$nitro <- factor(data$nitro)
  data$Block <- factor(as.character(data$Block))
  data
}
