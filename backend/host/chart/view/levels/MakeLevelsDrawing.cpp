#include <algorithm>
#include <cmath>

#include "host/chart/view/levels/LevelsLayers.h"
#include "host/chart/view/levels/LevelsValues.h"
#include "host/chart/view/levels/LevelsWords.h"
#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/ViewExpressions.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr double kAxisRoom = 64;     // of the figures and the title beside them
constexpr double kLegendText = 180;  // pixels
constexpr std::size_t kDenseLevels = 24;

bool IsHidden(const Specification& specification, std::string_view reference) {
    return std::any_of(specification.fvLegends.begin(), specification.fvLegends.end(),
                       [&](const Legend& legend) { return legend.fOf == reference && !legend.fIsVisible; });
}

Json MarkLegend() {
    return {{"title", nullptr},          {"orient", "top"},
            {"direction", "horizontal"}, {"labelExpr", expression::kTypeText},
            {"symbolType", "circle"},    {"symbolOpacity", 1}};
}

/// Columns are added rather than that the legend grows longer than the plot.
Json ColorLegend(const Specification& specification, const LevelsMarks& marks, const LevelsItems& items,
                 double height) {
    const Legend* legend = FindLegend(specification, marks.fColorReference);
    const std::string label = marks.fpColor->Label();
    const auto rows = std::max<std::size_t>(static_cast<std::size_t>(height / 22), 4);
    const std::size_t columns = (items.fColors.Count() + rows - 1) / rows;
    return {
        {"title", WrapText(legend == nullptr ? label : LegendTitleOr(*legend, label), kLegendText, {12.5, false}, 3)},
        {"labelExpr", expression::kColorText},
        {"symbolLimit", 0},
        {"columns", std::min<std::size_t>(columns, 4)},
        {"symbolOpacity", 1}};
}

Json LegendOf(const Specification& specification, const LevelsMarks& marks, const LevelsItems& items, double height) {
    const Mark* marked = nullptr;
    for (const Mark& mark : specification.fPlot.fvMarks) marked = mark.fMark.empty() ? marked : &mark;
    if (marks.fIsContrast) return marked && IsHidden(specification, marked->fMark) ? Json() : MarkLegend();
    if (marks.fpColor == nullptr || IsHidden(specification, marks.fColorReference)) return {};
    return ColorLegend(specification, marks, items, height);
}

Json NumberChannel(const LevelsMarks& marks, const LevelsItems& items, const Span& span, double width) {
    Extent extent;
    for (const LevelsItem& item : items.fvItems) extent.Add(item.fNumber);
    const Extent domain = DomainWithin(span, extent);
    const int tickCount = width < 300 ? 4 : 8;
    Json scale = ScaleWithin(span, domain, tickCount);
    scale.update({{"nice", false}, {"padding", 14}});
    const Json axis = {{"grid", false},
                       {"tickCount", tickCount},
                       {"labelOverlap", true},
                       {"format", TickFormat(domain.fLow, domain.fHigh, tickCount)}};
    return {{"field", "at"},
            {"type", "quantitative"},
            {"title", WrapText(marks.fXTitle, width, {12.5, false}, 3)},
            {"scale", scale},
            {"axis", axis}};
}

std::vector<std::string> Joined(const std::vector<std::vector<std::string>>& texts) {
    std::vector<std::string> joined;
    for (const std::vector<std::string>& lines : texts) {
        std::string& text = joined.emplace_back();
        for (const std::string& line : lines) text += (&line == &lines.front() ? "" : "\n") + line;
    }
    return joined;
}

std::vector<LevelTexts> TextsOf(const LevelsMarks& marks, const LevelsItems& items, const LevelsAxis& axis) {
    std::vector<LevelTexts> texts;
    if (!items.fIsLinear) texts.push_back({expression::kXNames, Joined(axis.fvTexts)});
    if (marks.fpColor != nullptr) texts.push_back({expression::kColorNames, items.fColors.CutTexts(kLegendText)});
    if (marks.fIsContrast) {
        texts.push_back({expression::kTypeNames, {Translated("Not Significant"), Translated("Significant")}});
    }
    items.fPanels.AddTexts(texts, axis.fWidth, axis.fHeight);
    return texts;
}

double WholeWidth(const LevelsMarks& marks, const LevelsItems& items, const LevelsAxis& axis) {
    double width = kAxisRoom + static_cast<double>(items.fPanels.Columns()) * (axis.fWidth + 18) - 18;
    if (axis.fIsTurned) width += std::min(axis.fRoom, 120.0);
    if (marks.fpColor == nullptr) return width;
    double words = TextWidth(marks.fColorName, {12.5, false});
    for (const std::string& text : items.fColors.Texts()) words = std::max(words, TextWidth(text, {11.5, false}));
    return width + std::min(words, kLegendText) + 40;
}

Json LayersOf(const LevelsMarks& marks, const LevelsItems& items, const LevelsStyle& style) {
    if (marks.fIsContrast) return ContrastLayers(style);
    return items.fIsLinear ? LinearLayers(style) : MeansLayers(style);
}

LevelsAxis LinearLayout(const LevelsItems& items) {
    LevelsAxis axis = LayOutLevels(items, true);
    axis.fWidth = items.fPanels.HasHeadings() ? std::max(axis.fWidth, 180.0) : 560;
    return axis;
}

LevelsStyle StyleOf(const ViewContext& context, const LevelsMarks& marks, const LevelsItems& items,
                    const LevelsAxis& axis, const std::vector<PanelGuide>& guides) {
    const Specification& specification = context.fSpecification;
    const auto any = [&](auto has) { return std::any_of(items.fvItems.begin(), items.fvItems.end(), has); };
    LevelsStyle style;
    style.fIsTurned = axis.fIsTurned;
    style.fValues = MakeValueAxis(context, marks, items, guides, axis.fIsTurned ? axis.fWidth : axis.fHeight);
    style.fLevels = items.fIsLinear ? NumberChannel(marks, items, specification.fPlot.fX, axis.fWidth)
                                    : axis.Channel(marks.fXTitle);
    style.fHasColors = marks.fpColor != nullptr;
    style.fColors = items.fColors.Count();
    style.fColorLegend = LegendOf(specification, marks, items, axis.fHeight);
    style.fIsDense = items.fX.Count() > kDenseLevels;
    style.fHasRanges = any([](const LevelsItem& item) { return item.fRange.has_value(); });
    style.fHasStems = any([](const LevelsItem& item) { return item.fBase.has_value(); });
    style.fHasGuides = !guides.empty();
    return style;
}

/// Beyond what can be drawn levels stand closer.
double Pixels(double length) { return std::min(std::round(length), double{document::kMostPixels}); }

}  // namespace

Drawing MakeLevelsDrawing(const ViewContext& context) {
    const LevelsMarks marks = FindLevelsMarks(context);
    const LevelsItems items(context, marks);
    const LevelsAxis axis = items.fIsLinear ? LinearLayout(items) : LayOutLevels(items, marks.fIsContrast);
    const std::vector<PanelGuide> guides = GuidesOf(context.fSpecification, items);
    Json panel = {{"width", Pixels(axis.fWidth)}, {"height", Pixels(axis.fHeight)}};
    MoveMembers(panel, LayersOf(marks, items, StyleOf(context, marks, items, axis, guides)));
    Drawing drawing;
    drawing.fView = items.fPanels.Arrange(std::move(panel), LevelsValues(marks, items, axis, guides), axis.fHeight);
    drawing.fvTexts = TextsOf(marks, items, axis);
    drawing.fWidth = WholeWidth(marks, items, axis);
    drawing.fShown = ShowLevels(marks, items);
    return drawing;
}

}  // namespace hierfit::chart
