#pragma once

#include <string>
#include <vector>

#include "host/chart/picture/Panels.h"
#include "host/chart/picture/PictureContext.h"

namespace hierfit::chart {

/// The graph of one panel, numbered as the data have it, and the figures of each of its lines, in words.
struct PairwisePanel {
    document::CirclePanel fGraph;
    std::vector<std::vector<std::string>> fvFigures;
};

/// Graphs of pairs. It owns all that it holds.
struct Pairwise {
    std::vector<PairwisePanel> fvPanels;
    std::string fNodeTitle;
    document::PictureEmphasis fEmphasis;
    std::vector<std::string> fvFigureTitles;  ///< of the specification's popups
};

/// The panels of a pairwise graph: those of its lines, or of its nodes where the lines tell none.
Panels PairwisePanels(const PictureContext& context);

/// Reads nodes and lines. Nodes stand in reverse order of their first appearance; those of one name in a panel say
/// their values too. A line joins two nodes of its panel; one that lacks an end is left out. A line is as wide as the
/// reciprocal of its weight, at most 1; without a weight it is the thinnest.
Pairwise ReadPairwise(const PictureContext& context, const Panels& panels);

}  // namespace hierfit::chart
