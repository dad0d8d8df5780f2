#include "report/text/VisibleText.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/unicode/Properties.h"
#include "host/unicode/SignedFigures.h"
#include "host/unicode/Utf8.h"

namespace hierfit::report {

namespace {

bool IsPlain(char c) { return c >= ' ' && c < '\x7F'; }

bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return IsPlain(c); });
}

/// Goes through the characters of a text.
class Characters {
  public:
    explicit Characters(std::string_view text) : fRest(text) {}

    bool Next() {
        fRest.remove_prefix(fCharacter.fLength);
        if (fRest.empty()) return false;
        fCharacter = unicode::CharacterAt(fRest, 0);
        return true;
    }

    char32_t Get() const { return fCharacter.fCode; }
    std::string_view Bytes() const { return fRest.substr(0, fCharacter.fLength); }

  private:
    std::string_view fRest;
    unicode::Character fCharacter{0, 0, true};
};

// Control pictures stand 0x2400 above the control characters.
std::string ShowControl(char32_t c) {
    if (c == 0x7F) return "\xE2\x90\xA1";
    if (c < 0x20) return {'\xE2', '\x90', static_cast<char>(0x80 + c)};
    return fmt::format("\\u{{{:02X}}}", static_cast<unsigned>(c));
}

void AddVisible(std::string& visible, const Characters& characters) {
    const char32_t c = characters.Get();
    if (c != '\n' && unicode::IsControl(c)) {
        visible += ShowControl(c);
    } else if (unicode::TurnsOrParts(c)) {
        visible += fmt::format("\\u{{{:04X}}}", static_cast<unsigned>(c));
    } else {
        unicode::Append(visible, c);
    }
}

/// Goes through what a reader sees as one character each, and its width.
class Clusters {
  public:
    explicit Clusters(std::string_view text) : fText(text), fCharacters(text) { fHasNext = fCharacters.Next(); }

    bool Next() {
        if (!fHasNext) return false;
        const std::size_t start = fEnd;
        fWidth = 0;
        char32_t before;
        do {
            before = fCharacters.Get();
            fWidth = std::max(fWidth, unicode::WidthOf(before));
            fEnd += fCharacters.Bytes().size();
            fHasNext = fCharacters.Next();
        } while (fHasNext && !fBreaks.IsBreak(before, fCharacters.Get()));
        fBytes = fText.substr(start, fEnd - start);
        return true;
    }

    std::string_view Bytes() const { return fBytes; }
    int Width() const { return fWidth; }

  private:
    std::string_view fText;
    Characters fCharacters;
    bool fHasNext;
    std::size_t fEnd = 0;
    std::string_view fBytes;
    int fWidth = 0;
    unicode::ClusterBreaks fBreaks;
};

template <typename Take>
void ForEachPart(std::string_view text, char mark, Take take) {
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(mark, at), text.size());
        take(text.substr(at, end - at));
        at = end + 1;
    }
}

/// The signs that join the parts of a word, such as those of an effect. It may part behind them.
constexpr std::string_view kJoints = "*,;/";

// The part at the start of a word, with the sign behind it.
std::string_view FirstPart(std::string_view word) {
    const std::size_t sign = word.find_first_of(kJoints);
    return word.substr(0, sign == std::string_view::npos ? sign : sign + 1);
}

/// Puts the words of one line into lines of limited width.
class Wrapping {
  public:
    Wrapping(std::vector<std::string>& lines, int width) : fLines(lines), fLimit(width) { fLines.emplace_back(); }

    void Add(std::string_view word) {
        const int width = MeasureWidth(word);
        if (!fIsFirst && fWidth + 1 + width > fLimit) {
            StartLine();
        } else if (!fIsFirst) {
            fLines.back() += ' ';
            ++fWidth;
        }
        fIsFirst = false;
        if (width > fLimit) return AddWide(word);
        fLines.back() += word;
        fWidth += width;
    }

  private:
    void StartLine() {
        fLines.emplace_back();
        fWidth = 0;
    }

    // Parts a word behind the signs that join its parts, else anywhere.
    void AddWide(std::string_view word) {
        while (!word.empty()) {
            const std::string_view part = FirstPart(word);
            AddPart(part);
            word.remove_prefix(part.size());
        }
    }

    void AddPart(std::string_view part) {
        const int width = MeasureWidth(part);
        if (fWidth > 0 && fWidth + width > fLimit) StartLine();
        for (Clusters clusters(part); clusters.Next();) {
            if (fWidth > 0 && fWidth + clusters.Width() > fLimit) StartLine();
            fLines.back() += clusters.Bytes();
            fWidth += clusters.Width();
        }
    }

    std::vector<std::string>& fLines;
    int fLimit;
    int fWidth = 0;
    bool fIsFirst = true;
};

}  // namespace

std::string MakeVisible(std::string_view text) {
    if (IsPlain(text)) return std::string(text);
    std::string visible;
    const std::string kept = unicode::KeepSigns(text);
    for (Characters characters(kept); characters.Next();) AddVisible(visible, characters);
    return visible;
}

int MeasureWidth(std::string_view line) {
    if (IsPlain(line)) return static_cast<int>(line.size());
    int width = 0;
    for (Clusters clusters(line); clusters.Next();) width += clusters.Width();
    return width;
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    ForEachPart(text, '\n', [&](std::string_view line) { lines.emplace_back(line); });
    return lines;
}

std::vector<std::string> WrapLines(std::string_view text, int width) {
    std::vector<std::string> lines;
    ForEachPart(text, '\n', [&](std::string_view line) {
        if (width <= 0 || MeasureWidth(line) <= width) {
            lines.emplace_back(line);
            return;
        }
        Wrapping wrapping(lines, width);
        ForEachPart(line, ' ', [&](std::string_view word) { wrapping.Add(word); });
    });
    return lines;
}

int MeasureWidestWord(std::string_view line) {
    int width = 0;
    ForEachPart(line, ' ', [&](std::string_view word) { width = std::max(width, MeasureWidth(word)); });
    return width;
}

int MeasureWidestPart(std::string_view line) {
    int width = 0;
    ForEachPart(line, ' ', [&](std::string_view word) {
        for (; !word.empty(); word.remove_prefix(FirstPart(word).size())) {
            width = std::max(width, MeasureWidth(FirstPart(word)));
        }
    });
    return width;
}

}  // namespace hierfit::report
