#pragma once

#include <string>
#include <vector>

#include "host/chart/picture/VariableSetting.h"
#include "host/chart/specification/Specification.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// A picture, and what its data lack.
struct MadePicture {
    document::Picture fPicture;
    std::vector<std::string> fvRemarks;
};

/// Makes the picture of a chart from its specification, its data and its variables' settings. Words come from the
/// string table of the run that is under way. It never fails: what has no place in a picture is left out.
MadePicture MakePicture(const Specification& specification, const std::vector<document::ChartSource>& data,
                        const std::vector<VariableSetting>& settings);

}  // namespace hierfit::chart
