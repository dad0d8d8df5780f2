#include "report/csv/Csv.h"

#include <optional>
#include <string_view>
#include <vector>

#include "report/items/Entries.h"
#include "report/layout/CellContent.h"
#include "report/layout/FlatNames.h"

namespace hierfit::report {

namespace {

constexpr std::string_view kNoColumn = "Value";

/// Writes records field by field.
class Records {
  public:
    void Add(std::string_view field) {
        if (fFields++ > 0) fOut += ',';
        const bool isQuoted = field.find_first_of(",\"\r\n") != std::string_view::npos;
        if (!isQuoted) {
            fOut += field;
            return;
        }
        fOut += '"';
        for (const char byte : field) {
            if (byte == '"') fOut += '"';
            fOut += byte;
        }
        fOut += '"';
    }

    /// A record of one empty field is no empty line, which readers skip.
    void End() {
        if (fFields == 1 && fOut.size() == fBegin) fOut += "\"\"";
        fOut += '\n';
        fBegin = fOut.size();
        fFields = 0;
    }

    std::string Take() { return std::move(fOut); }

  private:
    std::string fOut;
    std::size_t fBegin = 0;  ///< of the record
    int fFields = 0;
};

void AddContent(Records& records, const document::Text& text) {
    const std::optional<double> number = FindNumber(text);
    records.Add(number ? SpellNumber(*number) : text.fWords);
}

void AddHeader(Records& records, const Grid& grid) {
    std::vector<std::string> names = NameRowLevels(grid);
    for (std::string& name : JoinColumnNames(grid)) {
        names.push_back(grid.fColumnLevels == 0 ? std::string(kNoColumn) : std::move(name));
    }
    MakeUnique(names);
    for (const std::string& name : names) records.Add(name);
    records.End();
}

}  // namespace

std::string MakeCsvTable(const document::Table& table) {
    const Grid grid = MakeFullGrid(table);
    Records records;
    AddHeader(records, grid);
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
