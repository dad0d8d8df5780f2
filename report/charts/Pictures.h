#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/document/Document.h"
#include "report/items/Entries.h"

namespace hierfit::report {

/// The charts among the items of a document.
std::vector<items::Entry> ListCharts(const document::Document& document);

/// Whether a picture shows its title even where that of the item, which its caption says, is the same.
enum class Titles : bool { All, NotOfCaption };

document::Picture Select(const document::Picture& picture, std::string_view caption, Titles titles);

/// A chart as an SVG file that stands by itself, laid out for a desk.
std::string MakePicture(const items::Entry& chart, Titles titles = Titles::All);

/// How much smaller than it is a picture stands on an upright page, so that few pages end half empty: one that is
/// higher than 12 cm at that height or, if that is smaller, at four fifths of its size. `height` is in pixels of 1/96
/// inch.
double ShrinkOnPaper(double height);

}  // namespace hierfit::report
