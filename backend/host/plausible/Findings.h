#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/xml/Document.h"

namespace hierfit::plausible {

/// What is wrong with figures. The order is that in which they are told.
enum class Kind : std::uint8_t {
    Bounds,            ///< the lower bound of an interval is above the upper one
    Interval,          ///< an interval does not hold its estimate
    Significance,      ///< a p value is not what its statistic gives
    Probability,       ///< a p value or a share is outside [0, 1]
    Variance,          ///< a variance is negative
    Error,             ///< a standard error is negative
    Correlation,       ///< a correlation is outside [-1, 1]
    Symmetry,          ///< a covariance matrix is not symmetric
    Statistic,         ///< t is not estimate / standard error, or F is negative
    Exponent,          ///< an exponentiated figure is not exp of its figure
    Mean,              ///< a mean is outside the range that distribution and link leave it
    Adjusted,          ///< an adjusted p value is smaller than the unadjusted one
    DegreesOfFreedom,  ///< degrees of freedom are negative
    Count,             ///< a count is negative
    Level,             ///< a level of confidence is outside (0, 1)
    Share,             ///< a share of records is not what its table gives
    // Below here: not told unless asked for.
    Fraction,      ///< a count is not whole
    Difference,    ///< a contrast is not the difference of its means
    Width,         ///< an interval is not one of the level that it is said to have
    MeanBound,     ///< a bound of a mean is outside its range
    Overadjusted,  ///< an adjusted p value is larger than the adjustment can make it
    Parameter,     ///< a parameter of the target's distribution has an impossible value
    Plot,          ///< a value or frequency behind a chart is impossible
};

/// What a finding is about: an element, and in a table by columns one of its rows.
struct Item {
    static constexpr std::size_t kWhole = static_cast<std::size_t>(-1);

    xml::Document::Node fNode;
    std::string_view fName;     ///< by which the document calls it; may be empty
    std::size_t fRow = kWhole;  ///< from 0
};

/// One line about the document.
struct Finding {
    std::string fText;
    xml::Position fPosition;
};

/// Collects what rules find, five of a kind; of the others it counts how many there are.
class Findings {
  public:
    /// Keeps the kinds behind `Share` only when all are wanted. The document must outlive this.
    Findings(const xml::Document& document, bool wantsAll) : fDocument(document), fWantsAll(wantsAll) {}

    bool Wants(Kind kind) const { return fWantsAll || kind <= Kind::Share; }

    void Add(Kind kind, const Item& item, std::string_view text);

    /// The lines by kind and, within one, in the order of the document.
    std::vector<Finding> Take();

  private:
    struct OfKind {
        std::vector<Finding> fvFirst;
        std::size_t fCount = 0;
        xml::Position fNext{1, 1};  ///< of the first one that is left out
    };

    std::string Describe(const Item& item) const;

    const xml::Document& fDocument;
    bool fWantsAll;
    std::vector<OfKind> fvKinds;
};

}  // namespace hierfit::plausible
