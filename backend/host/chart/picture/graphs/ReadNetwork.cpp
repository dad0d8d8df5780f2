#include "host/chart/picture/graphs/ReadNetwork.h"

#include <algorithm>
#include <unordered_map>

#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

using document::NetworkLink;
using document::NetworkNode;

/// The variables of one mark.
class MarkData {
  public:
    MarkData(const PictureContext& context, Mark::Kind kind)
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

/// The classes of what a mark's reference means.
template <typename Classes>
Classes Make(const PictureContext& context, Mark::Kind kind, std::string Mark::*reference) {
    const MarkData data(context, kind);
    return Classes(context.fSpecification, data.Reference(reference), data.Find(reference));
}

std::size_t RowsOf(const ShownVariable* variable) { return variable == nullptr ? 0 : variable->Rows(); }

/// Nodes by their row of the data.
using NodeRows = std::unordered_map<std::size_t, int>;

NodeRows AddNodes(const PictureContext& context, Network& network) {
    const MarkData points(context, Mark::Kind::Points);
    const ShownVariable* x = points.Find(&Mark::fX);
    const ShownVariable* y = points.Find(&Mark::fY);
    const ShownVariable* name = MarkData(context, Mark::Kind::Names).Find(&Mark::fText);
    const ShownVariable* tip = points.Find(&Mark::fTip);
    NodeRows rows;
    for (std::size_t row = 0; row < RowsOf(x); ++row) {
        const auto placeX = PlaceableAt(x, row);
        const auto placeY = PlaceableAt(y, row);
        if (!placeX || !placeY) continue;
        NetworkNode node{*placeX, *placeY, WordsAt(name, row), WordsAt(tip, row), network.fTypes.At(row)};
        if (node.fTip.empty()) node.fTip = node.fName;
        const auto& types = network.fTypes.Classes().fvWords;
        network.fvRows.push_back(
            {node.fName, node.fType ? types[static_cast<std::size_t>(*node.fType)] : std::string(), "", ""});
        rows.emplace(row, static_cast<int>(network.fPicture.fvNodes.size()));
        network.fPicture.fvNodes.push_back(std::move(node));
    }
    return rows;
}

/// The name of the node that a link comes from, above what the link tells.
std::string LinkTip(const std::string& name, const std::string& tip) {
    if (name.empty()) return tip;
    return tip.empty() ? name : name + "\n" + tip;
}

/// Ties a link to its node, and tells the node's row about it.
void Join(const Network& network, int node, bool hasWeight, NetworkLink& link, std::vector<std::string>& row) {
    link.fNode = node;
    link.fTip = LinkTip(row[0], link.fTip);
    if (hasWeight) row[2] = network.fWeights.WordsOf(link.fWeight);
    if (link.fSign) row[3] = network.fSigns.Classes().fvWords[static_cast<std::size_t>(*link.fSign)];
}

void AddLinks(const PictureContext& context, const NodeRows& nodes, Network& network) {
    const MarkData links(context, Mark::Kind::Links);
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
        const auto width = PlaceableAt(weight, row);
        NetworkLink link{
            *fromX, *fromY,           *toX, *toY, width.value_or(network.fWeights.Low()), network.fSigns.At(row),
            {},     WordsAt(tip, row)};
        const auto node = nodes.find(row);
        if (node != nodes.end()) {
            Join(network, node->second, width.has_value(), link,
                 network.fvRows[static_cast<std::size_t>(node->second)]);
        }
        network.fPicture.fvLinks.push_back(std::move(link));
    }
}

void ReadTarget(const PictureContext& context, document::NetworkTarget& target) {
    const MarkData anchor(context, Mark::Kind::Anchor);
    target.fX = PlaceableAt(anchor.Find(&Mark::fX), 0);
    target.fY = PlaceableAt(anchor.Find(&Mark::fY), 0);
    target.fName = WordsAt(anchor.Find(&Mark::fText), 0);
    target.fTip = WordsAt(anchor.Find(&Mark::fTip), 0);
    if (target.fTip.empty()) target.fTip = target.fName;
}

}  // namespace

Network::Network(const PictureContext& context)
    : fWeights(Make<WeightLegend>(context, Mark::Kind::Links, &Mark::fWeight)),
      fSigns(Make<SignClasses>(context, Mark::Kind::Links, &Mark::fSign)),
      fTypes(Make<TypeClasses>(context, Mark::Kind::Points, &Mark::fShape)) {
    const NodeRows nodes = AddNodes(context, *this);
    AddLinks(context, nodes, *this);
    ReadTarget(context, fPicture.fTarget);
    std::ranges::stable_sort(fPicture.fvLinks, std::ranges::greater(), &NetworkLink::fWeight);
}

}  // namespace hierfit::chart
