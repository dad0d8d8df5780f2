#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::report {

/// A chart as an SVG file that stands by itself.
struct PictureFile {
    std::string fName;  ///< the chart's anchor in a page, such as "GLMMEmMeans-1"
    std::string fSvg;
};

/// All charts of a document in their order, laid out for a desk.
std::vector<PictureFile> MakePictures(const document::Document& document);

}  // namespace hierfit::report
