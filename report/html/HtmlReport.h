#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"

namespace hierfit::report {

/// The document as one HTML page that needs nothing else, UTF-8. Its charts are drawn by the page itself, or are
/// `pictures`: SVG for each of them in their order, as `ListPictures` gives it; an empty one stands for none.
std::string MakeHtmlReport(const document::Document& document, const std::vector<std::string>* pictures = nullptr);

}  // namespace hierfit::report
