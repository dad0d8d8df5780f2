#include "report/formats/Render.h"

#include <utility>

#include "report/formats/Files.h"
#include "report/html/HtmlReport.h"
#include "report/items/Selection.h"
#include "report/json/JsonDocument.h"
#include "report/style/Style.h"

namespace hierfit::report {

namespace {

/// Of a format of many files, the one that there must be.
std::variant<std::string, RenderError> RenderOnly(const document::Document& document, Format format,
                                                  const RenderSettings& settings) {
    const auto listed = ListFiles(document, format, settings);
    if (const auto* error = std::get_if<RenderError>(&listed)) return *error;
    const auto& files = std::get<std::vector<FileMaker>>(listed);
    if (files.size() == 1) return files.front().fMake();
    return RenderError{RenderFault::Usage, std::string(NameOf(format)) + " holds one chart, and " +
                                               std::to_string(files.size()) + " are chosen"};
}

}  // namespace

std::optional<RenderError> Prepare(document::Document& document, Format format, const RenderSettings& settings) {
    if (format == Format::Json) {
        if (!settings.fvOnly.empty()) {
            return RenderError{RenderFault::Usage, "json holds the whole document or none of it"};
        }
        if (!settings.fStyle.IsOwn()) return {};
        return RenderError{RenderFault::Usage, "json holds the document itself, without a style"};
    }
    if (const auto unknown = items::Select(document, settings.fvOnly)) {
        return RenderError{RenderFault::Usage, items::Describe(*unknown)};
    }
    style::Apply(document, settings.fStyle);
    return {};
}

std::variant<std::string, RenderError> Render(const document::Document& document, Format format,
                                              const RenderSettings& settings) {
    switch (format) {
        case Format::Text:
            return MakeTextReport(document, settings.fText);
        case Format::Json:
            return WriteJson(document);
        case Format::Svg:
        case Format::Png:
            return RenderOnly(document, format, settings);
        case Format::Html:
            break;
    }
    return MakeHtmlReport(document, settings.fHtml);
}

}  // namespace hierfit::report
