#include "report/xlsx/sheets/SheetNames.h"

#include <algorithm>

#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"
#include "report/xlsx/book/Book.h"

namespace hierfit::report::xlsx {

namespace {

constexpr std::u32string_view kForbidden = U"[]:*?/\\'";

std::string MakeSmall(std::string name) {
    std::ranges::transform(name, name.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return name;
}

/// A name of a stem and an ending, as much of the stem as there is room for.
std::string Join(std::u32string_view stem, std::string_view ending) {
    const std::size_t room = static_cast<std::size_t>(kMostOfName) - ending.size();
    return unicode::Encode(stem.substr(0, room)).append(ending);
}

}  // namespace

std::string SheetNames::Add(std::string_view item) {
    const std::size_t hyphen = std::min(item.find_last_of('-'), item.size());
    const bool hasNumber = item.size() - hyphen <= 8;
    const std::string_view ending = hasNumber ? item.substr(hyphen) : std::string_view();
    std::u32string stem = unicode::Decode(item.substr(0, item.size() - ending.size()));
    for (char32_t& c : stem) {
        if (kForbidden.find(c) != std::u32string_view::npos || unicode::IsControl(c)) c = U'_';
    }
    std::string name = Join(stem, ending);
    std::size_t& number = fNumbers[MakeSmall(name)];
    while (name.empty() || !fTaken.insert(MakeSmall(name)).second) {
        number = number == 0 ? 2 : number + 1;
        name = Join(stem, std::string(ending) + " (" + std::to_string(number) + ")");
    }
    return name;
}

}  // namespace hierfit::report::xlsx
