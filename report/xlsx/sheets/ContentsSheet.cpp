#include "report/xlsx/sheets/ContentsSheet.h"

#include <algorithm>

#include "host/document/SpellPlace.h"
#include "report/items/Words.h"
#include "report/xlsx/cells/CellText.h"
#include "report/xlsx/sheets/SheetWidths.h"

namespace hierfit::report::xlsx {

namespace {

constexpr double kTitleWidth = 90;
constexpr double kKindWidth = 13;
constexpr double kLeastNameWidth = 24;
constexpr double kMostNameWidth = 70;
constexpr int kMostIndent = 15;
constexpr int kNameColumn = 0;
constexpr int kKindColumn = 1;
constexpr int kTitleColumn = 2;

class ContentsWriter {
  public:
    ContentsWriter(BookParts& parts, Sheet& sheet)
        : fParts(parts), fSheet(sheet), fWriter(parts, sheet, kContentsName) {}

    void Put(const document::Document& document, const Properties& properties,
             const std::vector<ContentsEntry>& entries) {
        PutTop(properties);
        SetPage(entries);
        PutHeader();
        for (const ContentsEntry& entry : entries) PutEntry(entry);
        PutDiagnostics(document);
    }

  private:
    void PutTop(const Properties& properties) {
        for (const std::string* words : {&properties.fTitle, &properties.fAuthor}) {
            if (words->empty()) continue;
            fWriter.PutParagraph(fRow++, kTitleColumn, kTitleWidth, *words, {.fIsBold = words == &properties.fTitle});
        }
    }

    void SetPage(const std::vector<ContentsEntry>& entries) {
        double width = kLeastNameWidth;
        for (const ContentsEntry& entry : entries) {
            const items::Entry& item = *entry.fpEntry;
            width = std::max(width, 2.0 * item.fDepth + static_cast<double>(item.fAnchor.size()) + 2);
        }
        fSheet.SetPage({.fFrozenRows = fRow + 1, .fFirstTitleRow = fRow, .fIsWide = true});
        fSheet.SetWidth(kNameColumn, std::min(width, kMostNameWidth));
        fSheet.SetWidth(kKindColumn, kKindWidth);
        fSheet.SetWidth(kTitleColumn, kTitleWidth);
    }

    void PutHeader() {
        const Look look{.fIsBold = true, .fAbove = Rule::Thick, .fBelow = Rule::Thin};
        for (const char* name : {"Name", "Kind", "Title"}) fWriter.PutWords(fRow, fColumn++, name, look);
        ++fRow;
    }

    void PutEntry(const ContentsEntry& entry) {
        const items::Entry& item = *entry.fpEntry;
        const auto* message = std::get_if<document::Message>(&item.fpItem->fContent);
        const bool isHeading = std::holds_alternative<document::Heading>(item.fpItem->fContent);
        const Look look{.fIndent = std::min(item.fDepth, kMostIndent),
                        .fIsBold = isHeading,
                        .fIsLink = !entry.fSheet.empty(),
                        .fIsTop = true};
        const std::string lead = message ? std::string(items::WordOfLevel(message->fLevel)) + ": " : "";
        const std::string title = lead + std::string(items::TitleOf(*item.fpItem));
        SetHeight(title);
        if (entry.fSheet.empty()) fWriter.PutWords(fRow, kNameColumn, item.fAnchor, look);
        if (!entry.fSheet.empty()) {
            fSheet.PutLink(fRow, kNameColumn, entry.fSheet, MakeCellText(item.fAnchor), fParts.fLooks.Of(look));
        }
        fWriter.PutWords(fRow, kKindColumn, items::KindOf(*item.fpItem), {.fIsTop = true});
        fWriter.PutWords(fRow++, kTitleColumn, title, {.fIsBold = isHeading, .fIsTop = true, .fWraps = true});
    }

    void SetHeight(const std::string& title) {
        const double height = MeasureHeight(title, kTitleWidth - 1);
        if (height > 0) fSheet.SetHeight(fRow, height);
    }

    void PutDiagnostics(const document::Document& document) {
        const std::vector<std::string>& remarks = fParts.fvRemarks;
        if (document.fvDiagnostics.empty() && remarks.empty()) return;
        fWriter.PutWords(++fRow, kNameColumn, items::kDiagnostics, {.fIsBold = true});
        ++fRow;
        for (const document::Diagnostic& diagnostic : document.fvDiagnostics) {
            PutDiagnostic(items::WordOfLevel(diagnostic.fLevel),
                          diagnostic.fText + document::SpellPlaceBehind(document, diagnostic));
        }
        // A title that is cut here adds a remark, which counts as well.
        for (std::size_t i = 0; i < remarks.size(); ++i) PutDiagnostic(items::WordOfLevel(2), remarks[i]);
    }

    void PutDiagnostic(std::string_view level, const std::string& text) {
        SetHeight(text);
        fWriter.PutWords(fRow, kKindColumn, level, {.fIsTop = true});
        fWriter.PutWords(fRow++, kTitleColumn, text, {.fIsTop = true, .fWraps = true});
    }

    BookParts& fParts;
    Sheet& fSheet;
    SheetWriter fWriter;
    int fRow = 0;
    int fColumn = 0;
};

}  // namespace

void PutContents(BookParts& parts, Sheet& sheet, const document::Document& document, const Properties& properties,
                 const std::vector<ContentsEntry>& entries) {
    ContentsWriter(parts, sheet).Put(document, properties, entries);
}

}  // namespace hierfit::report::xlsx
