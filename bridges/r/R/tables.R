# Tables as data frames, from the program's JSON.

#' Tables of a fitted model as data frames
#'
#' Runs the program as [hf_report()] does and gives each table that it issues as a data frame with
#' figures at full precision. Row labels stand in the first columns; a table's column labels are the
#' names of the others.
#'
#' @inheritParams hf_report
#' @return A list of data frames, named by item: the kind of table and its number among those of its
#'   kind, such as `FixedCoefficients-1`. A data frame has the attribute `title`.
#' @examples
#' \dontrun{
#' fit <- lm(breaks ~ wool * tension, warpbreaks)
#' hf_tables(fit)[["FixedCoefficients-1"]]
#' }
#' @export
hf_tables <- function(fit, ...) {
  needs("jsonlite", "hf_tables()")
  file <- tempfile(fileext = ".json")
  on.exit(unlink(file))
  hf_report(fit, file, ...)
  tables_of(jsonlite::fromJSON(file, simplifyVector = FALSE))
}

tables_of <- function(document) {
  tables <- items_of(document$items)
  kinds <- vapply(tables, function(t) t$subtype$text, "")
  numbers <- stats::ave(seq_along(kinds), kinds, FUN = seq_along)
  stats::setNames(lapply(tables, table_frame), paste0(kinds, "-", numbers))
}

items_of <- function(items) {
  do.call(c, lapply(items, function(item) {
    if (item$kind == "heading") return(items_of(item$items))
    if (item$kind == "table") list(item)
  }))
}

# Labels of a dimension's categories by id, groups before their members.
category_labels <- function(members, before = character()) {
  unlist(lapply(members, function(member) {
    label <- c(before, member$label$text)
    if (member$kind == "group") return(category_labels(member$members, label))
    stats::setNames(paste(label, collapse = " "), member$id)
  }))
}

cell_value <- function(cell) {
  from <- cell$content$from
  if (!("number" %in% names(from))) return(cell$content$text)
  if (is.null(from$number)) NA_real_ else as.numeric(from$number)
}

outermost_first <- function(dimensions, which) {
  index <- vapply(dimensions[which], function(d) if (is.null(d$index)) 0 else as.numeric(d$index),
    1)
  which[order(-index)]
}

table_frame <- function(table) {
  dimensions <- table$dimensions
  place <- vapply(dimensions, function(d) if (identical(as.integer(d$place), 1L)) 1L else 0L, 1L)
  rows <- outermost_first(dimensions, which(place == 0L))
  columns <- outermost_first(dimensions, which(place == 1L))
  labels <- lapply(dimensions, function(d) category_labels(d$members))
  at <- lapply(seq_along(dimensions), function(i) {
    vapply(table$cells, function(cell) {
      if (is.null(cell$at[[i]])) NA_character_ else as.character(cell$at[[i]])
    }, "")
  })
  texts <- Map(function(ids, label) without_names(label[ids]), at, labels)
  frame <- wide_frame(texts, rows, columns, lapply(table$cells, cell_value))
  names <- vapply(dimensions[rows], function(d) d$name$text, "")
  names(frame)[seq_along(rows)] <- names
  attr(frame, "title") <- table$title$text
  frame
}

wide_frame <- function(texts, rows, columns, values) {
  joined <- function(which) if (length(which)) do.call(paste,
    c(texts[which], sep = "\r")) else rep("", length(values))
  row <- factor(joined(rows), levels = unique(joined(rows)))
  column <- factor(gsub("\r", " ", joined(columns)),
    levels = unique(gsub("\r", " ", joined(columns))))
  first <- match(levels(row), row)
  frame <- data.frame(row.names = seq_along(first))
  for (i in seq_along(rows)) frame[[i]] <- texts[[rows[i]]][first]
  for (name in levels(column)) {
    cells <- vector("list", nlevels(row))
    inside <- which(column == name)
    cells[as.integer(row)[inside]] <- values[inside]
    frame[[if (nzchar(name)) name else "Value"]] <- column_of(cells)
  }
  frame
}

# Figures stay numbers where all cells of a column are figures.
column_of <- function(cells) {
  empty <- vapply(cells, is.null, NA)
  cells[empty] <- NA
  if (all(vapply(cells, function(cell) is.numeric(cell) || is.na(cell),
    NA))) return(as.numeric(unlist(cells)))
  vapply(cells, function(cell) if (is.na(cell)) NA_character_ else as.character(cell), "")
}
