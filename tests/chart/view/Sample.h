#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/chart/view/MakeView.h"

namespace hierfit::chart {

/// A chart made by hand, with all that its view is made from.
struct Sample {
    std::string fName;
    Specification fSpecification;
    std::vector<document::ChartSource> fvData;
    std::vector<VariableSetting> fvSettings;
    std::vector<std::shared_ptr<const KEST_Variable>> fvVariables;  ///< what the settings point to

    View Make() const { return MakeView(fSpecification, fvData, fvSettings); }
};

}  // namespace hierfit::chart
