#pragma once

#include <string>

#include "host/document/Document.h"

namespace hierfit::report {

struct MarkdownSettings {
    std::string fTitle;        ///< in the place of the document's title; none if empty
    std::string fAuthor;       ///< none if empty
    std::string fChartFolder;  ///< where the charts lie as SVG files, as links name it; empty: there are none
};

/// The document as Markdown with pipe tables (GitHub Flavored Markdown). Headers that span are spelt out in each row
/// and column.
std::string MakeMarkdownReport(const document::Document& document, const MarkdownSettings& settings);

}  // namespace hierfit::report
