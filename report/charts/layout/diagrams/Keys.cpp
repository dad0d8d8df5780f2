#include "report/charts/layout/diagrams/Keys.h"

#include <algorithm>

namespace hierfit::report::charts {

namespace {

constexpr int kMostWeights = 6;

int CountOf(const std::vector<std::string>& words) { return static_cast<int>(words.size()); }

std::vector<int> AtMostSixOf(int count) {
    std::vector<int> shown;
    shown.reserve(kMostWeights);
    for (int at = 0; at < std::min(count, kMostWeights); ++at) {
        shown.push_back(count <= kMostWeights ? at : at * (count - 1) / (kMostWeights - 1));
    }
    return shown;
}

}  // namespace

NetworkKeys::NetworkKeys(const document::NetworkPicture& picture)
    : fpPicture(&picture),
      fvShownWeights(AtMostSixOf(static_cast<int>(picture.fWeights.fvEntries.size()))),
      fFirstSign(static_cast<int>(picture.fvNodes.size())),
      fFirstType(fFirstSign + CountOf(picture.fSigns.fvWords)),
      fFirstWeight(fFirstType + CountOf(picture.fTypes.fvWords)) {}

std::vector<int> NetworkKeys::OfLink(const document::NetworkLink& link) const {
    std::vector<int> keys;
    if (link.fNode) keys.push_back(*link.fNode);
    if (link.fSign && fpPicture->fSigns.fHasLegend) keys.push_back(OfSign(*link.fSign));
    for (const int entry : fvShownWeights) {
        if (fpPicture->fWeights.fvEntries[static_cast<std::size_t>(entry)].fWeight != link.fWeight) continue;
        keys.push_back(OfWeight(entry));
    }
    return keys;
}

std::vector<int> NetworkKeys::OfNode(int node) const {
    std::vector<int> keys = {node};
    const std::optional<int>& type = fpPicture->fvNodes[static_cast<std::size_t>(node)].fType;
    if (type && fpPicture->fTypes.fHasLegend) keys.push_back(OfType(*type));
    return keys;
}

CircleKeys::CircleKeys(const document::CirclePicture& picture) : fHasLegend(picture.fEmphasis.fHasLegend) {
    fvFirstNodes = {0};
    for (const document::CirclePanel& panel : picture.fvPanels) {
        fvFirstNodes.push_back(fvFirstNodes.back() + static_cast<int>(panel.fvNodes.size()));
    }
}

std::vector<int> CircleKeys::OfLink(int panel, const document::CircleLink& link) const {
    std::vector<int> keys = {OfNode(panel, link.fFrom), OfNode(panel, link.fTo)};
    if (fHasLegend) keys.push_back(OfEmphasis(link.fIsSetOff));
    return keys;
}

}  // namespace hierfit::report::charts
