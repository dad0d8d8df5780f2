#include "host/unicode/SignedFigures.h"

#include <gtest/gtest.h>

namespace hierfit::unicode {
namespace {

// Behind a Hebrew letter; "|" stands for the mark.
TEST(SignedFigures, KeepTheirSignsBeforeThem) {
    const std::string cases[] = {
        "\u05D0 = |-2.978",
        "\u05D0: |\u22121,234.5, (|+3) 4",
        "\u05D0 |<.001 |< .001 |\u2265 -2 |.5% x -1",
        "[\u05D0=|-1] \u05D0-1 1-2 1 - 2 - .",
        "\u05D0 x = -1 \u05D0 |-1",
        "x \u05D0 -1\n\u05D0 |-1\n-1\n\u0661 \u0628 |-1",
        "\u05D0 \u200E-1",
    };
    for (const std::string& each : cases) {
        std::string text;
        std::string marked;
        for (const char byte : each) {
            marked += byte == '|' ? "\u200E" : std::string(1, byte);
            if (byte != '|') text += byte;
        }
        EXPECT_EQ(KeepSigns(text), marked);
    }
}

TEST(SignedFigures, EndBehindTheirDigits) {
    const std::pair<std::string, std::string> cases[] = {
        {"\u05D0 -1,234.5, 2", "-1,234.5"}, {"\u05D0 -27.9%.", "-27.9%"}, {"\u05D0 < -3", "< -3"}, {"a -1", ""}};
    for (const auto& [text, figure] : cases) {
        std::string found;
        for (const auto& [begin, end] : FindTurnedFigures(text)) found += text.substr(begin, end - begin);
        EXPECT_EQ(found, figure) << text;
    }
}

}  // namespace
}  // namespace hierfit::unicode
