#include "report/xlsx/cells/CellText.h"

#include "host/unicode/Utf8.h"
#include "report/text/VisibleText.h"
#include "report/xlsx/book/Book.h"

namespace hierfit::report::xlsx {

namespace {

constexpr std::string_view kLetters[] = {"ᵃ", "ᵇ", "ᶜ", "ᵈ",   "ᵉ", "ᶠ", "ᵍ", "ʰ", "ⁱ", "ʲ", "ᵏ", "ˡ", "ᵐ",
                                         "ⁿ", "ᵒ", "ᵖ", "⁽q⁾", "ʳ", "ˢ", "ᵗ", "ᵘ", "ᵛ", "ʷ", "ˣ", "ʸ", "ᶻ"};
constexpr std::string_view kEllipsis = "…";

/// The two last characters of the basic plane are none in XML.
void ReplaceNoncharacters(std::string& text) {
    for (const std::string_view none : {"\uFFFE", "\uFFFF"}) {
        for (std::size_t at = text.find(none); at != std::string::npos; at = text.find(none, at)) {
            text.replace(at, none.size(), "\uFFFD");
        }
    }
}

std::size_t UnitsOf(char32_t code) { return code > 0xFFFF ? 2 : 1; }

}  // namespace

std::string MakeCellText(std::string_view words) {
    std::string text = MakeVisible(words);
    ReplaceNoncharacters(text);
    return text;
}

std::string EscapeCodes(std::string text) {
    constexpr std::string_view kUnderscore = "_x005F";
    constexpr std::size_t kLength = 7;
    constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
    for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 2)) {
        const bool isCode = at + kLength <= text.size() && text[at + kLength - 1] == '_' &&
                            text.find_first_not_of(kDigits, at + 2) == at + kLength - 1;
        if (!isCode) continue;
        text.insert(at, kUnderscore);
        at += kUnderscore.size();
    }
    return text;
}

std::string SpellMark(const Note& note) {
    std::string mark;
    for (const char letter : note.fLetter) mark += kLetters[static_cast<std::size_t>(letter - 'a')];
    return mark;
}

std::string SpellMarks(const std::vector<int>& notes, const Grid& grid) {
    std::string marks;
    for (const int note : notes) {
        if (!marks.empty()) marks += ',';
        marks += SpellMark(grid.fvNotes[static_cast<std::size_t>(note)]);
    }
    return marks;
}

std::size_t CutText(std::string& text) {
    if (text.size() <= static_cast<std::size_t>(kMostCharacters)) return 0;
    std::size_t units = 0;
    std::size_t end = 0;  // of what stays when there are too many
    for (std::size_t i = 0; i < text.size();) {
        const unicode::Character character = unicode::CharacterAt(text, i);
        units += UnitsOf(character.fCode);
        i += character.fLength;
        if (units < static_cast<std::size_t>(kMostCharacters)) end = i;
    }
    if (units <= static_cast<std::size_t>(kMostCharacters)) return 0;
    text.erase(end).append(kEllipsis);
    return units;
}

}  // namespace hierfit::report::xlsx
