#include "report/text/VisibleText.h"

namespace hierfit {
namespace {

TEST(VisibleText, ShowsWhatATerminalWouldObey) {
    const std::pair<std::string, const char*> cases[] = {
        {"plain", "plain"},
        {"\x1B[31mred", "␛[31mred"},
        {"bell\a, tab\t, null" + std::string(1, '\0'), "bell␇, tab␉, null␀"},
        {"lines\nstay\r\n", "lines\nstay␍\n"},
        {"delete\x7F", "delete␡"},
        {"\u009B31m", "\\u{9B}31m"},
        {"right\u202Eto left", "right\\u{202E}to left"},
        {"\u200F\u2066\u061C\u2028", "\u200F\\u{2066}\\u{061C}\\u{2028}"},
        {"Größe 身長 e\u0301", "Größe 身長 e\u0301"},
        {"bad \xFF\xC3", "bad \uFFFD\uFFFD"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\u05D0 = \u22122.5\n\u05D0 1", "\u05D0 = \u200E\u22122.5\n\u05D0 1"},
    };
    for (const auto& [text, visible] : cases) EXPECT_EQ(report::MakeVisible(text), visible);
}

TEST(VisibleText, MeasuresColumns) {
    const std::pair<const char*, int> cases[] = {
        {"", 0},   {"plain", 5}, {"Größe", 5}, {"身長", 4}, {"e\u0301", 1}, {"👨‍👩‍👧", 2},
        {"한", 2}, {"␛", 1},     {"─", 1},
    };
    for (const auto& [text, width] : cases) EXPECT_EQ(report::MeasureWidth(text), width) << text;
}

TEST(VisibleText, Wraps) {
    struct Case {
        const char* fText;
        int fWidth;
        std::vector<std::string> fLines;
    };
    const Case cases[] = {
        {"", 5, {""}},
        {"no limit at all", 0, {"no limit at all"}},
        {"one two three", 7, {"one two", "three"}},
        {"one two three", 3, {"one", "two", "thr", "ee"}},
        {"a line\n\nand another", 7, {"a line", "", "and", "another"}},
        {"[A=1]*[Boy=2]*[C=3]", 9, {"[A=1]*", "[Boy=2]*", "[C=3]"}},
        {"wide: abcdefgh x", 6, {"wide:", "abcdef", "gh x"}},
        {"身長と体重", 5, {"身長", "と体", "重"}},
        {"身", 1, {"身"}},
        {"two  blanks  kept", 12, {"two  blanks ", "kept"}},
    };
    for (const Case& test : cases) EXPECT_EQ(report::WrapLines(test.fText, test.fWidth), test.fLines) << test.fText;
}

}  // namespace
}  // namespace hierfit
