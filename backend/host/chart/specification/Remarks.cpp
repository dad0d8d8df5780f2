#include "host/chart/specification/Remarks.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/chart/Utf8.h"

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
    const std::u32string start = DecodeUtf8(text.substr(0, 4 * kLongestQuote));
    const bool isCut = start.size() > kLongestQuote;
    return '"' + EncodeUtf8(std::u32string_view(start).substr(0, kLongestQuote)) + (isCut ? "...\"" : "\"");
}

}  // namespace hierfit::chart
