#pragma once

#include <string>

#include "host/document/Document.h"

namespace hierfit::report {

struct LatexSettings {
    std::string fTitle;          ///< in the place of the document's title; none if empty
    std::string fAuthor;         ///< none if empty
    std::string fChartFolder;    ///< where the charts lie as PDF files, as the text names it; empty: there are none
    bool fIsStandalone = false;  ///< compiles by itself; else it is input into another document
};

/// The document as LaTeX: tables and charts as floats, headings as sections. A fragment begins with a comment that says
/// what the document needs that takes it in. Time is linear in cells and texts.
std::string MakeLatexReport(const document::Document& document, const LatexSettings& settings);

}  // namespace hierfit::report
