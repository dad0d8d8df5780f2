#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/chart/picture/ShownVariable.h"

namespace hierfit::chart {

/// The distinct values of a variable in order of their first appearance, each under a number: two values of one label
/// stay two, and say their values behind it. It borrows the variable; without one there are no levels.
class Levels {
  public:
    explicit Levels(const ShownVariable* variable);

    std::size_t Count() const { return fvTexts.size(); }

    /// The level at a row; nothing where no value was written, where it is missing or not finite, or past the end.
    std::optional<std::size_t> At(std::size_t row) const;

    const document::ChartValue& Value(std::size_t level) const { return *fvpValues[level]; }

    /// In words, in full.
    const std::string& Text(std::size_t level) const { return fvTexts[level]; }
    std::string_view TextWithoutPrefix(std::size_t level) const;
    const std::vector<std::string>& Texts() const { return fvTexts; }

  private:
    std::size_t Find(const document::ChartValue& value);

    const ShownVariable* fpVariable;
    std::vector<int> fvLevelOfRow;  ///< -1 where there is none
    std::vector<const document::ChartValue*> fvpValues;
    std::vector<std::string> fvTexts;
    std::unordered_map<double, std::size_t> fOfNumbers;
    std::unordered_map<std::string_view, std::size_t> fOfTexts;
};

/// Tells texts apart that are the same: each such text gets what tells it behind it, in brackets, unless that is empty.
void TellApart(std::vector<std::string>& texts, const std::vector<std::string>& values);

}  // namespace hierfit::chart
