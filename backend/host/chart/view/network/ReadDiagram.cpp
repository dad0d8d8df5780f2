#include "host/chart/view/network/ReadDiagram.h"

#include <algorithm>
#include <unordered_map>

#include "host/chart/view/network/DiagramLegends.h"
#include "host/chart/view/network/NodeTypes.h"
#include "host/chart/view/parts/Levels.h"
#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

/// The variables of one mark.
class MarkData {
  public:
    MarkData(const ViewContext& context, Mark::Kind kind)
        : fpData(&context.fData), fpMark(context.fSpecification.fPlot.Find(kind)) {}

    const ShownVariable* Find(std::string Mark::*reference) const {
        return fpMark == nullptr ? nullptr : fpData->Find(fpMark->fSource, fpMark->*reference);
    }

    std::string Reference(std::string Mark::*reference) const {
        return fpMark == nullptr ? std::string() : fpMark->*reference;
    }

  private:
    const ShownData* fpData;
    const Mark* fpMark;
};

std::size_t RowsOf(const ShownVariable* variable) { return variable == nullptr ? 0 : variable->Rows(); }

/// Nodes by their row of the data.
using NodeRows = std::unordered_map<std::size_t, std::size_t>;

NodeRows AddNodes(const ViewContext& context, const NodeTypes& types, Diagram& diagram) {
    const MarkData points(context, Mark::Kind::Points);
    const MarkData names(context, Mark::Kind::Names);
    const ShownVariable* x = points.Find(&Mark::fX);
    const ShownVariable* y = points.Find(&Mark::fY);
    const ShownVariable* name = names.Find(&Mark::fText);
    const ShownVariable* tip = points.Find(&Mark::fTip);
    NodeRows rows;
    for (std::size_t row = 0; row < RowsOf(x); ++row) {
        const auto placeX = PlaceableAt(x, row);
        const auto placeY = PlaceableAt(y, row);
        if (!placeX || !placeY) continue;
        DiagramNode node{*placeX, *placeY, WordsAt(name, row), WordsAt(tip, row), types.At(row)};
        if (node.fTip.empty()) node.fTip = node.fName;
        rows.emplace(row, diagram.fvNodes.size());
        diagram.fvNodes.push_back(std::move(node));
    }
    return rows;
}

/// The name of the node that a link comes from, above what the link tells.
std::string LinkTip(const DiagramNode* node, const std::string& tip) {
    if (node == nullptr || node->fName.empty()) return tip;
    return tip.empty() ? node->fName : node->fName + "\n" + tip;
}

void AddLinks(const MarkData& links, const Levels& signs, const std::vector<std::size_t>& signOfLevel,
              const NodeRows& nodes, Diagram& diagram) {
    const ShownVariable* x = links.Find(&Mark::fX);
    const ShownVariable* y = links.Find(&Mark::fY);
    const ShownVariable* x2 = links.Find(&Mark::fX2);
    const ShownVariable* y2 = links.Find(&Mark::fY2);
    const ShownVariable* weight = links.Find(&Mark::fWeight);
    const ShownVariable* tip = links.Find(&Mark::fTip);
    for (std::size_t row = 0; row < RowsOf(x); ++row) {
        const auto fromX = PlaceableAt(x, row);
        const auto fromY = PlaceableAt(y, row);
        const auto toX = PlaceableAt(x2, row);
        const auto toY = PlaceableAt(y2, row);
        if (!fromX || !fromY || !toX || !toY) continue;
        const auto node = nodes.find(row);
        const DiagramNode* from = node == nodes.end() ? nullptr : &diagram.fvNodes[node->second];
        const auto level = signs.At(row);
        diagram.fvLinks.push_back({*fromX, *fromY, *toX, *toY, PlaceableAt(weight, row).value_or(diagram.fWeights.fLow),
                                   level ? std::optional(signOfLevel[*level]) : std::nullopt,
                                   LinkTip(from, WordsAt(tip, row)), row});
    }
}

void ReadTarget(const ViewContext& context, DiagramTarget& target) {
    const MarkData anchor(context, Mark::Kind::Anchor);
    target.fX = PlaceableAt(anchor.Find(&Mark::fX), 0);
    target.fY = PlaceableAt(anchor.Find(&Mark::fY), 0);
    target.fName = WordsAt(anchor.Find(&Mark::fText), 0);
    target.fTip = WordsAt(anchor.Find(&Mark::fTip), 0);
    if (target.fTip.empty()) target.fTip = target.fName;
}

void AddRows(const NodeRows& nodes, const ShownVariable* weight, Diagram& diagram) {
    diagram.fvRows.resize(diagram.fvNodes.size());
    for (std::size_t at = 0; at < diagram.fvNodes.size(); ++at) {
        const DiagramNode& node = diagram.fvNodes[at];
        diagram.fvRows[at] = {node.fName, node.fType ? diagram.fTypes.fvWords[*node.fType] : std::string(), "", ""};
    }
    for (const DiagramLink& link : diagram.fvLinks) {
        const auto node = nodes.find(link.fRow);
        if (node == nodes.end()) continue;
        std::vector<std::string>& row = diagram.fvRows[node->second];
        if (PlaceableAt(weight, link.fRow)) row[2] = diagram.fWeights.InWords(link.fWeight);
        if (link.fSign) row[3] = diagram.fSigns.fvWords[*link.fSign];
    }
}

}  // namespace

Diagram ReadDiagram(const ViewContext& context) {
    Diagram diagram;
    const MarkData points(context, Mark::Kind::Points);
    const MarkData links(context, Mark::Kind::Links);
    const ShownVariable* weight = links.Find(&Mark::fWeight);
    const ShownVariable* type = points.Find(&Mark::fShape);
    const Levels signs(links.Find(&Mark::fSign));
    const NodeTypes types(FindLegend(context.fSpecification, points.Reference(&Mark::fShape)), type);
    diagram.fTypes = MakeTypes(context.fSpecification, points.Reference(&Mark::fShape), types, type);
    diagram.fWeights = MakeWeights(context.fSpecification, links.Reference(&Mark::fWeight), weight);
    const std::vector<std::size_t> signOfLevel = OrderSigns(signs);
    diagram.fSigns = MakeSigns(context.fSpecification, links.Reference(&Mark::fSign), signs, signOfLevel);
    const NodeRows nodes = AddNodes(context, types, diagram);
    AddLinks(links, signs, signOfLevel, nodes, diagram);
    ReadTarget(context, diagram.fTarget);
    AddRows(nodes, weight, diagram);
    std::stable_sort(diagram.fvLinks.begin(), diagram.fvLinks.end(),
                     [](const DiagramLink& a, const DiagramLink& b) { return a.fWeight > b.fWeight; });
    return diagram;
}

}  // namespace hierfit::chart
