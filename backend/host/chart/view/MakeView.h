#pragma once

#include <string>
#include <vector>

#include "host/chart/specification/Specification.h"
#include "host/chart/view/VariableSetting.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// A picture's specification, in Vega-Lite 6, and what it shows.
struct View {
    std::string fJson;
    document::ChartShown fShown;
    std::vector<std::string> fvRemarks;  ///< what its data lack
};

/// Makes the view of a chart from its specification, its data and its variables' settings. Words come from the string
/// table of the run that is under way. It never fails: what cannot be drawn is left out.
View MakeView(const Specification& specification, const std::vector<document::ChartSource>& data,
              const std::vector<VariableSetting>& settings);

}  // namespace hierfit::chart
