#include "report/formats/Files.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "report/charts/Pictures.h"
#include "report/charts/raster/Raster.h"

namespace hierfit::report {

namespace {

constexpr const char* kRasterModule = "libhierfit_raster.so";

/// Makes a picture file of an SVG; nothing where the picture is too large for it.
using Painter = std::function<std::optional<std::string>(std::string svg)>;

std::variant<Painter, RenderError> FindPainter(Format format, const RenderSettings& settings) {
    if (format == Format::Svg) return Painter([](std::string svg) { return std::optional(std::move(svg)); });
    auto found = charts::Raster::Load((std::filesystem::path(settings.fModuleFolder) / kRasterModule).string());
    if (const auto* reason = std::get_if<std::string>(&found)) {
        return RenderError{RenderFault::Missing,
                           std::string(NameOf(format)) + " takes " + kRasterModule + ": " + *reason};
    }
    return Painter([raster = std::get<charts::Raster>(found), scale = settings.fScale](const std::string& svg) {
        return raster.MakePng(svg, scale);
    });
}

FileMaker MakeMaker(items::Entry chart, Format format, const Painter& paint) {
    std::string name = chart.fAnchor + "." + std::string(NameOf(format));
    const auto make = [chart = std::move(chart), format, paint]() -> std::variant<std::string, RenderError> {
        if (auto file = paint(MakePicture(chart))) return *std::move(file);
        return RenderError{RenderFault::Unmakeable, "the picture is too large for " + std::string(NameOf(format))};
    };
    return {std::move(name), make};
}

}  // namespace

std::variant<std::vector<FileMaker>, RenderError> ListFiles(const document::Document& document, Format format,
                                                            const RenderSettings& settings) {
    auto found = FindPainter(format, settings);
    if (auto* error = std::get_if<RenderError>(&found)) return std::move(*error);
    std::vector<FileMaker> files;
    for (items::Entry& chart : ListCharts(document)) {
        files.push_back(MakeMaker(std::move(chart), format, std::get<Painter>(found)));
    }
    return files;
}

std::optional<RenderError> FindMissing(Format format, const RenderSettings& settings) {
    if (format != Format::Png) return {};
    auto found = FindPainter(format, settings);
    if (auto* error = std::get_if<RenderError>(&found)) return std::move(*error);
    return {};
}

}  // namespace hierfit::report
