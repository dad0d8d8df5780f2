#include "host/pivot/text/PatternExpansion.h"

#include <algorithm>
#include <bitset>
#include <optional>

namespace hierfit::pivot {

namespace {

bool IsMarkDigit(char c) { return c >= '1' && c <= '9'; }

bool IsMark(std::string_view text, std::size_t at, char sign) {
    return text[at] == sign && at + 1 < text.size() && IsMarkDigit(text[at + 1]);
}

std::size_t MarkIndex(char digit) { return static_cast<std::size_t>(digit - '1'); }

struct List {
    std::string_view fFirst;
    std::string_view fFurther;
    std::size_t fSublist;  // from 0
    std::size_t fLength;   // of the whole list pattern
};

// The list pattern at the start of the text, which is a "[".
std::optional<List> ReadList(std::string_view text) {
    const std::string_view inside = text.substr(1, text.find('[', 1) - 1);
    const std::size_t colon = inside.find(':');
    if (colon == std::string_view::npos) return {};
    for (std::size_t end = inside.find(":]", colon + 1); end != std::string_view::npos;
         end = inside.find(":]", end + 1)) {
        if (end + 2 < inside.size() && IsMarkDigit(inside[end + 2])) {
            return List{inside.substr(0, colon), inside.substr(colon + 1, end - colon - 1), MarkIndex(inside[end + 2]),
                        end + 4};
        }
    }
    return {};
}

std::size_t CountTexts(std::string_view part, char sign) {
    std::bitset<9> marks;
    for (std::size_t at = 0; at < part.size(); ++at) {
        if (IsMark(part, at, sign)) marks.set(MarkIndex(part[at + 1]));
    }
    return std::max<std::size_t>(marks.count(), 1);
}

class Expansion {
  public:
    explicit Expansion(const std::vector<document::Argument>& arguments) {
        for (const document::Argument& argument : arguments) {
            if (argument.fIsSublist) {
                fvSublists.push_back(&argument.fvTexts);
            } else if (!argument.fvTexts.empty()) {
                fvValues.push_back(&argument.fvTexts.front());
            }
        }
    }

    std::string Expand(std::string_view pattern) {
        for (std::size_t at = 0; at < pattern.size();) {
            const std::optional<List> list = pattern[at] == '[' ? ReadList(pattern.substr(at)) : std::nullopt;
            if (list) WriteList(*list);
            at += list ? list->fLength : WriteNext(pattern, at, '^', fvValues);
        }
        return std::move(fResult);
    }

  private:
    using Values = std::vector<const document::Text*>;

    // Writes the mark or character at a place; the result is its length in the pattern.
    std::size_t WriteNext(std::string_view pattern, std::size_t at, char sign, const Values& values) {
        if (IsMark(pattern, at, sign) && MarkIndex(pattern[at + 1]) < values.size()) {
            fResult += values[MarkIndex(pattern[at + 1])]->fWords;
            return 2;
        }
        fResult += pattern[at];
        return 1;
    }

    void WriteList(const List& list) {
        if (list.fSublist >= fvSublists.size()) return;
        const std::vector<document::Text>& texts = *fvSublists[list.fSublist];
        std::size_t done = 0;
        if (!list.fFirst.empty()) done = WriteItem(list.fFirst, '%', texts, done);
        while (done < texts.size()) done = WriteItem(list.fFurther, '^', texts, done);
    }

    // Writes an item from the first text that is not done yet; the result is the first text behind it.
    std::size_t WriteItem(std::string_view part, char sign, const std::vector<document::Text>& texts,
                          std::size_t done) {
        const std::size_t end = std::min(texts.size(), done + CountTexts(part, sign));
        if (done == end) return end;
        Values item;
        for (std::size_t text = done; text < end; ++text) item.push_back(&texts[text]);
        for (std::size_t at = 0; at < part.size();) at += WriteNext(part, at, sign, item);
        return end;
    }

    Values fvValues;
    std::vector<const std::vector<document::Text>*> fvSublists;
    std::string fResult;
};

}  // namespace

std::string ExpandPattern(std::string_view pattern, const std::vector<document::Argument>& arguments) {
    return Expansion(arguments).Expand(pattern);
}

}  // namespace hierfit::pivot
