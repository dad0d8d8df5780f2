#include <algorithm>

#include "fuzz/change/Form.h"
#include "fuzz/change/Parts.h"

namespace hierfit::fuzz {

namespace {

class PlainTextForm : public Form {
  public:
    std::vector<Piece> List(std::string_view text) const override { return {{Piece::Kind::Word, 0, text.size()}}; }

    std::string Escape(std::string_view bytes) const override {
        std::string escaped(bytes);
        std::erase_if(escaped, [](char byte) { return static_cast<unsigned char>(byte) < kMarkers; });
        return escaped;
    }
};

const PlainTextForm kForm;

}  // namespace

const Form& kPlainText = kForm;

}  // namespace hierfit::fuzz
