#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "host/Export.h"

namespace hierfit::report {

/// What a document can be rendered as.
enum class Format { Html, Text, Json, Svg, Png, Markdown, Csv, Xlsx, Docx, Latex };

/// What a format writes.
enum class Extent {
    File,
    FileAndCharts,  ///< a file, and where its place is known, a folder of charts beside it
    Folder,         ///< many files, each in a name of its own
};

struct FormatName {
    std::string_view fName;
    Format fFormat;
    Extent fExtent;
};

/// The formats by name.
HIERFIT_EXPORT std::span<const FormatName> FormatNames();

HIERFIT_EXPORT Extent ExtentOf(Format format);

HIERFIT_EXPORT std::string_view NameOf(Format format);

HIERFIT_EXPORT std::optional<Format> FindFormat(std::string_view name);

/// The format of files with an ending such as ".html". A folder has none.
HIERFIT_EXPORT std::optional<Format> FindFormatOfEnding(std::string_view ending);

/// The ending of a format's files, such as ".html"; empty for a folder.
HIERFIT_EXPORT std::string_view EndingOf(Format format);

}  // namespace hierfit::report
