#include "report/charts/raster/Raster.h"

#include <dlfcn.h>

#include "report/charts/raster/RasterModule.h"

namespace hierfit::report::charts {

namespace {

void Append(void* context, const unsigned char* bytes, std::size_t size) {
    static_cast<std::string*>(context)->append(reinterpret_cast<const char*>(bytes), size);
}

}  // namespace

std::variant<Raster, std::string> Raster::Load(const std::string& path) {
    // Its libraries keep threads and types of their own, so the module is never unloaded.
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!module) return std::string(dlerror());
    const auto get = reinterpret_cast<HierfitGetRasterFunctions>(dlsym(module, kHierfitGetRasterFunctions));
    if (!get) return path + " does not export " + kHierfitGetRasterFunctions;
    return Raster(get());
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
