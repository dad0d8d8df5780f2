#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace hierfit::report {

/// What a document can be rendered as.
enum class Format { Html, Text, Json, Svg, Png };

/// Whether a format holds the charts alone, each in a file of its own.
constexpr bool IsPictures(Format format) { return format == Format::Svg || format == Format::Png; }

struct FormatName {
    std::string_view fName;
    Format fFormat;
};

/// The formats by name.
std::span<const FormatName> FormatNames();

std::string_view NameOf(Format format);

std::optional<Format> FindFormat(std::string_view name);

/// The format of files with an ending such as ".html". Pictures have none: they are many.
std::optional<Format> FindFormatOfEnding(std::string_view ending);

/// The ending of a format's files, such as ".html"; empty for pictures.
std::string_view EndingOf(Format format);

}  // namespace hierfit::report
