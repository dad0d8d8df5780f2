#include "host/unicode/Utf8.h"

#include <array>

#include "host/unicode/Properties.h"

namespace hierfit::unicode {
namespace {

TEST(Utf8Test, ReplacesEachInvalidByte) {
    const std::array<std::string, 2> cases[] = {
        {"aä€\U0001F600", "aä€\U0001F600"},
        {std::string("a\0b", 3), std::string("a\0b", 3)},
        {"\xE2\x82", "\uFFFD\uFFFD"},
        {"\xE2\x82ä", "\uFFFD\uFFFDä"},
        {"\xED\x9F\xBF\xEE\x80\x80", "\uD7FF\uE000"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x8F\xBF\xBF", "\U0010FFFF"},
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xC0\xAF", "\uFFFD\uFFFD"},
        {"\xF0\x80\x80\xAF", "\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF8\x88\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(MakeUtf8(bytes), text);
        EXPECT_EQ(Encode(Decode(bytes)), text);
        EXPECT_EQ(IsUtf8(bytes), bytes == text) << text;
    }
    const std::string_view cut =
        std::string_view("\u20AC").substr(0, 2);  // the next byte is there, but not in the text
    EXPECT_FALSE(CharacterAt(cut, 0).fIsValid);
    std::string written;
    for (const char32_t code : std::initializer_list<char32_t>{0xD7FF, 0xD800, 0x10FFFF, 0x110000}) {
        Append(written, code);
    }
    EXPECT_EQ(written, "\uD7FF\uFFFD\U0010FFFF\uFFFD");
}

TEST(Utf8Test, CutsBetweenCharacters) {
    const std::string text = "aä€\U0001F600z";
    const std::string_view firsts[] = {"", "a", "aä", "aä€", "aä€\U0001F600", text, text};
    for (std::size_t most = 0; most < std::size(firsts); ++most) EXPECT_EQ(FirstCharacters(text, most), firsts[most]);
    EXPECT_EQ(CountCharacters(text), 5U);
}

TEST(PropertiesTest, TellsWidthsAndDirections) {
    using enum Direction;
    const struct {
        char32_t fCode;
        int fWidth;
        bool fIsControl;
        Direction fDirection;
    } cases[] = {{'a', 1, false, LeftToRight},    {'1', 1, false, Neither},
                 {'\n', 0, true, Neither},        {0x9F, 0, true, Neither},
                 {0x301, 0, false, Neither},      {0x200B, 0, false, Neither},
                 {0x5D0, 1, false, RightToLeft},  {0x661, 1, false, RightToLeftNumber},
                 {0x4E2D, 2, false, LeftToRight}, {0x1F600, 2, false, Neither},
                 {0x110000, 1, false, Neither}};
    for (const auto& [code, width, isControl, direction] : cases) {
        const auto shown = testing::Message() << std::hex << static_cast<unsigned>(code);
        EXPECT_EQ(WidthOf(code), width) << shown;
        EXPECT_EQ(IsControl(code), isControl) << shown;
        EXPECT_EQ(DirectionOf(code), direction) << shown;
    }
}

TEST(PropertiesTest, KeepsClustersWhole) {
    const std::u32string_view clusters[] = {U"e\u0301", U"\r\n", U"\U0001F1E9\U0001F1EA",
                                            U"\U0001F468\u200D\U0001F469\u200D\U0001F467", U"\u0915\u093F"};
    for (const std::u32string_view cluster : clusters) {
        ClusterBreaks breaks;
        for (std::size_t i = 1; i < cluster.size(); ++i) EXPECT_FALSE(breaks.IsBreak(cluster[i - 1], cluster[i])) << i;
        EXPECT_TRUE(breaks.IsBreak(cluster.back(), U'x'));
    }
    ClusterBreaks flags;  // four letters of flags are two flags
    EXPECT_FALSE(flags.IsBreak(U'\U0001F1E9', U'\U0001F1EA'));
    EXPECT_TRUE(flags.IsBreak(U'\U0001F1EA', U'\U0001F1EB'));
    EXPECT_FALSE(flags.IsBreak(U'\U0001F1EB', U'\U0001F1F7'));
}

}  // namespace
}  // namespace hierfit::unicode
