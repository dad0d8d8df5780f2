#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hierfit::report::html {

/// An SVG image as it may stand in a page or a file: nothing but shapes and texts, no code, no style, no reference
/// beyond the image itself. Ids and references to them get the prefix, so that several images can share a page;
/// characters that XML forbids become their symbols. Nothing when the text is no such image.
std::optional<std::string> MakeSafeSvg(std::string_view svg, std::string_view idPrefix);

}  // namespace hierfit::report::html
