#include "host/chart/picture/histogram/Distribution.h"

#include <array>
#include <cmath>
#include <numbers>

namespace hierfit::chart {

namespace {

/// The logarithm of the gamma function. The plain function of the C library also writes a global sign.
double LogGamma(double x) {
    int sign = 0;
    return ::lgamma_r(x, &sign);
}

double LogNormal(double x, double mean, double deviation) {
    const double z = (x - mean) / deviation;
    return -0.5 * z * z - std::log(deviation) - 0.5 * std::log(2 * std::numbers::pi);
}

/// A factor of power 0 is 1 even at the ends, where its logarithm is not finite.
double LogPower(double logBase, double power) { return power == 0 ? 0 : power * logBase; }

double LogGammaDensity(double x, double shape, double rate) {
    return shape * std::log(rate) + LogPower(std::log(x), shape - 1) - rate * x - LogGamma(shape);
}

double LogInverseGaussian(double x, double mean, double shape) {
    const double distance = (x - mean) / mean;
    return 0.5 * (std::log(shape) - std::log(2 * std::numbers::pi) - 3 * std::log(x) - shape * distance * distance / x);
}

double LogNegativeBinomial(double count, double r, double p) {
    return LogGamma(count + r) - LogGamma(r) - LogGamma(count + 1) + r * std::log(p) + LogPower(std::log1p(-p), count);
}

double LogPoisson(double count, double mean) { return count * std::log(mean) - mean - LogGamma(count + 1); }

}  // namespace

std::optional<Distribution> Distribution::Make(std::string_view name, std::optional<double> first,
                                               std::optional<double> second) {
    static constexpr std::array<std::string_view, 5> kNames = {"normal", "gamma", "gaussianinverse", "binomialnegative",
                                                               "poisson"};
    for (std::size_t kind = 0; kind < kNames.size(); ++kind) {
        if (kNames[kind] != name) continue;
        const double spare = static_cast<Kind>(kind) == Kind::Poisson ? 0 : std::nan("");
        const Distribution made(static_cast<Kind>(kind), first.value_or(std::nan("")), second.value_or(spare));
        return made.IsInRange() ? std::optional(made) : std::nullopt;
    }
    return std::nullopt;
}

bool Distribution::IsInRange() const {
    if (!std::isfinite(fFirst) || !std::isfinite(fSecond)) return false;
    switch (fKind) {
        case Kind::Normal:
            return fSecond > 0;
        case Kind::Gamma:
        case Kind::InverseGaussian:
            return fFirst > 0 && fSecond > 0;
        case Kind::NegativeBinomial:
            return fFirst > 0 && fSecond > 0 && fSecond <= 1;
        case Kind::Poisson:
            return fFirst > 0;
    }
    return false;
}

bool Distribution::HasValuesAt(double x) const {
    switch (fKind) {
        case Kind::Normal:
            return true;
        case Kind::Gamma:
            return x >= 0;
        case Kind::InverseGaussian:
            return x > 0;
        case Kind::NegativeBinomial:
        case Kind::Poisson:
            return x >= 0 && x == std::floor(x);
    }
    return false;
}

double Distribution::LogDensity(double x) const {
    switch (fKind) {
        case Kind::Normal:
            return LogNormal(x, fFirst, fSecond);
        case Kind::Gamma:
            return LogGammaDensity(x, fFirst, fSecond);
        case Kind::InverseGaussian:
            return LogInverseGaussian(x, fFirst, fSecond);
        case Kind::NegativeBinomial:
            return LogNegativeBinomial(x, fFirst, fSecond);
        case Kind::Poisson:
            return LogPoisson(x, fFirst);
    }
    return -HUGE_VAL;
}

double Distribution::Density(double x) const { return HasValuesAt(x) ? std::exp(LogDensity(x)) : 0; }

}  // namespace hierfit::chart
