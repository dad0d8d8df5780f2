skip_if_not_installed("emmeans")

# Fits that are odd, and what becomes of them: a document with the fitter's own figures and the
# messages `keys`, or one error that names the term. `says` is what the user is told.
odd_fits <- list(
  # No convergence
  list(quote(lme4::glmer(cbind(incidence, size - incidence) ~ period + (1 | herd), lme4::cbpp, binomial,
    control = lme4::glmerControl(optimizer = "Nelder_Mead", optCtrl = list(maxfun = 5)))), keys = "kGLMM_C18"),
  list(quote(glmmTMB::glmmTMB(count ~ mined * spp + (1 | site), glmmTMB::Salamanders, family = glmmTMB::nbinom2,
    control = glmmTMB::glmmTMBControl(optCtrl = list(iter.max = 3, eval.max = 3)))), keys = "kGLMM_C18"),
  list(quote(glm(y ~ x, binomial, separated, control = list(maxit = 3))), keys = "kGLMM_C18"),
  list(quote(nnet::multinom(Sat ~ Infl, MASS::housing, weights = Freq, trace = FALSE, maxit = 3)),
    keys = "kGLMM_C18"),
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
  list(quote(glmmTMB::glmmTMB(n ~ x + I(2 * x) + (1 | a), three, family = poisson)),
    error = "I\\(2 \\* x\\).*leave"),
  list(quote(nnet::multinom(o ~ x + I(2 * x), three, trace = FALSE)), error = "I\\(2 \\* x\\).*leave"),
  list(quote(lm(y ~ a * b, holes))),
  list(quote(lme4::lmer(y ~ a * b + (1 | c), holes))),
  list(quote(lme4::glmer(n ~ a * b + (1 | c), holes, poisson)), keys = "kGLMM_C9"),
  # A level without records
  list(quote(lm(y ~ a * empty, three))),
  list(quote(lme4::lmer(y ~ empty + (1 | a), three))),
  list(quote(nlme::lme(y ~ empty, three, random = ~ 1 | a))),
  list(quote(glmmTMB::glmmTMB(y ~ empty + (1 | a), three))),
  list(quote(ordinal::clm(o ~ empty, data = three))),
  list(quote(nnet::multinom(a ~ empty, three, trace = FALSE)), error = "empty9"),
  # Offsets and weights
  list(quote(lm(y ~ a + offset(x), three)), says = "an offset"),
  list(quote(glm(n ~ a, poisson, three, offset = x)), says = "an offset"),
  list(quote(lme4::lmer(y ~ a + offset(x) + (1 | c), three)), says = "an offset"),
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
  list(quote(lme4::lmer(y ~ x + (x:c | a), three)), keys = "kGLMM_C10"),
  list(quote(lme4::lmer(Reaction ~ poly(Days, 2) + (poly(Days, 2) | Subject), sleep))),
  # Responses
  list(quote(glm(am == 1 ~ wt, binomial, mtcars))),
  list(quote(glm(factor(ifelse(am == 1, "manual", "auto")) ~ wt, binomial, mtcars))),
  list(quote(glm(o ~ x, binomial, three))),
  list(quote(lme4::glmer(y > 1 ~ x + (1 | a), three, binomial))),
  list(quote(nnet::multinom(ifelse(y > 1, "high", "low") ~ x, three, trace = FALSE))),
  list(quote(lm(cbind(y, n) ~ x, three)), error = "mlm"),
  # Names
  list(quote(lm(`my y` ~ `a b` * `c&d` + `back\`tick`, odd))),
  list(bquote(lm(y ~ .(gr) + `a b`, odd), list(gr = case_data$gr))),
  list(quote(lme4::lmer(`my y` ~ `a b` + `c&d` + (`c&d` | `g "q"`), odd)), keys = "kGLMM_C10"),
  list(quote(lme4::glmer(n ~ `a b` + (1 | `g "q"` / `back\`tick`), odd, poisson)), keys = "kGLMM_C9"),
  list(quote(ordinal::clm(o ~ `a b` + `c&d`, data = odd))),
  list(quote(nnet::multinom(o ~ `a b` + `c&d`, odd, trace = FALSE))),
  # Terms made in the formula
  list(quote(glm(carb ~ log(hp) + factor(gear) * wt, poisson, mtcars)), says = "not tested"),
  list(quote(lme4::lmer(Reaction ~ poly(Days, 2) * late + (1 | Subject), sleep))),
  list(quote(ordinal::clm(rating ~ factor(judge) + temp, data = ordinal::wine))),
  # Missing values
  list(quote(lm(Reaction ~ Days, miss, na.action = na.exclude))),
  list(quote(lme4::lmer(Reaction ~ Days + (1 | Subject), miss, na.action = na.exclude))),
  list(quote(nlme::lme(Reaction ~ Days, miss, random = ~ 1 | Subject, na.action = na.exclude))),
  list(quote(nlme::gls(Reaction ~ Days, miss, na.action = na.exclude))),
  list(quote(glmmTMB::glmmTMB(Reaction ~ Days + (1 | Subject), miss, na.action = na.exclude))),
  list(quote(nnet::multinom(cut(Reaction, 3) ~ Days, miss, trace = FALSE)))
)

keys_of <- function(text) unique(regmatches(text, gregexpr("kGLMM_C[0-9]+", text))[[1L]])

test_that("an odd fit gives its own figures and messages, or one error that names the term", {
  for (case in odd_fits) {
    name <- paste(deparse(case[[1L]]), collapse = " ")
    if (!all(vapply(packages_of(case[[1L]]), requireNamespace, NA, quietly = TRUE))) next
    fit <- fitted_case(case[[1L]])
    if (!is.null(case$error)) {
      expect_error(suppressMessages(written(fit)), case$error, info = name)
      next
    }
    expect_warning(said <- told(text <- written(fit)), NA)
    if (!is.null(case$says)) expect_match(said, case$says, all = FALSE, info = name)
    expect_identical(keys_of(text), if (is.null(case$keys)) character() else case$keys, info = name)
    tables <- suppressMessages(chain(fit))
    suppressWarnings({
      expect_own_coefficients(tables, fit, name)
      expect_own_predictions(text, fit, name)
    })
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
