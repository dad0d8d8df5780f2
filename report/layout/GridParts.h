#pragma once

#include <string>
#include <vector>

#include "host/document/Table.h"

namespace hierfit::report {

/// Letters of notes, "a" to "z", then "aa" and so on.
struct Note {
    std::string fLetter;
    const document::Text* fpText;
};

/// One header cell. It covers `fSpan` rows (a row header) or columns (a column header) of data, and `fLevels` levels of
/// headers, where a category stands less deep than others beside it.
struct HeaderCell {
    int fFirst = 0;  ///< first row or column of data that it covers, from 0
    int fSpan = 1;
    int fLevel = 0;  ///< first level, from 0, the outermost
    int fLevels = 1;
    const document::Text* fpLabel = nullptr;         ///< null for the blank header of cells without a category
    const document::Category* fpCategory = nullptr;  ///< null for a group, a name and the blank header
    bool fIsDimensionName = false;  ///< the name of a dimension that stands above its categories' labels
    bool fIsGroup = false;
    std::vector<int> fvNotes;  ///< indices in `Grid::fvNotes`
};

/// The name of a row dimension, which stands above its levels of row headers.
struct CornerCell {
    int fLevel = 0;
    int fLevels = 1;
    const document::Text* fpName = nullptr;  ///< null where the name is hidden
};

/// One data cell; null content where a combination of categories has no cell.
struct DataCell {
    const document::Cell* fpCell = nullptr;
    document::RareList<int> fvNotes;  ///< indices in `Grid::fvNotes`
};

}  // namespace hierfit::report
