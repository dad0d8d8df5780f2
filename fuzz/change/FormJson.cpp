#include <algorithm>
#include <array>
#include <cstdio>

#include "fuzz/change/Form.h"

namespace hierfit::fuzz {

namespace {

using Kind = Piece::Kind;

class JsonScan {
  public:
    explicit JsonScan(std::string_view text) : fText(text) {}

    std::vector<Piece> Run() {
        TakeValue(0);
        return std::move(fvPieces);
    }

  private:
    char Next() {
        fAt = std::min(fText.find_first_not_of(" \t\r\n", fAt), fText.size());
        return fAt < fText.size() ? fText[fAt] : '\0';
    }

    bool TakeIf(char sought) {
        if (Next() != sought) return false;
        ++fAt;
        return true;
    }

    bool TakeString(bool isKey) {
        if (!TakeIf('"')) return false;
        const std::size_t begin = fAt;
        while (fAt < fText.size() && fText[fAt] != '"') fAt += fText[fAt] == '\\' ? 2 : 1;
        fAt = std::min(fAt, fText.size());
        if (!isKey) fvPieces.push_back({Kind::Word, begin, fAt});
        return TakeIf('"');
    }

    bool TakeAtom() {
        const std::size_t begin = fAt;
        fAt = std::min(fText.find_first_of(",]} \t\r\n", fAt), fText.size());
        if (fAt > begin) fvPieces.push_back({Kind::Number, begin, fAt});
        return fAt > begin;
    }

    bool TakeMembers(char closing, int depth) {
        const bool isList = closing == ']';
        while (!TakeIf(closing)) {
            if (Next() == '\0') return false;
            const std::size_t begin = fAt;
            if (!isList && !(TakeString(true) && TakeIf(':'))) return false;
            if (!TakeValue(depth)) return false;
            fvPieces.push_back({isList ? Kind::Item : Kind::Member, begin, fAt});
            TakeIf(',');
        }
        return true;
    }

    /// Goes through a value; false where there is none, and then nothing behind it is told.
    bool TakeValue(int depth) {
        constexpr int kMostDepth = 200;
        if (depth > kMostDepth) return false;
        switch (Next()) {
            case '{':
            case '[':
                return TakeMembers(fText[fAt++] == '{' ? '}' : ']', depth + 1);
            case '"':
                return TakeString(false);
            default:
                return TakeAtom();
        }
    }

    std::string_view fText;
    std::size_t fAt = 0;
    std::vector<Piece> fvPieces;
};

std::vector<Piece> List(std::string_view text) { return JsonScan(text).Run(); }

std::string Escape(std::string_view bytes) {
    std::string escaped;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code >= 0x7F) {
            std::array<char, 8> digits{};
            std::snprintf(digits.data(), digits.size(), "\\u%04x", code);
            escaped += digits.data();
        } else {
            if (byte == '"' || byte == '\\') escaped += '\\';
            escaped += byte;
        }
    }
    return escaped;
}

}  // namespace

const Form kJson{List, Escape};

}  // namespace hierfit::fuzz
