# A small writer of XML: nodes are built as lists and turned into text once.

# As unname(), which other packages turn into a generic that rewords the errors of its argument.
without_names <- function(x) {
  if (!is.null(dimnames(x))) dimnames(x) <- NULL
  names(x) <- NULL
  x
}

# A node with attributes in the order given; children are nodes, lists of nodes, or one text.
node <- function(name, attributes = character(), ...) {
  list(name = name, attributes = attributes, children = list(...))
}

is_node <- function(x) is.list(x) && !is.null(names(x)) && "attributes" %in% names(x)

# A text as a reader of the documents has it: characters that XML does not know are blanks.
legible <- function(text) {
  gsub("[\u0001-\u0008\u000b\u000c\u000e-\u001f\ufffe\uffff]", " ", enc2utf8(as.character(text)), perl = TRUE)
}

xml_escape <- function(text) {
  text <- gsub("&", "&amp;", legible(text), fixed = TRUE)
  text <- gsub("<", "&lt;", text, fixed = TRUE)
  text <- gsub(">", "&gt;", text, fixed = TRUE)
  text <- gsub("\"", "&quot;", text, fixed = TRUE)
  text <- gsub("\r", "&#13;", text, fixed = TRUE)
  gsub("\n", "&#10;", gsub("\t", "&#9;", text, fixed = TRUE), fixed = TRUE)
}

start_tag <- function(x) {
  if (length(x$attributes) == 0L) return(paste0("<", x$name))
  values <- paste0(" ", names(x$attributes), "=\"", xml_escape(x$attributes), "\"", collapse = "")
  paste0("<", x$name, values)
}

# Nested lists of nodes become one flat list; what is NULL is left out.
flatten_nodes <- function(children) {
  flat <- lapply(children, function(child) {
    if (is.null(child)) return(NULL)
    if (is_node(child) || is.character(child)) return(list(child))
    flatten_nodes(child)
  })
  do.call(c, flat)
}

node_lines <- function(x, indent = "") {
  children <- flatten_nodes(x$children)
  open <- paste0(indent, start_tag(x))
  if (length(children) == 0L) return(paste0(open, "/>"))
  close <- paste0("</", x$name, ">")
  if (is.character(children[[1L]])) return(paste0(open, ">", xml_escape(children[[1L]]), close))
  inner <- lapply(children, node_lines, indent = paste0(indent, "  "))
  c(paste0(open, ">"), unlist(inner, use.names = FALSE), paste0(indent, close))
}

write_xml <- function(x, path) {
  lines <- c("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", node_lines(x))
  connection <- file(path, open = "wb")
  on.exit(close(connection))
  writeLines(lines, connection, sep = "\n", useBytes = TRUE)
  invisible(path)
}

# The fewest digits that read back as the same number; what is not a finite number is empty.
number_text <- function(x, missing = "") {
  x <- as.numeric(x)
  text <- sprintf("%.15g", x)
  for (format in c("%.16g", "%.17g")) {
    differs <- is.finite(x) & suppressWarnings(as.numeric(text)) != x
    differs[is.na(differs)] <- FALSE
    text[differs] <- sprintf(format, x[differs])
  }
  text[!is.finite(x)] <- missing
  text
}

flag_text <- function(x) if (isTRUE(x)) "true" else "false"

# A token of an array of texts stands in quotes when blanks or quotes are in it.
token_text <- function(text) {
  missing <- is.na(text)
  text <- legible(text)
  quoted <- missing | text == "" | grepl("[[:space:]\"]", text) | text == "__MISSING__"
  unfit <- quoted & !missing & (endsWith(text, "\\") | grepl("\\\"", text, fixed = TRUE))
  if (any(unfit)) stop("The value ", dQuote(text[unfit][1L], FALSE), " cannot be written: it has blanks or quotes, ",
    "and a backslash before a quote or at its end; rename it.", call. = FALSE)
  text[quoted] <- paste0("\"", gsub("\"", "\\\"", text[quoted], fixed = TRUE), "\"")
  text[missing] <- "__MISSING__"
  text
}

real_array <- function(x) {
  text <- paste(number_text(x, missing = "__MISSING__"), collapse = " ")
  node("Array", c(n = length(x), type = "real"), text)
}

text_array <- function(x) {
  node("Array", c(n = length(x), type = "string"), paste(token_text(x), collapse = " "))
}

statistic_node <- function(name, value) node("Statistic", c(name = name, value = value))

coordinates_node <- function(array, feature, ...) {
  node("Coordinates", c(feature = feature, ...), array)
}
