#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <variant>

#include "report/formats/Format.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

inline constexpr const char* kRasterModule = "libhierfit_raster.so";
inline constexpr const char* kArchiveModule = "libhierfit_archive.so";
inline constexpr const char* kBookModule = "libhierfit_xlsx.so";

/// What a format takes from a module, or why it cannot be had. `load` takes the module's path.
template <typename Part>
std::variant<Part, RenderError> LoadModule(std::variant<Part, std::string> (*load)(const std::string& path),
                                           const char* name, Format format, const RenderSettings& settings) {
    auto found = load((std::filesystem::path(settings.fModuleFolder) / name).string());
    if (auto* part = std::get_if<Part>(&found)) return std::move(*part);
    return RenderError{RenderFault::Missing,
                       std::string(NameOf(format)) + " takes " + name + ": " + std::get<std::string>(found)};
}

}  // namespace hierfit::report
