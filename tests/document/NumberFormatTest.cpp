#include "host/document/NumberFormat.h"

#include <cmath>
#include <limits>

#include "host/SystemMissing.h"

namespace hierfit {
namespace {

using document::FormatName;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kBelowHalf = std::nextafter(0.0005, 0.0);
const double kNotMissing = std::nextafter(kSystemMissing, 0.0);

// The words are parted by blanks.
const std::tuple<FormatName, std::vector<double>, const char*> kCases[] = {
    {FormatName::Coefficient, {10.4673, -2.5, 0, -0.0}, "10.467 -2.500 0.000 0.000"},
    {FormatName::Coefficient, {0.0005, kBelowHalf, 0.0004, -0.0004}, "0.001 0.000500 0.000400 -0.000400"},
    {FormatName::Coefficient, {0.000123456, 0.0001, 0.00009999}, "0.000123 0.000100 0.000100"},
    {FormatName::Coefficient, {0.0000123, -4.9e-324}, "1.23e-05 -4.94e-324"},
    {FormatName::Coefficient, {123456789012.345, 1234567890123.4}, "123456789012.345 1.23457e+12"},
    {FormatName::Coefficient, {kSystemMissing, kNotMissing}, ". -1.79769e+308"},
    {FormatName::CoefficientSE, {1.54578, 0.00006, 0.00002, 0}, "1.5458 0.0001 2.00e-05 0.0000"},
    {FormatName::Significance, {0.0312, 0.0005, kBelowHalf, 0, -0.0}, ".031 .001 <.001 <.001 <.001"},
    {FormatName::Significance, {1, 0.9996, 0.9994, 10.5}, "1.000 1.000 .999 10.500"},
    {FormatName::Significance, {-0.25, -0.0001, kNaN}, "-.250 -.000100 ."},
    {FormatName::Count, {44.256, 44.5, 17.000000000000497, 100, 0, -1, -0.001}, "44.26 44.5 17 100 0 -1 0"},
    {FormatName::Count, {123456789012345, 1e15, kInfinity}, "123456789012345 1.00000e+15 ."},
    {FormatName::Percent, {33.333, 100, -0.01, -kInfinity}, "33.3% 100.0% 0.0% ."},
    {FormatName::SigDigit, {0.95 * 100, 0.29 * 100, 100, 0, -0.0}, "95 29 100 0 0"},
    {FormatName::SigDigit, {99.5, 0.0001, 0.00001, 1.0 / 3}, "99.5 0.0001 1e-05 0.333333333333333"},
    {FormatName::SigDigit, {1e15, 123456789012345678.0, kSystemMissing}, "1e+15 1.23456789012346e+17 ."},
};

TEST(NumberFormat, GivesTheWords) {
    for (const auto& [format, numbers, expected] : kCases) {
        std::string words;
        for (const double number : numbers) {
            words += (words.empty() ? "" : " ") + document::FormatNumber(number, {format, number});
        }
        EXPECT_EQ(words, expected) << "format " << static_cast<int>(format);
    }
}

TEST(NumberFormat, TakesTheDigitsOfAnotherNumber) {
    const std::tuple<double, double, const char*> cases[] = {
        {12.3456, 1.25, "12.3"}, {12, 1.25, "12.0"}, {1234.5, 95, "1234"}, {1.5, kNaN, "1.5"}};
    for (const auto& [number, other, words] : cases) {
        EXPECT_EQ(document::FormatNumber(number, {FormatName::SigDigit, other}), words);
    }
}

}  // namespace
}  // namespace hierfit
