#include "report/latex/TableLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "report/layout/CellContent.h"

namespace hierfit::report::latex {

namespace {

bool IsBlank(const document::Text* text) {
    return !text || text->fWords.find_first_not_of(" \t\r\n") == std::string::npos;
}

int LastLevel(const HeaderCell& header) { return header.fLevel + header.fLevels - 1; }

}  // namespace

std::string TableLines::SpellText(double width, bool isWrapped) const {
    if (!isWrapped) return "l";
    return fmt::format(">{{\\raggedright\\hangindent=1em\\arraybackslash}}p{{{:.3f}\\linewidth}}",
                       width / fPlan.GetSetting().fLine);
}

std::string TableLines::MakeColumns(bool isStretched) const {
    std::string columns = isStretched ? "@{\\extracolsep{\\fill}}" : "@{}";
    for (int level = 0; level < fGrid.fRowLevels; ++level) {
        columns += SpellText(fPlan.Level(level).fWidth, fPlan.Level(level).fIsWrapped);
    }
    for (int at = fBlock.fFirst; at < fBlock.fEnd; ++at) {
        const Column& column = fPlan.Data(at);
        columns += column.fIsText ? SpellText(column.fWidth, column.fIsWrapped) : column.fFigures.Spell();
    }
    return columns + "@{}";
}

bool TableLines::HasCornerNames() const {
    return std::ranges::any_of(fGrid.fvCorner, [](const CornerCell& cell) { return !IsBlank(cell.fpName); });
}

std::string TableLines::MakeHead() {
    std::string head = "\\toprule\n";
    const int rows = std::max(fGrid.fColumnLevels, HasCornerNames() ? 1 : 0);
    for (int row = 0; row < rows; ++row) AppendHeaderRow(head, row);
    if (rows > 0) head += "\\midrule\n";
    return head;
}

// The names stand in the last row, right above what they name.
void TableLines::AppendCorner(std::string& out, bool isLastRow) {
    if (!isLastRow) {
        for (int level = 1; level < fGrid.fRowLevels; ++level) out += " & ";
        return;
    }
    for (const CornerCell& corner : fGrid.fvCorner) {
        if (corner.fLevel > 0) out += " & ";
        if (!IsBlank(corner.fpName)) {
            double width = 0;
            for (int level = 0; level < corner.fLevels; ++level) width += fPlan.Level(corner.fLevel + level).fWidth;
            if (corner.fLevels > 1) out += fmt::format("\\multicolumn{{{}}}{{@{{}}l}}{{", corner.fLevels);
            AppendLines(out, TablePlan::WrapHeader(*corner.fpName, width), "bl", {});
            if (corner.fLevels > 1) out += '}';
        } else {
            for (int level = 1; level < corner.fLevels; ++level) out += " & ";
        }
    }
}

void TableLines::AppendHeaderRow(std::string& out, int row) {
    if (fGrid.fRowLevels > 0) AppendCorner(out, row + 1 >= fGrid.fColumnLevels);
    std::string rules;
    int column = fBlock.fFirst - (fGrid.fRowLevels > 0 ? 1 : 0);  // the one that was written last
    const bool hasHeaders = row < fGrid.fColumnLevels;
    for (const HeaderCell* header : hasHeaders ? fPlan.HeadersAt(row, fBlock) : std::span<const HeaderCell* const>()) {
        const int first = std::max(header->fFirst, fBlock.fFirst);
        const int end = std::min(header->fFirst + header->fSpan, fBlock.fEnd);
        for (; column < first; ++column) out += " & ";
        AppendHeader(out, *header, first, end);
        column = end - 1;
        if (end - first < 2 || IsBlank(header->fpLabel)) continue;
        const int before = fGrid.fRowLevels - fBlock.fFirst;
        rules += fmt::format("\\cmidrule(lr){{{}-{}}}", first + before + 1, end + before);
    }
    for (; column < fBlock.fEnd - 1; ++column) out += " & ";
    out += " \\\\\n";
    if (!rules.empty()) out.append(rules).append("\n");
}

void TableLines::AppendHeader(std::string& out, const HeaderCell& header, int first, int end) {
    const int span = end - first;
    if (span > 1) {
        out += fmt::format("\\multicolumn{{{}}}{{c{}}}{{", span, IsLast(end - 1) ? "@{}" : "");
    }
    if (!IsBlank(header.fpLabel)) {
        HeaderCell shown = header;
        shown.fFirst = first;
        shown.fSpan = span;
        const bool isText = span == 1 && fPlan.Data(first).fIsText;
        if (span == 1 && !isText) out += '{';
        const std::string marks = fNotes.MarkUp(header.fvNotes);
        AppendLines(out, TablePlan::WrapHeader(*header.fpLabel, fPlan.RoomOf(shown)), isText ? "bl" : "b", marks);
        if (span == 1 && !isText) out += '}';
    }
    if (span > 1) out += '}';
}

void TableLines::AppendLines(std::string& out, const std::vector<std::string>& lines, std::string_view position,
                             std::string_view marks) {
    if (lines.size() > 1) out.append("\\makecell[").append(position).append("]{");
    for (const std::string& line : lines) {
        if (&line != &lines.front()) out += "\\\\";
        AppendText(out, line, kLine, fScripts);
    }
    out += marks;
    if (lines.size() > 1) out += '}';
}

void TableLines::AppendBody(std::string& out) {
    auto cell = fGrid.fvCells.begin();
    for (int row = 0; row < fGrid.fRows; ++row, cell += fGrid.fColumns) {
        AppendRowHeaders(out, row);
        for (int column = fBlock.fFirst; column < fBlock.fEnd; ++column) {
            if (column > fBlock.fFirst || fGrid.fRowLevels > 0) out += " & ";
            AppendCell(out, column, cell[column]);
        }
        out += " \\\\\n";
    }
}

void TableLines::AppendRowHeaders(std::string& out, int row) {
    const auto isNew = [&](int level) {
        return fNext < fGrid.fvRowHeaders.size() && fGrid.fvRowHeaders[fNext].fFirst == row &&
               fGrid.fvRowHeaders[fNext].fLevel == level;
    };
    if (isNew(0)) {  // Rows below one outermost header stand apart from the others.
        const bool opensGroup = fGrid.fvRowHeaders[fNext].fSpan > 1;
        if (row > 0 && (opensGroup || fIsGroupOpen)) out += "\\addlinespace\n";
        fIsGroupOpen = opensGroup;
    }
    for (int level = 0; level < fGrid.fRowLevels;) {
        if (level > 0) out += " & ";
        int levels = 1;
        if (isNew(level)) {
            const HeaderCell& header = fGrid.fvRowHeaders[fNext++];
            AppendRowHeader(out, header);
            levels = header.fLevels;
        }
        level += levels;
    }
}

void TableLines::AppendRowHeader(std::string& out, const HeaderCell& header) {
    if (header.fLevels > 1) {
        double width = 0;
        bool isWrapped = false;
        for (int level = header.fLevel; level <= LastLevel(header); ++level) {
            width += fPlan.Level(level).fWidth;
            isWrapped = isWrapped || fPlan.Level(level).fIsWrapped;
        }
        out += fmt::format("\\multicolumn{{{}}}{{{}{}}}{{", header.fLevels, header.fLevel == 0 ? "@{}" : "",
                           SpellText(width, isWrapped));
    }
    if (header.fpLabel) fNotes.AppendShown(out, header.fpLabel->fWords, kCell);
    out += fNotes.MarkUp(header.fvNotes);
    if (header.fLevels > 1) out += '}';
}

void TableLines::AppendCell(std::string& out, int column, const DataCell& cell) {
    if (!cell.fpCell) return;
    const document::Text& text = cell.fpCell->fContent;
    const std::string marks = fNotes.MarkUp(cell.fvNotes);
    const Column& data = fPlan.Data(column);
    const std::optional<Figure> figure = data.fIsText || !IsNumber(text) ? std::nullopt : ReadFigure(text.fWords);
    if (figure) return data.fFigures.AppendCell(out, *figure, marks, IsLast(column) ? "@{}" : "");
    if (!data.fIsText) out += '{';
    fNotes.AppendShown(out, text.fWords, kCell);
    out += marks;
    if (!data.fIsText) out += '}';
}

}  // namespace hierfit::report::latex
