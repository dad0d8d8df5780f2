#include "report/charts/layout/Legend.h"

#include <algorithm>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

namespace {

constexpr double kRow = 20;
constexpr double kSwatchGap = 6;
constexpr double kBetweenEntries = 16;
constexpr double kBetweenRows = 4;     // of legends whose headings stand beside
constexpr double kBetweenLegends = 8;  // of others
constexpr std::size_t kTitleLines = 3;

std::vector<std::string> CutEntries(const Legend& legend, double width) {
    std::vector<std::string> words;
    for (const LegendEntry& entry : legend.fvEntries) words.push_back(entry.fWords);
    return CutTexts(words, width - legend.fSwatchWidth - kSwatchGap, kLabelStyle);
}

Element MakeEntry(const LegendEntry& entry, const std::string& words, Point at, double swatchWidth) {
    Element element;
    element.fIsEntry = entry.fKey >= 0;
    if (entry.fKey >= 0) element.fvKeys = {entry.fKey};
    for (Shape shape : entry.fvSwatch) {
        Move(shape, at.fX + swatchWidth / 2, at.fY + kRow / 2);
        element.fvShapes.push_back(std::move(shape));
    }
    const Point baseline{at.fX + swatchWidth + kSwatchGap, at.fY + kRow / 2 + kLabelStyle.fSize * 0.35};
    element.fvShapes.push_back(MakeText(words, baseline, kLabelStyle));
    return element;
}

double WidthOfHeading(const Legend& legend) {
    return legend.fTitle.empty() ? 0 : TextWidth(legend.fTitle, kAxisTitleStyle) + kBetweenEntries;
}

double AddHeading(Scene& scene, const Legend& legend, Point at, double width) {
    const std::vector<std::string> lines = WrapText(legend.fTitle, width, kAxisTitleStyle, kTitleLines);
    Element heading;
    const double above = (kRow - LineHeight(kAxisTitleStyle)) / 2;
    AddLines(heading, lines, {at.fX, at.fY + above + Ascent(kAxisTitleStyle)}, kAxisTitleStyle);
    scene.fvElements.push_back(std::move(heading));
    return static_cast<double>(lines.size()) * LineHeight(kAxisTitleStyle) + 2 * above;
}

/// Adds the entries in rows, of which the first begins at `left`, and tells what they fill.
Frame AddEntries(Scene& scene, const Legend& legend, Point at, double left, double width) {
    const std::vector<std::string> words = CutEntries(legend, width);
    Frame filled{at.fX, at.fY, at.fX, at.fY};
    double top = 0;
    for (std::size_t entry = 0; entry < words.size(); ++entry) {
        const double needed = legend.fSwatchWidth + kSwatchGap + TextWidth(words[entry], kLabelStyle);
        if (left > 0 && left + needed > width) {
            left = 0;
            top += kRow;
        }
        scene.fvElements.push_back(
            MakeEntry(legend.fvEntries[entry], words[entry], {at.fX + left, at.fY + top}, legend.fSwatchWidth));
        filled.fRight = std::max(filled.fRight, at.fX + left + needed);
        left += needed + kBetweenEntries;
    }
    filled.fBottom = at.fY + top + kRow;
    return filled;
}

/// Adds a legend with entries. `beside`: where they begin beside the heading; 0 puts them below it.
Frame AddOne(Scene& scene, const Legend& legend, Point at, double beside, double width) {
    double top = 0;
    if (!legend.fTitle.empty()) {
        const double height = AddHeading(scene, legend, at, width);
        if (beside == 0) top = height;
    }
    Frame filled = AddEntries(scene, legend, {at.fX, at.fY + top}, beside, width);
    if (!legend.fTitle.empty()) {
        filled.fRight = std::max(filled.fRight, at.fX + std::min(WidthOfHeading(legend) - kBetweenEntries, width));
    }
    return filled;
}

/// Where the entries of all legends begin beside their headings; 0 where one does not fit into a row so.
double PlaceBeside(const std::vector<Legend>& legends, double width) {
    double beside = 0;
    for (const Legend& legend : legends) {
        if (!legend.fvEntries.empty()) beside = std::max(beside, WidthOfHeading(legend));
    }
    const bool isTooWide = std::ranges::any_of(legends, [&](const Legend& legend) {
        return !legend.fvEntries.empty() && beside + WidthOf(legend) - WidthOfHeading(legend) > width;
    });
    return isTooWide ? 0 : beside;
}

}  // namespace

double WidthOf(const Legend& legend) {
    double width = WidthOfHeading(legend);
    for (const LegendEntry& entry : legend.fvEntries) {
        width += legend.fSwatchWidth + kSwatchGap + TextWidth(entry.fWords, kLabelStyle) + kBetweenEntries;
    }
    return width - kBetweenEntries;
}

double AddLegend(Scene& scene, const Legend& legend, Point at, double width) {
    if (legend.fvEntries.empty()) return 0;
    const double beside = WidthOf(legend) <= width ? WidthOfHeading(legend) : 0;
    return AddOne(scene, legend, at, beside, width).fBottom - at.fY;
}

Frame AddLegends(Scene& scene, const std::vector<Legend>& legends, Point at, double width) {
    const double beside = PlaceBeside(legends, width);
    Frame filled{at.fX, at.fY, at.fX, at.fY};
    for (const Legend& legend : legends) {
        if (legend.fvEntries.empty()) continue;
        const double gap = filled.Height() > 0 ? (beside > 0 ? kBetweenRows : kBetweenLegends) : 0;
        const Frame one = AddOne(scene, legend, {at.fX, filled.fBottom + gap}, beside, width);
        filled.fRight = std::max(filled.fRight, one.fRight);
        filled.fBottom = one.fBottom;
    }
    return filled;
}

}  // namespace hierfit::report::charts
