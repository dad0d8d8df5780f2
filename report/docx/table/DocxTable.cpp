#include "report/docx/table/DocxTable.h"

#include "report/docx/Caption.h"
#include "report/docx/Runs.h"
#include "report/docx/Styles.h"
#include "report/docx/Words.h"
#include "report/docx/table/TableRows.h"
#include "report/items/Words.h"

namespace hierfit::report::docx {

namespace {

// A table of so many rows is not parted where it fits the next page.
constexpr int kMostTogether = 25;
constexpr std::size_t kMostNotesTogether = 10;

}  // namespace

DocxTable::DocxTable(const document::Table& table) : fGrid(MakeGrid(table)), fPlan(fGrid) {}

void DocxTable::Append(std::string& out, std::string_view title, int number) const {
    AppendCaption(out, words::kTable, number, title, fPlan.Parts().size() > 1 ? Continued::Yes : Continued::No);
    if (fGrid.fRows == 0) AppendParagraph(out, styles::kNote, items::kNoCells);
    AppendParts(out, number);
    AppendBelow(out);
}

void DocxTable::AppendParts(std::string& out, int number) const {
    const HeaderRows header(fGrid, fPlan);
    const bool areFew = fGrid.fRows <= kMostTogether && !fPlan.PartsRows();
    for (const TablePart& part : fPlan.Parts()) {
        if (part.fFirst > 0) AppendContinuedCaption(out, words::kTable, number);
        AppendStart(out, part);
        header.Append(out, part);
        BodyRows(fGrid, fPlan, part, areFew).Append(out);
        out += "</w:tbl>\n";
    }
}

void DocxTable::AppendStart(std::string& out, const TablePart& part) const {
    out.append("<w:tbl><w:tblPr><w:tblStyle w:val=\"").append(fPlan.Styles().fTable).append("\"/><w:tblW");
    AppendNumber(out, "w:w", part.Width());
    out += " w:type=\"dxa\"/><w:tblLayout w:type=\"fixed\"/></w:tblPr><w:tblGrid>";
    for (const std::vector<int>* widths : {&part.fvLevels, &part.fvColumns}) {
        for (const int width : *widths) {
            out += "<w:gridCol";
            AppendNumber(out, "w:w", width);
            out += "/>";
        }
    }
    out += "</w:tblGrid>\n";
}

std::size_t DocxTable::CountNotes() const {
    return fGrid.fpTable->fvCaptions.size() + fGrid.fpTable->fvNotes.size() + fGrid.fvNotes.size();
}

void DocxTable::AppendBelow(std::string& out) const {
    std::size_t left = CountNotes() <= kMostNotesTogether ? CountNotes() : 0;
    const auto keep = [&left] { return left > 0 && --left > 0 ? kKeepNext : std::string_view(); };
    for (const document::Text& caption : fGrid.fpTable->fvCaptions) {
        AppendParagraph(out, styles::kNote, caption.fWords, keep());
    }
    for (const document::Text& note : fGrid.fpTable->fvNotes) AppendParagraph(out, styles::kNote, note.fWords, keep());
    for (const Note& note : fGrid.fvNotes) {
        AppendParagraphStart(out, styles::kNote, keep());
        AppendRuns(out, note.fLetter, kNoteMark);
        AppendRuns(out, " ");
        AppendRuns(out, note.fpText->fWords);
        out += kParagraphEnd;
    }
    // Two tables need something between them, and the last one a paragraph behind it.
    if (CountNotes() == 0) AppendParagraph(out, styles::kSectionEnd, {});
}

}  // namespace hierfit::report::docx
