#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/chart/view/Drawing.h"
#include "host/chart/view/parts/Levels.h"

namespace hierfit::chart {

/// The panels of a chart: one for each level of its facet variable, or for each pair of levels of two. In a view's data
/// field "p" tells the level that stands across, "q" the one that stands down. It borrows the context.
class Panels {
  public:
    struct Place {
        std::size_t fAcross = 0;
        std::size_t fDown = 0;
    };

    /// A facet variable that is absent or was never written is left out. Without a facet variable there is one panel.
    Panels(const ViewContext& context, std::string_view source);

    bool HasHeadings() const { return fpAcross != nullptr; }
    bool HasTwoVariables() const { return fpDown != nullptr; }
    const ShownVariable* AcrossVariable() const { return fpAcross; }
    const ShownVariable* DownVariable() const { return fpDown; }
    const Levels& Across() const { return fAcross; }
    const Levels& Down() const { return fDown; }

    /// The specification's first variable stands down, its second across.
    bool IsSwapped() const { return fIsSwapped; }

    /// Panels abreast, and rows of them; at least 1.
    std::size_t Columns() const;
    std::size_t Rows() const;

    /// The panel of a row of the data; nothing where a facet variable has no value.
    std::optional<Place> At(std::size_t row) const;

    /// Writes "p" and "q" into an item of a view's data.
    void Mark(const Place& place, Json& item) const;

    /// The view of all panels, from the view of one of them and the data. Panels have an axis of their own along x
    /// where they stand in one row, and where the last of several rows is shorter than the others.
    Json Arrange(Json panel, Json values, double panelHeight) const;

    /// A title for each facet variable, and under these a panel in words; what a title says they do not repeat.
    std::vector<std::string> Titles() const;
    std::vector<std::string> WordsUnderTitles(const Place& place) const;

    /// The words over and beside the panels, cut to the size of a panel in pixels.
    void AddTexts(std::vector<LevelTexts>& texts, double panelWidth, double panelHeight) const;

  private:
    const ShownVariable* fpAcross = nullptr;
    const ShownVariable* fpDown = nullptr;
    bool fIsSwapped = false;
    std::size_t fWrap;
    Levels fAcross;
    Levels fDown;
};

}  // namespace hierfit::chart
