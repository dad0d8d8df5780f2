#include "report/latex/LatexText.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "host/unicode/Properties.h"
#include "host/unicode/Utf8.h"
#include "report/markup/Escape.h"

namespace hierfit::report::latex {

namespace {

/// Signs behind which a long word breaks first.
constexpr std::string_view kJoints = "*,;/=_-:]";
constexpr std::size_t kPart = 10;  // characters of a long word between two places where it may break

struct Sign {
    char32_t fCode;
    std::string_view fMarkup;
};

// Braces keep a bracket or an asterisk from being taken for an option of what stands before it.
constexpr Sign kAscii[] = {{'"', "\\textquotedbl{}"},
                           {'#', "\\#"},
                           {'$', "\\$"},
                           {'%', "\\%"},
                           {'&', "\\&"},
                           {'*', "{*}"},
                           {'<', "\\textless{}"},
                           {'>', "\\textgreater{}"},
                           {'[', "{[}"},
                           {'_', "\\_"},
                           {'{', "\\{"},
                           {'|', "\\textbar{}"},
                           {'}', "\\}"},
                           {'\t', " "},
                           {'\r', " "},
                           {'\'', "\\textquotesingle{}"},
                           {'\\', "\\textbackslash{}"},
                           {'^', "\\textasciicircum{}"},
                           {'`', "\\textasciigrave{}"},
                           {'~', "\\textasciitilde{}"}};

// In order of their codes.
constexpr Sign kSigns[] = {{0xA0, "~"},
                           {0xAD, "\\-"},
                           {0x2032, "\\ensuremath{'}"},
                           {0x2190, "\\ensuremath{\\leftarrow}"},
                           {0x2192, "\\ensuremath{\\rightarrow}"},
                           {0x2194, "\\ensuremath{\\leftrightarrow}"},
                           {0x2202, "\\ensuremath{\\partial}"},
                           {0x2206, "\\ensuremath{\\Delta}"},
                           {0x2208, "\\ensuremath{\\in}"},
                           {0x220F, "\\ensuremath{\\prod}"},
                           {0x2211, "\\ensuremath{\\sum}"},
                           {0x2212, "\\textminus{}"},
                           {0x2217, "\\ensuremath{*}"},
                           {0x221A, "\\ensuremath{\\surd}"},
                           {0x221D, "\\ensuremath{\\propto}"},
                           {0x221E, "\\ensuremath{\\infty}"},
                           {0x223C, "\\ensuremath{\\sim}"},
                           {0x2248, "\\ensuremath{\\approx}"},
                           {0x2260, "\\ensuremath{\\neq}"},
                           {0x2261, "\\ensuremath{\\equiv}"},
                           {0x2264, "\\ensuremath{\\leq}"},
                           {0x2265, "\\ensuremath{\\geq}"},
                           {0x22C5, "\\ensuremath{\\cdot}"}};

constexpr std::array<bool, 128> MakePlain() {
    std::array<bool, 128> plain{};
    for (std::size_t code = 0x20; code < 0x7F; ++code) plain[code] = true;
    for (const Sign& sign : kAscii) plain[sign.fCode] = false;
    plain['-'] = plain[','] = false;
    return plain;
}

constexpr std::array<bool, 128> kPlain = MakePlain();

bool IsPlain(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < kPlain.size() && kPlain[code];
}

bool IsBetween(char32_t code, char32_t first, char32_t last) { return code >= first && code <= last; }

bool IsGreek(char32_t code) { return IsBetween(code, 0x370, 0x3FF) || IsBetween(code, 0x1F00, 0x1FFF); }

bool IsUnseen(char32_t code) {
    const bool isBlank = code == '\n' || code == '\t' || code == '\r';
    return !isBlank && (unicode::IsControl(code) || unicode::TurnsOrParts(code));
}

/// "\u{1B}"
std::string SpellCode(char32_t code) { return fmt::format("\\u{{{:02X}}}", static_cast<unsigned>(code)); }

/// Latin letters and what encodings of text fonts hold besides; the marks of direction, which stand in other texts.
bool IsCommon(char32_t code) {
    constexpr std::u32string_view kMore = U"\u20AC\u2122\u2116\u2030\u2020\u2021\u2022\u2026\u2039\u203A\u2044\u2126";
    return code < 0x250 || IsBetween(code, 0x1E00, 0x1EFF) || IsBetween(code, 0x200E, 0x201E) ||
           kMore.find(code) != std::u32string_view::npos;
}

/// Writes one text.
class Writer {
  public:
    Writer(std::string& out, const TextPlace& place, Scripts& scripts) : fOut(out), fPlace(place), fScripts(scripts) {}

    void Append(std::string_view text) {
        const std::size_t begin = fOut.size();
        AppendWords(text);
        if (!fRightToLeft) return;
        const bool isWhole = fPlace.fIsParagraph && BeginsRightToLeft(text);
        if (!isWhole && fPlace.fIsParagraph) return;
        const std::string_view language = fIsHebrew ? "\\foreignlanguage{hebrew}{" : "\\foreignlanguage{arabic}{";
        fOut.insert(isWhole ? begin : *fRightToLeft, isWhole ? language : "\\mbox{");
        fOut += '}';
    }

  private:
    void AppendWords(std::string_view text) {
        for (std::size_t at = 0; at <= text.size();) {
            const std::size_t end = std::min(text.find_first_of(" \n", at), text.size());
            AppendWord(text.substr(at, end - at));
            if (end < text.size()) fOut += text[end] == '\n' ? fPlace.fLineBreak : " ";
            at = end + 1;
        }
    }

    void AppendWord(std::string_view word) {
        const bool isLong = word.size() > fPlace.fLongestWord && unicode::CountCharacters(word) > fPlace.fLongestWord;
        std::size_t run = 0;
        for (std::size_t at = 0; at < word.size();) {
            if (!isLong && IsPlain(word[at])) {
                const auto* const begin = word.data() + at;
                const auto* const end = std::find_if_not(begin, word.data() + word.size(), IsPlain);
                fOut.append(begin, end);
                at += static_cast<std::size_t>(end - begin);
                continue;
            }
            const unicode::Character character = unicode::CharacterAt(word, at);
            at += character.fLength;
            AppendCharacter(character.fCode, at < word.size() ? word[at] : '\0');
            const bool isJoint =
                character.fCode < 0x80 && kJoints.find(static_cast<char>(character.fCode)) != kJoints.npos;
            if (isLong && at < word.size() && (++run >= kPart || (isJoint && run > 2))) {
                if (unicode::WidthOf(unicode::CharacterAt(word, at).fCode) == 0) continue;
                fOut += fPlace.fWordBreak;
                run = 0;
            }
        }
    }

    void AppendCharacter(char32_t code, char next) {
        if (code < 0x80 && AppendAscii(static_cast<char>(code), next)) return;
        const auto* sign = std::ranges::lower_bound(kSigns, code, {}, &Sign::fCode);
        if (sign != std::end(kSigns) && sign->fCode == code) {
            fOut += sign->fMarkup;
            return;
        }
        Note(code);
        unicode::Append(fOut, code);
    }

    bool AppendAscii(char byte, char next) {
        if (IsPlain(byte) || byte == '-' || byte == ',') {
            fOut += byte;
            if (!IsPlain(byte) && next == byte) fOut += "{}";  // Two of them are another sign.
            return true;
        }
        const auto* sign = std::ranges::find(kAscii, static_cast<char32_t>(byte), &Sign::fCode);
        if (sign == std::end(kAscii)) return false;
        fOut += sign->fMarkup;
        return true;
    }

    void Note(char32_t code) {
        if (IsCommon(code)) return;
        if (IsGreek(code)) {
            fScripts.fHasGreek = true;
        } else if (unicode::DirectionOf(code) == unicode::Direction::RightToLeft) {
            const bool isHebrew = IsBetween(code, 0x590, 0x5FF) || IsBetween(code, 0xFB1D, 0xFB4F);
            if (!fRightToLeft) fIsHebrew = isHebrew;
            if (!fRightToLeft) fRightToLeft = fOut.size();
            (isHebrew ? fScripts.fHasHebrew : fScripts.fHasArabic) = true;
        } else {
            fScripts.fHasOthers = true;
        }
    }

    std::string& fOut;
    const TextPlace& fPlace;
    Scripts& fScripts;
    bool fIsHebrew = false;                   ///< that letter
    std::optional<std::size_t> fRightToLeft;  ///< where the first letter stands that is written from right to left
};

}  // namespace

void AppendText(std::string& out, std::string_view text, const TextPlace& place, Scripts& scripts) {
    const auto isAscii = [](char byte) { return (byte >= ' ' && byte <= '~') || byte == '\n'; };
    Writer writer(out, place, scripts);
    std::ranges::all_of(text, isAscii) ? writer.Append(text) : writer.Append(MakeVisible(text));
}

std::string MakeVisible(std::string_view text) {
    std::string visible;
    for (std::size_t at = 0; at < text.size();) {
        const unicode::Character character = unicode::CharacterAt(text, at);
        if (IsUnseen(character.fCode)) {
            visible += SpellCode(character.fCode);
        } else {
            visible.append(text, at, character.fLength);
        }
        at += character.fLength;
    }
    return visible;
}

bool IsPath(std::string_view path) {
    if (path.starts_with(' ') || path.find("  ") != path.npos || path.find('"') != path.npos) return false;
    for (std::size_t at = 0; at < path.size();) {
        const unicode::Character character = unicode::CharacterAt(path, at);
        if (!character.fIsValid || unicode::IsControl(character.fCode)) return false;
        at += character.fLength;
    }
    return true;
}

void AppendPath(std::string& out, std::string_view path) {
    // What would be a comment, a parameter, a group's end, a command or a character's code even there.
    constexpr std::pair<char, std::string_view> kSpecial[] = {{'%', "percent"},    {'#', "hash"},
                                                              {'{', "left_brace"}, {'}', "right_brace"},
                                                              {'\\', "backslash"}, {'^', "circumflex"}};
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find_first_of("%#{}\\^", at), path.size());
        if (end > at) out.append("\\detokenize{").append(path.substr(at, end - at)).append("}");
        for (const auto& [special, name] : kSpecial) {
            if (end < path.size() && path[end] == special) {
                out.append("\\csname c_").append(name).append("_str\\endcsname");
            }
        }
        at = end + 1;
    }
}

}  // namespace hierfit::report::latex
