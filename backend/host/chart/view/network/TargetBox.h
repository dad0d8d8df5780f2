#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/chart/view/histogram/Histogram.h"
#include "host/chart/view/network/Diagram.h"
#include "host/chart/view/parts/Json.h"

namespace hierfit::chart {

/// The box that all links of a diagram lead to, in pixels: the target's name and below it the histogram, if any.
struct TargetBox {
    double fLeft = 0;
    double fRight = 0;
    double fTop = 0;
    std::vector<std::string> fvTitle;
    bool fHasHistogram = false;

    double Height() const;
    double HistogramTop() const;
    double HistogramBottom() const;
};

/// A box at the top, between two pixels along x.
TargetBox MakeTargetBox(std::string_view name, bool hasHistogram, double left, double right);

/// The box's layers and, as the last, those of the histogram. The height is that of the whole view.
std::vector<Json> TargetBoxLayers(const TargetBox& box, const DiagramTarget& target, const Histogram& histogram,
                                  double height);

}  // namespace hierfit::chart
