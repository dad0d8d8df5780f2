#pragma once

#include <string>
#include <vector>

#include "report/charts/layout/Axes.h"
#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

struct LegendEntry {
    std::string fWords;
    std::vector<Shape> fvSwatch;  ///< about the middle of the swatch, which is at 0, 0
    int fKey = -1;                ///< of the marks that it explains; -1 for none
};

/// The meaning of colours, shapes and widths: a heading and entries that flow in rows.
struct Legend {
    std::string fTitle;
    std::vector<LegendEntry> fvEntries;
    double fSwatchWidth = 12;
};

/// Adds a legend below `at`, its upper left corner, in at most the width, and tells how high it is. Entries that are
/// wider are cut. A legend without entries is none.
double AddLegend(Scene& scene, const Legend& legend, Point at, double width);

/// Adds legends below each other and tells what they fill. Their headings stand beside the entries, which then begin
/// one below the other, where all that fits into the width, else above them.
Frame AddLegends(Scene& scene, const std::vector<Legend>& legends, Point at, double width);

/// The width that the legend takes in one row.
double WidthOf(const Legend& legend);

}  // namespace hierfit::report::charts
