#include "host/chart/specification/Remarks.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/unicode/Utf8.h"

namespace hierfit::chart {

namespace {

constexpr std::size_t kMostRemarks = 20;
constexpr std::size_t kLongestQuote = 60;

}  // namespace

void Remarks::Add(std::string remark) {
    if (fvRemarks.size() >= kMostRemarks) return;
    if (std::ranges::find(fvRemarks, remark) == fvRemarks.end()) fvRemarks.push_back(std::move(remark));
}

std::string Quote(std::string_view text) {
    const std::string start = unicode::MakeUtf8(std::string(text.substr(0, 4 * kLongestQuote)));
    const std::string_view quoted = unicode::FirstCharacters(start, kLongestQuote);
    return std::string(1, '"').append(quoted) + (quoted.size() < start.size() ? "...\"" : "\"");
}

}  // namespace hierfit::chart
