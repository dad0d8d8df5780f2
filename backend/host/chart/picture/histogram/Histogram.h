#pragma once

#include <optional>
#include <string>

#include "host/chart/picture/ShownData.h"
#include "host/chart/picture/histogram/Bins.h"
#include "host/chart/picture/histogram/DistributionCurve.h"
#include "host/chart/specification/Specification.h"
#include "host/document/Picture.h"

namespace hierfit::chart {

/// Frequencies in bins with the distribution of a model over them. It owns all that it holds.
struct Histogram {
    Bins fBins;
    DistributionCurve fCurve;
    std::string fLabel;       ///< of what is in the bins
    std::string fCountLabel;  ///< of their heights
};

/// Reads the bars and the curve of a specification. Without a field type the target counts as continuous.
Histogram ReadHistogram(const Specification& specification, const ShownData& data, std::optional<int> fieldType);

/// The picture of it. Both axes have limits: a single bin leaves as much room on either side, and a curve with a pole
/// does not flatten the bars, but may be cut.
document::HistogramPicture ShowHistogram(const Histogram& histogram);

/// What the histogram shows, in one sentence or two.
std::string HistogramSentence(const Histogram& histogram);

/// A row for each bin.
document::ChartTable ShowBins(const Histogram& histogram);

}  // namespace hierfit::chart
