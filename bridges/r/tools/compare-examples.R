# Compares the tables of the examples with those of the same models fitted here and bridged, cell
# for cell. Rscript tools/compare-examples.R EXAMPLES [LIST], with the package installed and the
# program at hand. Writes a line for each column that differs, in figures by more than a relative
# 1e-4, in texts or in layout; rows are compared by their names. With LIST, which is
# tools/examples-differences.txt, it ends with status 1 where the lines are not those of the list.
# The vignette says why they differ.

library(hierfit)
library(nlme)
library(lme4)

arguments <- commandArgs(trailingOnly = TRUE)
examples <- arguments[1L]
tolerance <- 1e-4
found <- character()
tell <- function(...) found <<- c(found, paste0(...))

# Labels and formats of the example's fields, put on the data as haven puts them.
dressed <- function(data, example) {
  lines <- readLines(file.path(examples, example, "model.pmml"), encoding = "UTF-8")
  attribute <- function(line, name) {
    found <- regmatches(line, regexec(paste0(" ", name, "=\"([^\"]*)\""), line))[[1L]]
    if (length(found) == 2L) gsub("&lt;", "<", gsub("&gt;", ">", gsub("&amp;", "&", found[2L])))
  }
  for (line in lines) {
    if (grepl("<DataField", line)) field <- attribute(line, "name")
    if (!exists("field", inherits = FALSE) || is.null(data[[field]])) next
    if (grepl("<DataField", line)) attr(data[[field]], "label") <- attribute(line, "displayName")
    if (grepl("<Extension", line)) attr(data[[field]], "format.source") <- attribute(line, "value")
    label <- if (grepl("<Value", line)) attribute(line, "displayValue")
    if (!is.null(label)) {
      attr(data[[field]], "labels") <- c(
        attr(data[[field]], "labels"), stats::setNames(attribute(line, "value"), label)
      )
    }
  }
  data
}

# The last level as reference, as the examples have it.
coded <- function(data, ...) {
  for (name in c(...)) {
    x <- data[[name]]
    levels <- if (is.factor(x)) levels(x) else sort(unique(x))
    x <- factor(as.character(x), levels = as.character(levels))
    contrasts(x) <- contr.treatment(nlevels(x), base = nlevels(x))
    data[[name]] <- x
  }
  data
}

prepared <- function(data, example, ...) dressed(coded(as.data.frame(data), ...), example)

tables_of_example <- function(example) {
  file <- tempfile(fileext = ".json")
  arguments <- c("report", "-o", file, file.path(examples, example))
  hierfit:::run_program(hierfit:::find_program(), arguments)
  hierfit:::tables_of(jsonlite::fromJSON(file, simplifyVector = FALSE))
}

# Columns of texts may hold figures.
differing <- function(a, b) {
  if (is.character(a) && is.character(b)) {
    numbers <- suppressWarnings(cbind(as.numeric(a), as.numeric(b)))
    both <- !is.na(numbers[, 1L]) & !is.na(numbers[, 2L])
    out <- xor(is.na(a), is.na(b)) | (!is.na(a) & !is.na(b) & a != b)
    out[both] <- differing(numbers[both, 1L], numbers[both, 2L])
    return(out)
  }
  if (is.numeric(a) && is.numeric(b)) {
    gap <- abs(a - b) > tolerance * pmax(abs(a), abs(b))
    return(xor(is.na(a), is.na(b)) | (!is.na(gap) & gap))
  }
  xor(is.na(a), is.na(b)) | (!is.na(a) & !is.na(b) & a != b)
}

rows_as <- function(ours, theirs) {
  named <- is.character(ours) && !anyDuplicated(ours) && setequal(ours, theirs)
  if (named) match(theirs, ours) else seq_along(ours)
}

compare_table <- function(name, ours, theirs) {
  if (!identical(names(ours), names(theirs)) || nrow(ours) != nrow(theirs)) {
    return(tell(name, ": columns or rows"))
  }
  ours <- ours[rows_as(ours[[1L]], theirs[[1L]]), ]
  for (column in names(ours)) {
    rows <- which(differing(ours[[column]], theirs[[column]]))
    if (length(rows)) tell(name, ", ", column, ": ", length(rows), " of ", nrow(ours))
  }
}

compare <- function(example, fit, ...) {
  theirs <- tables_of_example(example)
  ours <- suppressMessages(hf_tables(fit, ...))
  for (name in setdiff(names(theirs), names(ours))) tell(example, " ", name, ": in the example only")
  for (name in setdiff(names(ours), names(theirs))) tell(example, " ", name, ": in the bridge only")
  for (name in intersect(names(ours), names(theirs))) {
    compare_table(paste(example, name), ours[[name]], theirs[[name]])
  }
}

# Optimizers that go on to the end, as those of the examples did.
to_the_end <- glmerControl(optimizer = "bobyqa", optCtrl = list(rhoend = 1e-9))
far <- glmmTMB::glmmTMBControl(optCtrl = list(rel.tol = 1e-14, x.tol = 1e-12, eval.max = 1000,
  iter.max = 1000))

sleep <- prepared(transform(lme4::sleepstudy, Day = Days), "sleepstudy")
compare("sleepstudy", lmer(Reaction ~ Days + (Days | Subject), sleep),
  repeated = "Day")

oats <- transform(as.data.frame(Oats), Variety = as.character(Variety),
  Block = factor(as.character(Block)))
oats <- prepared(oats, "oats", "nitro", "Variety")
compare("oats", lmer(yield ~ nitro * Variety + (1 | Block / Variety), oats),
  means = list(~nitro, ~nitro, ~Variety, ~ nitro | Variety, ~ Variety | nitro, ~ nitro * Variety),
  contrasts = c("deviation", "simple", "pairwise", "pairwise", "deviation", "none"),
  reference = list(NULL, "0"))

herds <- prepared(lme4::cbpp, "cbpp", "period")
compare("cbpp", glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), herds, binomial),
  means = ~period, contrasts = "pairwise", adjust = "bonferroni-sequential", df = "residual")

tests <- prepared(MASS::bacteria, "bacteria", "trt", "week")
compare("bacteria", glmer(y ~ trt + week + (1 | ID), tests, binomial, nAGQ = 15,
    control = to_the_end),
  means = list(~trt, ~ trt | week), contrasts = c("simple", "pairwise"),
  reference = list("placebo"),
  adjust = "sidak-sequential", df = "residual", repeated = "week")

seizures <- transform(MASS::epil, lbase = log(base / 4), lage = log(age))
seizures <- prepared(seizures, "epil", "trt", "period")
compare("epil", glmmTMB::glmmTMB(y ~ trt * lbase + lage + period + (1 | subject), seizures,
  glmmTMB::nbinom2, control = far),
  means = list(~trt, ~period, ~ trt | period), contrasts = c("pairwise", "deviation", "simple"),
  adjust = "bonferroni-sequential", df = "residual", repeated = "period")

judged <- prepared(ordinal::wine, "wine", "temp", "contact")
judged$rating <- ordinal::wine$rating
judged <- dressed(judged, "wine")
compare("wine", ordinal::clmm(rating ~ temp + contact + (1 | judge), judged, nAGQ = 10),
  df = "residual", repeated = "bottle")

tenants <- coded(MASS::housing, "Infl", "Type", "Cont")
tenants$Sat <- factor(as.character(tenants$Sat), levels = c("High", "Low", "Medium"))
tenants <- dressed(tenants, "housing")
compare("housing", nnet::multinom(Sat ~ Infl * Type + Cont, tenants, weights = Freq, trace = FALSE,
  Hess = TRUE,
  maxit = 500, reltol = 1e-14), df = "residual", level = 0.9)

stools <- prepared(ergoStool, "ergostool", "Type")
compare("ergostool", gls(effort ~ Type, stools, correlation = corCompSymm(form = ~ 1 | Subject)),
  means = list(~Type, ~Type), contrasts = c("simple", "pairwise"), reference = list("T1"),
  adjust = "bonferroni-sequential", repeated = "Type")

mares <- transform(as.data.frame(Ovary), sine = sin(2 * pi * Time), cosine = cos(2 * pi * Time),
  Mare = factor(as.character(Mare), levels = sort(unique(as.integer(as.character(Mare))))))
mares$occasion <- ave(mares$Time, mares$Mare, FUN = seq_along)
mares <- prepared(mares, "ovary")
compare("ovary", gls(follicles ~ sine + cosine, mares,
  correlation = corARMA(form = ~ occasion | Mare, p = 1, q = 1)))

looms <- prepared(warpbreaks, "warpbreaks", "wool", "tension")
compare("warpbreaks", glm(breaks ~ wool * tension, looms, family = inverse.gaussian),
  means = list(~tension, ~ wool * tension, ~ tension | wool),
  contrasts = c("simple", "pairwise", "deviation"),
  adjust = "bonferroni-sequential", df = "residual")
strata <- prepared(warpbreaks, "warpbreaks-groups", "wool", "tension")
compare("warpbreaks-groups",
  gls(breaks ~ wool * tension, strata, weights = varIdent(form = ~ 1 | wool * tension)))

chicks <- prepared(transform(as.data.frame(ChickWeight), day = Time), "chickweight", "Diet")
compare("chickweight",
  glmmTMB::glmmTMB(weight ~ Diet * Time + I(Time^2) + diag(Time | Chick), chicks, Gamma("log"),
    control = far),
  means = list(~Diet, ~Diet), contrasts = c("pairwise", "deviation"), adjust = "sidak-sequential",
  df = "residual", repeated = "day")

peas <- prepared(npk, "npk", "N", "P", "K")
compare("npk", lmer(yield ~ N * P * K + (1 | block), peas),
  means = list(~ K | N * P, ~ K | N * P, ~ K | N * P, ~ N * K),
  contrasts = c("pairwise", "simple", "deviation", "simple"),
  reference = list(NULL, NULL, NULL, "0"),
  adjust = "bonferroni-sequential")

orchard <- transform(OrchardSprays, column = factor(colpos))
orchard <- prepared(orchard, "orchard", "treatment")
compare("orchard", lmer(decrease ~ treatment + (1 | column), orchard),
  means = list(~treatment, ~treatment),
  contrasts = c("pairwise", "deviation"), adjust = "sidak-sequential")

cases <- transform(esoph, total = ncases + ncontrols, cell = factor(seq_len(nrow(esoph))))
for (name in c("agegp", "alcgp", "tobgp")) cases[[name]] <- factor(cases[[name]], ordered = FALSE)
cases <- prepared(cases, "esoph", "agegp", "alcgp", "tobgp")
compare("esoph", glmer(cbind(ncases, total - ncases) ~ agegp + alcgp + tobgp + (1 | cell), cases,
  binomial("probit"), control = to_the_end),
  means = list(~alcgp, ~ tobgp * alcgp), contrasts = "simple",
  reference = list("0-39g/day", "0-9g/day"),
  df = "residual")

pastes <- prepared(lme4::Pastes, "pastes", "batch", "cask")
compare("pastes", lm(strength ~ batch / cask, pastes), means = list(~ cask * batch, ~batch),
  contrasts = c("pairwise", "deviation"), adjust = "bonferroni-sequential")

writeLines(found)
if (length(arguments) > 1L) {
  expected <- readLines(arguments[2L])
  for (line in setdiff(found, expected)) cat("new: ", line, "\n", sep = "")
  for (line in setdiff(expected, found)) cat("gone: ", line, "\n", sep = "")
  if (!identical(found, expected)) quit(status = 1L)
}
