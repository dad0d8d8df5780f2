#include "report/docx/table/Cells.h"

#include "report/docx/Runs.h"

namespace hierfit::report::docx {

void AppendCellStart(std::string& out, const CellShape& shape) {
    out += "<w:tc><w:tcPr><w:tcW";
    AppendNumber(out, "w:w", shape.fWidth);
    out += " w:type=\"dxa\"/>";
    if (shape.fSpan > 1) out.append("<w:gridSpan w:val=\"").append(std::to_string(shape.fSpan)).append("\"/>");
    if (shape.fMerge == Merge::Begin) out += "<w:vMerge w:val=\"restart\"/>";
    if (shape.fMerge == Merge::Continue) out += "<w:vMerge/>";
    if (shape.fIsLastOfHeader) {
        out += "<w:tcBorders><w:bottom w:val=\"single\" w:sz=\"6\" w:space=\"0\" w:color=\"auto\"/></w:tcBorders>";
    }
    if (shape.fIsInHeader) out += "<w:vAlign w:val=\"bottom\"/>";
    out += "</w:tcPr>";
}

std::string BindSign(std::string_view label) {
    constexpr std::string_view kSign = " =";
    if (!label.ends_with(kSign)) return std::string(label);
    return std::string(label.substr(0, label.size() - kSign.size())) + "\u00A0=";
}

void AppendMarks(std::string& out, const Grid& grid, const std::vector<int>& notes) {
    if (notes.empty()) return;
    std::string marks;
    for (const int note : notes) {
        marks.append(marks.empty() ? "" : ", ").append(grid.fvNotes[static_cast<std::size_t>(note)].fLetter);
    }
    AppendRuns(out, marks, kNoteMark);
}

}  // namespace hierfit::report::docx
