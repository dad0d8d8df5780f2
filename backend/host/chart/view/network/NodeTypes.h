#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/chart/specification/Specification.h"
#include "host/chart/view/ShownVariable.h"
#include "host/chart/view/parts/Levels.h"

namespace hierfit::chart {

/// The kinds of the nodes that occur, in the order of the legend's entries; kinds without an entry follow. Each has its
/// words and its shape. It borrows the variable.
class NodeTypes {
  public:
    /// The legend and the variable may be null.
    NodeTypes(const Legend* legend, const ShownVariable* variable);

    std::optional<std::size_t> At(std::size_t row) const;
    const std::vector<std::string>& Texts() const { return fvTexts; }
    const std::vector<std::string>& Shapes() const { return fvShapes; }

  private:
    void Take(std::size_t level, std::string text);

    Levels fLevels;
    std::vector<std::optional<std::size_t>> fvTypeOfLevel;
    std::vector<std::string> fvTexts;
    std::vector<std::string> fvShapes;
};

}  // namespace hierfit::chart
