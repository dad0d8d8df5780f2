#include <algorithm>

#include "fuzz/change/Form.h"
#include "fuzz/change/Parts.h"

namespace hierfit::fuzz {

namespace {

using Kind = Piece::Kind;

class LinesForm : public Form {
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

    std::string Escape(std::string_view bytes) const override { return kPlainText.Escape(bytes); }
};

const LinesForm kForm;

}  // namespace

const Form& kLines = kForm;

}  // namespace hierfit::fuzz
