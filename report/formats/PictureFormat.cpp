#include "report/formats/PictureFormat.h"

#include <filesystem>

#include "report/charts/raster/Raster.h"

namespace hierfit::report {

namespace {

constexpr const char* kRasterModule = "libhierfit_raster.so";

}  // namespace

std::variant<PictureFormat, RenderError> MakePictureFormat(Format format, const RenderSettings& settings) {
    const std::string name(NameOf(format));
    if (format == Format::Svg) return PictureFormat{name, [](const std::string& svg) { return std::optional(svg); }};
    auto raster = charts::Raster::Load((std::filesystem::path(settings.fModuleFolder) / kRasterModule).string());
    if (const auto* reason = std::get_if<std::string>(&raster)) {
        return RenderError{RenderFault::Missing, name + " takes " + kRasterModule + ": " + *reason};
    }
    return PictureFormat{name, [raster = std::get<charts::Raster>(raster), scale = settings.fScale](
                                   const std::string& svg) { return raster.MakePng(svg, scale); }};
}

}  // namespace hierfit::report
