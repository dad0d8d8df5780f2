#pragma once

#include <optional>
#include <string_view>

namespace hierfit::chart {

/// A distribution with its parameters, for the curve over a histogram. The parameters are always finite and in range.
///
/// | name             | first        | second         | on               |
/// |------------------|--------------|----------------|------------------|
/// | normal           | mean         | deviation > 0  | all numbers      |
/// | gamma            | shape > 0    | rate > 0       | x >= 0           |
/// | gaussianinverse  | mean > 0     | shape > 0      | x > 0            |
/// | binomialnegative | r > 0        | 0 < p <= 1     | 0, 1, 2, ...     |
/// | poisson          | mean > 0     | none           | 0, 1, 2, ...     |
///
/// Of the negative binomial, r successes of probability p are waited for and the failures before them counted, r being
/// any positive number. Formulas: N. L. Johnson, S. Kotz, N. Balakrishnan, Continuous Univariate Distributions 1, 2nd
/// ed. 1994, chapters 13 (normal), 15 (inverse Gaussian), 17 (gamma); N. L. Johnson, A. W. Kemp, S. Kotz, Univariate
/// Discrete Distributions, 3rd ed. 2005, chapters 4 (Poisson), 5 (negative binomial).
class Distribution {
  public:
    /// Nothing for a name that is not in the table, and for a parameter that is missing or out of its range.
    static std::optional<Distribution> Make(std::string_view name, std::optional<double> first,
                                            std::optional<double> second);

    /// Whether it is one of counts: probabilities of whole numbers take the place of a density.
    bool IsOfCounts() const { return fKind >= Kind::NegativeBinomial; }

    /// The density, or the probability of the count. 0 where the distribution has no values; infinite at the pole of
    /// a gamma distribution.
    double Density(double x) const;

  private:
    enum class Kind { Normal, Gamma, InverseGaussian, NegativeBinomial, Poisson };

    Distribution(Kind kind, double first, double second) : fKind(kind), fFirst(first), fSecond(second) {}

    bool IsInRange() const;
    bool HasValuesAt(double x) const;
    double LogDensity(double x) const;

    Kind fKind;
    double fFirst;
    double fSecond;
};

}  // namespace hierfit::chart
