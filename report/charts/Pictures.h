#pragma once

#include <string>
#include <vector>

#include "host/document/Document.h"
#include "report/items/Entries.h"

namespace hierfit::report {

/// The charts among the items of a document.
std::vector<items::Entry> ListCharts(const document::Document& document);

/// A chart as an SVG file that stands by itself, laid out for a desk.
std::string MakePicture(const items::Entry& chart);

}  // namespace hierfit::report
