#pragma once

#include <string>

#include "host/chart/view/ViewContext.h"

namespace hierfit::chart {

/// The variables behind the marks of a chart of levels; null where the chart has none. Borrowed from the context.
struct LevelsMarks {
    std::string fSource;
    bool fIsContrast = false;  ///< means stand up or down from a line
    std::string fXReference;
    std::string fMeanReference;
    std::string fColorReference;
    const ShownVariable* fpX = nullptr;
    const ShownVariable* fpMean = nullptr;
    const ShownVariable* fpRange = nullptr;
    const ShownVariable* fpColor = nullptr;
    const ShownVariable* fpMark = nullptr;
    const ShownVariable* fpTip = nullptr;

    /// Titles of the axes and names in tips, as the specification or the variables have them.
    std::string fXTitle;
    std::string fMeanTitle;
    std::string fXName;
    std::string fMeanName;
    std::string fColorName;
};

LevelsMarks FindLevelsMarks(const ViewContext& context);

}  // namespace hierfit::chart
