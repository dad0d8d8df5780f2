#include "report/formats/RenderWorkbook.h"

#include <filesystem>
#include <utility>

#include "report/charts/Pictures.h"
#include "report/charts/raster/Raster.h"
#include "report/xlsx/Workbook.h"
#include "report/xlsx/book/LoadBook.h"

namespace hierfit::report {

namespace {

constexpr const char* kBookModule = "libhierfit_xlsx.so";
constexpr const char* kRasterModule = "libhierfit_raster.so";

std::string PathOf(const char* module, const RenderSettings& settings) {
    return (std::filesystem::path(settings.fModuleFolder) / module).string();
}

RenderError MakeError(const char* module, const std::string& reason) {
    return {RenderFault::Missing, std::string("xlsx takes ") + module + ": " + reason};
}

}  // namespace

std::variant<std::string, RenderError> RenderWorkbook(const document::Document& document,
                                                      const RenderSettings& settings) {
    const auto book = xlsx::LoadBook(PathOf(kBookModule, settings));
    if (const auto* reason = std::get_if<std::string>(&book)) return MakeError(kBookModule, *reason);
    xlsx::WorkbookSettings workbook{
        std::get<xlsx::HierfitMakeBook>(book), {}, settings.fScale, settings.fHtml.fTitle, settings.fHtml.fAuthor};
    if (!ListCharts(document).empty()) {
        const auto raster = charts::Raster::Load(PathOf(kRasterModule, settings));
        if (const auto* reason = std::get_if<std::string>(&raster)) return MakeError(kRasterModule, *reason);
        workbook.fPaint = [paint = std::get<charts::Raster>(raster), scale = settings.fScale](const std::string& svg) {
            return paint.MakePng(svg, scale);
        };
    }
    xlsx::Workbook made = xlsx::MakeWorkbook(document, workbook);
    if (made.fBytes) return *std::move(made.fBytes);
    return RenderError{RenderFault::Unmakeable, std::move(made.fReason)};
}

std::optional<RenderError> FindMissingOfWorkbook(const RenderSettings& settings) {
    const auto book = xlsx::LoadBook(PathOf(kBookModule, settings));
    if (const auto* reason = std::get_if<std::string>(&book)) return MakeError(kBookModule, *reason);
    const auto raster = charts::Raster::Load(PathOf(kRasterModule, settings));
    if (const auto* reason = std::get_if<std::string>(&raster)) return MakeError(kRasterModule, *reason);
    return {};
}

}  // namespace hierfit::report
