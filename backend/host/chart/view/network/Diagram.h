#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace hierfit::chart {

/// A node of a diagram, in the units of its variables.
struct DiagramNode {
    double fX;
    double fY;
    std::string fName;  ///< in full
    std::string fTip;
    std::optional<std::size_t> fType;
};

/// A line between two points.
struct DiagramLink {
    double fX;
    double fY;
    double fX2;
    double fY2;
    double fWeight;
    std::optional<std::size_t> fSign;  ///< a level of `DiagramSigns`
    std::string fTip;
    std::size_t fRow;  ///< of the data; a node and its link share it
};

/// What all links lead to.
struct DiagramTarget {
    std::optional<double> fX;
    std::optional<double> fY;
    std::string fName;
    std::string fTip;
};

/// Weights in words: entry i of the words belongs to the weight i, and is empty where no weight has words.
struct DiagramWeights {
    double fLow = 0;  ///< of the scale
    double fHigh = 1;
    std::string fTitle;
    std::vector<std::string> fvWords;
    std::vector<double> fvLegendValues;  ///< empty: there is no legend

    std::string InWords(double weight) const;
};

/// The signs of the links that occur, the negative one last; it has a flag of its own because it is drawn dashed.
struct DiagramSigns {
    std::string fTitle;
    std::vector<std::string> fvWords;
    bool fIsLastNegative = false;
    bool fHasLegend = false;
};

struct DiagramTypes {
    std::string fTitle;
    std::vector<std::string> fvWords;
    std::vector<std::string> fvShapes;
    bool fHasLegend = false;
};

/// A node-and-edge diagram: nodes about a target, one line from each. It owns all that it holds.
struct Diagram {
    std::vector<DiagramNode> fvNodes;
    std::vector<DiagramLink> fvLinks;  ///< by weight, the heaviest first: thin lines lie on top
    DiagramTarget fTarget;
    DiagramWeights fWeights;
    DiagramSigns fSigns;
    DiagramTypes fTypes;
    std::vector<std::vector<std::string>> fvRows;  ///< for each node its name, type, weight and sign in words
};

}  // namespace hierfit::chart
