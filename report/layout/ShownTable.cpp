#include "report/layout/ShownTable.h"

#include <algorithm>
#include <charconv>

namespace hierfit::report {

using document::Category;
using document::Dimension;
using document::Table;
using document::Text;

namespace {

Text Words(std::string_view words) { return {std::string(words), document::StringSource{{}, false}}; }

bool ReadsAsNumber(std::string_view words, double& number) {
    if (words == ".") return true;
    const auto result = std::from_chars(words.data(), words.data() + words.size(), number);
    return result.ec == std::errc() && result.ptr == words.data() + words.size();
}

Text Value(std::string_view words) {
    double number = 0;
    if (!ReadsAsNumber(words, number)) return Words(words);
    return {std::string(words), document::NumberSource{number, {document::FormatName::GeneralStat}}};
}

Dimension MakeDimension(document::Side side, bool hidesLabels) {
    return {Words({}), 2, true, side, 1, true, hidesLabels, {}};
}

void AddCategory(Dimension& dimension, int id, std::string_view label) {
    dimension.fMembers.push_back({Category{id, Words(label), {}}});
}

void AddRow(Table& table, int row, const std::vector<std::string>& cells) {
    AddCategory(table.fvDimensions.front(), row, {});
    int column = 0;
    for (const std::string& words : cells) table.fvCells.push_back({{row, column++}, Value(words), {}});
}

}  // namespace

bool HasTable(const document::ChartShown& shown) { return !shown.fvColumns.empty() && !shown.fvRows.empty(); }

Table MakeShownTable(const document::ChartShown& shown, std::size_t mostRows) {
    Table table{Words({}), Words({}), false, {}, {}, {}, {}, {}};
    table.fvDimensions = {MakeDimension(document::Side::Rows, true), MakeDimension(document::Side::Columns, false)};
    int column = 0;
    for (const std::string& name : shown.fvColumns) AddCategory(table.fvDimensions.back(), column++, name);
    const std::size_t rows = std::min(mostRows, shown.fvRows.size());
    for (std::size_t row = 0; row < rows; ++row) AddRow(table, static_cast<int>(row), shown.fvRows[row]);
    return table;
}

}  // namespace hierfit::report
