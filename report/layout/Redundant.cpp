#include "report/layout/Redundant.h"

#include <algorithm>
#include <string_view>

namespace hierfit::report {

namespace {

constexpr std::string_view kRedundant = "Redundant coefficient, zero ...";

bool SaysRedundant(const document::Text& note) {
    const auto* source = std::get_if<document::StringSource>(&note.fFrom);
    return source && source->fString == kRedundant;
}

/// The label of one factor's level, such as "[dose=2]"; empty for an interaction.
std::string_view LevelIn(std::string_view label) {
    if (label.size() < 2 || label.front() != '[' || label.back() != ']') return {};
    label = label.substr(1, label.size() - 2);
    return label.find(']') == std::string_view::npos ? label : std::string_view();
}

class Finder {
  public:
    explicit Finder(const Grid& grid) : fGrid(grid) {
        fFound.fvRows.resize(static_cast<std::size_t>(grid.fRows));
        fFound.fvNotes.resize(grid.fvNotes.size(), true);
    }

    Redundant Find() {
        for (int row = 0; row < fGrid.fRows; ++row) FindInRow(row);
        for (const HeaderCell& header : fGrid.fvRowHeaders) AddReference(header);
        for (const HeaderCell& header : fGrid.fvRowHeaders) KeepHeader(header);
        for (const HeaderCell& header : fGrid.fvColumnHeaders) Keep(header.fvNotes);
        for (const HeaderCell& header : fGrid.fvRowHeaders) {
            if (!Row(header.fFirst)) Keep(header.fvNotes);
        }
        for (int row = 0; row < fGrid.fRows; ++row) CountRow(row);
        return std::move(fFound);
    }

  private:
    bool IsRedundant(const DataCell& cell) const {
        return cell.fpCell && std::ranges::any_of(cell.fpCell->fvNotes, SaysRedundant);
    }

    void FindInRow(int row) {
        for (int column = 0; column < fGrid.fColumns && !Row(row); ++column) {
            if (IsRedundant(fGrid.At(row, column))) Row(row) = true;
        }
    }

    /// A header of several rows stands in the first; only those of the outermost level end where their rows end.
    void KeepHeader(const HeaderCell& header) {
        if (header.fSpan == 1) return;
        Row(header.fFirst) = false;
        if (header.fLevel == 0) return;
        for (int row = header.fFirst; row < header.fFirst + header.fSpan; ++row) Row(row) = false;
    }

    void AddReference(const HeaderCell& header) {
        if (!Row(header.fFirst) || header.fSpan > 1 || !header.fpLabel) return;
        const std::string_view level = LevelIn(header.fpLabel->fWords);
        std::vector<std::string>& levels = fFound.fvReferences;
        const bool isNew = levels.size() < kMostReferences && std::ranges::find(levels, level) == levels.end();
        if (!level.empty() && isNew) levels.emplace_back(level);
    }

    void CountRow(int row) {
        if (Row(row)) {
            ++fFound.fCount;
            return;
        }
        for (int column = 0; column < fGrid.fColumns; ++column) Keep(fGrid.At(row, column).fvNotes);
    }

    void Keep(const std::vector<int>& notes) {
        for (const int note : notes) fFound.fvNotes[static_cast<std::size_t>(note)] = false;
    }

    std::vector<bool>::reference Row(int row) { return fFound.fvRows[static_cast<std::size_t>(row)]; }

    static constexpr std::size_t kMostReferences = 50;

    const Grid& fGrid;
    Redundant fFound;
};

}  // namespace

Redundant FindRedundant(const Grid& grid) { return Finder(grid).Find(); }

}  // namespace hierfit::report
