#include <algorithm>

#include "fuzz/change/Form.h"

namespace hierfit::fuzz {

namespace {

using Kind = Piece::Kind;

constexpr std::string_view kBlanks = " \t\r\n";

/// Goes through tags and words. A comment, an instruction and a section of characters are taken for a tag.
class XmlScan {
  public:
    explicit XmlScan(std::string_view text) : fText(text) {}

    std::vector<Piece> Run() {
        while (fAt < fText.size()) {
            if (fText[fAt] != '<') {
                TakeWords(std::min(fText.find('<', fAt), fText.size()));
            } else {
                TakeTag();
            }
        }
        return std::move(fvPieces);
    }

  private:
    bool IsAt(std::string_view sought) const { return fText.substr(fAt).starts_with(sought); }

    void TakeWords(std::size_t end) {
        while ((fAt = std::min(fText.find_first_not_of(kBlanks, fAt), end)) < end) {
            const std::size_t stop = std::min(fText.find_first_of(kBlanks, fAt), end);
            fvPieces.push_back({Kind::Word, fAt, stop});
            fAt = stop;
        }
    }

    void TakeTag() {
        const std::size_t begin = fAt;
        const bool isEnd = IsAt("</");
        const std::size_t element = fvPieces.size();
        if (!isEnd) fvPieces.push_back({Kind::Element, begin, begin});
        while (fAt < fText.size() && fText[fAt] != '>') TakeAttribute();
        const bool isEmpty =
            fAt < fText.size() && std::string_view("/?-]").find(fText[fAt - 1]) != std::string_view::npos;
        fAt = std::min(fAt + 1, fText.size());
        if (isEmpty) {
            fvPieces[element].fEnd = fAt;
        } else if (!isEnd) {
            fvOpen.push_back(element);
        } else if (!fvOpen.empty()) {
            fvPieces[fvOpen.back()].fEnd = fAt;
            fvOpen.pop_back();
        }
    }

    /// Goes on to the next attribute and through it, or to the end of the tag.
    void TakeAttribute() {
        const std::size_t begin = fText.find_first_of(" \t\r\n>", fAt);
        fAt = std::min(fText.find_first_not_of(kBlanks, begin), fText.size());
        const std::size_t equals = std::min(fText.find_first_of("=>", fAt), fText.size());
        if (equals + 1 >= fText.size() || fText[equals] == '>') {
            fAt = equals;
            return;
        }
        const std::size_t end = std::min(fText.find(fText[equals + 1], equals + 2), fText.size() - 1);
        fvPieces.push_back({Kind::Attribute, begin, end + 1});
        fvPieces.push_back({Kind::Name, fAt, equals});
        if (end >= equals + 2) fvPieces.push_back({Kind::Word, equals + 2, end});
        fAt = end + 1;
    }

    std::string_view fText;
    std::size_t fAt = 0;
    std::vector<Piece> fvPieces;
    std::vector<std::size_t> fvOpen;
};

std::vector<Piece> List(std::string_view text) {
    std::vector<Piece> pieces = XmlScan(text).Run();
    std::erase_if(pieces, [](const Piece& piece) { return !piece.IsLeaf() && piece.fEnd == piece.fBegin; });
    return pieces;
}

std::string Escape(std::string_view bytes) {
    std::string escaped;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20) {
            escaped += code % 2 == 0 ? "&#10;" : " ";
        } else if (code >= 0x7F || byte == '<' || byte == '&' || byte == '"') {
            escaped += "&#" + std::to_string(code) + ";";
        } else {
            escaped += byte;
        }
    }
    return escaped;
}

}  // namespace

const Form kXml{List, Escape};

}  // namespace hierfit::fuzz
