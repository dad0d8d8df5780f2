#include "host/unicode/Properties.h"

#include <utf8proc.h>

namespace hierfit::unicode {

namespace {

/// As the library counts; it gives what is no character the properties of one that is not assigned.
utf8proc_int32_t CodeOf(char32_t code) { return static_cast<utf8proc_int32_t>(code); }

}  // namespace

int WidthOf(char32_t code) { return utf8proc_charwidth(CodeOf(code)); }

bool IsRightToLeft(char32_t code) {
    const auto kind = utf8proc_get_property(CodeOf(code))->bidi_class;
    return kind == UTF8PROC_BIDI_CLASS_R || kind == UTF8PROC_BIDI_CLASS_AL || kind == UTF8PROC_BIDI_CLASS_AN;
}

bool ClusterBreaks::IsBreak(char32_t before, char32_t next) {
    return utf8proc_grapheme_break_stateful(CodeOf(before), CodeOf(next), &fState);
}

}  // namespace hierfit::unicode
