#include "report/formats/Render.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "host/language/Catalogue.h"
#include "report/charts/Pictures.h"
#include "report/csv/Csv.h"
#include "report/formats/Docx.h"
#include "report/formats/Files.h"
#include "report/formats/RenderWorkbook.h"
#include "report/html/HtmlReport.h"
#include "report/items/Entries.h"
#include "report/items/Selection.h"
#include "report/items/Wording.h"
#include "report/json/JsonDocument.h"
#include "report/latex/LatexReport.h"
#include "report/markdown/MarkdownReport.h"
#include "report/style/Style.h"
#include "report/text/TextReport.h"

namespace hierfit::report {

namespace {

/// Of a format of pictures, the one that there must be.
std::variant<std::string, RenderError> RenderPicture(const document::Document& document, Format format,
                                                     const RenderSettings& settings) {
    const auto listed = ListFiles(document, format, settings);
    if (const auto* error = std::get_if<RenderError>(&listed)) return *error;
    const auto& files = std::get<std::vector<FileMaker>>(listed);
    if (files.size() == 1) return files.front().fMake();
    return RenderError{RenderFault::Usage, std::string(NameOf(format)) + " holds one chart, and " +
                                               std::to_string(files.size()) + " are chosen"};
}

std::variant<std::string, RenderError> RenderCsv(const document::Document& document) {
    std::vector<const document::Table*> tables;
    for (const items::Entry& entry : items::ListEntries(document)) {
        if (const auto* table = std::get_if<document::Table>(&entry.fpItem->fContent)) tables.push_back(table);
    }
    if (tables.size() == 1) return MakeCsvTable(*tables.front());
    return RenderError{RenderFault::Usage, "csv holds one table, and " + std::to_string(tables.size()) + " are chosen"};
}

/// Why a format does not take what is chosen; nothing where it does.
std::optional<RenderError> CheckChoice(const document::Document& document, Format format,
                                       const RenderSettings& settings) {
    if (format == Format::Json && !settings.fvOnly.empty()) {
        return RenderError{RenderFault::Usage, "json holds the whole document or none of it"};
    }
    if (format == Format::Json && settings.fStyle.IsOwn()) {
        return RenderError{RenderFault::Usage, "json holds the document itself, without a style"};
    }
    if (format != Format::Csv || settings.fvOnly.empty()) return {};
    for (const items::Entry& chart : ListCharts(document)) {
        for (const std::string& name : settings.fvOnly) {
            if (items::Bears(chart, name)) return RenderError{RenderFault::Usage, "csv holds no charts: " + name};
        }
    }
    return {};
}

/// Formats that hold the document's texts and no words of their own.
bool IsForPrograms(Format format) { return format == Format::Json || format == Format::Csv; }

/// A saved document may come from anywhere: what it calls its language must not lead out of the folder.
bool IsLanguageName(std::string_view name) {
    return !name.empty() && std::ranges::all_of(name, [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
               (letter >= '0' && letter <= '9') || letter == '_' || letter == '-' || letter == '@';
    });
}

std::unique_ptr<language::Catalogue> OpenCatalogue(const std::string& language, const std::string& folder) {
    if (folder.empty() || !IsLanguageName(language)) return nullptr;
    return language::Catalogue::Open(folder + "/" + language + ".mo");
}

}  // namespace

std::optional<RenderError> Prepare(document::Document& document, Format format, const RenderSettings& settings) {
    if (auto error = CheckChoice(document, format, settings)) return error;
    if (const auto unknown = items::Select(document, settings.fvOnly)) {
        return RenderError{RenderFault::Usage, items::Describe(*unknown)};
    }
    if (!IsForPrograms(format)) style::Apply(document, settings.fStyle);
    return {};
}

std::variant<std::string, RenderError> Render(const document::Document& document, Format format,
                                              const RenderSettings& settings) {
    const auto catalogue =
        IsForPrograms(format) ? nullptr : OpenCatalogue(document.fLanguage, settings.fLanguageFolder);
    const items::Wording wording(catalogue ? [&](std::string_view english) { return catalogue->Find(english); }
                                           : items::Wording::Find());
    switch (format) {
        case Format::Text:
            return MakeTextReport(document, settings.fText);
        case Format::Json:
            return WriteJson(document);
        case Format::Docx:
            return RenderDocx(document, settings);
        case Format::Svg:
        case Format::Png:
            return RenderPicture(document, format, settings);
        case Format::Markdown:
            return MakeMarkdownReport(document, {settings.fHtml.fTitle, settings.fHtml.fAuthor, settings.fChartFolder});
        case Format::Latex:
            return MakeLatexReport(document, {settings.fHtml.fTitle, settings.fHtml.fAuthor, settings.fChartFolder,
                                              settings.fIsStandalone});
        case Format::Csv:
            return RenderCsv(document);
        case Format::Xlsx:
            return RenderWorkbook(document, settings);
        case Format::Html:
            break;
    }
    HtmlSettings html = settings.fHtml;
    html.fValues = settings.fStyle.IsOwn() ? FullValues::Yes : FullValues::No;
    return MakeHtmlReport(document, html);
}

}  // namespace hierfit::report
