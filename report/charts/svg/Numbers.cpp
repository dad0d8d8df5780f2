#include "report/charts/svg/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace hierfit::report::charts {

namespace {

constexpr double kFarthest = 1e7;

}  // namespace

long long TenthsOf(double pixels) {
    if (std::isnan(pixels)) return 0;
    return std::llround(10 * std::clamp(pixels, -kFarthest, kFarthest));
}

void AppendTenths(std::string& out, long long tenths) {
    std::array<char, 24> digits{};
    if (tenths < 0) out += '-';
    tenths = std::abs(tenths);
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), tenths / 10).ptr;
    out.append(digits.data(), end);
    if (tenths % 10 == 0) return;
    out += '.';
    out += static_cast<char>('0' + tenths % 10);
}

void AppendNumber(std::string& out, const char* name, double pixels) {
    out.append(" ").append(name).append("=\"");
    AppendTenths(out, TenthsOf(pixels));
    out += '"';
}

}  // namespace hierfit::report::charts
