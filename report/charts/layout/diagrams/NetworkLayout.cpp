#include <algorithm>
#include <cmath>

#include "report/charts/layout/Content.h"
#include "report/charts/layout/Legend.h"
#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/diagrams/Keys.h"
#include "report/charts/layout/diagrams/NetworkPlaces.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::NetworkLink;
using document::NetworkNode;
using document::NetworkPicture;
using document::NodeKind;

namespace {

constexpr double kThinnest = 1;
constexpr double kWidest = 7;
constexpr double kLinkOpacity = 0.85;
constexpr double kBesideNode = 2;   // between a node and its link
constexpr double kBelowEdge = 4;    // what a link goes on below the box, which hides its slanted end
constexpr double kSwatch = 24;      // the length of lines in legends
constexpr double kSignSwatch = 27;  // two long dashes
constexpr double kAboveLegends = 16;

Symbol SymbolOf(NodeKind kind) {
    switch (kind) {
        case NodeKind::Continuous:
            return Symbol::Circle;
        case NodeKind::Categorical:
            return Symbol::Square;
        case NodeKind::Ordinal:
            return Symbol::Triangle;
        case NodeKind::Interaction:
            return Symbol::Diamond;
        case NodeKind::Intercept:
            return Symbol::TriangleRight;
        case NodeKind::Unknown:
            break;
    }
    return Symbol::Cross;
}

Symbol SymbolOfType(const NetworkPicture& picture, int type) {
    const auto at = static_cast<std::size_t>(type);
    return at < picture.fvKinds.size() ? SymbolOf(picture.fvKinds[at]) : Symbol::Cross;
}

double WidthOf(const document::NetworkWeights& weights, double weight) {
    return Scale{{weights.fLow, weights.fHigh, false}, kThinnest, kWidest}.Within(weight);
}

Paint PaintOfSign(const NetworkPicture& picture, std::optional<int> sign) {
    Paint paint{.fStroke = Ink::Link, .fOpacity = kLinkOpacity};
    if (!sign) return paint;
    const int count = static_cast<int>(picture.fSigns.fvWords.size());
    const bool isNegative = picture.fIsLastNegative && *sign + 1 == count;
    paint.fStroke = isNegative ? Ink::SetOff : InkOfClass(*sign, count);
    if (isNegative) paint.fDash = Dash::Long;
    return paint;
}

/// A point on the way from one to another, so many pixels from the first; the first where both are one.
Point OnTheWay(Point from, Point to, double pixels) {
    const double length = std::hypot(to.fX - from.fX, to.fY - from.fY);
    if (length <= pixels) return from;
    const double share = pixels / length;
    return {from.fX + (to.fX - from.fX) * share, from.fY + (to.fY - from.fY) * share};
}

/// Links end at the edge of the box when they lead to the target, or nobody knows where that is.
Point EndOf(const NetworkPicture& picture, const NetworkLink& link, const NetworkPlaces& places) {
    const document::NetworkTarget& target = picture.fTarget;
    const bool isElsewhere =
        (target.fX && *target.fX != link.fX2) || (target.fY && *target.fY != link.fY2) || picture.fvNodes.empty();
    if (!isElsewhere) return places.fTarget;
    return {places.fX.Within(link.fX2), places.fY.Within(link.fY2)};
}

void AddLinks(Scene& scene, const NetworkPicture& picture, const NetworkPlaces& places, const NetworkKeys& keys) {
    const double beside = NodeRadius(picture.fvNodes.size()) + kBesideNode;
    const bool isCrowd = picture.fvLinks.size() > kMostInFull;
    for (const NetworkLink& link : picture.fvLinks) {
        const Point from{places.fX.Within(link.fX), places.fY.Within(link.fY)};
        const Point to = EndOf(picture, link, places);
        Paint paint = PaintOfSign(picture, link.fSign);
        paint.fStrokeWidth = WidthOf(picture.fWeights, link.fWeight);
        const double below = places.fBox.IsEmpty() || to != places.fTarget ? 0 : kBelowEdge;
        const Point end = OnTheWay(to, {2 * to.fX - from.fX, 2 * to.fY - from.fY}, below);
        const Point start = OnTheWay(from, to, beside);
        scene.fvElements.push_back({{isCrowd ? MakeCoarseLine(start, end, paint) : MakeLine(start, end, paint)},
                                    link.fTip,
                                    keys.OfLink(link),
                                    false});
    }
}

Shape NodeShape(const NetworkPicture& picture, std::optional<int> type, Point at) {
    const Paint paint{.fFill = Ink::Ink, .fStroke = Ink::Paper, .fStrokeWidth = 1.5};
    const Symbol symbol = type ? SymbolOfType(picture, *type) : Symbol::Circle;
    return MakeSymbol(symbol, at, NodeRadius(picture.fvNodes.size()), paint);
}

void AddName(Element& element, const std::vector<std::string>& lines, Point node) {
    const double above = static_cast<double>(lines.size()) * LineHeight(kLabelStyle) / 2;
    const double lead = (LineHeight(kLabelStyle) - Ascent(kLabelStyle) - Descent(kLabelStyle)) / 2;
    AddLines(element, lines, {node.fX - kNameGap, node.fY - above + lead + Ascent(kLabelStyle)}, kLabelStyle,
             Anchor::End);
}

/// The names of a crowd stand by themselves, so that its nodes, which look alike, stand side by side and print short.
void AddNodes(Scene& scene, const NetworkPicture& picture, const NetworkPlaces& places, const NetworkKeys& keys) {
    const bool isCrowd = picture.fvNodes.size() > kMostInFull;
    Element names;
    for (std::size_t at = 0; at < picture.fvNodes.size(); ++at) {
        const NetworkNode& node = picture.fvNodes[at];
        const Point place = places.fvNodes[at];
        Element element;
        element.fTip = node.fTip;
        element.fvKeys = keys.OfNode(static_cast<int>(at));
        element.fvShapes.push_back(NodeShape(picture, node.fType, place));
        AddName(isCrowd ? names : element, places.fvNames[at], place);
        scene.fvElements.push_back(std::move(element));
    }
    if (!names.fvShapes.empty()) scene.fvElements.push_back(std::move(names));
}

Shape SwatchLine(double length, const Paint& paint) { return MakeLine({-length / 2, 0}, {length / 2, 0}, paint); }

Legend SignLegend(const NetworkPicture& picture, const NetworkKeys& keys) {
    Legend legend{picture.fSigns.fTitle, {}, kSignSwatch};
    if (!picture.fSigns.fHasLegend) return legend;
    for (int sign = 0; sign < static_cast<int>(picture.fSigns.fvWords.size()); ++sign) {
        Paint paint = PaintOfSign(picture, sign);
        paint.fStrokeWidth = 4;
        legend.fvEntries.push_back({picture.fSigns.fvWords[static_cast<std::size_t>(sign)],
                                    {SwatchLine(kSignSwatch, paint)},
                                    keys.OfSign(sign)});
    }
    return legend;
}

Legend WeightLegend(const NetworkPicture& picture, const NetworkKeys& keys) {
    Legend legend{picture.fWeights.fTitle, {}, kSwatch};
    for (const int entry : keys.ShownWeights()) {
        const document::WeightEntry& weight = picture.fWeights.fvEntries[static_cast<std::size_t>(entry)];
        const Paint paint{.fStroke = Ink::Soft, .fStrokeWidth = WidthOf(picture.fWeights, weight.fWeight)};
        legend.fvEntries.push_back({weight.fWords, {SwatchLine(kSwatch, paint)}, keys.OfWeight(entry)});
    }
    return legend;
}

Legend TypeLegend(const NetworkPicture& picture, const NetworkKeys& keys) {
    Legend legend{picture.fTypes.fTitle, {}, 2 * NodeRadius(picture.fvNodes.size())};
    if (!picture.fTypes.fHasLegend) return legend;
    for (int type = 0; type < static_cast<int>(picture.fTypes.fvWords.size()); ++type) {
        legend.fvEntries.push_back({picture.fTypes.fvWords[static_cast<std::size_t>(type)],
                                    {NodeShape(picture, type, {})},
                                    keys.OfType(type)});
    }
    return legend;
}

}  // namespace

// Marks come in this order at any width: links as they are drawn, nodes, the target's box, its bins.
Scene LayOutContent(const NetworkPicture& picture, double width) {
    const NetworkPlaces places = PlaceNetwork(picture, width);
    const NetworkKeys keys(picture);
    Scene scene{places.fWidth, places.fHeight, {}};
    if (!picture.fvNodes.empty()) {
        AddLinks(scene, picture, places, keys);
        AddNodes(scene, picture, places, keys);
    }
    AddTargetBox(scene, picture, places.fBox);
    if (picture.fvNodes.empty()) return scene;
    const std::vector<Legend> legends = {SignLegend(picture, keys), WeightLegend(picture, keys),
                                         TypeLegend(picture, keys)};
    scene.fHeight += kAboveLegends;
    const Frame below = AddLegends(scene, legends, {0, scene.fHeight}, width);
    scene.fWidth = std::max(scene.fWidth, below.fRight);
    scene.fHeight = below.fBottom;
    return scene;
}

}  // namespace hierfit::report::charts
