#include "host/chart/view/text/TextWidth.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {
namespace {

constexpr TextStyle kTen{10, false};

TEST(TextWidth, AddsTheWidthsOfCharacters) {
    const std::vector<std::tuple<std::string, bool, double>> cases = {
        {"", false, 0},           {"0123456789", false, 55.6}, {"il", false, 4.44},   {"il", true, 5.56},
        {"Ä", false, 6.67},       {"é", false, 5.56},          {"α", false, 5.78},    {"日本", false, 20},
        {"e\u0301", false, 5.56}, {"\u2060", false, 0},        {"\u2026", false, 10},
    };
    for (const auto& [text, isBold, width] : cases) {
        EXPECT_NEAR(TextWidth(text, {10, isBold}), width, 0.011) << text;
    }
    EXPECT_DOUBLE_EQ(TextWidth("width", {20, false}), 2 * TextWidth("width", kTen));
}

TEST(TextWidth, TakesInvalidBytesForCharacters) {
    for (const std::string text : {"\xff", "\xc3", "\xe2\x82", "\xf5\x80\x80\x80", "\x80"}) {
        EXPECT_GT(TextWidth(text, kTen), 0) << text.size();
    }
    EXPECT_DOUBLE_EQ(TextWidth("\xc3"
                               "a",
                               kTen),
                     TextWidth("\xff", kTen) + TextWidth("a", kTen));
}

TEST(CutText, LeavesWhatFitsAndNeverSplitsACharacter) {
    EXPECT_EQ(CutText("aaaa", TextWidth("aaaa", kTen), kTen), "aaaa");
    EXPECT_EQ(CutText("aaaaa", TextWidth("aaaa", kTen), kTen), "aa\u2026");
    EXPECT_EQ(CutText("ääääääää", TextWidth("ääää", kTen), kTen), "ää\u2026");
    EXPECT_EQ(CutText("aaaa", 0, kTen), "\u2026");
    for (double width = 10; width < 200; width += 7) {
        EXPECT_LE(TextWidth(CutText(std::string(1000, 'm'), width, kTen), kTen), width);
    }
}

TEST(CutCharacters, CountsCharacters) {
    EXPECT_EQ(CutCharacters("ääää", 4), "ääää");
    EXPECT_EQ(CutCharacters("ääää", 3), "ää\u2026");
    EXPECT_EQ(CutCharacters("", 3), "");
}

TEST(WrapText, BreaksAtLineEndsThenWordsThenWithinWords) {
    const std::vector<std::tuple<std::string, double, std::vector<std::string>>> cases = {
        {"", 5, {}},
        {"00", 5, {"00"}},
        {"00 00 00", 5.6, {"00 00", "00"}},
        {"00\n00", 5, {"00", "00"}},
        {"00\r\n\r\n00", 5, {"00", "", "00"}},
        {"00\n", 5, {"00"}},
        {"0000000", 3, {"000", "000", "0"}},
        {"00 0000000", 3, {"00", "000", "000", "0"}},
        {"00", 0.1, {"0", "0"}},
        {"0  0", 5, {"0 \u00a00"}},
        {"  0", 5, {"\u2060\u00a0\u00a00"}},
        {"0 ", 5, {"0\u00a0"}},
        {"0\t0", 5, {"0 0"}},
        {"äääää", 2.1, {"ää", "ää", "ä"}},
    };
    const double unit = TextWidth("0", kTen);
    for (const auto& [text, zeros, lines] : cases) EXPECT_EQ(WrapText(text, zeros * unit, kTen), lines) << text;
}

TEST(WrapText, CutsWhatDoesNotFitIntoTheLines) {
    const double unit = TextWidth("0", kTen);
    EXPECT_EQ(WrapText("00 00 00", 4 * unit, kTen, 2), (std::vector<std::string>{"00", "00\u2026"}));
    EXPECT_EQ(WrapText("0000000", 3 * unit, kTen, 2), (std::vector<std::string>{"000", "0\u2026"}));
    EXPECT_EQ(WrapText("0\n0", 4 * unit, kTen, 1), std::vector<std::string>{"0\u2026"});
    const std::vector<std::string> lines = WrapText(std::string(1000000, 'w'), 300, kTen, 12);
    ASSERT_EQ(lines.size(), 12U);
    for (const std::string& line : lines) EXPECT_LE(TextWidth(line, kTen), 300);
}

}  // namespace
}  // namespace hierfit::chart
