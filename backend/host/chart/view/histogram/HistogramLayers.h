#pragma once

#include "host/chart/view/histogram/Histogram.h"
#include "host/chart/view/parts/Json.h"

namespace hierfit::chart {

/// Where a histogram stands, in pixels of the view that it is a layer of, and its axes.
struct HistogramPlace {
    double fLeft;
    double fRight;
    double fTop;
    double fBottom;
    Json fAxisX;
    Json fAxisY;  ///< null: none
};

/// Pale bars and over them an ink curve; dots on it stand for whole numbers. One view of layers.
Json HistogramLayers(const Histogram& histogram, const HistogramPlace& place);

}  // namespace hierfit::chart
