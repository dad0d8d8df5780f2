# Reports and tables, by the program.

#' Write the report of a fitted model
#'
#' Writes the documents into a temporary folder and runs the program on them. The program is the
#' option `hierfit.program`, the variable `HIERFIT`, or `hierfit` on the path.
#'
#' @inheritParams hf_documents
#' @param file The report: the ending says the format, such as `.html`, `.docx` or `.json`.
#' @param ... What [hf_documents()] takes.
#' @param title What an HTML page is called.
#' @return The path of the report, invisibly.
#' @examples
#' \dontrun{
#' fit <- lm(breaks ~ wool * tension, warpbreaks)
#' hf_report(fit, "warpbreaks.html", means = ~ tension)
#' }
#' @export
hf_report <- function(fit, file, ..., title = NULL) {
  check_path(file, "file")
  if (!is.null(title) && (!is.character(title) || length(title) != 1L)) {
    stop("`title` is one text; not ", shown(title), ".", call. = FALSE)
  }
  program <- find_program()
  folder <- temporary_folder()
  on.exit(unlink(folder, recursive = TRUE))
  hf_documents(fit, folder, ...)
  said <- run_program(program, c(
    "report", "-o", file, if (!is.null(title)) c("--title", title),
    file.path(folder, "model.pmml"), file.path(folder, "model.statxml")
  ))
  if (length(said)) message(paste(said, collapse = "\n"))
  invisible(file)
}

temporary_folder <- function() tempfile("hierfit-")

find_program <- function() {
  path <- getOption("hierfit.program", Sys.getenv("HIERFIT", unset = ""))
  if (!nzchar(path)) path <- without_names(Sys.which("hierfit"))
  if (nzchar(path) && file.exists(path)) return(path)
  stop("The program hierfit is not found. Say where it is by options(hierfit.program = ), ",
    "by the variable HIERFIT, ",
    "or put it on the path.", call. = FALSE)
}

run_program <- function(program, arguments) {
  said <- suppressWarnings(system2(program, shQuote(arguments), stdout = TRUE, stderr = TRUE))
  status <- attr(said, "status")
  if (is.null(status)) return(said)
  # Its help tells of arguments that it has on a command line.
  said <- grep("^Try: ", said, invert = TRUE, value = TRUE)
  stop("The program ended with status ", status, ": ", paste(said, collapse = "\n"), call. = FALSE)
}
