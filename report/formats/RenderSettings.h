#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Export.h"
#include "report/html/HtmlSettings.h"
#include "report/style/FigureStyle.h"
#include "report/text/TextOptions.h"

namespace hierfit::report {

/// How a document is rendered. Each format takes what it knows.
struct RenderSettings {
    std::vector<std::string> fvOnly;  ///< the items that are shown, as `items::Select` takes them; all if empty
    style::FigureStyle fStyle;
    HtmlSettings fHtml;
    TextOptions fText;
    double fScale = 2;            ///< pixels of a PNG to a pixel of its picture, as `ReadScale` takes it
    std::string fChartFolder;     ///< beside the file, as its links name it; empty: no charts are beside it
    bool fIsStandalone = false;   ///< LaTeX that compiles by itself
    std::string fModuleFolder;    ///< where formats that take a library of their own find it
    std::string fLanguageFolder;  ///< catalogues, for a report's own words in the document's language; else in English

    /// Called before each picture that is painted into a docx or xlsx, if there is one.
    std::function<void()> fOnPicture{};
};

enum class RenderFault {
    Usage,    ///< the settings ask for what there is not
    Missing,  ///< a format's module cannot be had
    Unmakeable
};

struct RenderError {
    RenderFault fFault;
    std::string fText;
};

/// A number above 0 and at most 20; nothing for another text.
HIERFIT_EXPORT std::optional<double> ReadScale(std::string_view text);

}  // namespace hierfit::report
