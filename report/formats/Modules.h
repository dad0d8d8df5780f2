#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <variant>

#include "report/formats/Format.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::report {

/// A part of some formats that takes libraries of its own.
struct Module {
    const char* fName;
    const char* fLibraries;  ///< that it takes to run, and that it takes to be built, as Debian's packages are named
    const char* fSources;
};

inline constexpr Module kRasterModule{"libhierfit_raster.so", "librsvg2-2 and libcairo2",
                                      "librsvg2-dev and libcairo2-dev"};
inline constexpr Module kArchiveModule{"libhierfit_archive.so", "libzip4", "libzip-dev"};
inline constexpr Module kBookModule{"libhierfit_xlsx.so", "libxlsxwriter4", "libxlsxwriter-dev"};

/// What to install for a module that cannot be loaded, as the end of a sentence.
inline std::string DescribeRemedy(const Module& module, const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::exists(path, error)) return std::string("; install ") + module.fLibraries;
    return std::string("; install the package of hierfit that holds it, or ") + module.fSources +
           " and build hierfit again";
}

/// What a format takes from a module, or why it cannot be had. `load` takes the module's path.
template <typename Part>
std::variant<Part, RenderError> LoadModule(std::variant<Part, std::string> (*load)(const std::string& path),
                                           const Module& module, Format format, const RenderSettings& settings) {
    const std::filesystem::path path = std::filesystem::path(settings.fModuleFolder) / module.fName;
    auto found = load(path.string());
    if (auto* part = std::get_if<Part>(&found)) return std::move(*part);
    return RenderError{RenderFault::Missing, std::string(NameOf(format)) + " takes " + module.fName + ": " +
                                                 std::get<std::string>(found) + DescribeRemedy(module, path)};
}

}  // namespace hierfit::report
