#include "host/unicode/SignedFigures.h"

#include <algorithm>
#include <utility>

#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"

namespace hierfit::unicode {

namespace {

constexpr std::string_view kMark = "\u200E";
constexpr unsigned char kFirstFromRightToLeft = 0xD6;  // begins the lowest of these letters, U+0590

bool IsDigit(char32_t code) { return code >= '0' && code <= '9'; }

bool IsRelation(char32_t code) { return code == '<' || code == '>' || code == 0x2264 || code == 0x2265; }

bool IsSign(char32_t code) { return code == '-' || code == '+' || code == 0x2212; }

bool MayHaveRightToLeft(std::string_view text) {
    return std::ranges::any_of(text, [](unsigned char byte) { return byte >= kFirstFromRightToLeft; });
}

/// Goes through the lines of a text.
class Search {
  public:
    explicit Search(std::string_view text) : fText(text) {}

    std::vector<Span> Find() {
        while (fAt < fText.size()) {
            const std::size_t digits = fIsTurned && fMayBegin ? SkipSigns() : fAt;
            if (digits > fAt) {
                fvFound.push_back({fAt, SkipFigure(digits)});
                fAt = fvFound.back().fEnd;
                fMayBegin = false;
            } else {
                TakeCharacter();
            }
        }
        return std::move(fvFound);
    }

  private:
    char32_t CodeAt(std::size_t at) const { return at < fText.size() ? CharacterAt(fText, at).fCode : 0; }
    std::size_t Behind(std::size_t at) const { return at + CharacterAt(fText, at).fLength; }

    // Where the digits begin behind signs; here where there is no figure with a sign.
    std::size_t SkipSigns() const {
        std::size_t at = fAt;
        if (IsRelation(CodeAt(at))) {
            at = Behind(at);
            if (CodeAt(at) == ' ') ++at;
        }
        if (IsSign(CodeAt(at))) at = Behind(at);
        if (CodeAt(at) == '.') ++at;
        return IsDigit(CodeAt(at)) ? at : fAt;
    }

    std::size_t SkipFigure(std::size_t at) const {
        std::size_t end = at;
        for (; at < fText.size() && (IsDigit(CodeAt(at)) || fText[at] == '.' || fText[at] == ','); ++at) {
            if (IsDigit(CodeAt(at))) end = at + 1;
        }
        return end < fText.size() && fText[end] == '%' ? end + 1 : end;
    }

    void TakeCharacter() {
        const char32_t code = CodeAt(fAt);
        const Direction direction = DirectionOf(code);
        if (code == '\n') {
            fIsTurned = false;
            fIsBegun = false;
        } else if (direction == Direction::RightToLeft) {
            fIsLineTurned = fIsLineTurned || !fIsBegun;
            fIsTurned = fIsLineTurned;
            fIsBegun = true;
        } else if (direction == Direction::LeftToRight) {
            fIsLineTurned = fIsBegun && fIsLineTurned;
            fIsTurned = false;
            fIsBegun = true;
        }
        // A sign behind a letter or a figure joins both.
        fMayBegin = direction == Direction::Neither && !IsDigit(code) && !IsSign(code) && code != '.' && code != ',';
        fAt = Behind(fAt);
    }

    std::string_view fText;
    std::size_t fAt = 0;
    std::vector<Span> fvFound;
    bool fIsBegun = false;       // a letter of the line was seen,
    bool fIsLineTurned = false;  // whose first one is written from right to left,
    bool fIsTurned = false;      // and the last one, too
    bool fMayBegin = false;
};

}  // namespace

std::vector<Span> FindTurnedFigures(std::string_view text) {
    return MayHaveRightToLeft(text) ? Search(text).Find() : std::vector<Span>();
}

std::string KeepSigns(std::string_view text) {
    std::string kept;
    std::size_t end = 0;
    for (const Span& figure : FindTurnedFigures(text)) {
        kept.append(text.substr(end, figure.fBegin - end)).append(kMark);
        end = figure.fBegin;
    }
    return kept.append(text.substr(end));
}

}  // namespace hierfit::unicode
