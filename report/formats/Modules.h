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

/// A module that a format takes, or why it cannot be had.
template <typename Module>
std::variant<Module, RenderError> LoadModule(const char* name, Format format, const RenderSettings& settings) {
    auto found = Module::Load((std::filesystem::path(settings.fModuleFolder) / name).string());
    if (auto* module = std::get_if<Module>(&found)) return std::move(*module);
    return RenderError{RenderFault::Missing,
                       std::string(NameOf(format)) + " takes " + name + ": " + std::get<std::string>(found)};
}

}  // namespace hierfit::report
