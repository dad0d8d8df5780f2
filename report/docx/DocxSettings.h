#pragma once

#include <functional>
#include <optional>
#include <string>

namespace hierfit::report {

/// What a file says or carries besides the document.
struct DocxSettings {
    std::string fTitle;   ///< in the place of the document's title; none if empty
    std::string fAuthor;  ///< none if empty
    /// The pixels of a picture, `scale` to each of its own, as PNG; nothing where it is too large for that.
    std::function<std::optional<std::string>(const std::string& svg, double scale)> fMakePng;
    double fScale = 2;  ///< that is asked for first; a picture that is too large gets less
};

}  // namespace hierfit::report
