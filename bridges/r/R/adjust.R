# Adjustments of p values and limits for several contrasts, one step for each rank.

adjustments <- c("none", "bonferroni-sequential", "sidak-sequential")

# The level at which the contrast of each rank is judged; contrasts with the same p share the
# strictest one.
step_levels <- function(p, adjust, alpha) {
  if (adjust == "none") return(rep(alpha, length(p)))
  left <- sum(!is.na(p)) - rank(signif(p, 10), ties.method = "min", na.last = "keep") + 1
  if (adjust == "bonferroni-sequential") alpha / left else 1 - (1 - alpha)^(1 / left)
}

adjust_p <- function(p, adjust) {
  if (adjust == "none") return(p)
  known <- which(!is.na(p))
  ordered <- known[order(p[known])]
  left <- length(ordered) - seq_along(ordered) + 1
  single <- if (adjust == "bonferroni-sequential") pmin(1, left * p[ordered])
    else -expm1(left * log1p(-p[ordered]))
  p[ordered] <- cummax(single)
  p
}
