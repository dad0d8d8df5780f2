#' Reports of fitted models
#'
#' [hf_documents()] writes a fitted model as the two documents that the program hierfit reads,
#' [hf_report()] runs the program on them, and [hf_tables()] gives its tables as data frames.
#'
#' @section Fits:
#' `lmer`, `glmer` and `glmer.nb` (lme4, lmerTest), `glmmTMB`, `lme` and `gls` (nlme), `clmm` and
#' `clm` (ordinal), `multinom` (nnet), `glm`, `lm`. Their packages are needed only for their own
#' fits; emmeans for means and for the tests of all but `lmer`, `lme` and `gls`; jsonlite for
#' tables.
#'
#' @section Where figures come from:
#' | fit | tests of effects | errors of covariance parameters |
#' |---|---|---|
#' | lmer | `anova(type = 3)` of lmerTest | its `vcov_varpar`, delta method |
#' | glmer, glmer.nb | as `emmeans::joint_tests` | Hessian of the fit |
#' | glmmTMB | as `joint_tests` | `vcov(full = TRUE)` |
#' | lme, gls | `anova(type = "marginal")` | `apVar` |
#' | clmm, clm, multinom, glm, lm | as `joint_tests` | `vcov` |
#'
#' Tests made by emmeans are those of `joint_tests()` and `test(joint = TRUE)`, without their
#' rounding of F and degrees of freedom. Limits of a variance are set on the log scale, those of a
#' correlation on Fisher's. What the fitter does not give stays missing: the error of the residual
#' variance of `lm` and `glm`, errors of a `glmer` fit without derivatives, of structures other than
#' diagonal and unstructured.
#'
#' @section What is told:
#' An offset, weights, zero inflation, models of the dispersion or scale and variance functions have
#' no place in the documents: a message tells, and figures take account of them. A singular fit, no
#' convergence, a Hessian that is not positive definite, and effects that are not estimable are
#' messages in the documents.
#'
#' @keywords internal
#' @aliases hierfit
"_PACKAGE"
