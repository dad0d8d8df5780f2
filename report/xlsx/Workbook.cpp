#include "report/xlsx/Workbook.h"

#include <utility>
#include <vector>

#include "report/charts/Pictures.h"
#include "report/items/Entries.h"
#include "report/markup/LanguageTag.h"
#include "report/xlsx/cells/CellText.h"
#include "report/xlsx/sheets/ContentsSheet.h"
#include "report/xlsx/sheets/SheetNames.h"
#include "report/xlsx/sheets/TableSheet.h"

namespace hierfit::report::xlsx {

namespace {

constexpr int kPictureRow = 2;
constexpr double kNarrowSheet = 100;  // characters of a chart's title

class WorkbookWriter {
  public:
    WorkbookWriter(const document::Document& document, const WorkbookSettings& settings)
        : fDocument(document),
          fSettings(settings),
          fProperties{settings.fTitle.empty() ? std::string(items::TitleOf(document)) : settings.fTitle,
                      settings.fAuthor, document.fProducer, IsWrittenRightToLeft(document.fLanguage)} {
        for (std::string* words : {&fProperties.fTitle, &fProperties.fAuthor, &fProperties.fProducer}) {
            *words = MakeCellText(*words);
        }
    }

    Workbook Write() {
        std::unique_ptr<Book> book;
        fSettings.fpMakeBook(fProperties, book);
        Looks looks(*book);
        BookParts parts{*book, looks, {}};
        SheetNames names;
        // The contents come first and are put last, when it is known what there is to say.
        Sheet* contents = book->AddSheet(names.Add(kContentsName), false);
        const std::vector<items::Entry> items = items::ListEntries(fDocument);
        std::vector<ContentsEntry> entries;
        for (const items::Entry& item : items) {
            entries.push_back({&item, HasSheet(item) ? names.Add(item.fAnchor) : std::string()});
            if (auto reason = PutItem(parts, entries.back())) return {{}, item.fAnchor + ": " + *reason};
        }
        AddRemarks(parts);
        if (contents) PutContents(parts, *contents, fDocument, fProperties, entries);
        Workbook workbook;
        workbook.fBytes = book->Close(workbook.fReason);
        return workbook;
    }

  private:
    static bool HasSheet(const items::Entry& item) {
        return std::holds_alternative<document::Table>(item.fpItem->fContent) ||
               std::holds_alternative<document::Chart>(item.fpItem->fContent);
    }

    std::optional<std::string> PutItem(BookParts& parts, const ContentsEntry& entry) const {
        const items::Entry& item = *entry.fpEntry;
        if (const auto* table = std::get_if<document::Table>(&item.fpItem->fContent)) {
            return PutTable(parts, entry.fSheet, *table, items::TitleOf(*item.fpItem));
        }
        if (const auto* chart = std::get_if<document::Chart>(&item.fpItem->fContent)) {
            return PutChart(parts, entry, chart->fPicture);
        }
        return {};
    }

    std::optional<std::string> PutChart(BookParts& parts, const ContentsEntry& entry,
                                        const document::Picture& picture) const {
        auto png = fSettings.fPaint(MakePicture(*entry.fpEntry));
        if (!png) return "the picture is too large for png";
        Sheet* sheet = parts.fBook.AddSheet(entry.fSheet, false);
        if (!sheet) return {};
        const std::string_view title = items::TitleOf(*entry.fpEntry->fpItem);
        sheet->SetPage({.fIsWide = true});
        SheetWriter(parts, *sheet, entry.fSheet).PutParagraph(0, 11, kNarrowSheet, title, {.fIsBold = true});
        const std::string words = picture.fSentence.empty() ? std::string(title) : picture.fSentence;
        sheet->PutPicture(kPictureRow, 0, {*std::move(png), 1 / fSettings.fScale, MakeCellText(words)});
        return {};
    }

    static void AddRemarks(BookParts& parts) {
        const NumberCodes& codes = parts.fLooks.GetCodes();
        if (codes.CountReshaped() > 0) {
            parts.fvRemarks.push_back(
                std::to_string(codes.CountReshaped()) +
                " figures are shown with more places than in other reports, which would take more "
                "number formats than a workbook holds");
        }
        if (codes.CountUnmarked() > 0) {
            parts.fvRemarks.push_back("The marks of notes are missing at " + std::to_string(codes.CountUnmarked()) +
                                      " figures, since they would take more number formats than a workbook holds");
        }
    }

    const document::Document& fDocument;
    const WorkbookSettings& fSettings;
    Properties fProperties;
};

}  // namespace

Workbook MakeWorkbook(const document::Document& document, const WorkbookSettings& settings) {
    return WorkbookWriter(document, settings).Write();
}

}  // namespace hierfit::report::xlsx
