#include "host/chart/view/network/DiagramLayout.h"

#include <algorithm>

#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/text/TextWidth.h"

namespace hierfit::chart {

namespace {

constexpr double kWidth = 640;
constexpr double kNarrowestBox = 140;
constexpr double kWidestBox = 200;
constexpr double kLeftmostBox = 360;
constexpr double kLeastShare = 0.05;  // of x left of the target; less is no scale
constexpr double kLeastLinks = 120;   // what long names leave to the lines
constexpr double kRoomAroundBox = 12;
constexpr double kTallest = 16000;
constexpr TextStyle kNameStyle{12, false};

double RowHeight(double rows) { return std::clamp(62 - 2 * rows, 20.0, 60.0); }

void SetLimits(const Plot& plot, const Diagram& diagram, DiagramLayout& layout) {
    const double targetX = diagram.fTarget.fX.value_or(diagram.fvNodes.front().fX);
    layout.fLowX = targetX;
    layout.fLowY = diagram.fTarget.fY.value_or(diagram.fvNodes.front().fY);
    layout.fHighY = layout.fLowY;
    for (const DiagramNode& node : diagram.fvNodes) {
        layout.fLowX = std::min(layout.fLowX, node.fX);
        layout.fLowY = std::min(layout.fLowY, node.fY);
        layout.fHighY = std::max(layout.fHighY, node.fY);
    }
    layout.fLowX = std::min(layout.fLowX, Placeable(plot.fX.fMin).value_or(layout.fLowX));
    layout.fHighX = std::max(targetX, Placeable(plot.fX.fMax).value_or(targetX));
    if (layout.fLowX >= layout.fHighX) layout.fHighX = layout.fLowX + 2 * RoomAbout(layout.fLowX);
    const double halfRow = diagram.fvNodes.size() < 2
                               ? 0
                               : (layout.fHighY - layout.fLowY) / static_cast<double>(diagram.fvNodes.size() - 1) / 2;
    const double room = halfRow > 0 ? halfRow : RoomAbout(layout.fHighY);
    layout.fLowY -= room;
    layout.fHighY += room;
}

/// The pixel of the lowest x that gives every name its room, when the target stands at a pixel.
double StartFor(const Diagram& diagram, double lowX, double targetX, double targetPixel) {
    double start = 0;
    for (const DiagramNode& node : diagram.fvNodes) {
        const double share = targetX > lowX ? (node.fX - lowX) / (targetX - lowX) : 0;
        const double need = std::min(TextWidth(node.fName, kNameStyle), kLongestName) + kNameGap + 4;
        if (share < 1) start = std::max(start, (need - share * targetPixel) / (1 - share));
    }
    return std::min(start, targetPixel - kLeastLinks);
}

void SetScaleX(const Diagram& diagram, bool hasHistogram, DiagramLayout& layout) {
    const double targetX = diagram.fTarget.fX.value_or(layout.fHighX);
    const double share = (targetX - layout.fLowX) / (layout.fHighX - layout.fLowX);
    const double targetPixel = std::clamp(share * kWidth, kLeftmostBox, kWidth - kNarrowestBox);
    layout.fStart = StartFor(diagram, layout.fLowX, targetX, targetPixel);
    layout.fEnd = share > kLeastShare ? layout.fStart + (targetPixel - layout.fStart) / share : kWidth;
    const double right = std::min(kWidth, targetPixel + kWidestBox);
    layout.fBox = MakeTargetBox(diagram.fTarget.fName, hasHistogram, targetPixel, right);
}

void SetHeight(const Diagram& diagram, DiagramLayout& layout) {
    const double boxHeight = layout.fBox.Height();
    const double rows = static_cast<double>(diagram.fvNodes.size());
    layout.fHeight = std::max(std::min(rows * RowHeight(rows), kTallest), boxHeight + 2 * kRoomAroundBox);
    const double middle = diagram.fTarget.fY.value_or((layout.fLowY + layout.fHighY) / 2);
    const double center = layout.fHeight * (layout.fHighY - middle) / (layout.fHighY - layout.fLowY);
    layout.fBox.fTop = std::clamp(center - boxHeight / 2, 0.0, layout.fHeight - boxHeight);
}

DiagramLayout LayBoxOut(const DiagramTarget& target, bool hasHistogram) {
    const TargetBox box = MakeTargetBox(target.fName, hasHistogram, 0, kWidestBox);
    return {kWidestBox, box.Height(), 0, 1, 0, kWidestBox, 0, 1, box};
}

}  // namespace

DiagramLayout LayDiagramOut(const Plot& plot, const Diagram& diagram, bool hasHistogram) {
    if (diagram.fvNodes.empty()) return LayBoxOut(diagram.fTarget, hasHistogram);
    DiagramLayout layout{};
    layout.fWidth = kWidth;
    SetLimits(plot, diagram, layout);
    SetScaleX(diagram, hasHistogram, layout);
    SetHeight(diagram, layout);
    return layout;
}

}  // namespace hierfit::chart
