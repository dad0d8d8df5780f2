#include "host/chart/view/circle/PairwiseMarks.h"

#include <algorithm>

#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/parts/ViewExpressions.h"

namespace hierfit::chart {

namespace {

constexpr double kFaintest = 0.14;
constexpr double kStrongest = 0.75;
constexpr double kLinesAtFullStrength = 110;  // that many lines that are not set off share the strength of one

/// How strong a line is drawn that is not set off, by the lines of the fullest panel.
double RestOpacity(const Pairwise& pairwise) {
    std::size_t most = 1;
    for (const PairwisePanel& panel : pairwise.fvPanels) most = std::max(most, panel.fvLinks.size());
    return std::clamp(kLinesAtFullStrength / static_cast<double>(most), kFaintest, kStrongest);
}

void AddLinks(const PairwisePanel& panel, std::size_t at, bool isSetOff, double opacity, const CircleLayout& layout,
              const Panels& panels, Json& values) {
    for (const PairwiseLink& link : panel.fvLinks) {
        if (link.fIsSetOff != isSetOff) continue;
        const CircleNode& from = layout.At(at, link.fFrom);
        const CircleNode& to = layout.At(at, link.fTo);
        Json item = Json::object();
        panels.Mark(panel.fPlace, item);
        MoveMembers(item, Row({{"x", Rounded(from.fX)},
                               {"y", Rounded(from.fY)},
                               {"x2", Rounded(to.fX)},
                               {"y2", Rounded(to.fY)},
                               {"w", Rounded(link.fWidth)},
                               {"s", isSetOff ? 1 : 0},
                               {"o", isSetOff ? 0.9 : Rounded(opacity)},
                               {"tip", link.fTip}}));
        values.push_back(std::move(item));
    }
}

void AddNodes(const Pairwise& pairwise, std::size_t at, const CircleLayout& layout, const Panels& panels,
              Json& values) {
    const PairwisePanel& panel = pairwise.fvPanels[at];
    for (std::size_t node = 0; node < panel.fvNames.size(); ++node) {
        const CircleNode& place = layout.At(at, node);
        Json item = Json::object();
        panels.Mark(panel.fPlace, item);
        const std::string& title = pairwise.fNodeTitle;
        MoveMembers(item, Row({{"x", Rounded(place.fX)},
                               {"y", Rounded(place.fY)},
                               {"lx", Rounded(place.fNameX)},
                               {"ly", Rounded(place.fNameY)},
                               {"side", place.fSide},
                               {"base", place.fBaseline},
                               {"turn", Rounded(place.fTurn)},
                               {"label", place.fLabel},
                               {"tip", title.empty() ? panel.fvNames[node] : title + ": " + panel.fvNames[node]}}));
        values.push_back(std::move(item));
    }
}

Json Filter(std::string_view expression) { return Json::array({{{"filter", expression}}}); }

Json MarkChannel(const Pairwise& pairwise, Json range) {
    Json channel = {{"field", "s"},
                    {"type", "nominal"},
                    {"sort", nullptr},
                    {"title", nullptr},
                    {"scale", {{"domain", {1, 0}}, {"range", std::move(range)}}},
                    {"legend", nullptr}};
    if (!pairwise.fHasLegend) return channel;
    channel["legend"] = {{"orient", "top"},
                         {"direction", "horizontal"},
                         {"symbolType", "stroke"},
                         {"symbolSize", 500},
                         {"symbolStrokeWidth", 3},
                         {"symbolOpacity", 1},
                         {"labelExpr", expression::kTypeText}};
    return channel;
}

Json LinkLayer(const Pairwise& pairwise, const CircleLayout& layout) {
    const double widest = layout.AreNamesRadial() ? 2.2 : 4;
    Json encoding = {{"x", PixelChannel("x")},
                     {"y", PixelChannel("y")},
                     {"x2", {{"field", "x2"}}},
                     {"y2", {{"field", "y2"}}},
                     {"stroke", MarkChannel(pairwise, {palette::kSetOff, palette::kAxis})},
                     {"strokeDash", MarkChannel(pairwise, {{1, 0}, {4, 3}})},
                     {"strokeOpacity", {{"field", "o"}, {"type", "quantitative"}, {"scale", nullptr}}},
                     {"strokeWidth",
                      {{"field", "w"},
                       {"type", "quantitative"},
                       {"scale", {{"domain", {0, 1}}, {"range", {0.7, widest}}, {"clamp", true}}},
                       {"legend", nullptr}}}};
    AddTip(encoding);
    return {{"transform", Filter(expression::kIsLink)},
            {"mark", {{"type", "rule"}, {"strokeCap", "butt"}}},
            {"encoding", std::move(encoding)}};
}

Json NodeLayer(const CircleLayout& layout) {
    Json encoding = {{"x", PixelChannel("x")}, {"y", PixelChannel("y")}};
    AddTip(encoding);
    return {{"transform", Filter(expression::kIsNode)},
            {"mark",
             {{"type", "point"},
              {"filled", true},
              {"fill", palette::kInk},
              {"stroke", palette::kPaper},
              {"strokeWidth", 1.5},
              {"size", layout.AreNamesRadial() ? 46 : 90}}},
            {"encoding", std::move(encoding)}};
}

Json NameLayer(const CircleLayout& layout) {
    Json encoding = {
        {"x", PixelChannel("lx")}, {"y", PixelChannel("ly")}, {"text", {{"field", "label"}, {"type", "nominal"}}}};
    AddPointerTip(encoding);
    return {{"transform", Filter(expression::kIsNode)},
            {"mark",
             {{"type", "text"},
              {"align", {{"expr", expression::kSide}}},
              {"baseline", {{"expr", expression::kBaseline}}},
              {"angle", {{"expr", expression::kTurn}}},
              {"fontSize", layout.FontSize()},
              {"lineBreak", "\n"},
              {"lineHeight", 13.5},
              {"aria", false}}},
            {"encoding", std::move(encoding)}};
}

}  // namespace

Json PairwiseValues(const Pairwise& pairwise, const CircleLayout& layout, const Panels& panels) {
    Json values = Json::array();
    const double opacity = RestOpacity(pairwise);
    for (std::size_t at = 0; at < pairwise.fvPanels.size(); ++at) {
        AddLinks(pairwise.fvPanels[at], at, false, opacity, layout, panels, values);
        AddLinks(pairwise.fvPanels[at], at, true, opacity, layout, panels, values);
        AddNodes(pairwise, at, layout, panels, values);
    }
    return values;
}

Json PairwiseLayers(const Pairwise& pairwise, const CircleLayout& layout) {
    Json layers = Json::array();
    layers.push_back(LinkLayer(pairwise, layout));
    layers.push_back(NodeLayer(layout));
    layers.push_back(NameLayer(layout));
    return {{"width", Rounded(layout.Width())}, {"height", Rounded(layout.Height())}, {"layer", std::move(layers)}};
}

}  // namespace hierfit::chart
