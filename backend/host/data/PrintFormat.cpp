#include "host/data/PrintFormat.h"

#include <fmt/format.h>

#include <charconv>
#include <system_error>

namespace hierfit::data {

namespace {

constexpr int kMostWidth = 255;
constexpr int kMostDecimals = 16;

std::optional<int> ParseDigits(std::string_view text) {
    int value = 0;
    if (text.starts_with('-')) return {};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return value;
}

}  // namespace

std::optional<KEST_Format> ParsePrintFormat(std::string_view text) {
    const bool isString = text.starts_with('A');
    if (!isString && !text.starts_with('F')) return {};
    const std::size_t point = isString ? std::string_view::npos : text.find('.');
    const auto width = ParseDigits(text.substr(1, point == std::string_view::npos ? point : point - 1));
    const auto decimals = point == std::string_view::npos ? 0 : ParseDigits(text.substr(point + 1));
    if (!width || !decimals || *width > kMostWidth || *decimals > kMostDecimals || *decimals >= *width) return {};
    return KEST_Format{static_cast<std::uint16_t>(*width),
                       isString ? KEST_FormatType::String : KEST_FormatType::Numeric,
                       static_cast<std::uint8_t>(*decimals)};
}

std::string PrintFormatText(const KEST_Format& format) {
    return format.IsString() ? fmt::format("A{}", format.fWidth)
                             : fmt::format("F{}.{}", format.fWidth, format.fDecimals);
}

}  // namespace hierfit::data
