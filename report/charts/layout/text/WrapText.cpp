#include <algorithm>
#include <utility>

#include "host/unicode/Utf8.h"
#include "report/charts/layout/text/TextWidth.h"
#include "report/markup/Escape.h"

namespace hierfit::report::charts {

namespace {

constexpr std::string_view kRightToLeftMark = "\u200F";

constexpr double kFilled = 0.85;  // of lines, by words that are cut to fit into them

/// Where the text that still has to be set ends up: one line after the other, until there are enough.
class Lines {
  public:
    Lines(double width, const TextStyle& style, std::size_t maximum)
        : fWidth(width), fStyle(style), fMaximum(maximum) {}

    bool AreFull() const { return fvLines.size() >= fMaximum; }
    double Width() const { return fWidth; }
    const TextStyle& Style() const { return fStyle; }

    void Add(std::string_view line) {
        if (!AreFull()) fvLines.emplace_back(line);
    }

    /// Says that text is left over.
    void Cut() {
        std::string& last = fvLines.back();
        const std::string longer = last + " \u2026";
        last = TextWidth(longer, fStyle) <= fWidth ? last + "\u2026" : CutText(longer, fWidth, fStyle);
    }

    std::vector<std::string> Take() { return std::move(fvLines); }

  private:
    double fWidth;
    TextStyle fStyle;
    std::size_t fMaximum;
    std::vector<std::string> fvLines;
};

/// Whether a line may end behind a character that is no blank: the terms of an interaction stay whole. Within a word
/// that is longer than a line, other signs are better places than none.
bool PartsTerms(char sign) { return sign == '*'; }
bool PartsWords(char sign) { return std::string_view("=_-/,:;").find(sign) != std::string_view::npos; }

/// Whether the word that comes next, behind its blank, fits into a line of its own.
bool DoesWordFit(std::string_view text, double width, const TextStyle& style) {
    double sum = 0;
    for (std::size_t place = text.starts_with(' ') ? 1 : 0; place < text.size() && text[place] != ' ';) {
        const std::size_t length = unicode::CharacterAt(text, place).fLength;
        sum += TextWidth(text.substr(place, length), style);
        if (sum > width) return false;
        if (PartsTerms(text[place])) return true;
        place += length;
    }
    return true;
}

/// The bytes of a paragraph's beginning that make one line: as many words as fit, else as many characters, at least
/// one.
std::size_t LineLength(std::string_view text, double width, const TextStyle& style) {
    double sum = 0;
    std::size_t afterWord = 0;
    std::size_t afterSign = 0;
    bool isBehindInk = false;
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t length = unicode::CharacterAt(text, place).fLength;
        const bool isBlank = text[place] == ' ';
        if (isBlank && isBehindInk) afterWord = place;
        isBehindInk = !isBlank;
        sum += TextWidth(text.substr(place, length), style);
        if (sum > width && !isBlank) {
            if (afterSign > afterWord && !DoesWordFit(text.substr(afterWord), width, style)) return afterSign;
            return afterWord != 0 ? afterWord : std::max(place, length);
        }
        if (PartsTerms(text[place])) afterWord = place + length;
        if (PartsWords(text[place])) afterSign = place + length;
        place += length;
    }
    return text.size();
}

/// Blanks at the end of a line would only make it wider.
std::string_view WithoutEndingBlanks(std::string_view line) { return line.substr(0, line.find_last_not_of(' ') + 1); }

/// Sets one paragraph; false when it did not fit into the lines.
bool AddParagraph(Lines& lines, std::string_view text) {
    do {
        if (lines.AreFull()) return false;
        const std::size_t length = LineLength(text, lines.Width(), lines.Style());
        lines.Add(WithoutEndingBlanks(text.substr(0, length)));
        text.remove_prefix(length);
        if (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    } while (!text.empty());
    return true;
}

/// Takes the text up to its first line end, which may be of two characters, and that off the text.
std::string_view TakeParagraph(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view paragraph = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with("\r\n")) text.remove_prefix(1);
    if (!text.empty()) text.remove_prefix(1);
    return paragraph;
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, double width, const TextStyle& style, std::size_t mostLines) {
    Lines lines(width, style, std::max<std::size_t>(mostLines, 1));
    const bool isRightToLeft = BeginsRightToLeft(text);
    while (!text.empty()) {
        if (!AddParagraph(lines, TakeParagraph(text))) {
            lines.Cut();
            break;
        }
    }
    std::vector<std::string> taken = lines.Take();
    // Each line is set by itself, and has the direction of the whole.
    for (std::string& line : taken) {
        if (isRightToLeft && !BeginsRightToLeft(line)) line.insert(0, kRightToLeftMark);
    }
    return taken;
}

bool DoesFit(std::string_view text, double width, const TextStyle& style, std::size_t mostLines) {
    return TextWidth(text, style) <= static_cast<double>(mostLines) * width && LongestWord(text, style) <= width &&
           WrapText(text, width, style, mostLines + 1).size() <= mostLines;
}

std::vector<std::vector<std::string>> WrapTexts(const std::vector<std::string>& texts, double width,
                                                const TextStyle& style, std::size_t mostLines) {
    const std::vector<std::string> inOne = CutTexts(texts, width, style);
    const double forAll = mostLines > 1 ? kFilled * width * static_cast<double>(mostLines) : width;
    const std::vector<std::string> inAll = CutTexts(texts, forAll, style);
    std::vector<std::vector<std::string>> wrapped;
    for (std::size_t text = 0; text < texts.size(); ++text) {
        const bool isWhole = DoesFit(texts[text], width, style, mostLines);
        const std::string& words = isWhole ? texts[text] : inAll[text];
        if (isWhole || DoesFit(words, width, style, mostLines)) {
            wrapped.push_back(WrapText(words, width, style, mostLines));
        } else {
            wrapped.push_back({inOne[text]});
        }
    }
    return wrapped;
}

}  // namespace hierfit::report::charts
