#include "report/formats/RenderSettings.h"

#include <charconv>

namespace hierfit::report {

namespace {

constexpr double kLargestScale = 20;

}  // namespace

std::optional<double> ReadScale(std::string_view text) {
    double scale = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && scale > 0 && scale <= kLargestScale ? std::optional(scale) : std::nullopt;
}

}  // namespace hierfit::report
