#include "report/charts/raster/Raster.h"

#include <new>
#include <utility>

#include "report/charts/raster/RasterModule.h"
#include "report/modules/FindSymbol.h"

namespace hierfit::report::charts {

namespace {

struct Taken {
    std::string fBytes;
    bool fIsShort = false;  ///< of memory; an exception must not pass through the libraries
};

void Append(void* context, const unsigned char* bytes, std::size_t size) {
    Taken& taken = *static_cast<Taken*>(context);
    try {
        taken.fBytes.append(reinterpret_cast<const char*>(bytes), size);
    } catch (const std::bad_alloc&) {
        taken.fIsShort = true;
    }
}

std::optional<std::string> Conclude(HierfitRasterResult result, Taken taken) {
    if (result == kHierfitShort || taken.fIsShort) throw std::bad_alloc();
    return result == kHierfitMade ? std::optional(std::move(taken.fBytes)) : std::nullopt;
}

}  // namespace

std::variant<Raster, std::string> Raster::Load(const std::string& path) {
    const auto found = FindSymbol(path, kHierfitGetRasterFunctions);
    if (const auto* reason = std::get_if<std::string>(&found)) return *reason;
    return Raster(reinterpret_cast<HierfitGetRasterFunctions>(std::get<void*>(found))());
}

std::optional<std::string> Raster::MakePng(std::string_view svg, double scale) const {
    Taken png;
    const HierfitRasterResult result = fpFunctions->fpWritePng(svg.data(), svg.size(), scale, &Append, &png);
    return Conclude(result, std::move(png));
}

std::optional<std::string> Raster::MakePdf(std::string_view svg) const {
    Taken pdf;
    const HierfitRasterResult result = fpFunctions->fpWritePdf(svg.data(), svg.size(), &Append, &pdf);
    return Conclude(result, std::move(pdf));
}

}  // namespace hierfit::report::charts
