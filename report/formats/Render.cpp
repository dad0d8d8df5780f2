#include "report/formats/Render.h"

#include <utility>

#include "report/charts/Pictures.h"
#include "report/formats/PictureFormat.h"
#include "report/html/HtmlReport.h"
#include "report/items/Selection.h"
#include "report/json/JsonDocument.h"
#include "report/style/Style.h"

namespace hierfit::report {

namespace {

std::variant<std::string, RenderError> RenderPicture(const document::Document& document, Format format,
                                                     const RenderSettings& settings) {
    const std::string name(NameOf(format));
    const std::vector<PictureFile> pictures = MakePictures(document);
    if (pictures.size() != 1) {
        return RenderError{RenderFault::Usage,
                           name + " holds one chart, and " + std::to_string(pictures.size()) + " are chosen"};
    }
    auto made = MakePictureFormat(format, settings);
    if (auto* error = std::get_if<RenderError>(&made)) return std::move(*error);
    if (auto picture = std::get<PictureFormat>(made).fMake(pictures.front().fSvg)) return *std::move(picture);
    return RenderError{RenderFault::Unmakeable, "the picture is too large for " + name};
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
            return RenderPicture(document, format, settings);
        case Format::Html:
            break;
    }
    return MakeHtmlReport(document, settings.fHtml);
}

}  // namespace hierfit::report
