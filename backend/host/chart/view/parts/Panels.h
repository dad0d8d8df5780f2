#pragma once

#include <optional>
#include <string_view>

#include "host/chart/view/Drawing.h"
#include "host/chart/view/parts/Levels.h"

namespace hierfit::chart {

/// The panels of a chart: one for each level of its facet variable, or for each pair of levels of two. The levels of
/// the first go into field "p" of a view's data, those of the second into "q".
class Panels {
  public:
    /// A facet variable that is absent or was never written is left out.
    Panels(const ViewContext& context, std::string_view source);

    bool HasAny() const { return fAcross.Count() != 0; }
    bool HasTwo() const { return fDown.Count() != 0; }

    /// The levels side by side, wrapped into rows where they are the only ones.
    const Levels& Across() const { return fAcross; }
    const ShownVariable* AcrossVariable() const { return fpAcross; }

    /// The levels below each other, of two facet variables.
    const Levels& Down() const { return fDown; }
    const ShownVariable* DownVariable() const { return fpDown; }

    /// The number of panels abreast, and of rows of them. 1 without panels.
    std::size_t Columns() const;
    std::size_t Rows() const;

    /// Whether the last row of panels is shorter than the others.
    bool IsUneven() const;

    /// Whether a row of the data belongs to a panel; always without panels.
    bool Has(std::size_t row) const;

    /// Writes "p" and "q" of a row of the data into an item of the view's.
    void Mark(std::size_t row, Json& item) const;

    /// Whether a line guide is drawn in the panel of these levels: not where its `unless` tells this panel out. Levels of
    /// facet variables in the order of the specification.
    bool IsGuided(const LineGuide& guide, std::size_t across, std::size_t down) const;

    /// The view of all panels: of the panel that is given and of the data. `ownAxes`: each panel has an axis of its own
    /// along "x" where rows of panels are uneven. Without panels it is the view given, with its data.
    Json Arrange(Json panel, Json values) const;

    /// Adds the words of the levels; a heading's width is that of a panel.
    void AddTexts(std::vector<LevelTexts>& texts, double panelWidth, double panelHeight) const;

  private:
    const ShownVariable* fpAcross = nullptr;
    const ShownVariable* fpDown = nullptr;
    bool fIsSwapped = false;  ///< the specification's first variable goes down
    std::size_t fWrap;
    Levels fAcross;
    Levels fDown;
};

}  // namespace hierfit::chart
