#include "host/chart/view/levels/LevelsAxis.h"

#include <algorithm>

#include "host/chart/view/parts/ViewExpressions.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr TextStyle kLabelStyle{11.5, false};
constexpr double kWideWidth = 560;
constexpr double kMostWidth = 640;
constexpr double kHeight = 320;
constexpr double kGap = 8;            // between the words of two levels side by side
constexpr double kLeastSlot = 16;     // for words that stand
constexpr double kLeastSlanted = 24;  // for words that slant
constexpr double kSlantedRoom = 150;
constexpr double kTurnedSlot = 20;
constexpr double kTurnedRoom = 260;
constexpr double kMostDodge = 26;
constexpr double kLeastDodge = 9;        // below each other
constexpr double kNarrowestDodge = 5.4;  // side by side
constexpr std::size_t kFlatLines = 3;

/// Whether the words of all levels stand side by side in a few lines, unbroken.
bool IsFlat(const Levels& levels, double room) {
    return std::all_of(levels.Texts().begin(), levels.Texts().end(), [&](const std::string& text) {
        return TextWidth(text, kLabelStyle) <= kFlatLines * room && LongestWord(text, kLabelStyle) <= room &&
               WrapText(text, room, kLabelStyle, kFlatLines + 1).size() <= kFlatLines;
    });
}

double OneOfPanels(const Panels& panels, double whole, double least) {
    const double gaps = 18 * static_cast<double>(panels.Columns() - 1);
    return std::max(least, (whole - gaps) / static_cast<double>(panels.Columns()));
}

double PanelHeight(const Panels& panels) {
    if (panels.Rows() == 1) return panels.HasHeadings() ? 0.8 * kHeight : kHeight;
    return panels.HasTwoVariables() ? 170 : 0.7 * kHeight;
}

double Count(std::size_t count) { return static_cast<double>(std::max<std::size_t>(count, 1)); }

/// Contrasts take no more room than they need.
double ContrastWidth(const LevelsItems& items) {
    const double levels = Count(items.fX.Count());
    if (items.fPanels.HasHeadings()) return OneOfPanels(items.fPanels, kMostWidth, 180);
    return std::clamp(90 * levels, 300.0, kMostWidth);
}

void LayUpright(const LevelsItems& items, LevelsAxis& axis) {
    const double levels = Count(items.fX.Count());
    axis.fHeight = PanelHeight(items.fPanels);
    axis.fSlot = axis.fWidth / levels;
    axis.fRoom = axis.fSlot - kGap;
    if (IsFlat(items.fX, axis.fRoom)) return;
    axis.fAngle = axis.fSlot >= kLeastSlanted ? -40 : -90;
    axis.fSlot = std::max(axis.fSlot, kLeastSlot);
    axis.fWidth = axis.fSlot * levels;
    axis.fRoom = kSlantedRoom;
}

void LayTurned(const LevelsItems& items, LevelsAxis& axis) {
    axis.fIsTurned = true;
    axis.fAngle = 0;
    axis.fRoom = items.fPanels.HasHeadings() ? kSlantedRoom : kTurnedRoom;
    axis.fSlot = std::max(kTurnedSlot, kLeastDodge * static_cast<double>(items.fColors.Count()) + 6);
    axis.fHeight = axis.fSlot * Count(items.fX.Count());
    axis.fWidth = items.fPanels.HasHeadings() ? OneOfPanels(items.fPanels, kWideWidth, 140) : 480;
}

/// Panels bear slanted words of some levels: turned, they would hold one level's words each.
bool BearsSlant(const LevelsItems& items, const LevelsAxis& axis) {
    return items.fPanels.HasHeadings() && axis.fAngle == -40;
}

bool HasRoomForColors(const LevelsItems& items, const LevelsAxis& axis) {
    return axis.fSlot * 0.8 >= kNarrowestDodge * static_cast<double>(items.fColors.Count());
}

}  // namespace

LevelsAxis LayOutLevels(const LevelsItems& items, bool isNeverTurned) {
    LevelsAxis axis;
    axis.fWidth = isNeverTurned ? ContrastWidth(items) : OneOfPanels(items.fPanels, kWideWidth + 18, 180);
    LayUpright(items, axis);
    const bool isGood = (axis.fAngle == 0 || BearsSlant(items, axis)) && HasRoomForColors(items, axis);
    if (!isNeverTurned && !isGood) LayTurned(items, axis);
    axis.fDodge = std::min(0.8 / Count(items.fColors.Count()), kMostDodge / axis.fSlot);
    const bool isWrapped = axis.fAngle == 0 && !axis.fIsTurned;
    for (const std::string& text : items.fX.Texts()) {
        axis.fvTexts.push_back(WrapText(text, axis.fRoom, kLabelStyle, isWrapped ? kFlatLines : 1));
    }
    return axis;
}

bool LevelsAxis::HasLines() const {
    return std::any_of(fvTexts.begin(), fvTexts.end(), [](const auto& lines) { return lines.size() > 1; });
}

Json LevelsAxis::Channel(const std::string& title) const {
    std::vector<std::size_t> values(fvTexts.size());
    for (std::size_t level = 0; level < values.size(); ++level) values[level] = level;
    const double end = Count(values.size()) - 0.5;
    Json axis = {{"values", values},
                 {"tickCount", std::min(2 * values.size(), std::size_t{document::kMostTicks})},
                 {"labelExpr", HasLines() ? expression::kXLines : expression::kXText},
                 {"grid", false},
                 {"domain", !fIsTurned},
                 {"ticks", false},
                 {"labelAngle", fAngle},
                 {"labelLimit", 0}};
    if (!fIsTurned) axis["labelAlign"] = fAngle == 0 ? "center" : "right";
    if (fAngle == -90) axis["labelBaseline"] = "middle";
    return {{"field", "at"},
            {"type", "quantitative"},
            {"title", WrapText(title, fIsTurned ? fHeight : fWidth, {12.5, false}, 3)},
            {"scale", {{"domain", fIsTurned ? Json{end, -0.5} : Json{-0.5, end}}, {"nice", false}, {"zero", false}}},
            {"axis", axis}};
}

}  // namespace hierfit::chart
