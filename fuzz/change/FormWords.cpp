#include <algorithm>

#include "fuzz/change/Form.h"
#include "fuzz/change/Parts.h"

namespace hierfit::fuzz {

namespace {

using Kind = Piece::Kind;

class PlainTextForm : public Form {
  public:
    std::vector<Piece> List(std::string_view text) const override { return {{Kind::Word, 0, text.size()}}; }

    std::string Escape(std::string_view bytes) const override {
        std::string escaped(bytes);
        std::erase_if(escaped, [](char byte) { return static_cast<unsigned char>(byte) < kMarkers; });
        return escaped;
    }
};

class LinesForm : public PlainTextForm {
  public:
    /// A line is a word; with the line feed before it, it can be taken out or doubled as an item of a text of lines.
    std::vector<Piece> List(std::string_view text) const override {
        std::vector<Piece> pieces;
        for (std::size_t begin = 0; begin <= text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            pieces.push_back({Kind::Word, begin, end});
            if (begin > 0) pieces.push_back({Kind::Line, begin - 1, end});
            begin = end + 1;
        }
        return pieces;
    }
};

const PlainTextForm kText;
const LinesForm kListed;

}  // namespace

const Form& kPlainText = kText;
const Form& kLines = kListed;

}  // namespace hierfit::fuzz
