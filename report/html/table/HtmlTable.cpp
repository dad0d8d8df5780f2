#include "report/html/table/HtmlTable.h"

#include "report/html/Words.h"
#include "report/html/table/TableBody.h"
#include "report/html/table/TableHead.h"
#include "report/items/Words.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

namespace {

// A table of more rows scrolls in a frame of its own, below its header.
constexpr int kLongRows = 40;

// The style sheet knows the least column widths in steps.
constexpr int kWidthStep = 25;
constexpr int kWidthSteps = 16;

TableParts MakeParts(std::string& out, const Grid& grid, int number, FullValues values, HiddenFields hidden) {
    const std::string prefix = 't' + std::to_string(number);
    return {out,
            grid,
            HeaderIds(prefix, grid),
            NoteMarks(prefix, grid.fvNotes),
            NumberColumns(grid),
            FindRedundant(grid),
            values,
            std::move(hidden)};
}

void AppendFrame(TableParts& parts, std::string_view title, int number) {
    std::string& out = parts.fOut;
    out += parts.fGrid.fRows - parts.fRedundant.fCount > kLongRows ? "<section class=\"scroll long\""
                                                                   : "<section class=\"scroll\"";
    out += " tabindex=\"0\" aria-label=\"";
    AppendCharacters(out, title);
    out += ", ";
    out += words::kTable;
    out += ' ';
    out += std::to_string(number);
    out += "\">\n";
}

void AppendTableTag(TableParts& parts) {
    std::string& out = parts.fOut;
    const std::optional<int> leastWidth = parts.fGrid.fpTable->fMinDataColumnWidth;
    out += "<table";
    if (leastWidth && *leastWidth > 0) {
        const int steps = std::min((*leastWidth - 1) / kWidthStep + 1, kWidthSteps);
        out += " class=\"w";
        out += std::to_string(steps);
        out += '"';
    }
    AppendFields(out, parts.fHidden.fHeader);
    out += ">\n";
}

void AppendLines(std::string& out, std::string_view kind, const std::vector<document::Text>& lines) {
    for (const document::Text& line : lines) {
        out.append("<p class=\"").append(kind).append("\">");
        AppendText(out, line.fWords);
        out += "</p>\n";
    }
}

void AppendReferences(std::string& out, const std::vector<std::string>& levels) {
    if (levels.empty()) return;
    out.append("<p class=\"remark\">").append(words::kReferences);
    for (const std::string& level : levels) {
        if (&level != &levels.front()) out += ", ";
        AppendText(out, level);
    }
    out += "</p>\n";
}

// Without a script: the style sheet hides the rows as long as the switch is off, on paper as long as both are.
void AppendSwitch(std::string& out, int count) {
    if (count == 0) return;
    out.append("<p class=\"switch\"><label><input type=\"checkbox\"> ").append(words::kShowRedundant);
    out.append(" (")
        .append(std::to_string(count))
        .append(")</label> <label><input type=\"checkbox\" class=\"paper\"> ");
    out.append(words::kOnPaper).append("</label></p>\n");
}

void AppendBelow(TableParts& parts) {
    const document::Table& table = *parts.fGrid.fpTable;
    const bool hasSmall = parts.fColumns.HasSmallFigures();
    if (table.fvCaptions.empty() && table.fvNotes.empty() && parts.fGrid.fvNotes.empty() && !hasSmall) return;
    parts.fOut += "<figcaption>\n";
    AppendLines(parts.fOut, "caption", table.fvCaptions);
    AppendLines(parts.fOut, "remark", table.fvNotes);
    if (hasSmall) parts.fOut.append("<p class=\"remark\">").append(words::kSmall).append("</p>\n");
    AppendReferences(parts.fOut, parts.fRedundant.fvReferences);
    parts.fMarks.AppendLines(parts.fOut, parts.fRedundant.fvNotes);
    AppendSwitch(parts.fOut, parts.fRedundant.fCount);
    parts.fOut += "</figcaption>\n";
}

void AppendGrid(TableParts& parts, std::string_view title, int number) {
    std::string& out = parts.fOut;
    AppendFrame(parts, title, number);
    AppendTableTag(parts);
    out += "<caption><span>";
    AppendText(out, title);
    out += "</span></caption>\n";
    TableHead(parts).Append();
    TableBody(parts).Append();
    out += "</table>\n</section>\n";
}

void AppendWithoutCells(std::string& out, std::string_view title) {
    out += "<p class=\"title\">";
    AppendText(out, title);
    out += "</p>\n<p>";
    out += items::kNoCells;
    out += "</p>\n";
}

}  // namespace

void AppendPlainTable(std::string& out, const document::Table& table, std::string_view title, int number) {
    const Grid grid = MakeGrid(table);
    TableParts parts = MakeParts(out, grid, number, FullValues::No, FindHiddenFields(grid));
    AppendGrid(parts, title, number);
}

void AppendTable(std::string& out, const document::Table& table, std::string_view title, std::string_view anchor,
                 int number, FullValues values) {
    const Grid grid = MakeGrid(table);
    TableParts parts = MakeParts(out, grid, number, values, FindHiddenFields(table, grid));
    out.append("<figure class=\"table\" id=\"").append(anchor).append("\">\n");
    if (grid.fRows > 0) {
        AppendGrid(parts, title, number);
    } else {
        AppendWithoutCells(out, title);
    }
    AppendBelow(parts);
    out += "</figure>\n";
}

}  // namespace hierfit::report::html
