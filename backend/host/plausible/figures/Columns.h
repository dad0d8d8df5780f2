#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/plausible/figures/Figure.h"
#include "host/xml/Document.h"

namespace hierfit::plausible {

/// The values of an element's `Array`. Texts and figures are good as long as it lives and is not read again.
class Column {
  public:
    /// Empty where there is no array.
    void Read(const xml::Document& document, xml::Document::Node parent);

    std::size_t Size() const { return fvTokens.size(); }

    /// Empty behind the end.
    std::string_view TextAt(std::size_t row) const {
        return row < fvTokens.size() ? fvTokens[row] : std::string_view();
    }

    /// Nothing for a missing figure or behind the end.
    MaybeFigure At(std::size_t row) const { return ReadFigure(TextAt(row)); }

  private:
    std::vector<std::string> fvTokens;
};

}  // namespace hierfit::plausible
