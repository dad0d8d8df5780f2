#include <numeric>

#include "report/docx/Runs.h"
#include "report/docx/Styles.h"
#include "report/docx/table/Cells.h"
#include "report/docx/table/TableRows.h"
#include "report/layout/CellContent.h"

namespace hierfit::report::docx {

namespace {

constexpr std::string_view kPropertiesEnd = "</w:pPr>";
constexpr std::string_view kCellOfParagraphEnd = "</w:p></w:tc>\n";

}  // namespace

BodyRows::BodyRows(const Grid& grid, const TablePlan& plan, const TablePart& part, bool stayTogether)
    : fGrid(grid),
      fPlan(plan),
      fPart(part),
      fKeep(stayTogether ? kKeepNext : ""),
      fvOpen(static_cast<std::size_t>(grid.fRowLevels)),
      fLabels(grid) {
    for (std::size_t column = 0; column < part.fvColumns.size(); ++column) fvStarts.push_back(MakeStarts(column));
}

BodyRows::Starts BodyRows::MakeStarts(std::size_t column) const {
    const int width = fPart.fvColumns[column];
    std::string cell;
    AppendCellStart(cell, {width});
    cell += "<w:p><w:pPr><w:pStyle w:val=\"";
    Starts starts{cell, cell};
    starts.fText.append(fPlan.Styles().fText).append("\"/>").append(fKeep);
    starts.fFigure.append(fPlan.Styles().fFigure)
        .append("\"/>")
        .append(fKeep)
        .append("<w:tabs><w:tab w:val=\"decimal\"");
    AppendNumber(starts.fFigure, "w:pos", fPlan.DecimalAt(fPart.fFirst + static_cast<int>(column), width));
    starts.fFigure.append("/></w:tabs>").append(kPropertiesEnd);
    return starts;
}

void BodyRows::Append(std::string& out) {
    for (int row = 0; row < fGrid.fRows; ++row) {
        out += fPlan.PartsRows() ? "<w:tr>" : "<w:tr><w:trPr><w:cantSplit/></w:trPr>";
        if (fPlan.AreLevelsJoined()) {
            AppendJoined(out);
        } else {
            AppendRowHeaders(out, row);
        }
        for (int column = fPart.fFirst; column < fPart.fEnd; ++column) AppendCell(out, column, fGrid.At(row, column));
        out += "</w:tr>\n";
    }
}

void BodyRows::AppendRowHeaders(std::string& out, int row) {
    for (int level = 0; level < fGrid.fRowLevels;) {
        const bool isNew = fNext < fGrid.fvRowHeaders.size() && fGrid.fvRowHeaders[fNext].fFirst == row &&
                           fGrid.fvRowHeaders[fNext].fLevel == level;
        const HeaderCell*& open = fvOpen[static_cast<std::size_t>(level)];
        if (isNew) open = &fGrid.fvRowHeaders[fNext++];
        AppendRowHeader(out, *open, isNew);
        level += open->fLevels;
    }
}

void BodyRows::AppendRowHeader(std::string& out, const HeaderCell& header, bool isFirst) const {
    const auto begin = fPart.fvLevels.begin() + header.fLevel;
    const Merge merge = header.fSpan == 1 ? Merge::None : isFirst ? Merge::Begin : Merge::Continue;
    AppendCellStart(out, {std::accumulate(begin, begin + header.fLevels, 0), header.fLevels, merge});
    const std::string words = header.fpLabel && isFirst ? BindSign(header.fpLabel->fWords) : "";
    AppendParagraphStart(out, fPlan.Styles().fText, std::string(fKeep).append(DirectionOf(words)));
    AppendRuns(out, words);
    if (isFirst) AppendMarks(out, fGrid, header.fvNotes);
    out += kCellOfParagraphEnd;
}

void BodyRows::AppendJoined(std::string& out) {
    std::string words;
    std::vector<int> notes;
    for (const HeaderCell* header : fLabels.Next()) {
        if (!header) continue;
        if (header->fpLabel) words.append(words.empty() ? "" : ", ").append(header->fpLabel->fWords);
        notes.insert(notes.end(), header->fvNotes.begin(), header->fvNotes.end());
    }
    AppendCellStart(out, {fPart.fvLevels.front()});
    AppendParagraphStart(out, fPlan.Styles().fText, std::string(fKeep).append(DirectionOf(words)));
    AppendRuns(out, words);
    AppendMarks(out, fGrid, notes);
    out += kCellOfParagraphEnd;
}

void BodyRows::AppendCell(std::string& out, int column, const DataCell& cell) const {
    const Starts& starts = fvStarts[static_cast<std::size_t>(column - fPart.fFirst)];
    const std::string_view words = cell.fpCell ? std::string_view(cell.fpCell->fContent.fWords) : "";
    if (cell.fpCell && fPlan.IsFigures(column) && IsNumber(cell.fpCell->fContent)) {
        out += starts.fFigure;
    } else {
        out.append(starts.fText).append(DirectionOf(words)).append(kPropertiesEnd);
    }
    AppendRuns(out, words);
    AppendMarks(out, fGrid, cell.fvNotes);
    out += kCellOfParagraphEnd;
}

}  // namespace hierfit::report::docx
