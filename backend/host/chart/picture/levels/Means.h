#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/chart/picture/Levels.h"
#include "host/chart/picture/Panels.h"
#include "host/chart/picture/PictureContext.h"

namespace hierfit::chart {

/// The variables behind the marks of a chart of levels; null where the chart has none. Borrowed from the context.
struct MeansVariables {
    explicit MeansVariables(const PictureContext& context);

    std::string fSource;
    bool fIsContrast = false;  ///< means stand up or down from a line
    std::string fXReference;
    std::string fMeanReference;
    std::string fColorReference;
    std::string fMarkReference;
    const ShownVariable* fpX = nullptr;
    const ShownVariable* fpMean = nullptr;
    const ShownVariable* fpRange = nullptr;
    const ShownVariable* fpColor = nullptr;
    const ShownVariable* fpMark = nullptr;
    const ShownVariable* fpTip = nullptr;

    /// Titles of the axes and names in tips, as the specification or the variables have them.
    std::string fXTitle;
    std::string fMeanTitle;
    std::string fMeanOf;  ///< what the means are of, as far as the chart tells
    std::string fXName;
    std::string fMeanName;
    std::string fColorName;

  private:
    void Take(const Mark& mark, const PictureContext& context);
    void Name(const PictureContext& context);
};

/// The means of a chart of levels, in the order of the data. A mark's numbers count all levels of the data; its tip is
/// what the data tell of it. What lacks a mean, a level or a panel is not among them. It borrows the context.
struct Means {
    explicit Means(const PictureContext& context);

    MeansVariables fVariables;
    Panels fPanels;
    Levels fX;
    Levels fColors;
    bool fIsLinear;  ///< the axis is one of numbers, and has two at least
    std::vector<document::LevelMark> fvMarks;
};

}  // namespace hierfit::chart
