#pragma once

#include <string>
#include <string_view>

#include "host/document/Chart.h"

namespace hierfit::report::html {

/// What a chart's figure needs to know of the page around it.
struct ChartPlace {
    std::string_view fTitle;
    std::string_view fAnchor;
    int fTable;  ///< number that the first table of values takes among the page's tables; ids inside them hold theirs
};

/// Appends a chart as a figure named by its title: the picture, laid out for a desk and for a phone unless both are
/// alike, the sentence about it, and the values that it shows as tables to unfold.
void AppendChart(std::string& out, const document::Chart& chart, const ChartPlace& place);

}  // namespace hierfit::report::html
