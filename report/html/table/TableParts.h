#pragma once

#include <string>
#include <string_view>

#include "report/csv/HiddenFields.h"
#include "report/html/HtmlSettings.h"
#include "report/html/table/HeaderIds.h"
#include "report/html/table/NoteMarks.h"
#include "report/layout/Grid.h"
#include "report/layout/NumberColumns.h"
#include "report/layout/Redundant.h"

namespace hierfit::report::html {

/// What head and body of one table share while they are written.
struct TableParts {
    std::string& fOut;
    const Grid& fGrid;
    HeaderIds fIds;
    NoteMarks fMarks;
    NumberColumns fColumns;
    Redundant fRedundant;
    FullValues fValues;
    HiddenFields fHidden;
};

/// HTML allows a cell to span so many columns and rows. A longer one goes on in a blank cell.
inline constexpr int kMostColumns = 1000;
inline constexpr int kMostRows = 65534;

/// Appends ` name="number"`, or nothing for 1, which is the default of every span.
void AppendSpan(std::string& out, std::string_view name, int span);

/// Appends ` data-fields="text"`, or nothing for a blank text: fields of a record that is copied, which cells do not
/// tell.
void AppendFields(std::string& out, std::string_view fields);

/// Appends the label and the marks of its notes.
void AppendLabel(TableParts& parts, const HeaderCell& cell);

}  // namespace hierfit::report::html
