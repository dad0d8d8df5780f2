#include "host/pivot/text/NumberFormat.h"

#include <cmath>
#include <limits>

#include "host/SystemMissing.h"

namespace hierfit {
namespace {

using document::FormatName;

struct NumberCase {
    FormatName fFormat;
    double fNumber;
    const char* fWords;
};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kBelowHalf = std::nextafter(0.0005, 0.0);

const NumberCase kCases[] = {
    {FormatName::Coefficient, 10.4673, "10.467"},
    {FormatName::Coefficient, -2.5, "-2.500"},
    {FormatName::Coefficient, 0, "0.000"},
    {FormatName::Coefficient, -0.0, "0.000"},
    {FormatName::Coefficient, 0.0005, "0.001"},
    {FormatName::Coefficient, 0.0004, "0.000400"},
    {FormatName::Coefficient, -0.0004, "-0.000400"},
    {FormatName::Coefficient, kBelowHalf, "0.000500"},
    {FormatName::Coefficient, 0.000123456, "0.000123"},
    {FormatName::Coefficient, 0.0001, "0.000100"},
    {FormatName::Coefficient, 0.00009999, "0.000100"},
    {FormatName::Coefficient, 0.0000123, "1.23e-05"},
    {FormatName::Coefficient, -4.9e-324, "-4.94e-324"},
    {FormatName::Coefficient, 123456789012.345, "123456789012.345"},
    {FormatName::Coefficient, 1234567890123.4, "1.23457e+12"},
    {FormatName::Coefficient, 1e300, "1.00000e+300"},
    {FormatName::Coefficient, -1e300, "-1.00000e+300"},
    {FormatName::Coefficient, kSystemMissing, "."},
    {FormatName::Coefficient, std::nextafter(kSystemMissing, 0.0), "-1.79769e+308"},
    {FormatName::GeneralStat, 1755.6283, "1755.628"},
    {FormatName::GeneralStat, 0.0002, "0.000200"},
    {FormatName::CoefficientSE, 1.54578, "1.5458"},
    {FormatName::CoefficientSE, 0.00006, "0.0001"},
    {FormatName::CoefficientSE, 0.00002, "2.00e-05"},
    {FormatName::CoefficientSE, 0, "0.0000"},
    {FormatName::Significance, 0.0312, ".031"},
    {FormatName::Significance, 0.0005, ".001"},
    {FormatName::Significance, kBelowHalf, "<.001"},
    {FormatName::Significance, 0, "<.001"},
    {FormatName::Significance, -0.0, "<.001"},
    {FormatName::Significance, 1, "1.000"},
    {FormatName::Significance, 0.9996, "1.000"},
    {FormatName::Significance, 0.9994, ".999"},
    {FormatName::Significance, -0.25, "-.250"},
    {FormatName::Significance, -0.0001, "-.000100"},
    {FormatName::Significance, 10.5, "10.500"},
    {FormatName::Significance, kNaN, "."},
    {FormatName::Count, 12, "12"},
    {FormatName::Count, 17.000000000000497, "17"},
    {FormatName::Count, 44.25, "44.25"},
    {FormatName::Count, 44.5, "44.5"},
    {FormatName::Count, 44.256, "44.26"},
    {FormatName::Count, 100, "100"},
    {FormatName::Count, 0, "0"},
    {FormatName::Count, -1, "-1"},
    {FormatName::Count, -0.001, "0"},
    {FormatName::Count, 123456789012345, "123456789012345"},
    {FormatName::Count, 1e15, "1.00000e+15"},
    {FormatName::Count, kInfinity, "."},
    {FormatName::Percent, 33.333, "33.3%"},
    {FormatName::Percent, 100, "100.0%"},
    {FormatName::Percent, -0.01, "0.0%"},
    {FormatName::Percent, -kInfinity, "."},
    {FormatName::SigDigit, 95.0, "95"},
    {FormatName::SigDigit, 0.95 * 100, "95"},
    {FormatName::SigDigit, 0.29 * 100, "29"},
    {FormatName::SigDigit, 99.5, "99.5"},
    {FormatName::SigDigit, 1.5, "1.5"},
    {FormatName::SigDigit, -0.25, "-0.25"},
    {FormatName::SigDigit, 100, "100"},
    {FormatName::SigDigit, 0, "0"},
    {FormatName::SigDigit, -0.0, "0"},
    {FormatName::SigDigit, 1.0 / 3, "0.333333333333333"},
    {FormatName::SigDigit, 0.0001, "0.0001"},
    {FormatName::SigDigit, 0.00001, "1e-05"},
    {FormatName::SigDigit, 123456789012345678.0, "1.23456789012346e+17"},
    {FormatName::SigDigit, kSystemMissing, "."},
};

TEST(NumberFormat, GivesTheWords) {
    for (const NumberCase& test : kCases) {
        const document::Format format{test.fFormat, test.fNumber};
        EXPECT_EQ(pivot::FormatNumber(test.fNumber, format), test.fWords)
            << "format " << static_cast<int>(test.fFormat) << ", number " << test.fNumber;
    }
}

TEST(NumberFormat, TakesTheDigitsOfAnotherNumber) {
    const auto format = [](double number, double other) {
        return pivot::FormatNumber(number, {FormatName::SigDigit, other});
    };
    EXPECT_EQ(format(12.3456, 1.25), "12.3");
    EXPECT_EQ(format(12, 1.25), "12.0");
    EXPECT_EQ(format(1234.5, 95), "1234");
    EXPECT_EQ(format(1.5, kNaN), "1.5");
}

}  // namespace
}  // namespace hierfit
