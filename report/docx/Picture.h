#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/document/Chart.h"
#include "report/archive/Archive.h"
#include "report/docx/DocxSettings.h"
#include "report/docx/Page.h"

namespace hierfit::report::docx {

/// A chart, drawn for the width of a page. A title that its caption says is left out.
struct DrawnPicture {
    double fWidth = 0;  ///< in pixels of 1/96 inch
    double fHeight = 0;
    std::string fSvg;
    std::optional<std::string> fPng;  ///< nothing where it is too large at every scale
};

DrawnPicture Draw(const document::Chart& chart, std::string_view title, const DocxSettings& settings);

/// A turned page for a picture that would be too small upright.
Page ChoosePage(const DrawnPicture& picture);

/// Appends the picture as a run, as large as the page allows and no larger than it is. Its vectors are for programs
/// that show them, its pixels for all others. `number` counts the drawn pictures from 1; `sentence` is for those who do
/// not see it.
void AppendPicture(std::string& out, const DrawnPicture& picture, Page page, int number, std::string_view sentence);

}  // namespace hierfit::report::docx
