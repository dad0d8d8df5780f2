#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/chart/view/ViewContext.h"
#include "host/chart/view/parts/Json.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// The words of a view's levels: an array that the view's expressions index.
struct LevelTexts {
    std::string_view fName;  ///< of parts/ViewExpressions.h
    std::vector<std::string> fvTexts;
};

/// The picture without its frame: a unit, layer, facet or concat view that has its data, but neither title nor
/// configuration nor params.
struct Drawing {
    Json fView;
    std::vector<LevelTexts> fvTexts;
    double fWidth = 0;  ///< of the whole picture in pixels, axes and legends included; frame texts are wrapped to it
    document::ChartShown fShown;
};

Drawing MakeLevelsDrawing(const ViewContext& context);
Drawing MakeCircleDrawing(const ViewContext& context);
Drawing MakeDiagramDrawing(const ViewContext& context);
Drawing MakeScatterDrawing(const ViewContext& context);
Drawing MakeHistogramDrawing(const ViewContext& context);

}  // namespace hierfit::chart
