#include <algorithm>

#include "fuzz/change/Form.h"
#include "fuzz/change/Parts.h"

namespace hierfit::fuzz {

namespace {

using Kind = Piece::Kind;

std::vector<Piece> ListText(std::string_view text) { return {{Kind::Word, 0, text.size()}}; }

/// A line is a word; with the line feed before it, it can be taken out or doubled as an item of a text of lines.
std::vector<Piece> ListLines(std::string_view text) {
    std::vector<Piece> pieces;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        pieces.push_back({Kind::Word, begin, end});
        if (begin > 0) pieces.push_back({Kind::Line, begin - 1, end});
        begin = end + 1;
    }
    return pieces;
}

std::string Escape(std::string_view bytes) {
    std::string escaped(bytes);
    std::erase_if(escaped, [](char byte) { return static_cast<unsigned char>(byte) < kMarkers; });
    return escaped;
}

}  // namespace

const Form kPlainText{ListText, Escape};
const Form kLines{ListLines, Escape};

}  // namespace hierfit::fuzz
