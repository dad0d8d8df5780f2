#include "report/formats/RenderWorkbook.h"

#include <utility>

#include "report/charts/Pictures.h"
#include "report/charts/raster/Raster.h"
#include "report/formats/Modules.h"
#include "report/xlsx/Workbook.h"
#include "report/xlsx/book/LoadBook.h"

namespace hierfit::report {

namespace {

std::variant<xlsx::HierfitMakeBook, RenderError> LoadBook(const RenderSettings& settings) {
    return LoadModule(&xlsx::LoadBook, kBookModule, Format::Xlsx, settings);
}

std::variant<charts::Raster, RenderError> LoadRaster(const RenderSettings& settings) {
    return LoadModule(&charts::Raster::Load, kRasterModule, Format::Xlsx, settings);
}

}  // namespace

std::variant<std::string, RenderError> RenderWorkbook(const document::Document& document,
                                                      const RenderSettings& settings) {
    const auto book = LoadBook(settings);
    if (const auto* error = std::get_if<RenderError>(&book)) return *error;
    xlsx::WorkbookSettings workbook{
        std::get<xlsx::HierfitMakeBook>(book), {}, settings.fScale, settings.fHtml.fTitle, settings.fHtml.fAuthor};
    if (!ListCharts(document).empty()) {
        const auto raster = LoadRaster(settings);
        if (const auto* error = std::get_if<RenderError>(&raster)) return *error;
        workbook.fPaint = [paint = std::get<charts::Raster>(raster), &settings](const std::string& svg) {
            if (settings.fOnPicture) settings.fOnPicture();
            return paint.MakePng(svg, settings.fScale);
        };
    }
    xlsx::Workbook made = xlsx::MakeWorkbook(document, workbook);
    if (made.fBytes) return *std::move(made.fBytes);
    return RenderError{RenderFault::Unmakeable, std::move(made.fReason)};
}

std::optional<RenderError> FindMissingOfWorkbook(const RenderSettings& settings) {
    const auto book = LoadBook(settings);
    if (const auto* error = std::get_if<RenderError>(&book)) return *error;
    const auto raster = LoadRaster(settings);
    if (const auto* error = std::get_if<RenderError>(&raster)) return *error;
    return {};
}

}  // namespace hierfit::report
