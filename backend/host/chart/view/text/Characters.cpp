#include "host/chart/view/text/Characters.h"

namespace hierfit::chart {

namespace {

constexpr Character kInvalid{0xfffd, 1};

/// The bytes that a first byte announces; 0 for a byte that begins no character.
std::size_t AnnouncedLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first < 0xc2) return 0;
    if (first < 0xe0) return 2;
    if (first < 0xf0) return 3;
    return first < 0xf5 ? 4 : 0;
}

}  // namespace

Character CharacterAt(std::string_view text, std::size_t place) {
    const auto first = static_cast<unsigned char>(text[place]);
    const std::size_t length = AnnouncedLength(first);
    if (length == 1) return {first, 1};
    if (length == 0 || length > text.size() - place) return kInvalid;
    char32_t code = first & (0x7fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[place + i]);
        if ((next & 0xc0) != 0x80) return kInvalid;
        code = code << 6 | (next & 0x3f);
    }
    return {code, length};
}

}  // namespace hierfit::chart
