// Feeds a saved document, JSON, behind words for its title and author, to the formats of papers and spreadsheets. A
// marker chooses style and digits.

#include <array>
#include <variant>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"
#include "fuzz/paper/PaperChecks.h"
#include "report/csv/Csv.h"
#include "report/docx/DocxFile.h"
#include "report/formats/Render.h"
#include "report/items/Entries.h"
#include "report/json/JsonDocument.h"
#include "report/latex/LatexReport.h"
#include "report/style/Style.h"
#include "report/xlsx/Workbook.h"
#include "report/xlsx/book/LoadBook.h"

namespace hierfit::fuzz {

namespace {

constexpr std::array<std::optional<int>, 3> kDigits = {std::nullopt, 0, 15};

/// Words stand for title, author and the folder of charts.
report::RenderSettings Choose(const std::string& words, char marker) {
    report::RenderSettings settings;
    settings.fStyle = {report::style::Styles()[static_cast<std::size_t>(marker) % 3].fStyle, OneOf(kDigits, marker, 3)};
    settings.fHtml = {report::Scripts::Yes, words, words};
    settings.fText = {60, false, true};
    settings.fChartFolder = words;
    settings.fIsStandalone = marker % 2 == 1;
    return settings;
}

std::vector<report::ArchiveFile> MakeDocx(const document::Document& document, const std::string& words) {
    const auto makePng = [](const std::string&, double scale) {
        return scale < 2 ? std::optional<std::string>("PNG") : std::nullopt;
    };
    return report::MakeDocxFiles(document, {words, words, makePng, 2});
}

std::optional<std::string> MakeBook(const document::Document& document, const std::string& words) {
    static const auto book = report::xlsx::LoadBook(HIERFIT_BOOK);
    if (const auto* reason = std::get_if<std::string>(&book)) Fail(*reason);
    const auto noPixels = [](const std::string&) { return std::optional<std::string>(); };
    const report::xlsx::Workbook made = report::xlsx::MakeWorkbook(
        document, {std::get<report::xlsx::HierfitMakeBook>(book), noPixels, 2, words, words});
    if (!made.fBytes && made.fReason.empty()) Fail("no text says why there is no workbook");
    return made.fBytes;
}

/// Everything that is made of a document, in an order that is the same for all.
std::vector<std::string> MakeAll(document::Document document, const report::RenderSettings& settings) {
    std::vector<std::string> made{report::MakeCsvIndex(document)};
    for (const report::items::Entry& entry : report::items::ListEntries(document)) {
        const auto* table = std::get_if<document::Table>(&entry.fpItem->fContent);
        if (table) made.push_back(report::MakeCsvTable(*table));
    }
    for (const std::string& csv : made) CheckCsv(csv);
    report::style::Apply(document, settings.fStyle);
    for (const auto format :
         {report::Format::Html, report::Format::Text, report::Format::Markdown, report::Format::Latex}) {
        made.push_back(std::get<std::string>(report::Render(document, format, settings)));
    }
    CheckLatex(made.back());
    CheckMarkdown(made[made.size() - 2]);
    for (report::ArchiveFile& file : MakeDocx(document, settings.fChartFolder)) {
        if (file.fName.ends_with(".xml") || file.fName.ends_with(".rels")) CheckXml(file.fBytes);
        made.push_back(std::move(file.fBytes));
    }
    if (auto book = MakeBook(document, settings.fChartFolder)) made.push_back(*std::move(book));
    return made;
}

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kPlainText, &kJson}; }

void RunInput(std::string_view input) {
    const Parts parts = SplitInput(input, 2);
    const auto read = report::ReadJson(parts.fvTexts[1]);
    const auto* document = std::get_if<document::Document>(&read);
    if (!document) return;
    const report::RenderSettings settings = Choose(parts.fvTexts[0], parts.fMarkers[0]);
    if (MakeAll(*document, settings) != MakeAll(*document, settings)) Fail("a document renders to other bytes again");
}

}  // namespace hierfit::fuzz
