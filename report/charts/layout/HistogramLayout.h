#pragma once

#include "host/document/Picture.h"
#include "report/charts/layout/Axes.h"

namespace hierfit::report::charts {

/// What the bars and the curve of a histogram reach along the bins, and from 0 upwards: a single bin leaves as much
/// room on either side, and a curve with a pole does not flatten the bars.
Extent BinsOf(const document::HistogramPicture& picture);
Extent CountsOf(const document::HistogramPicture& picture);

/// Pale bars and over them the curve; dots on it stand for whole numbers.
void AddHistogram(Scene& scene, const document::HistogramPicture& picture, const Scale& x, const Scale& y);

}  // namespace hierfit::report::charts
