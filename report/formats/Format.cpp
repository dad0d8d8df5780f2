#include "report/formats/Format.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace hierfit::report {

namespace {

constexpr FormatName kNames[] = {
    {"html", Format::Html, Extent::File}, {"text", Format::Text, Extent::File},
    {"json", Format::Json, Extent::File}, {"svg", Format::Svg, Extent::Folder},
    {"png", Format::Png, Extent::Folder}, {"markdown", Format::Markdown, Extent::FileAndCharts},
    {"docx", Format::Docx, Extent::File}, {"csv", Format::Csv, Extent::Folder},
    {"xlsx", Format::Xlsx, Extent::File}, {"latex", Format::Latex, Extent::FileAndCharts},
};

struct Ending {
    std::string_view fName;
    Format fFormat;
};

constexpr Ending kEndings[] = {{".html", Format::Html}, {".htm", Format::Html},  {".txt", Format::Text},
                               {".text", Format::Text}, {".json", Format::Json}, {".md", Format::Markdown},
                               {".xlsx", Format::Xlsx}, {".docx", Format::Docx}, {".tex", Format::Latex}};

template <typename List>
std::optional<Format> Find(const List& list, std::string_view name) {
    const auto* const found = std::ranges::find(list, name, &std::remove_extent_t<List>::fName);
    return found == std::end(list) ? std::nullopt : std::optional(found->fFormat);
}

const FormatName& Find(Format format) { return *std::ranges::find(kNames, format, &FormatName::fFormat); }

}  // namespace

std::span<const FormatName> FormatNames() { return kNames; }

Extent ExtentOf(Format format) { return Find(format).fExtent; }

std::string_view NameOf(Format format) { return Find(format).fName; }

std::optional<Format> FindFormat(std::string_view name) { return Find(kNames, name); }

std::optional<Format> FindFormatOfEnding(std::string_view ending) { return Find(kEndings, ending); }

std::string_view EndingOf(Format format) {
    const auto* const found = std::ranges::find(kEndings, format, &Ending::fFormat);
    return found == std::end(kEndings) ? std::string_view() : found->fName;
}

}  // namespace hierfit::report
