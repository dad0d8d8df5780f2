#include "report/formats/Docx.h"

#include <utility>

#include "report/archive/Archive.h"
#include "report/charts/raster/Raster.h"
#include "report/docx/DocxFile.h"
#include "report/formats/Modules.h"

namespace hierfit::report {

namespace {

struct Modules {
    Archive fArchive;
    charts::Raster fRaster;
};

std::variant<Modules, RenderError> LoadModules(const RenderSettings& settings) {
    const auto archive = LoadModule(&Archive::Load, kArchiveModule, Format::Docx, settings);
    if (const auto* error = std::get_if<RenderError>(&archive)) return *error;
    const auto raster = LoadModule(&charts::Raster::Load, kRasterModule, Format::Docx, settings);
    if (const auto* error = std::get_if<RenderError>(&raster)) return *error;
    return Modules{std::get<Archive>(archive), std::get<charts::Raster>(raster)};
}

}  // namespace

std::variant<std::string, RenderError> RenderDocx(const document::Document& document, const RenderSettings& settings) {
    const auto loaded = LoadModules(settings);
    if (const auto* error = std::get_if<RenderError>(&loaded)) return *error;
    const auto& [archive, raster] = std::get<Modules>(loaded);
    const auto makePng = [&raster = raster, &settings](const std::string& svg, double scale) {
        if (settings.fOnPicture) settings.fOnPicture();
        return raster.MakePng(svg, scale);
    };
    const DocxSettings given{settings.fHtml.fTitle, settings.fHtml.fAuthor, makePng, settings.fScale};
    if (auto file = archive.Pack(MakeDocxFiles(document, given))) return *std::move(file);
    return RenderError{RenderFault::Unmakeable, "memory is short"};
}

std::optional<RenderError> FindMissingOfDocx(const RenderSettings& settings) {
    auto loaded = LoadModules(settings);
    if (auto* error = std::get_if<RenderError>(&loaded)) return std::move(*error);
    return {};
}

}  // namespace hierfit::report
