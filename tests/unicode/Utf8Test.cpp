#include "host/unicode/Utf8.h"

#include <array>

#include "host/unicode/Properties.h"

namespace hierfit::unicode {
namespace {

// Bits of a code in UTF-8, spread over bytes by hand, so that the library is held to something other than itself.
std::string Spread(char32_t code) {
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) return {static_cast<char>(code)};
    if (code < 0x800) return {static_cast<char>(0xC0 | code >> 6), tail(0)};
    if (code < 0x10000) return {static_cast<char>(0xE0 | code >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | code >> 18), tail(12), tail(6), tail(0)};
}

TEST(Utf8Test, EveryCodeIsACharacterOrNone) {
    for (char32_t code = 0; code < 0x140000; ++code) {
        const bool isCharacter = code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
        const std::string bytes = Spread(code);
        const Character character = CharacterAt("x" + bytes, 1);
        ASSERT_EQ(character.fIsValid, isCharacter) << std::hex << static_cast<unsigned>(code);
        ASSERT_EQ(character.fCode, isCharacter ? code : kReplacement);
        ASSERT_EQ(character.fLength, isCharacter ? bytes.size() : 1U);
        std::string written;
        Append(written, code);
        ASSERT_EQ(written, isCharacter ? bytes : "\uFFFD") << std::hex << static_cast<unsigned>(code);
    }
}

TEST(Utf8Test, ReplacesEachInvalidByte) {
    const std::array<std::string, 2> cases[] = {
        {"aä€\U0001F600", "aä€\U0001F600"},
        {std::string("a\0b", 3), std::string("a\0b", 3)},
        {"\xE2\x82", "\uFFFD\uFFFD"},
        {"\xE2\x82ä", "\uFFFD\uFFFDä"},
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
    } cases[] = {{'a', 1, false, LeftToRight},
                 {'1', 1, false, Neither},
                 {'\n', 0, true, Neither},
                 {0x9F, 0, true, Neither},
                 {0x301, 0, false, Neither},
                 {0x200B, 0, false, Neither},
                 {0x5D0, 1, false, RightToLeft},
                 {0x661, 1, false, RightToLeftNumber},
                 {0x4E2D, 2, false, LeftToRight},
                 {0x1F600, 2, false, Neither},
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
