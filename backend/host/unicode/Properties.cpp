#include "host/unicode/Properties.h"

#include <utf8proc.h>

namespace hierfit::unicode {

namespace {

/// As the library counts; it gives what is no character the properties of one that is not assigned.
utf8proc_int32_t CodeOf(char32_t code) { return static_cast<utf8proc_int32_t>(code); }

}  // namespace

int WidthOf(char32_t code) { return utf8proc_charwidth(CodeOf(code)); }

Direction DirectionOf(char32_t code) {
    switch (utf8proc_get_property(CodeOf(code))->bidi_class) {
        case UTF8PROC_BIDI_CLASS_L:
            return Direction::LeftToRight;
        case UTF8PROC_BIDI_CLASS_R:
        case UTF8PROC_BIDI_CLASS_AL:
            return Direction::RightToLeft;
        case UTF8PROC_BIDI_CLASS_AN:
            return Direction::RightToLeftNumber;
        default:
            return Direction::Neither;
    }
}

bool ClusterBreaks::IsBreak(char32_t before, char32_t next) {
    return utf8proc_grapheme_break_stateful(CodeOf(before), CodeOf(next), &fState);
}

}  // namespace hierfit::unicode
