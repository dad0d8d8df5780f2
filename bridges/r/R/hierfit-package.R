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
#' variance of `lm`, `glm` and a `glmer` of the gamma family, errors of a `glmer` fit without
#' derivatives, of an `lme` or `gls` fit whose `apVar` cannot be computed, and criteria of
#' quasi-likelihood.
#'
#' @section Covariance structures:
#' | fit | named in the documents | given by its parameters, without a name |
#' |---|---|---|
#' | lmer, glmer, clmm | unstructured; diagonal for terms of one column each | |
#' | glmmTMB | `us`, `diag`, `ar1`, `ou` at consecutive times | `cs`, `toep`; the matrix of all others |
#' | lme | `pdSymm`, `pdLogChol`, `pdDiag`, `pdIdent`, `pdCompSymm` | the matrix of all others |
#' | residual of lme, gls | `corAR1`, `corCompSymm`, `corSymm`, `corARMA` of orders 1 and 1 | all others |
#'
#' Strata of `varIdent` are groups of the residual, or variances of an unstructured matrix where they
#' are the places of `corSymm`. The number of covariance parameters is that of the fit, which may be
#' less than that of the rows shown.
#'
#' @section Targets of several categories:
#' For `clm`, `clmm` and `multinom`, means are probabilities of the target's categories: a block has
#' the target as one of its factors, such as `~ rating | temp`, or `~ temp | rating` to compare the
#' levels of `temp` within each category. There is no grand mean of them.
#'
#' @section What is told:
#' An offset, weights, zero inflation, models of the dispersion or scale and variance functions have
#' no place in the documents: a message tells, and figures take account of them. A singular fit, no
#' convergence, a Hessian that is not positive definite, and effects that are not estimable are
#' messages in the documents. `lme` keeps no record of whether it converged. Coefficients that
#' `glmmTMB` and `multinom` estimate although they are aliased are an error.
#'
#' @keywords internal
#' @aliases hierfit
"_PACKAGE"
