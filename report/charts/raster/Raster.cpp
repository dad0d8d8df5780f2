#include "report/charts/raster/Raster.h"

#include "report/charts/raster/RasterModule.h"
#include "report/modules/FindSymbol.h"

namespace hierfit::report::charts {

namespace {

void Append(void* context, const unsigned char* bytes, std::size_t size) {
    static_cast<std::string*>(context)->append(reinterpret_cast<const char*>(bytes), size);
}

}  // namespace

std::variant<Raster, std::string> Raster::Load(const std::string& path) {
    const auto found = FindSymbol(path, kHierfitGetRasterFunctions);
    if (const auto* reason = std::get_if<std::string>(&found)) return *reason;
    return Raster(reinterpret_cast<HierfitGetRasterFunctions>(std::get<void*>(found))());
}

std::optional<std::string> Raster::MakePng(std::string_view svg, double scale) const {
    std::string png;
    const bool isMade = fpFunctions->fpWritePng(svg.data(), svg.size(), scale, &Append, &png);
    return isMade ? std::optional(std::move(png)) : std::nullopt;
}

std::optional<std::string> Raster::MakePdf(std::string_view svg) const {
    std::string pdf;
    const bool isMade = fpFunctions->fpWritePdf(svg.data(), svg.size(), &Append, &pdf);
    return isMade ? std::optional(std::move(pdf)) : std::nullopt;
}

}  // namespace hierfit::report::charts
