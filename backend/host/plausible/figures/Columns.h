#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/plausible/figures/Figure.h"
#include "host/xml/Document.h"

namespace hierfit::plausible {

/// The numbers of an element's `Array`. Figures are good as long as it lives and is not read again.
class Column {
  public:
    /// Empty where there is no array.
    void Read(const xml::Document& document, xml::Document::Node parent);

    std::size_t Size() const { return fvTokens.size(); }

    /// Nothing for a missing figure or behind the end.
    MaybeFigure At(std::size_t row) const { return row < fvTokens.size() ? ReadFigure(fvTokens[row]) : std::nullopt; }

  private:
    std::vector<std::string> fvTokens;
};

}  // namespace hierfit::plausible
