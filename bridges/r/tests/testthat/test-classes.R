skip_if_not_installed("emmeans")

# Each class of fit with what it can hold. `remarks` are those of `hierfit check --strict`.
no_likelihood <- "^-2 log likelihood and information criteria in table .* are missing: .*quasi-likelihood"
classes <- list(
  aov = list(quote(aov(breaks ~ wool * tension, warpbreaks)), means = ~ tension | wool),
  `lm of logicals and texts` = list(quote(lm(mpg ~ late + size, transform(mtcars, late = am == 1,
    size = ifelse(gear > 3, "more", "few")))), means = ~ late),
  `lm without an intercept` = list(quote(lm(breaks ~ 0 + wool + tension, warpbreaks)), means = ~tension),
  `lm of codings` = list(quote(lm(breaks ~ wool * tension, warpbreaks,
    contrasts = list(wool = "contr.sum", tension = "contr.helmert"))), means = ~ tension | wool),
  `glm probit` = list(quote(glm(case ~ spontaneous, binomial("probit"), infert))),
  `glm poisson` = list(quote(glm(count ~ spray, poisson, InsectSprays)), means = ~spray),
  `glm trials` = list(quote(glm(cbind(ncases, ncontrols) ~ agegp, binomial, esoph)), means = ~agegp),
  `glm gamma` = list(quote(glm(breaks ~ wool + tension, Gamma("log"), warpbreaks)), means = ~tension),
  `glm inverse gaussian` = list(quote(glm(breaks ~ wool, inverse.gaussian, warpbreaks))),
  `glm quasi` = list(quote(glm(breaks ~ wool, quasipoisson, warpbreaks)), remarks = no_likelihood),
  glm.nb = list(quote(MASS::glm.nb(Days ~ Sex + Age, MASS::quine)), means = ~Age),
  lmer = list(quote(lme4::lmer(y ~ b * c + (1 | a), three)), means = ~ c | b),
  `lmer by ML` = list(quote(lme4::lmer(Reaction ~ Days + (1 | Subject), sleep, REML = FALSE))),
  `lmer of lmerTest` = list(quote(lmerTest::lmer(Reaction ~ late + (1 | Subject), sleep)), means = ~late),
  `lmer slopes apart` = list(quote(lme4::lmer(Reaction ~ Days + (Days || Subject), sleep))),
  `lmer powers` = list(quote(lme4::lmer(Reaction ~ Days + I(Days^2) + (I(Days^2) || Subject), sleep))),
  `lmer crossed` = list(quote(lme4::lmer(y ~ x + (1 | a) + (1 | b) + (1 | c), three))),
  glmer = list(quote(lme4::glmer(n ~ b + (1 | a), three, poisson)), means = ~b),
  `glmer trials` = list(quote(lme4::glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), lme4::cbpp,
    binomial)), means = ~period),
  `glmer slopes` = list(quote(lme4::glmer(n ~ x + (x | a), three, poisson))),
  `glmer gamma` = list(quote(lme4::glmer(Reaction ~ Days + (1 | Subject), sleep, Gamma("log")))),
  glmer.nb = list(quote(lme4::glmer.nb(Days ~ Sex + Age + (1 | Lrn), MASS::quine)), means = ~Age),
  glmmTMB = list(quote(glmmTMB::glmmTMB(Reaction ~ Days + (Days | Subject), sleep))),
  `glmmTMB of levels` = list(quote(glmmTMB::glmmTMB(y ~ x + diag(0 + f | g), serial))),
  `glmmTMB ar1` = list(quote(glmmTMB::glmmTMB(y ~ x + ar1(0 + f | g), serial))),
  `glmmTMB ou` = list(quote(glmmTMB::glmmTMB(y ~ x + ou(0 + at | g), serial))),
  `glmmTMB cs` = list(quote(glmmTMB::glmmTMB(y ~ x + cs(0 + f | g), serial)), says = "structure cs"),
  `glmmTMB toep` = list(quote(glmmTMB::glmmTMB(y ~ x + toep(0 + f | g), serial, dispformula = ~0)),
    says = "structure toep"),
  `glmmTMB exp` = list(quote(glmmTMB::glmmTMB(y ~ x + exp(0 + at | g), serial)), says = "structure exp"),
  `glmmTMB without` = list(quote(glmmTMB::glmmTMB(n ~ b, three, family = poisson)), means = ~b),
  `glmmTMB nbinom2` = list(quote(glmmTMB::glmmTMB(count ~ mined * spp + (1 | site), glmmTMB::Salamanders,
    family = glmmTMB::nbinom2)), means = ~ mined | spp),
  `glmmTMB of proportions` = list(quote(glmmTMB::glmmTMB(incidence / size ~ period + (1 | herd), lme4::cbpp,
    weights = size, family = binomial)), means = ~period),
  lme = list(quote(nlme::lme(distance ~ age + Sex, nlme::Orthodont, random = ~ age | Subject)), means = ~Sex),
  `lme nested` = list(quote(nlme::lme(y ~ x, three, random = ~ 1 | a / b))),
  `lme apart` = list(quote(nlme::lme(distance ~ age, nlme::Orthodont, list(Subject = nlme::pdDiag(~age))))),
  `lme identity` = list(quote(nlme::lme(y ~ x, three, list(a = nlme::pdIdent(~ b - 1))))),
  `lme levels` = list(quote(nlme::lme(y ~ x, serial, list(g = nlme::pdDiag(~ f - 1))))),
  `lme symmetric` = list(quote(nlme::lme(y ~ x, three, list(a = nlme::pdCompSymm(~ b - 1))))),
  `lme correlated` = list(quote(nlme::lme(distance ~ age + Sex, nlme::Orthodont, random = ~ 1 | Subject,
    correlation = nlme::corAR1(form = ~ 1 | Subject), weights = nlme::varIdent(form = ~ 1 | Sex)))),
  gls = list(quote(nlme::gls(y ~ b, three)), means = ~b),
  `gls ar1` = list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corAR1(form = ~ t | g)))),
  `gls symmetric` = list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corSymm(form = ~ 1 | g)))),
  `gls unstructured` = list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corSymm(form = ~ 1 | g),
    weights = nlme::varIdent(form = ~ 1 | f)))),
  `gls ar1 of variances` = list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corAR1(form = ~ t | g),
    weights = nlme::varIdent(form = ~ 1 | f)))),
  `gls by time` = list(quote(nlme::gls(y ~ x, serial, correlation = nlme::corCAR1(form = ~ t | g))),
    says = "corCAR1"),
  `gls power` = list(quote(nlme::gls(distance ~ age, nlme::Orthodont, weights = nlme::varPower(form = ~age))),
    says = "variance function"),
  clm = list(quote(ordinal::clm(rating ~ temp * contact, data = ordinal::wine))),
  `clm of a scale` = list(quote(ordinal::clm(rating ~ temp, scale = ~contact, data = ordinal::wine)),
    says = "scale"),
  clmm = list(quote(ordinal::clmm(rating ~ temp + contact + (1 | judge), data = ordinal::wine))),
  `clmm slopes` = list(quote(ordinal::clmm(rating ~ temp + contact + (temp | judge), data = ordinal::wine))),
  multinom = list(quote(nnet::multinom(Sat ~ Infl + Cont, MASS::housing, weights = Freq, trace = FALSE))),
  `multinom of two` = list(quote(nnet::multinom(factor(am) ~ wt, mtcars, trace = FALSE)))
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

test_that("documents of each class are valid, complete, and hold the fitter's own figures", {
  for (name in names(classes)) {
    case <- classes[[name]]
    if (!all(vapply(packages_of(case[[1L]]), requireNamespace, NA, quietly = TRUE))) next
    fit <- fitted_case(case[[1L]])
    folder <- tempfile("documents-")
    said <- told(hf_documents(fit, folder, means = case$means, contrasts = "pairwise", adjust = "sidak-sequential"))
    if (!is.null(case$says)) expect_match(said, case$says, all = FALSE, info = name)
    faults <- faults_of(folder)
    expected <- if (is.null(case$remarks)) "nothing else" else case$remarks
    expect_identical(grep(expected, faults, invert = TRUE, value = TRUE), character(), info = name)

    tables <- suppressMessages(chain(fit, means = case$means, contrasts = "pairwise", adjust = "sidak-sequential"))
    expect_own_coefficients(tables, fit, name)
    expect_own_covariances(tables, fit, name)
    if (!inherits(fit, "multinom")) expect_own_tests(tables, fit, name)
    summary <- tables[["CovarianceParametersSummary-1"]]$Value
    expect_identical(sum(summary[1:2]), as.numeric(own_count(fit)), info = name)
    if (!is.null(case$means)) expect_own_means(tables, fit, case$means, name)
  }
})
