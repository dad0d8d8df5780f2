#pragma once

namespace hierfit::unicode {

/// Whether a character is a control character: U+0000 to U+001F and U+007F to U+009F.
constexpr bool IsControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

/// Whether a character turns the direction of letters about it, or parts lines, and is not seen itself. The marks
/// U+200E and U+200F are none of them: they turn punctuation alone, which translations need.
constexpr bool TurnsOrParts(char32_t code) {
    return code == 0x061C || (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

/// Whether a character is but a mark of direction, and takes no room.
constexpr bool IsDirectionMark(char32_t code) { return code == 0x200E || code == 0x200F; }

/// Columns that a character takes where all others take one: 0 for those that stand on or between others, 2 for wide
/// ones.
int WidthOf(char32_t code);

/// How a character is written. Neither: digits, punctuation, and all that takes the direction of what is around it.
enum class Direction { Neither, LeftToRight, RightToLeft, RightToLeftNumber };

Direction DirectionOf(char32_t code);

/// Finds where a reader sees a new character. One object serves one text, from its begin on.
class ClusterBreaks {
  public:
    /// Whether a new cluster begins between a character and the next; each pair of the text is asked for in order.
    bool IsBreak(char32_t before, char32_t next);

  private:
    int fState = 0;
};

}  // namespace hierfit::unicode
