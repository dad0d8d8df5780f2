#pragma once

#include <cstddef>
#include <string_view>

#include "report/latex/LatexText.h"

namespace hierfit::report::latex {

/// The page that a document is set for.
enum class Page : unsigned char {
    Own,   ///< that of a document which compiles by itself
    Other  ///< of one that takes it in
};

/// Where floats stand: here if they fit. A document of its own says once that they stand here.
constexpr std::string_view PlacementOn(Page page) { return page == Page::Own ? "" : "[!htp]"; }

/// What the markup of a document needs, gathered while it is written, and the page that it is written for.
struct Needs {
    Page fPage = Page::Other;
    Scripts fScripts;
    std::size_t fFloats = 0;
    bool fHasSections = false;
    bool fHasTables = false;
    bool fHasLongTables = false;
    bool fHasSidewaysTables = false;
    bool fHasLandscapes = false;
    bool fHasFigures = false;
};

}  // namespace hierfit::report::latex
