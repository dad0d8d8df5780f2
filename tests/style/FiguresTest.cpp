#include "report/style/Figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace hierfit::report::style {

namespace {

using document::Format;
using document::FormatName;

constexpr FigureStyle kApa{StyleName::Apa, {}};
constexpr FigureStyle kAma{StyleName::Ama, {}};

TEST(Figures, PValuesAreExactAndStayOnTheirSide) {
    // A number, and how it is written in plain style, in APA style and in AMA style.
    const std::tuple<double, const char*, const char*, const char*> cases[] = {
        {0.0496, ".050", ".0496", ".0496"},     {0.05, ".050", ".050", ".05"},
        {0.272, ".272", ".272", ".27"},         {0.0043, ".004", ".004", ".004"},
        {0.00104, ".001", ".00104", ".00104"},  {0.001, ".001", ".001", ".001"},
        {0.00099, ".001", "< .001", "<.001"},   {0, "<.001", "< .001", "<.001"},
        {1.08e-11, "<.001", "< .001", "<.001"}, {0.9949, ".995", ".995", ">.99"},
        {0.99, ".990", ".990", ".99"},          {0.9996, "1.000", "> .999", ">.99"},
        {1, "1.000", "> .999", ">.99"},         {1.5, "1.500", "1.500", "1.500"},
        {std::nan(""), ".", ".", "."},
    };
    const Format format{FormatName::SigDigit, 0.001};
    for (const auto& [number, plain, apa, ama] : cases) {
        EXPECT_EQ(WriteFigure(number, format, FigureKind::PValue, {}), plain);
        EXPECT_EQ(WriteFigure(number, format, FigureKind::PValue, kApa), apa);
        EXPECT_EQ(WriteFigure(number, format, FigureKind::PValue, kAma), ama);
    }
}

/// Whatever p is: no style shows it on the other side of a level of significance.
TEST(Figures, NoPValueCrossesALevel) {
    std::mt19937_64 random(1);
    for (const double level : {0.05, 0.01, 0.001}) {
        for (int i = 0; i < 2000; ++i) {
            const double p = level + std::ldexp(std::uniform_real_distribution(-1.0, 1.0)(random), -8 - i % 40);
            if (p < 0.001) continue;
            for (const FigureStyle& style : {kApa, kAma}) {
                const std::string text = WriteFigure(p, {FormatName::Significance}, FigureKind::PValue, style);
                const double shown = std::stod("0" + text);
                EXPECT_EQ(p < level, shown < level) << text;
                EXPECT_EQ(p > level, shown > level) << text;
            }
        }
    }
}

TEST(Figures, AreWrittenByKind) {
    const FigureStyle plainTwo{StyleName::Plain, 2};
    const FigureStyle apaNone{StyleName::Apa, 0};
    const std::tuple<double, FigureKind, FigureStyle, const char*> cases[] = {
        {10.467286, FigureKind::Estimate, kApa, "10.47"},
        {0.0342, FigureKind::Estimate, kApa, "0.034"},
        {0.0996, FigureKind::Estimate, kAma, "0.10"},
        {-0.00001234, FigureKind::Estimate, kApa, "-0.000012"},
        {1.5e20, FigureKind::Estimate, kApa, "1.50000e+20"},
        {1.5e-20, FigureKind::Estimate, kApa, "1.5e-20"},
        {-0.0, FigureKind::Estimate, kApa, "0.00"},
        {10.467286, FigureKind::Estimate, apaNone, "10"},
        {0.4, FigureKind::Estimate, apaNone, "0.4"},
        {0.0004, FigureKind::Estimate, plainTwo, "0.0004"},
        {0.003, FigureKind::Statistic, kApa, "0.003"},
        {0.034, FigureKind::Statistic, kApa, "0.03"},
        {-2.2, FigureKind::Statistic, apaNone, "-2"},
        {17, FigureKind::DegreesOfFreedom, kApa, "17"},
        {42.7891, FigureKind::DegreesOfFreedom, kAma, "42.79"},
        {-0.4567, FigureKind::Correlation, kApa, "-.46"},
        {0.4567, FigureKind::Correlation, kAma, "0.46"},
        {1.02, FigureKind::Correlation, kApa, "1.02"},
        {0.12345, FigureKind::Other, apaNone, "0.123"},
    };
    for (const auto& [number, kind, style, words] : cases) {
        EXPECT_EQ(WriteFigure(number, {FormatName::Coefficient}, kind, style), words) << number;
    }
}

TEST(Figures, DigitsAreANumberUpToFifteen) {
    EXPECT_EQ(ReadDigits("15"), 15);
    for (const char* text : {"16", "-1", "", "2x"}) EXPECT_FALSE(ReadDigits(text)) << text;
}

}  // namespace

}  // namespace hierfit::report::style
