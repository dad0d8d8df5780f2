# Compares the tables of the examples with those of the same models fitted here and bridged, cell
# for cell. Rscript tools/compare-examples.R EXAMPLES, with the package installed and the program at
# hand. Differences of figures above a relative 1e-6, of texts and of layout are listed; the
# vignette says why they are.

library(hierfit)
library(nlme)
library(lme4)

examples <- commandArgs(trailingOnly = TRUE)[1L]
tolerance <- 1e-6

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

differing <- function(a, b) {
  if (is.numeric(a) && is.numeric(b)) {
    gap <- abs(a - b) > tolerance * pmax(abs(a), abs(b))
    return(xor(is.na(a), is.na(b)) | (!is.na(gap) & gap))
  }
  xor(is.na(a), is.na(b)) | (!is.na(a) & !is.na(b) & a != b)
}

compare_table <- function(name, ours, theirs) {
  if (!identical(names(ours), names(theirs)) || nrow(ours) != nrow(theirs)) {
    return(cat("  ", name, ": columns or rows differ\n", sep = ""))
  }
  for (column in names(ours)) {
    rows <- which(differing(ours[[column]], theirs[[column]]))
    if (length(rows) == 0L) next
    first <- format(c(theirs[[column]][rows[1L]], ours[[column]][rows[1L]]), digits = 10)
    cat("  ", name, ", ", column, ": ", length(rows), " of ", nrow(ours), " cells, ", first[1L],
      " and ", first[2L],
      "\n", sep = "")
  }
}

compare <- function(example, fit, ...) {
  cat(example, "\n")
  theirs <- tables_of_example(example)
  ours <- tryCatch(suppressMessages(hf_tables(fit, ...)), error = function(e) conditionMessage(e))
  if (is.character(ours)) return(cat("  ", ours, "\n"))
  for (name in setdiff(names(theirs), names(ours))) cat("  ", name, ": in the example only\n",
    sep = "")
  for (name in setdiff(names(ours), names(theirs))) cat("  ", name, ": in the bridge only\n",
    sep = "")
  for (name in intersect(names(ours), names(theirs))) compare_table(name, ours[[name]],
    theirs[[name]])
}

sleep <- prepared(lme4::sleepstudy, "sleepstudy")
compare("sleepstudy", lmer(Reaction ~ Days + (Days | Subject), sleep))

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
compare("bacteria", glmer(y ~ trt + week + (1 | ID), tests, binomial, nAGQ = 15),
  means = list(~trt, ~ trt | week), contrasts = c("simple", "pairwise"),
  reference = list("placebo"),
  adjust = "sidak-sequential", df = "residual")

seizures <- prepared(MASS::epil, "epil", "trt", "period")
compare("epil", glmmTMB::glmmTMB(y ~ trt * lbase + lage + period + (1 | subject), seizures,
  glmmTMB::nbinom2),
  means = list(~trt, ~period, ~ trt | period), contrasts = c("pairwise", "deviation", "simple"),
  adjust = "bonferroni-sequential", df = "residual")

judged <- prepared(ordinal::wine, "wine", "temp", "contact")
judged$rating <- ordinal::wine$rating
judged <- dressed(judged, "wine")
compare("wine", ordinal::clmm(rating ~ temp + contact + (1 | judge), judged, nAGQ = 10),
  df = "residual")

tenants <- coded(MASS::housing, "Infl", "Type", "Cont")
tenants$Sat <- factor(as.character(tenants$Sat), levels = c("High", "Low", "Medium"))
tenants <- dressed(tenants, "housing")
compare("housing", nnet::multinom(Sat ~ Infl * Type + Cont, tenants, weights = Freq, trace = FALSE,
  Hess = TRUE,
  maxit = 500, reltol = 1e-14), df = "residual", level = 0.9)

stools <- prepared(ergoStool, "ergostool", "Type")
compare("ergostool", gls(effort ~ Type, stools, correlation = corCompSymm(form = ~ 1 | Subject)),
  means = list(~Type, ~Type), contrasts = c("simple", "pairwise"), reference = list("T1"),
  adjust = "bonferroni-sequential")

mares <- prepared(Ovary, "ovary")
compare("ovary", gls(follicles ~ sin(2 * pi * Time) + cos(2 * pi * Time), mares,
  correlation = corARMA(form = ~ 1 | Mare, p = 1, q = 1)))

looms <- prepared(warpbreaks, "warpbreaks", "wool", "tension")
compare("warpbreaks", glm(breaks ~ wool * tension, looms, family = inverse.gaussian),
  means = list(~tension, ~ wool * tension, ~ tension | wool),
  contrasts = c("simple", "pairwise", "deviation"),
  adjust = "bonferroni-sequential", df = "residual")
strata <- prepared(warpbreaks, "warpbreaks-groups", "wool", "tension")
compare("warpbreaks-groups",
  gls(breaks ~ wool * tension, strata, weights = varIdent(form = ~ 1 | wool * tension)))

chicks <- prepared(ChickWeight, "chickweight", "Diet")
compare("chickweight",
  glmmTMB::glmmTMB(weight ~ Diet * Time + I(Time^2) + diag(Time | Chick), chicks, Gamma("log")),
  means = list(~Diet, ~Diet), contrasts = c("pairwise", "deviation"), adjust = "sidak-sequential",
  df = "residual")

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
  binomial("probit")),
  means = list(~alcgp, ~ tobgp * alcgp), contrasts = "simple",
  reference = list("0-39g/day", "0-9g/day"),
  df = "residual")

pastes <- prepared(lme4::Pastes, "pastes", "batch", "cask")
compare("pastes", lm(strength ~ batch / cask, pastes), means = list(~ cask * batch, ~batch),
  contrasts = c("pairwise", "deviation"), adjust = "bonferroni-sequential")
