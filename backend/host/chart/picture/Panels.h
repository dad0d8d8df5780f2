#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/chart/picture/Levels.h"
#include "host/chart/picture/PictureContext.h"

namespace hierfit::chart {

/// The panels of a chart: one for each level of its facet variable, or for each pair of levels of two. It borrows the
/// context.
class Panels {
  public:
    /// A facet variable that is absent or was never written is left out. Without a facet variable there is one panel.
    Panels(const PictureContext& context, std::string_view source);

    bool HasHeadings() const { return fpAcross != nullptr; }
    bool HasTwoVariables() const { return fpDown != nullptr; }
    const ShownVariable* AcrossVariable() const { return fpAcross; }
    const ShownVariable* DownVariable() const { return fpDown; }
    const Levels& Across() const { return fAcross; }
    const Levels& Down() const { return fDown; }

    /// The specification's first variable stands down, its second across.
    bool IsSwapped() const { return fIsSwapped; }

    /// The panel of a row of the data; nothing where a facet variable has no value.
    std::optional<document::PanelPlace> At(std::size_t row) const;

    /// A title for each facet variable, and under these a panel in words; what a title says they do not repeat.
    std::vector<std::string> Titles() const;
    std::vector<std::string> WordsUnderTitles(const document::PanelPlace& place) const;

    /// The panels of a picture: those that the places mean, which are numbered anew.
    document::PicturePanels Show(const std::vector<document::PanelPlace*>& places) const;

  private:
    const ShownVariable* fpAcross = nullptr;
    const ShownVariable* fpDown = nullptr;
    bool fIsSwapped = false;
    int fAbreast = 0;
    Levels fAcross;
    Levels fDown;
};

}  // namespace hierfit::chart
