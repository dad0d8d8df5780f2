#include "report/csv/HiddenFields.h"

#include <algorithm>

#include "report/csv/Csv.h"
#include "report/csv/Records.h"
#include "report/layout/FlatNames.h"

namespace hierfit::report {

namespace {

// In a file names of dimensions stand above rows alone.
bool TellsLess(const document::Dimension& dimension) {
    return dimension.fHideLabels || dimension.fHideName == (dimension.fSide == document::Side::Rows);
}

std::string HeaderOf(const Grid& shown, const Grid& whole) {
    std::vector<std::string> names = NameRowLevels(shown);
    for (std::string& name : JoinColumnNames(shown)) names.push_back(std::move(name));
    const std::vector<std::string> fields = NameFields(whole);
    return fields == names ? std::string() : JoinFields(fields);
}

std::vector<std::string> LabelsOf(const Grid& grid) {
    std::vector<std::string> rows;
    RowLabels labels(grid);
    for (int row = 0; row < grid.fRows; ++row) {
        std::vector<std::string> fields;
        for (const HeaderCell* label : labels.Next()) {
            fields.emplace_back(label && label->fpLabel ? label->fpLabel->fWords : std::string());
        }
        rows.push_back(JoinFields(fields));
    }
    return rows;
}

}  // namespace

HiddenFields FindHiddenFields(const document::Table& table, const Grid& shown) {
    if (std::none_of(table.fvDimensions.begin(), table.fvDimensions.end(), TellsLess)) return FindHiddenFields(shown);
    const Grid whole = MakeFullGrid(table);
    return {HeaderOf(shown, whole),
            whole.fRowLevels == shown.fRowLevels ? std::vector<std::string>() : LabelsOf(whole)};
}

HiddenFields FindHiddenFields(const Grid& shown) { return {HeaderOf(shown, shown), {}}; }

}  // namespace hierfit::report
