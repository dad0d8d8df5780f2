#include "report/xlsx/cells/NumberCode.h"

#include "report/xlsx/cells/NumberCodes.h"

namespace hierfit::report::xlsx {

namespace {

struct Case {
    double fNumber;
    const char* fWords;
    const char* fCode;
};

TEST(NumberCode, ShowsTheWordsOfTheReport) {
    constexpr Case kCases[] = {
        {12, "12", "0"},
        {-1.23456, "-1.235", "0.000"},
        {-1.23456, "\u22121.235", "0.000"},
        {0.05, ".050", ".000"},
        {1, "1.000", "0.000"},
        {97.2345, "97.2%", "0.0\"%\""},
        {1.234e-7, "1.23e-07", "0.00E+00"},
        {1e300, "1e+300", "0E+00"},
        {0.00001, "<.001", "[<0.001]\"<.001\";.000"},
        {0.00001, "< .001", "[<0.001]\"< .001\";.000"},
        {0.9999, ">.99", "[>0.99]\">.99\";.00"},
        {0.0625, "0.063", "0.000"},                     // halves are rounded up all the same
        {0.0625, "0.062", "[=0.0625]\"0.062\";0.000"},  // and those that are not have words
        {-0.0625, "-0.062", "0.000;\"-0.062\""},        // which bring their sign along
        {0.06250000000000001, "0.063", "0.000"},        // one digit above a half
        {0.99951, ".9995", ".0000"},
        {0.9999, "1.00", "0.00"},
        {9.995, "9.99e+00", "[=9.995]\"9.99e+00\";0.00E+00"},  // a half that carries
        {0, "0.0%", "0.0\"%\""},
        {5, "five", ""},
        {5, "<.001", "[=5]\"<.001\";0"},  // the number is not below
        {5, "5\";[Red]", ""},             // nothing of a text gets into a format
    };
    for (const Case& one : kCases) {
        NumberCodes codes;
        EXPECT_EQ(codes.At(codes.Find(one.fNumber, one.fWords, "")), one.fCode) << one.fWords;
    }
}

TEST(NumberCode, HasMarksInEachPart) {
    NumberCodes codes;
    EXPECT_EQ(codes.At(codes.Find(0, "0", "ᵃ")), "0\"ᵃ\"");
    EXPECT_EQ(codes.At(codes.Find(0.0001, "<.001", "ᵃ")), "[<0.001]\"<.001\"\"ᵃ\";.000\"ᵃ\"");
    EXPECT_EQ(codes.At(codes.Find(5, "five", "ᵃ")), "General\"ᵃ\"");
}

TEST(NumberCode, KnowsNoShapeOfOtherWords) {
    for (const char* words :
         {"", "-", ".", "%", "1.", "1.%", ".5%", "e+05", "1e5", "12e+05", "1.2e", "1,5", "1.5 ", "+1"}) {
        EXPECT_FALSE(ReadShape(words)) << words;
    }
}

}  // namespace

}  // namespace hierfit::report::xlsx
