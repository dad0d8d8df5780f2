#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Levels.h"
#include "host/chart/specification/Specification.h"
#include "host/document/Picture.h"

namespace hierfit::chart {

/// What a diagram's weights mean, by the legend for the reference; from the data where there is no legend.
class WeightLegend {
  public:
    /// The variable may be null.
    WeightLegend(const Specification& specification, const std::string& reference, const ShownVariable* weight);

    const std::string& Title() const { return fWeights.fTitle; }
    double Low() const { return fWeights.fLow; }

    /// A weight in the words of the legend, else the number.
    std::string WordsOf(double weight) const;

    /// The scale, and the legend's entries for the weights of these links.
    document::NetworkWeights Show(const std::vector<document::NetworkLink>& links) const;

  private:
    void AddEntries(const Legend& legend);
    void SetScaleByData(const ShownVariable& variable);

    document::NetworkWeights fWeights;  ///< with all entries between the legend's limits
    std::vector<std::string> fvWords;   ///< of the weight 0, 1, ...; empty where the legend has no words for it
};

/// The signs of links, in order of appearance, but what the run's language calls "Negative" last.
class SignClasses {
  public:
    /// The variable may be null.
    SignClasses(const Specification& specification, const std::string& reference, const ShownVariable* variable);

    std::optional<int> At(std::size_t row) const;
    const document::PictureClasses& Classes() const { return fClasses; }
    bool IsLastNegative() const { return fIsLastNegative; }

  private:
    Levels fLevels;
    std::vector<int> fvClassOfLevel;
    document::PictureClasses fClasses;
    bool fIsLastNegative = false;
};

/// The types of nodes, in the order of the legend's entries; types without an entry follow.
class TypeClasses {
  public:
    /// The variable may be null.
    TypeClasses(const Specification& specification, const std::string& reference, const ShownVariable* variable);

    std::optional<int> At(std::size_t row) const;
    const document::PictureClasses& Classes() const { return fClasses; }
    const std::vector<document::NodeKind>& Kinds() const { return fvKinds; }

  private:
    void AddEntries(const Legend& legend);
    void Take(std::size_t level, std::string words);

    Levels fLevels;
    std::vector<std::optional<int>> fvClassOfLevel;
    document::PictureClasses fClasses;
    std::vector<document::NodeKind> fvKinds;
};

}  // namespace hierfit::chart
