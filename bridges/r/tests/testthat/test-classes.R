skip_if_not_installed("emmeans")

# Fits of each class with what it can hold. `remarks` are those of `hierfit check --strict`, `says` is what the user is
# told.
no_likelihood <- "^-2 log likelihood and information criteria in table .* are missing: .*quasi-likelihood"
plain_fits <- list(
  list(quote(aov(breaks ~ wool * tension, warpbreaks)), means = ~ tension | wool),
  list(quote(lm(mpg ~ late + size, transform(mtcars, late = am == 1,
    size = ifelse(gear > 3, "more", "few")))), means = ~ late),
  list(quote(lm(breaks ~ wool * tension, warpbreaks,
    contrasts = list(wool = "contr.sum", tension = "contr.helmert"))), means = ~ tension | wool),
  list(quote(glm(case ~ spontaneous, binomial("probit"), infert))),
  list(quote(glm(count ~ spray, poisson, InsectSprays)), means = ~spray),
  list(quote(glm(cbind(ncases, ncontrols) ~ agegp, binomial, esoph)), means = ~agegp),
  list(quote(glm(breaks ~ wool + tension, Gamma("log"), warpbreaks)), means = ~tension),
  list(quote(glm(breaks ~ wool, inverse.gaussian, warpbreaks))),
  list(quote(glm(breaks ~ wool, quasipoisson, warpbreaks)), remarks = no_likelihood),
  list(quote(MASS::glm.nb(Days ~ Sex + Age, MASS::quine)), means = ~Age),
  list(quote(lme4::lmer(y ~ b * c + (1 | a), three)), means = ~ c | b),
  list(quote(lme4::lmer(Reaction ~ Days + (1 | Subject), sleep, REML = FALSE))),
  list(quote(lmerTest::lmer(Reaction ~ late + (1 | Subject), sleep)), means = ~late),
  list(quote(lme4::lmer(Reaction ~ Days + (Days || Subject), sleep))),
  list(quote(lme4::lmer(Reaction ~ Days + I(Days^2) + (I(Days^2) || Subject), sleep))),
  list(quote(lme4::lmer(y ~ x + (1 | a) + (1 | b) + (1 | c), three))),
  list(quote(lme4::glmer(n ~ b + (1 | a), three, poisson)), means = ~b),
  list(quote(lme4::glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), lme4::cbpp,
    binomial)), means = ~period),
  list(quote(lme4::glmer(n ~ x + (x | a), three, poisson))),
  list(quote(lme4::glmer(Reaction ~ Days + (1 | Subject), sleep, Gamma("log")))),
  list(quote(lme4::glmer.nb(Days ~ Sex + Age + (1 | Lrn), MASS::quine)), means = ~Age),
  list(quote(glmmTMB::glmmTMB(Reaction ~ Days + (Days | Subject), sleep))),
  list(quote(glmmTMB::glmmTMB(y ~ x + ar1(0 + f | g), serial))),
  list(quote(glmmTMB::glmmTMB(y ~ x + ou(0 + at | g), serial))),
  list(quote(glmmTMB::glmmTMB(y ~ x + cs(0 + f | g), serial)), says = "structure cs"),
  list(quote(glmmTMB::glmmTMB(y ~ x + toep(0 + f | g), serial, dispformula = ~0)), says = "structure toep"),
  list(quote(glmmTMB::glmmTMB(y ~ x + exp(0 + at | g), serial)), says = "structure exp"),
  list(quote(glmmTMB::glmmTMB(count ~ mined * spp + (1 | site), glmmTMB::Salamanders,
    family = glmmTMB::nbinom2)), means = ~ mined | spp),
  list(quote(glmmTMB::glmmTMB(incidence / size ~ period + (1 | herd), lme4::cbpp,
    weights = size, family = binomial)), means = ~period),
  list(quote(nlme::lme(distance ~ age + Sex, nlme::Orthodont, random = ~ age | Subject)), means = ~Sex),
  list(quote(nlme::lme(y ~ x, three, random = ~ 1 | a / b))),
  list(quote(nlme::lme(distance ~ age, nlme::Orthodont, list(Subject = nlme::pdDiag(~age))))),
  list(quote(nlme::lme(y ~ x, serial, list(g = nlme::pdDiag(~ f - 1))))),
  list(quote(nlme::lme(distance ~ age + Sex, nlme::Orthodont, random = ~ 1 | Subject,
    correlation = nlme::corAR1(form = ~ 1 | Subject), weights = nlme::varIdent(form = ~ 1 | Sex)))),
  list(quote(nlme::gls(y ~ b, three)), means = ~b),
  list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corAR1(form = ~ t | g)))),
  list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corAR1(form = ~ t | g),
    weights = nlme::varIdent(form = ~ 1 | f)))),
  list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corCAR1(form = ~ t | g))), says = "corCAR1"),
  list(quote(nlme::gls(distance ~ age, nlme::Orthodont, weights = nlme::varPower(form = ~age))),
    says = "variance function"),
  list(quote(ordinal::clm(rating ~ temp * contact, data = ordinal::wine))),
  list(quote(ordinal::clm(rating ~ temp, scale = ~contact, data = ordinal::wine)), says = "scale"),
  list(quote(ordinal::clmm(rating ~ temp + contact + (1 | judge), data = ordinal::wine))),
  list(quote(ordinal::clmm(rating ~ temp + contact + (temp | judge), data = ordinal::wine))),
  list(quote(nnet::multinom(Sat ~ Infl + Cont, MASS::housing, weights = Freq, trace = FALSE))),
  list(quote(nnet::multinom(factor(am) ~ wt, mtcars, trace = FALSE)))
)

# Fits that are odd, and what becomes of them: documents with the messages `keys`, or one error that names the term.
odd_fits <- list(
  # No convergence
  list(quote(lme4::glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), lme4::cbpp, binomial,
    control = lme4::glmerControl(optimizer = "Nelder_Mead", optCtrl = list(maxfun = 5)))), keys = "kGLMM_C18"),
  list(quote(glmmTMB::glmmTMB(count ~ mined * spp + (1 | site), glmmTMB::Salamanders, family = glmmTMB::nbinom2,
    control = glmmTMB::glmmTMBControl(optCtrl = list(iter.max = 3, eval.max = 3)))), keys = "kGLMM_C18"),
  list(quote(glm(y ~ x, binomial, separated, control = list(maxit = 3))), keys = "kGLMM_C18"),
  list(quote(nnet::multinom(Sat ~ Infl, MASS::housing, weights = Freq, trace = FALSE, maxit = 3)), keys = "kGLMM_C18"),
  list(quote(ordinal::clm(rating ~ temp, data = ordinal::wine, control = list(maxIter = 1))), keys = "kGLMM_C18"),
  # Singular
  list(quote(lme4::lmer(Reaction ~ 1 + (1 | shuffled), sleep)), keys = "kGLMM_C8"),
  list(quote(lme4::lmer(Reaction ~ Days + (1 | Subject) + (1 | shuffled), sleep)), keys = "kGLMM_C10"),
  list(quote(glmmTMB::glmmTMB(Reaction ~ Days + (1 | shuffled), sleep)), keys = "kGLMM_C10"),
  list(quote(nlme::lme(Reaction ~ Days, sleep, random = ~ 1 | shuffled)), keys = c("kGLMM_C10", "kGLMM_C18")),
  # Aliased coefficients and empty cells
  list(quote(lm(y ~ x + I(2 * x) + a, three)), keys = "kGLMM_C27"),
  list(quote(lme4::lmer(y ~ x + I(2 * x) + (1 | a), three)), keys = "kGLMM_C27"),
  list(quote(ordinal::clm(o ~ x + I(2 * x), data = three)), keys = "kGLMM_C27"),
  list(quote(glmmTMB::glmmTMB(n ~ x + I(2 * x) + (1 | a), three, family = poisson)), error = "I\\(2 \\* x\\).*leave"),
  list(quote(nnet::multinom(o ~ x + I(2 * x), three, trace = FALSE)), error = "I\\(2 \\* x\\).*leave"),
  list(quote(lme4::lmer(y ~ a * b + (1 | c), holes))),
  list(quote(lme4::glmer(n ~ a * b + (1 | c), holes, poisson)), keys = "kGLMM_C9"),
  # A level without records
  list(quote(lm(y ~ a * empty, three))),
  list(quote(lme4::lmer(y ~ empty + (1 | a), three))),
  list(quote(nlme::lme(y ~ empty, three, random = ~ 1 | a))),
  list(quote(glmmTMB::glmmTMB(y ~ empty + (1 | a), three))),
  list(quote(nnet::multinom(a ~ empty, three, trace = FALSE)), error = "empty9"),
  # Offsets and weights
  list(quote(lm(y ~ a + offset(x), three)), says = "an offset"),
  list(quote(glmmTMB::glmmTMB(n ~ a + offset(x) + (1 | c), three, family = poisson)), says = "an offset",
    keys = "kGLMM_C10"),
  list(quote(ordinal::clm(o ~ a + offset(x), data = three)), says = "an offset"),
  list(quote(nnet::multinom(o ~ a + offset(cbind(0 * x, x, x)), three, trace = FALSE)), error = "offset\\(cbind"),
  list(quote(ordinal::clm(rating ~ temp, nominal = ~contact, data = ordinal::wine)), error = "contact.*without"),
  list(quote(lm(y ~ a, three, weights = x^2)), says = "weights"),
  list(quote(lme4::lmer(y ~ a + (1 | c), three, weights = n + 1)), says = "weights"),
  list(quote(ordinal::clm(o ~ a, data = three, weights = n + 1)), says = "weights"),
  list(quote(nnet::multinom(o ~ a, three, weights = x^2, trace = FALSE)), says = "weights"),
  list(quote(glmmTMB::glmmTMB(count ~ mined + (1 | site), glmmTMB::Salamanders, family = poisson,
    ziformula = ~mined)), says = "zero inflation"),
  list(quote(glmmTMB::glmmTMB(y ~ a, three, dispformula = ~b)), says = "the dispersion"),
  list(quote(glmmTMB::glmmTMB(n ~ a, three, family = glmmTMB::nbinom1)), error = "nbinom1.*Known are"),
  list(quote(glm(am ~ wt, binomial("cauchit"), mtcars)), error = "cauchit.*Known are"),
  # Random parts
  list(quote(lme4::lmer(y ~ x + (1 | a / b / half), three)), keys = "kGLMM_C10"),
  list(quote(ordinal::clmm(o ~ x + (1 | a) + (1 | c), data = three))),
  list(quote(lme4::lmer(y ~ x + (b || a), three)), keys = "kGLMM_C10"),
  list(quote(lme4::lmer(Reaction ~ poly(Days, 2) + (poly(Days, 2) | Subject), sleep))),
  # Responses
  list(quote(glm(factor(ifelse(am == 1, "manual", "auto")) ~ wt, binomial, mtcars))),
  list(quote(glm(o ~ x, binomial, three))),
  list(quote(lme4::glmer(y > 1 ~ x + (1 | a), three, binomial))),
  list(quote(nnet::multinom(ifelse(y > 1, "high", "low") ~ x, three, trace = FALSE))),
  list(quote(lm(cbind(y, n) ~ x, three)), error = "mlm"),
  # Names
  list(quote(lm(`my y` ~ `a b` * `c&d` + `back\`tick`, odd))),
  list(bquote(lm(y ~ .(gr) + `a b`, odd), list(gr = case_data$gr))),
  list(quote(lme4::lmer(`my y` ~ `a b` + `c&d` + (`c&d` | `g "q"`), odd)), keys = "kGLMM_C10"),
  list(quote(nnet::multinom(o ~ `a b` + `c&d`, odd, trace = FALSE))),
  # Terms made in the formula
  list(quote(glm(carb ~ log(hp) + factor(gear) * wt, poisson, mtcars)), says = "not tested"),
  list(quote(lme4::lmer(Reaction ~ poly(Days, 2) * late + (1 | Subject), sleep))),
  # Missing values
  list(quote(lm(Reaction ~ Days, miss, na.action = na.exclude))),
  list(quote(nlme::lme(Reaction ~ Days, miss, random = ~ 1 | Subject, na.action = na.exclude))),
  list(quote(glmmTMB::glmmTMB(Reaction ~ Days + (1 | Subject), miss, na.action = na.exclude))),
  list(quote(nnet::multinom(cut(Reaction, 3) ~ Days, miss, trace = FALSE)))
)

# Lines that `check` writes, the schemas' faults before them.
faults_of <- function(folder) {
  schemas <- Sys.getenv("HIERFIT_SCHEMAS")
  kinds <- if (nzchar(schemas) && nzchar(Sys.which("xmllint"))) c("pmml", "statxml")
  invalid <- unlist(lapply(kinds, function(kind) {
    files <- paste0(c(schemas, folder), "/model.", kind, c(".rng", ""))
    said <- lines_of("xmllint", c("--noout", "--relaxng", files))
    if (!is.null(attr(said, "status"))) said
  }))
  c(invalid, lines_of(program(), c("check", "--strict", folder)))
}

keys_of <- function(text) unique(regmatches(text, gregexpr("kGLMM_C[0-9]+", text))[[1L]])

expect_documents <- function(case, fit, name, is_plain) {
  folder <- tempfile("documents-")
  on.exit(unlink(folder, recursive = TRUE))
  expect_warning(said <- told(hf_documents(fit, folder, means = case$means, contrasts = "pairwise",
    adjust = "sidak-sequential")), NA)
  if (!is.null(case$says)) expect_match(said, case$says, all = FALSE, info = name)
  text <- paste(readLines(file.path(folder, "model.statxml"), encoding = "UTF-8"), collapse = "\n")
  tables <- tables_in(folder)
  expect_own_coefficients(tables, fit, name)
  expect_own_predictions(text, fit, name)
  if (!is_plain) return(expect_identical(keys_of(text), as.character(case$keys), info = name))
  expected <- if (is.null(case$remarks)) "nothing else" else case$remarks
  expect_identical(grep(expected, faults_of(folder), invert = TRUE, value = TRUE), character(), info = name)
  expect_own_covariances(tables, fit, name)
  if (!inherits(fit, c("multinom", "lmerMod"))) expect_own_tests(tables, fit, name)
  summary <- tables[["CovarianceParametersSummary-1"]]$Value
  expect_identical(sum(summary[1:2]), as.numeric(own_count(fit)), info = name)
  if (!is.null(case$means)) expect_own_means(tables, fit, case$means, name)
}

test_that("documents are valid and hold the fitter's own figures and messages, or an error names the term", {
  skip_if_not_installed("jsonlite")
  fits <- c(plain_fits, odd_fits)
  for (i in seq_along(fits)) {
    call <- fits[[i]][[1L]]
    name <- paste(deparse(call), collapse = " ")
    if (!all(vapply(packages_of(call), requireNamespace, NA, quietly = TRUE))) next
    fit <- fitted_case(call)
    error <- fits[[i]]$error
    if (is.null(error)) suppressWarnings(expect_documents(fits[[i]], fit, name, i <= length(plain_fits)))
    else expect_error(suppressMessages(written(fit)), error, info = name)
  }
})

test_that("effects beside an empty cell are tested by what the data tell, to all digits", {
  holes <- case_data$holes
  fit <- lm(y ~ a * b, holes)
  effects <- chain(fit)[["FixedEffects-1"]]
  whole <- anova(lm(y ~ a + b, holes), fit)
  expect_figures(effects[4, c("F", "df1")], whole[2, c("F", "Df")])
  expected <- as.data.frame(emmeans::joint_tests(fit))[1:3, ]
  expect_figures(effects[["Sig."]][-1], expected$p.value)
  # The statistic and its degrees of freedom belong to the significance.
  expect_figures(pf(effects$F, effects$df1, effects$df2, lower.tail = FALSE), effects[["Sig."]], 1e-9)
})
