#include "report/html/table/TableParts.h"

#include "report/markup/Escape.h"

namespace hierfit::report::html {

void AppendSpan(std::string& out, std::string_view name, int span) {
    if (span == 1) return;
    out += ' ';
    out += name;
    out += "=\"";
    out += std::to_string(span);
    out += '"';
}

void AppendFields(std::string& out, std::string_view fields) {
    if (fields.empty()) return;
    out += " data-fields=\"";
    AppendCharacters(out, fields, kAttributeLineBreak);
    out += '"';
}

void AppendLabel(TableParts& parts, const HeaderCell& cell) {
    if (cell.fpLabel) AppendText(parts.fOut, cell.fpLabel->fWords);
    parts.fMarks.AppendMarks(parts.fOut, cell.fvNotes);
}

}  // namespace hierfit::report::html
