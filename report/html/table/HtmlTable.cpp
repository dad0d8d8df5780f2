#include "report/html/table/HtmlTable.h"

#include "report/html/Words.h"
#include "report/html/table/TableBody.h"
#include "report/html/table/TableHead.h"
#include "report/markup/Escape.h"

namespace hierfit::report::html {

namespace {

// A table of more rows scrolls in a frame of its own, below its header.
constexpr int kLongRows = 40;

// The style sheet knows the least column widths in steps.
constexpr int kWidthStep = 25;
constexpr int kWidthSteps = 16;

TableParts MakeParts(std::string& out, const Grid& grid, int number) {
    const std::string prefix = 't' + std::to_string(number);
    return {out, grid, HeaderIds(prefix, grid), NoteMarks(prefix, grid.fvNotes), NumberColumns(grid)};
}

void AppendFrame(std::string& out, const Grid& grid, std::string_view title, int number) {
    out += grid.fRows > kLongRows ? "<section class=\"scroll long\"" : "<section class=\"scroll\"";
    out += " tabindex=\"0\" aria-label=\"";
    AppendCharacters(out, title);
    out += ", ";
    out += words::kTable;
    out += ' ';
    out += std::to_string(number);
    out += "\">\n";
}

void AppendTableTag(std::string& out, std::optional<int> leastWidth) {
    out += "<table";
    if (leastWidth && *leastWidth > 0) {
        const int steps = std::min((*leastWidth - 1) / kWidthStep + 1, kWidthSteps);
        out += " class=\"w";
        out += std::to_string(steps);
        out += '"';
    }
    out += ">\n";
}

void AppendLines(std::string& out, std::string_view kind, const std::vector<document::Text>& lines) {
    for (const document::Text& line : lines) {
        out.append("<p class=\"").append(kind).append("\">");
        AppendText(out, line.fWords);
        out += "</p>\n";
    }
}

void AppendBelow(TableParts& parts) {
    const document::Table& table = *parts.fGrid.fpTable;
    if (table.fvCaptions.empty() && table.fvNotes.empty() && parts.fGrid.fvNotes.empty()) return;
    parts.fOut += "<figcaption>\n";
    AppendLines(parts.fOut, "caption", table.fvCaptions);
    AppendLines(parts.fOut, "remark", table.fvNotes);
    parts.fMarks.AppendLines(parts.fOut);
    parts.fOut += "</figcaption>\n";
}

void AppendGrid(TableParts& parts, std::string_view title, int number) {
    std::string& out = parts.fOut;
    AppendFrame(out, parts.fGrid, title, number);
    AppendTableTag(out, parts.fGrid.fpTable->fMinDataColumnWidth);
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
    out += words::kNoCells;
    out += "</p>\n";
}

}  // namespace

void AppendPlainTable(std::string& out, const document::Table& table, std::string_view title, int number) {
    const Grid grid = MakeGrid(table);
    TableParts parts = MakeParts(out, grid, number);
    AppendGrid(parts, title, number);
}

void AppendTable(std::string& out, const document::Table& table, std::string_view title, std::string_view anchor,
                 int number) {
    const Grid grid = MakeGrid(table);
    TableParts parts = MakeParts(out, grid, number);
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
