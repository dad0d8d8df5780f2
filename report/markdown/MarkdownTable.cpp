#include "report/markdown/MarkdownTable.h"

#include <string_view>
#include <vector>

#include "report/items/Words.h"
#include "report/layout/FlatNames.h"
#include "report/layout/NumberColumns.h"
#include "report/markdown/MarkdownText.h"

namespace hierfit::report::markdown {

namespace {

void AppendCell(std::string& out, std::string_view words) {
    out += "| ";
    AppendText(out, words);
    out += ' ';
}

/// Marks of notes, just behind what they are for.
void AppendMarks(std::string& out, const Grid& grid, const std::vector<int>& notes) {
    if (notes.empty()) return;
    out.pop_back();
    for (const int note : notes) {
        out.append("<sup>").append(grid.fvNotes[static_cast<std::size_t>(note)].fLetter).append("</sup>");
    }
    out += ' ';
}

/// The notes of a column are those of its headers.
std::vector<std::vector<int>> CollectColumnNotes(const Grid& grid) {
    std::vector<std::vector<int>> notes(static_cast<std::size_t>(grid.fColumns));
    for (const HeaderCell& header : grid.fvColumnHeaders) {
        for (int column = header.fFirst; column < header.fFirst + header.fSpan; ++column) {
            auto& list = notes[static_cast<std::size_t>(column)];
            list.insert(list.end(), header.fvNotes.begin(), header.fvNotes.end());
        }
    }
    return notes;
}

void AppendHeader(std::string& out, const Grid& grid) {
    for (const std::string& name : NameRowLevels(grid)) AppendCell(out, name);
    const std::vector<std::string> names = JoinColumnNames(grid);
    const std::vector<std::vector<int>> notes = CollectColumnNotes(grid);
    for (std::size_t column = 0; column < names.size(); ++column) {
        AppendCell(out, names[column]);
        AppendMarks(out, grid, notes[column]);
    }
    out += "|\n";
    for (int level = 0; level < grid.fRowLevels; ++level) out += "|:---";
    const NumberColumns columns(grid);
    for (int column = 0; column < grid.fColumns; ++column) out += columns.IsText(column) ? "|:---" : "|---:";
    out += "|\n";
}

void AppendLabel(std::string& out, const Grid& grid, const HeaderCell* label) {
    AppendCell(out, label && label->fpLabel ? std::string_view(label->fpLabel->fWords) : std::string_view());
    if (label) AppendMarks(out, grid, label->fvNotes);
}

void AppendRows(std::string& out, const Grid& grid) {
    RowLabels labels(grid);
    for (int row = 0; row < grid.fRows; ++row) {
        for (const HeaderCell* label : labels.Next()) AppendLabel(out, grid, label);
        for (int column = 0; column < grid.fColumns; ++column) {
            const DataCell& cell = grid.At(row, column);
            AppendCell(out, cell.fpCell ? std::string_view(cell.fpCell->fContent.fWords) : std::string_view());
            AppendMarks(out, grid, cell.fvNotes);
        }
        out += "|\n";
    }
}

void AppendLine(std::string& out, std::string_view words) {
    out += '\n';
    AppendParagraph(out, words);
    out += '\n';
}

}  // namespace

void AppendTable(std::string& out, const document::Table& table) {
    const Grid grid = MakeGrid(table);
    if (grid.fRows == 0) {
        out.append(items::Say(items::kNoCells)).append("\n");
    } else {
        AppendHeader(out, grid);
        AppendRows(out, grid);
    }
    for (const document::Text& caption : table.fvCaptions) AppendLine(out, caption.fWords);
    for (const document::Text& note : table.fvNotes) AppendLine(out, note.fWords);
    for (const Note& note : grid.fvNotes) {
        out.append("\n<sup>").append(note.fLetter).append("</sup> ");
        AppendText(out, note.fpText->fWords);
        out += '\n';
    }
}

}  // namespace hierfit::report::markdown
