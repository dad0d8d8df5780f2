#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/chart/view/ViewContext.h"
#include "host/chart/view/parts/Panels.h"

namespace hierfit::chart {

struct PairwiseLink {
    std::size_t fFrom;  ///< nodes of the panel
    std::size_t fTo;
    double fWidth;  ///< share of the widest line
    bool fIsSetOff;
    std::string fTip;
    std::vector<std::string> fvFigures;  ///< of the specification's popups, in words
};

/// The graph of one panel: its nodes from the top clockwise, and its lines.
struct PairwisePanel {
    Panels::Place fPlace;
    std::vector<std::string> fvNames;
    std::vector<PairwiseLink> fvLinks;
};

/// Graphs of pairs. It owns all that it holds.
struct Pairwise {
    std::vector<PairwisePanel> fvPanels;
    std::string fNodeTitle;
    std::string fMarkTitle;
    std::string fSetOffInWords;
    std::string fRestInWords;
    std::vector<std::string> fvFigureTitles;
    bool fHasLegend = false;
};

/// The panels of a pairwise graph: those of its lines, or of its nodes where the lines tell none.
Panels PairwisePanels(const ViewContext& context);

/// Reads nodes and lines. Nodes stand in reverse order of their first appearance. A line joins two nodes of its panel;
/// one that lacks an end is left out. A line is as wide as the reciprocal of its weight, at most 1; without a weight it
/// is the thinnest.
Pairwise ReadPairwise(const ViewContext& context, const Panels& panels);

}  // namespace hierfit::chart
