#pragma once

#include <optional>
#include <vector>

#include "host/document/Picture.h"

namespace hierfit::report::charts {

/// The keys by which the marks of a network go together. Nodes have their own numbers; after them come the signs, the
/// types and the entries of weights. A link has the keys of its node, its sign and its weight, and a node its own and
/// its type's. Classes that no entry of a legend explains have no key.
class NetworkKeys {
  public:
    explicit NetworkKeys(const document::NetworkPicture& picture);

    std::vector<int> OfLink(const document::NetworkLink& link) const;
    std::vector<int> OfNode(int node) const;
    int OfSign(int sign) const { return fFirstSign + sign; }
    int OfType(int type) const { return fFirstType + type; }
    int OfWeight(int entry) const { return fFirstWeight + entry; }

    /// The entries of weights that the legend shows: six at most, the first and the last among them.
    const std::vector<int>& ShownWeights() const { return fvShownWeights; }

  private:
    const document::NetworkPicture* fpPicture;
    std::vector<int> fvShownWeights;
    int fFirstSign;
    int fFirstType;
    int fFirstWeight;
};

/// The keys of circles: the nodes of all panels, one panel after the other, and then what is set off and what is not. A
/// link has the keys of the two nodes that it joins, and of its emphasis where there is a legend of it.
class CircleKeys {
  public:
    explicit CircleKeys(const document::CirclePicture& picture);

    std::vector<int> OfLink(int panel, const document::CircleLink& link) const;
    int OfNode(int panel, int node) const { return fvFirstNodes[static_cast<std::size_t>(panel)] + node; }
    int OfEmphasis(bool isSetOff) const { return fvFirstNodes.back() + (isSetOff ? 0 : 1); }

  private:
    std::vector<int> fvFirstNodes;  ///< of each panel, and at the end the number of all nodes
    bool fHasLegend;
};

}  // namespace hierfit::report::charts
