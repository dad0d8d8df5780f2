#include "report/charts/layout/text/Characters.h"

#include <utf8proc.h>

namespace hierfit::report::charts {

Character CharacterAt(std::string_view text, std::size_t place) {
    const auto first = static_cast<unsigned char>(text[place]);
    if (first < 0x80) return {first, 1};
    utf8proc_int32_t code = -1;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data() + place);
    const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - place), &code);
    if (length < 1) return {0xFFFD, 1};
    return {static_cast<char32_t>(code), static_cast<std::size_t>(length)};
}

}  // namespace hierfit::report::charts
