#include "report/csv/Csv.h"

#include <optional>
#include <string_view>
#include <vector>

#include "report/csv/Records.h"
#include "report/items/Entries.h"
#include "report/layout/CellContent.h"
#include "report/layout/FlatNames.h"

namespace hierfit::report {

namespace {

constexpr std::string_view kNoColumn = "Value";

void AddContent(Records& records, const document::Text& text) {
    const std::optional<double> number = FindNumber(text);
    records.Add(number ? SpellNumber(*number) : text.fWords);
}

}  // namespace

std::vector<std::string> NameFields(const Grid& grid) {
    std::vector<std::string> names = NameRowLevels(grid);
    for (std::string& name : JoinColumnNames(grid)) {
        names.push_back(grid.fColumnLevels == 0 ? std::string(kNoColumn) : std::move(name));
    }
    MakeUnique(names);
    return names;
}

std::string MakeCsvTable(const document::Table& table) {
    const Grid grid = MakeFullGrid(table);
    Records records;
    for (const std::string& name : NameFields(grid)) records.Add(name);
    records.End();
    RowLabels labels(grid);
    for (int row = 0; row < grid.fRows; ++row) {
        for (const HeaderCell* label : labels.Next()) {
            records.Add(label && label->fpLabel ? std::string_view(label->fpLabel->fWords) : std::string_view());
        }
        for (int column = 0; column < grid.fColumns; ++column) {
            const document::Cell* cell = grid.At(row, column).fpCell;
            cell ? AddContent(records, cell->fContent) : records.Add(std::string_view());
        }
        records.End();
    }
    return records.Take();
}

std::string NameCsvFile(const std::string& name) { return name + ".csv"; }

std::string MakeCsvIndex(const document::Document& document) {
    Records records;
    for (const std::string_view name : {"name", "kind", "title", "file"}) records.Add(name);
    records.End();
    for (const items::Entry& entry : items::ListEntries(document)) {
        const bool isTable = std::holds_alternative<document::Table>(entry.fpItem->fContent);
        records.Add(entry.fAnchor);
        records.Add(items::KindOf(*entry.fpItem));
        records.Add(items::TitleOf(*entry.fpItem));
        records.Add(isTable ? NameCsvFile(entry.fAnchor) : std::string());
        records.End();
    }
    return records.Take();
}

}  // namespace hierfit::report
