#pragma once

#include <optional>
#include <span>
#include <string_view>

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
std::span<const FormatName> FormatNames();

Extent ExtentOf(Format format);

std::string_view NameOf(Format format);

std::optional<Format> FindFormat(std::string_view name);

/// The format of files with an ending such as ".html". A folder has none.
std::optional<Format> FindFormatOfEnding(std::string_view ending);

/// The ending of a format's files, such as ".html"; empty for a folder.
std::string_view EndingOf(Format format);

}  // namespace hierfit::report
