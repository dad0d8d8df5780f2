#include "host/chart/view/network/DiagramMarks.h"

#include "host/chart/view/parts/Encodings.h"
#include "host/chart/view/parts/Numbers.h"
#include "host/chart/view/parts/Palette.h"
#include "host/chart/view/parts/ViewExpressions.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kRowsOfLargeNodes = 20;
constexpr TextStyle kNameStyle{12, false};
constexpr TextStyle kLegendTitleStyle{12.5, false};

double PlaceX(const DiagramLayout& layout, double x) { return Rounded(x, layout.fHighX - layout.fLowX); }

double PlaceY(const DiagramLayout& layout, double y) { return Rounded(y, layout.fHighY - layout.fLowY); }

Json ChannelX(const DiagramLayout& layout) {
    const Json scale = {{"domain", {PlaceX(layout, layout.fLowX), PlaceX(layout, layout.fHighX)}},
                        {"range", {Rounded(layout.fStart), Rounded(layout.fEnd)}},
                        {"nice", false},
                        {"zero", false}};
    return {{"field", "x"}, {"type", "quantitative"}, {"scale", scale}, {"axis", nullptr}};
}

Json ChannelY(const DiagramLayout& layout) {
    const Json scale = {
        {"domain", {PlaceY(layout, layout.fLowY), PlaceY(layout, layout.fHighY)}}, {"nice", false}, {"zero", false}};
    return {{"field", "y"}, {"type", "quantitative"}, {"scale", scale}, {"axis", nullptr}};
}

Json LegendLook() { return {{"orient", "bottom"}, {"direction", "horizontal"}, {"columns", 9}}; }

Json LegendTitle(const std::string& title) {
    const auto lines = WrapText(title, 600, kLegendTitleStyle, 3);
    return lines.empty() ? Json(nullptr) : Json(lines);
}

Json WeightChannel(const DiagramWeights& weights) {
    Json channel = {{"field", "w"},
                    {"type", "quantitative"},
                    {"title", LegendTitle(weights.fTitle)},
                    {"scale", {{"domain", {weights.fLow, weights.fHigh}}, {"range", {1, 7}}, {"clamp", true}}},
                    {"legend", nullptr}};
    if (weights.fvLegendValues.empty()) return channel;
    channel["legend"] = LegendLook();
    channel["legend"].update({{"values", weights.fvLegendValues},
                              {"tickCount", weights.fvLegendValues.size() * 2},
                              {"symbolType", "stroke"},
                              {"symbolSize", 300},
                              {"gridAlign", "none"},
                              {"symbolStrokeColor", palette::kSoftInk},
                              {"labelExpr", expression::kWeightText}});
    return channel;
}

/// Levels by number, with what each of them looks like.
Json LevelChannel(std::string_view field, const std::string& title, Json range) {
    Json domain = Json::array();
    for (std::size_t level = 0; level < range.size(); ++level) domain.push_back(level);
    return {{"field", field},
            {"type", "nominal"},
            {"title", LegendTitle(title)},
            {"sort", nullptr},
            {"scale", {{"domain", std::move(domain)}, {"range", std::move(range)}}},
            {"legend", nullptr}};
}

Json SignChannel(const DiagramSigns& signs, Json range) {
    Json channel = LevelChannel("s", signs.fTitle, std::move(range));
    if (!signs.fHasLegend) return channel;
    channel["legend"] = LegendLook();
    channel["legend"].update({{"symbolType", "stroke"},
                              {"symbolSize", 500},
                              {"symbolStrokeWidth", 4},
                              {"labelExpr", expression::kSignText}});
    return channel;
}

void AddSign(const DiagramSigns& signs, Json& encoding) {
    const std::size_t count = signs.fvWords.size();
    std::vector<std::string> colors = LevelColors(count);
    Json dashes = Json::array();
    for (std::size_t level = 0; level < count; ++level) dashes.push_back({1, 0});
    if (signs.fIsLastNegative) {
        colors.back() = palette::kSetOff;
        dashes.back() = {7, 3};
    }
    encoding["stroke"] = SignChannel(signs, colors);
    encoding["strokeDash"] = SignChannel(signs, dashes);
}

Json LinkValues(const Diagram& diagram, const DiagramLayout& layout) {
    Json values = Json::array();
    for (const DiagramLink& link : diagram.fvLinks) {
        values.push_back(Row({{"x", PlaceX(layout, link.fX)},
                              {"y", PlaceY(layout, link.fY)},
                              {"x2", PlaceX(layout, link.fX2)},
                              {"y2", PlaceY(layout, link.fY2)},
                              {"w", Rounded(link.fWeight)}}));
        if (link.fSign) values.back()["s"] = *link.fSign;
        values.back()["tip"] = link.fTip;
    }
    return values;
}

Json LinkLayer(const Diagram& diagram, const DiagramLayout& layout) {
    Json encoding = {{"x", ChannelX(layout)},
                     {"y", ChannelY(layout)},
                     {"x2", {{"field", "x2"}}},
                     {"y2", {{"field", "y2"}}},
                     {"strokeWidth", WeightChannel(diagram.fWeights)}};
    Json mark = {{"type", "rule"}, {"strokeCap", "butt"}, {"opacity", 0.8}};
    if (diagram.fSigns.fvWords.empty()) {
        mark["stroke"] = palette::kPlainLink;
    } else {
        AddSign(diagram.fSigns, encoding);
    }
    AddTip(encoding);
    return {{"data", {{"values", LinkValues(diagram, layout)}}},
            {"mark", std::move(mark)},
            {"encoding", std::move(encoding)}};
}

Json NodeValues(const Diagram& diagram, const DiagramLayout& layout) {
    Json values = Json::array();
    for (const DiagramNode& node : diagram.fvNodes) {
        values.push_back(Row({{"x", PlaceX(layout, node.fX)}, {"y", PlaceY(layout, node.fY)}}));
        if (node.fType) values.back()["t"] = *node.fType;
        values.back()["tip"] = node.fTip;
    }
    return values;
}

Json TypeChannel(const DiagramTypes& types) {
    Json channel = LevelChannel("t", types.fTitle, types.fvShapes);
    if (!types.fHasLegend) return channel;
    channel["legend"] = LegendLook();
    channel["legend"].update({{"symbolFillColor", palette::kInk},
                              {"symbolStrokeColor", palette::kInk},
                              {"symbolSize", 80},
                              {"labelExpr", expression::kTypeText}});
    return channel;
}

Json NodeLayer(const Diagram& diagram, const DiagramLayout& layout) {
    Json encoding = {{"x", ChannelX(layout)}, {"y", ChannelY(layout)}};
    if (!diagram.fTypes.fvWords.empty()) encoding["shape"] = TypeChannel(diagram.fTypes);
    AddTip(encoding);
    return {{"data", {{"values", NodeValues(diagram, layout)}}},
            {"mark",
             {{"type", "point"},
              {"filled", true},
              {"fill", palette::kInk},
              {"stroke", palette::kPaper},
              {"strokeWidth", 1.5},
              {"size", diagram.fvNodes.size() > kRowsOfLargeNodes ? 90 : 120}}},
            {"encoding", std::move(encoding)}};
}

Json NameLayer(const Diagram& diagram, const DiagramLayout& layout) {
    Json values = Json::array();
    for (const DiagramNode& node : diagram.fvNodes) {
        values.push_back(Row({{"x", PlaceX(layout, node.fX)},
                              {"y", PlaceY(layout, node.fY)},
                              {"label", CutText(KeepBlanks(node.fName), kLongestName, kNameStyle)},
                              {"tip", node.fTip}}));
    }
    Json encoding = {
        {"x", ChannelX(layout)}, {"y", ChannelY(layout)}, {"text", {{"field", "label"}, {"type", "nominal"}}}};
    AddPointerTip(encoding);
    return {{"data", {{"values", std::move(values)}}},
            {"mark",
             {{"type", "text"},
              {"align", "right"},
              {"baseline", "middle"},
              {"dx", -kNameGap},
              {"fontSize", kNameStyle.fSize},
              {"aria", false}}},
            {"encoding", std::move(encoding)}};
}

}  // namespace

Json DiagramMarks(const Diagram& diagram, const DiagramLayout& layout) {
    Json layers = Json::array();
    if (!diagram.fvLinks.empty()) layers.push_back(LinkLayer(diagram, layout));
    layers.push_back(NodeLayer(diagram, layout));
    layers.push_back(NameLayer(diagram, layout));
    return {{"layer", std::move(layers)}};
}

}  // namespace hierfit::chart
