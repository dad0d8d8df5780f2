# Subjects: which fields tell them apart, how many there are, and the records of the first.

# Fields of the nested blocks, the innermost first; none where blocks are crossed.
subjects_of <- function(random, info, residual) {
  specs <- lapply(random, `[[`, "subject")
  if (length(specs) == 0L) specs <- Filter(Negate(is.null), list(residual$subject))
  if (length(specs) == 0L) return(list(common = character(), all = character(), n = 0L))
  fields <- lapply(specs, `[[`, "fields")
  common <- Reduce(intersect, fields)
  all <- unique(unlist(rev(fields[order(-lengths(fields))])))
  chain <- fields[order(lengths(fields))]
  nested <- all(vapply(seq_along(chain)[-1L], function(i) all(chain[[i - 1L]] %in% chain[[i]]), NA))
  columns <- lapply(stats::setNames(all, all),
    function(f) as.character(info$fields_by_name[[f]]$values))
  if (!nested || length(common) == 0L) {
    return(list(common = character(), all = character(), n = 1L, columns = columns))
  }
  key <- do.call(paste, c(columns[common], sep = "\r"))
  list(common = common, all = chain[[1L]], within = chain[[length(chain)]], n = length(unique(key)),
    key = key,
    columns = columns)
}

# Columns of the random design of one common subject: the most that one has.
random_columns <- function(random, subjects) {
  if (length(random) == 0L) return(0L)
  sum(vapply(random, function(block) {
    key <- do.call(paste, c(subjects$columns[block$subject$fields], sep = "\r"))
    groups <- if (is.null(subjects$key)) length(unique(key))
      else max(tapply(key, subjects$key, function(k) length(unique(k))))
    groups * nrow(block$matrix)
  }, 1))
}

most_records <- 10L

first_subject_node <- function(part) {
  subjects <- part$subjects
  if (length(subjects$common) == 0L) return(NULL)
  fields <- unique(c(subjects$all, subjects$within))
  columns <- lapply(stats::setNames(fields, fields),
    function(f) as.character(part$info$fields_by_name[[f]]$values))
  first <- vapply(columns, `[`, "", 1L)
  same <- which(Reduce(`&`, Map(function(column, value) column == value, columns, first)))
  shown <- utils::head(same, most_records)
  node(
    "StructuredData", c(description = "firstSubjectRecordsForDataStructure"),
    node("Counts", c(totalFreq = length(same))),
    node(
      "SegmentData", character(),
      node("SegmentInfo", character(), without_names(Map(function(field, value) {
        node("FieldInfo", c(fieldName = field, fieldValue = value))
      }, fields, first))),
      node("MultivariateData", character(), repeated_records(part$info, shown),
        target_records(part$target, shown))
    )
  )
}

record_column <- function(name, values) {
  array <- if (is_categorical(values)) text_array(as.character(values)) else real_array(values)
  coordinates_node(array, "fields", field = name)
}

repeated_records <- function(info, shown) {
  if (length(info$repeated) == 0L) return(NULL)
  columns <- lapply(info$repeated,
    function(name) record_column(name, info$fields_by_name[[name]]$values[shown]))
  node("CoordinatesGroup", c(description = "repeatedMeasures"), columns)
}

target_records <- function(target, shown) {
  values <- if (is.null(target$trials)) target$values else target$events
  node(
    "CoordinatesGroup", c(description = "target"), record_column(target$name, values[shown]),
    if (!is.null(target$trials)) record_column(target$trials_name, target$trials[shown])
  )
}
