#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

struct HierfitRasterFunctions;

namespace hierfit::report::charts {

/// Turns SVG images into PNG and PDF by a module that is loaded when the first of these is made.
class Raster {
  public:
    /// The module at a path, or why it cannot be had.
    static std::variant<Raster, std::string> Load(const std::string& path);

    /// Nothing for what is no image, and for one that is larger than images of the format can be. `scale`: pixels of
    /// the result to a pixel of the image.
    std::optional<std::string> MakePng(std::string_view svg, double scale) const;

    /// One page of the image's size.
    std::optional<std::string> MakePdf(std::string_view svg) const;

  private:
    explicit Raster(const HierfitRasterFunctions* functions) : fpFunctions(functions) {}

    const HierfitRasterFunctions* fpFunctions;
};

}  // namespace hierfit::report::charts
