#pragma once

#include <cstddef>

#include "report/latex/LatexText.h"

namespace hierfit::report::latex {

/// What the markup of a document needs, gathered while it is written.
struct Needs {
    Scripts fScripts;
    std::size_t fFloats = 0;
    bool fHasTables = false;
    bool fHasLongTables = false;
    bool fHasSidewaysTables = false;
    bool fHasLandscapes = false;
    bool fHasFigures = false;
};

}  // namespace hierfit::report::latex
