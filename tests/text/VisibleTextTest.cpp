#include "report/text/VisibleText.h"

#include <tuple>

namespace hierfit {
namespace {

TEST(VisibleText, ShowsWhatATerminalWouldObey) {
    const std::pair<std::string, const char*> cases[] = {
        {"\x1B[31mred", "␛[31mred"},
        {"bell\a, tab\t, null" + std::string(1, '\0'), "bell␇, tab␉, null␀"},
        {"lines\nstay\r\n", "lines\nstay␍\n"},
        {"delete\x7F", "delete␡"},
        {"\u009B31m", "\\u{9B}31m"},
        {"right\u202Eto left", "right\\u{202E}to left"},
        {"\u200F\u2066\u061C\u2028", "\u200F\\u{2066}\\u{061C}\\u{2028}"},
        {"bad \xFF\xC3", "bad \uFFFD\uFFFD"},
        {"\u05D0 = \u22122.5\n\u05D0 1", "\u05D0 = \u200E\u22122.5\n\u05D0 1"},
    };
    for (const auto& [text, visible] : cases) EXPECT_EQ(report::MakeVisible(text), visible);
}

TEST(VisibleText, Wraps) {
    const std::tuple<const char*, int, std::vector<std::string>> cases[] = {
        {"one two three", 3, {"one", "two", "thr", "ee"}},
        {"a line\n\nand another", 7, {"a line", "", "and", "another"}},
        {"[A=1]*[Boy=2]*[C=3]", 9, {"[A=1]*", "[Boy=2]*", "[C=3]"}},
        {"wide: abcdefgh x", 6, {"wide:", "abcdef", "gh x"}},
        {"身長と体重", 5, {"身長", "と体", "重"}},
        {"two  blanks  kept", 12, {"two  blanks ", "kept"}},
    };
    for (const auto& [text, width, lines] : cases) EXPECT_EQ(report::WrapLines(text, width), lines) << text;
}

}  // namespace
}  // namespace hierfit
