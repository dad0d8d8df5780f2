#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/document/Document.h"
#include "report/xlsx/book/Book.h"

namespace hierfit::report::xlsx {

/// What a workbook takes besides the document.
struct WorkbookSettings {
    HierfitMakeBook fpMakeBook;
    /// Makes a PNG of an SVG; nothing where it is too large for one.
    std::function<std::optional<std::string>(const std::string& svg)> fPaint;
    double fScale;        ///< pixels of such a picture to a pixel of its SVG
    std::string fTitle;   ///< in the place of the document's title; none if empty
    std::string fAuthor;  ///< none if empty
};

/// A file, or in one line why there is none.
struct Workbook {
    std::optional<std::string> fBytes;
    std::string fReason;
};

/// A prepared document as a workbook: a sheet of contents, then a sheet for each table and chart. A text that is longer
/// than a cell holds is cut, and the contents say so.
Workbook MakeWorkbook(const document::Document& document, const WorkbookSettings& settings);

}  // namespace hierfit::report::xlsx
