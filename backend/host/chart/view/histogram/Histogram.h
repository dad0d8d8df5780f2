#pragma once

#include <optional>
#include <string>

#include "host/chart/specification/Specification.h"
#include "host/chart/view/ShownData.h"
#include "host/chart/view/histogram/Bins.h"
#include "host/chart/view/histogram/DistributionCurve.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// Frequencies in bins with the distribution of a model over them. It owns all that it holds.
struct Histogram {
    Bins fBins;
    DistributionCurve fCurve;
    std::string fLabel;       ///< of what is in the bins
    std::string fCountLabel;  ///< of their heights

    /// The end of the axis of counts. A curve with a pole does not flatten the bars: it may be cut.
    double Top() const;

    /// The ends of the axis of bins. A single bin leaves as much room on either side.
    double Low() const;
    double High() const;

    /// A number to digits enough for its place along the bars.
    double Place(double number) const;

    /// The range of a bin in words, or its one value.
    std::string RangeInWords(const Bin& bin) const;
};

/// Reads the bars and the curve of a specification. Without a field type the target counts as continuous.
Histogram ReadHistogram(const Specification& specification, const ShownData& data, std::optional<int> fieldType);

/// What the histogram shows, in one sentence or two.
std::string HistogramSentence(const Histogram& histogram);

/// A row for each bin.
document::ChartTable ShowBins(const Histogram& histogram);

}  // namespace hierfit::chart
