#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::report {

/// Static pictures of a document's charts.
struct Pictures {
    std::vector<std::string> fvNames;     ///< of each chart in their order, as the page's anchors: "GLMMEmMeans-1"
    std::vector<std::string> fvSvg;       ///< beside it; empty where there is no picture
    std::vector<std::string> fvFailures;  ///< why a picture is missing that should be there, a line each
};

/// Draws all charts that have a view. `module` is the path of the module that draws; it is loaded when there is
/// something to draw, and without it there are no pictures.
Pictures MakePictures(const document::Document& document, const std::string& module);

}  // namespace hierfit::report
