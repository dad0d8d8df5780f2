#include "report/charts/layout/Legend.h"

#include <algorithm>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

namespace {

constexpr double kRow = 20;
constexpr double kSwatchGap = 6;
constexpr double kBetweenEntries = 16;
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

/// A heading beside the entries where both fit into one row, else above them.
bool IsHeadingBeside(const Legend& legend, double width) { return WidthOf(legend) <= width; }

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
    double left = 0;
    double top = 0;
    if (!legend.fTitle.empty()) {
        const double height = AddHeading(scene, legend, at, width);
        if (IsHeadingBeside(legend, width)) {
            left = WidthOfHeading(legend);
        } else {
            top = height;
        }
    }
    const std::vector<std::string> words = CutEntries(legend, width);
    for (std::size_t entry = 0; entry < words.size(); ++entry) {
        const double needed = legend.fSwatchWidth + kSwatchGap + TextWidth(words[entry], kLabelStyle);
        if (left > 0 && left + needed > width) {
            left = 0;
            top += kRow;
        }
        scene.fvElements.push_back(
            MakeEntry(legend.fvEntries[entry], words[entry], {at.fX + left, at.fY + top}, legend.fSwatchWidth));
        left += needed + kBetweenEntries;
    }
    return top + kRow;
}

}  // namespace hierfit::report::charts
