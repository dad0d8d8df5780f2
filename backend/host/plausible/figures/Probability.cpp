#include "host/plausible/figures/Probability.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace hierfit::plausible {

namespace {

constexpr double kLargestDf = 1e7;
constexpr double kNormalFrom = 1e6;  ///< degrees of freedom from which on t is normal to six decimals and more

/// std::lgamma writes a variable that all threads share.
double LogGamma(double x) {
    int sign = 0;
    return lgamma_r(x, &sign);
}

/// The continued fraction of the incomplete beta function (NIST Digital Library of Mathematical Functions, 8.17.22),
/// evaluated from the front: W. J. Lentz, Generating Bessel functions in Mie scattering calculations using continued
/// fractions, Applied Optics 15 (1976) 668-671, with the guard against zeros of I. J. Thompson and A. R. Barnett,
/// Coulomb and Bessel functions of complex arguments and order, Journal of Computational Physics 64 (1986) 490-509.
std::optional<double> BetaFraction(double a, double b, double x) {
    constexpr double kTiny = 1e-300;
    constexpr double kPrecision = 1e-14;
    constexpr int kMostTerms = 20000;
    const auto guarded = [](double value) { return std::abs(value) < kTiny ? kTiny : value; };
    double c = 1;
    double d = 1 / guarded(1 - (a + b) * x / (a + 1));
    double fraction = d;
    for (int m = 1; m <= kMostTerms; ++m) {
        const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
        d = 1 / guarded(1 + even * d);
        c = guarded(1 + even / c);
        fraction *= c * d;
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
        d = 1 / guarded(1 + odd * d);
        c = guarded(1 + odd / c);
        fraction *= c * d;
        if (std::abs(c * d - 1) < kPrecision) return fraction;
    }
    return std::nullopt;
}

/// The regularized incomplete beta function I_x(a, b), with y = 1 - x.
std::optional<double> IncompleteBeta(double a, double b, double x, double y) {
    if (!(x > 0)) return 0;
    if (!(y > 0)) return 1;
    const bool isSwapped = x > (a + 1) / (a + b + 2);  // the fraction of the other tail converges faster
    const double front = std::exp(LogGamma(a + b) - LogGamma(a) - LogGamma(b) + a * std::log(x) + b * std::log(y));
    const std::optional<double> fraction = isSwapped ? BetaFraction(b, a, y) : BetaFraction(a, b, x);
    if (!fraction) return std::nullopt;
    return std::clamp(isSwapped ? 1 - front * *fraction / b : front * *fraction / a, 0.0, 1.0);
}

/// I_x(a, b) for x = u / (u + v).
std::optional<double> IncompleteBetaOf(double a, double b, double u, double v) {
    if (std::isinf(v)) return 0;
    return IncompleteBeta(a, b, u / (u + v), v / (u + v));
}

}  // namespace

double TwoSidedNormal(double z) { return std::erfc(std::abs(z) / std::numbers::sqrt2); }

std::optional<double> TwoSidedT(double t, double df) {
    if (!(df > 0)) return std::nullopt;
    if (df >= kNormalFrom) return TwoSidedNormal(t);
    return IncompleteBetaOf(df / 2, 0.5, df, t * t);
}

std::optional<double> UpperF(double f, double df1, double df2) {
    if (!(f >= 0) || !(df1 > 0) || !(df2 > 0)) return std::nullopt;
    df1 = std::min(df1, kLargestDf);
    df2 = std::min(df2, kLargestDf);
    return IncompleteBetaOf(df2 / 2, df1 / 2, df2, df1 * f);
}

}  // namespace hierfit::plausible
