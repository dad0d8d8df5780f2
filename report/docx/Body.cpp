#include "report/docx/Body.h"

#include <algorithm>
#include <utility>

#include "host/document/SpellPlace.h"
#include "report/docx/Caption.h"
#include "report/docx/Parts.h"
#include "report/docx/Relations.h"
#include "report/docx/Runs.h"
#include "report/docx/Styles.h"
#include "report/docx/Words.h"
#include "report/docx/table/DocxTable.h"
#include "report/items/Words.h"

namespace hierfit::report::docx {

namespace {

/// Room for the text, so that it need not move as it grows: tables are most of a large one. What is not used takes no
/// memory.
std::size_t RoomFor(const std::vector<items::Entry>& entries) {
    constexpr std::size_t kPerItem = 10'000;
    constexpr std::size_t kPerCell = 320;
    return kPerItem * (entries.size() + 1) + kPerCell * items::CountCells(entries);
}

}  // namespace

Body::Body(const DocxSettings& settings) : fSettings(settings) {
    fOut.append(kXmlHead).append("<w:document").append(kMainNamespace).append(kRelationNamespace);
    fOut +=
        " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\""
        " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\""
        " xmlns:pic=\"http://schemas.openxmlformats.org/drawingml/2006/picture\">\n<w:body>\n";
}

void Body::Write(const document::Document& document) {
    const std::vector<items::Entry> entries = items::ListEntries(document);
    fOut.reserve(RoomFor(entries));
    WriteTitle(document);
    for (const items::Entry& entry : entries) WriteItem(entry);
    if (!document.fvDiagnostics.empty()) WriteDiagnostics(document);
    fOut += std::exchange(fWaiting, {});
    AppendSection(fOut, fPage);
    fOut += "\n</w:body>\n</w:document>\n";
}

void Body::WriteTitle(const document::Document& document) {
    const bool isNamed = !fSettings.fTitle.empty();
    AppendParagraph(fWaiting, styles::kTitle, isNamed ? fSettings.fTitle : items::TitleOf(document));
    if (isNamed) AppendParagraph(fWaiting, styles::kSubtitle, items::TitleOf(document));
    if (!fSettings.fAuthor.empty()) AppendParagraph(fWaiting, styles::kAuthor, fSettings.fAuthor);
}

void Body::WriteItem(const items::Entry& entry) {
    const std::string_view title = items::TitleOf(*entry.fpItem);
    const auto& content = entry.fpItem->fContent;
    if (const auto* table = std::get_if<document::Table>(&content)) return WriteTable(*table, title);
    if (const auto* chart = std::get_if<document::Chart>(&content)) return WriteChart(*chart, title);
    if (const auto* message = std::get_if<document::Message>(&content)) {
        return WriteMessage(fPage, message->fLevel, message->fText.fWords);
    }
    WriteHeading(entry.fDepth + 1, title);
}

void Body::WriteHeading(int level, std::string_view title) {
    AppendParagraph(fWaiting, "Heading" + std::to_string(std::min(level, kHeadings)), title);
}

void Body::WriteTable(const document::Table& table, std::string_view title) {
    const DocxTable laidOut(table);
    Turn(laidOut.GetPage());
    laidOut.Append(fOut, title, ++fTables);
}

void Body::WriteChart(const document::Chart& chart, std::string_view title) {
    DrawnPicture picture = Draw(chart, title, fSettings);
    const Page page = ChoosePage(picture);
    Turn(page);
    AppendParagraphStart(fOut, styles::kPicture);
    if (picture.fPng) {
        const std::string& sentence = chart.fPicture.fSentence;
        AppendDrawing(std::move(picture), page, sentence.empty() ? title : sentence);
    } else {
        AppendRuns(fOut, words::kNoPicture);
    }
    fOut += kParagraphEnd;
    AppendCaptionBelow(fOut, words::kFigure, ++fFigures, title);
}

void Body::AppendDrawing(DrawnPicture picture, Page page, std::string_view sentence) {
    const int number = static_cast<int>(fvPictures.size() / 2) + 1;
    AppendPicture(fOut, picture, page, number, sentence);
    fvPictures.push_back({"word/" + PixelsName(number), *std::move(picture.fPng), true});
    fvPictures.push_back({"word/" + VectorsName(number), std::move(picture.fSvg)});
}

void Body::WriteMessage(Page page, int level, std::string_view text) {
    Turn(page);
    AppendParagraphStart(fOut, styles::kMessage);
    AppendRuns(fOut, std::string(items::WordOfLevel(level)) + ": ", kBold);
    AppendRuns(fOut, text);
    fOut += kParagraphEnd;
}

void Body::WriteDiagnostics(const document::Document& document) {
    WriteHeading(1, items::kDiagnostics);
    for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
        WriteMessage(Page::Upright, diagnostic.fLevel,
                     diagnostic.fText + document::SpellPlaceBehind(document, diagnostic));
    }
}

/// Goes on to a page of that kind, where the last one is of another, and writes what waits for it.
void Body::Turn(Page page) {
    if (fHasBegun && page != fPage) {
        std::string section;
        AppendSection(section, fPage);
        AppendParagraphStart(fOut, styles::kSectionEnd, section);
        fOut += kParagraphEnd;
    }
    fPage = page;
    fHasBegun = true;
    fOut += std::exchange(fWaiting, {});
}

}  // namespace hierfit::report::docx
