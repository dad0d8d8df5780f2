#pragma once

#include <string>
#include <string_view>

#include "host/document/Table.h"
#include "report/html/HtmlSettings.h"

namespace hierfit::report::html {

/// Appends a table as a figure: the table itself, and captions and notes below it. The number counts the tables of the
/// page from 1; ids inside the figure hold it.
void AppendTable(std::string& out, const document::Table& table, std::string_view title, std::string_view anchor,
                 int number, FullValues values);

/// Appends the table itself, without figure and notes. It must have cells.
void AppendPlainTable(std::string& out, const document::Table& table, std::string_view title, int number);

}  // namespace hierfit::report::html
