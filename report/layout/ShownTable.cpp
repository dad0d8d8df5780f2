#include "report/layout/ShownTable.h"

#include <algorithm>
#include <charconv>

namespace hierfit::report {

using document::Category;
using document::ChartTable;
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

/// A dimension that tells where rows or columns stand, under a name of its own where it has one.
Dimension MakeDimension(document::Side side, std::string_view name) {
    return {Words(name), 2, true, side, 1, name.empty(), false, {}};
}

void AddCategory(Dimension& dimension, std::size_t id, std::string_view label) {
    dimension.fMembers.push_back({Category{static_cast<int>(id), Words(label), {}}});
}

/// A dimension for each key, in which each row has a category of its own: rows stay apart and in their order, whatever
/// their labels. Rows without keys are told apart by a dimension that is not seen.
std::vector<Dimension> MakeRowDimensions(const ChartTable& shown, std::size_t keys, std::size_t rows) {
    std::vector<Dimension> dimensions;
    for (std::size_t key = 0; key < std::max<std::size_t>(keys, 1); ++key) {
        Dimension& dimension =
            dimensions.emplace_back(MakeDimension(document::Side::Rows, key < keys ? shown.fvColumns[key] : ""));
        dimension.fHideLabels = keys == 0;
        dimension.fIndex = static_cast<int>(keys - key);
        for (std::size_t row = 0; row < rows; ++row) {
            AddCategory(dimension, row, key < keys ? shown.fvRows[row][key] : "");
        }
    }
    return dimensions;
}

void AddRow(Table& table, const std::vector<std::string>& cells, std::size_t keys, std::size_t row) {
    document::CellPlace at;
    for (std::size_t dimension = 0; dimension < table.fvDimensions.size(); ++dimension)
        at.push_back(static_cast<int>(row));
    for (std::size_t column = keys; column < cells.size(); ++column) {
        at[table.fvDimensions.size() - 1] = static_cast<int>(column - keys);
        table.fvCells.push_back({at, Value(cells[column]), {}});
    }
}

}  // namespace

std::vector<const ChartTable*> FindShownTables(const document::Picture& picture) {
    std::vector<const ChartTable*> tables;
    for (const ChartTable& table : picture.fvTables) {
        if (!table.fvColumns.empty() && !table.fvRows.empty()) tables.push_back(&table);
    }
    return tables;
}

Table MakeShownTable(const ChartTable& shown, std::size_t mostRows) {
    const auto keys = static_cast<std::size_t>(shown.fKeys);
    const std::size_t rows = std::min(mostRows, shown.fvRows.size());
    Table table{Words({}), Words({}), false, {}, {}, {}, MakeRowDimensions(shown, keys, rows), {}};
    Dimension& columns = table.fvDimensions.emplace_back(MakeDimension(document::Side::Columns, {}));
    for (std::size_t column = keys; column < shown.fvColumns.size(); ++column) {
        AddCategory(columns, column - keys, shown.fvColumns[column]);
    }
    for (std::size_t row = 0; row < rows; ++row) AddRow(table, shown.fvRows[row], keys, row);
    return table;
}

}  // namespace hierfit::report
