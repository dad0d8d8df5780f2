#include "report/formats/Format.h"

#include <algorithm>
#include <iterator>

namespace hierfit::report {

namespace {

constexpr FormatName kNames[] = {
    {"html", Format::Html}, {"text", Format::Text}, {"json", Format::Json}, {"svg", Format::Svg}, {"png", Format::Png}};

constexpr FormatName kEndings[] = {{".html", Format::Html},
                                   {".htm", Format::Html},
                                   {".txt", Format::Text},
                                   {".text", Format::Text},
                                   {".json", Format::Json}};

std::optional<Format> Find(std::span<const FormatName> names, std::string_view name) {
    const auto found = std::ranges::find(names, name, &FormatName::fName);
    return found == names.end() ? std::nullopt : std::optional(found->fFormat);
}

}  // namespace

std::span<const FormatName> FormatNames() { return kNames; }

std::string_view NameOf(Format format) { return std::ranges::find(kNames, format, &FormatName::fFormat)->fName; }

std::optional<Format> FindFormat(std::string_view name) { return Find(kNames, name); }

std::optional<Format> FindFormatOfEnding(std::string_view ending) { return Find(kEndings, ending); }

std::string_view EndingOf(Format format) {
    const auto* const found = std::ranges::find(kEndings, format, &FormatName::fFormat);
    return found == std::end(kEndings) ? std::string_view() : found->fName;
}

}  // namespace hierfit::report
