#include "host/ChartString.h"

#include <utility>

#include "host/unicode/Utf8.h"

namespace hierfit {

ChartString::ChartString(const char* text) : fText(unicode::Decode(text)) {}

ChartString::ChartString(std::u32string text) : fText(std::move(text)) {}

ChartString& ChartString::operator+=(const ChartString& other) {
    fText += other.fText;
    return *this;
}

void ChartString::replaceSubstring(const ChartString& from, const ChartString& to) {
    if (from.empty()) return;
    std::u32string replaced;
    std::size_t begin = 0;
    for (std::size_t at; (at = fText.find(from.fText, begin)) != std::u32string::npos; begin = at + from.fText.size()) {
        replaced.append(fText, begin, at - begin).append(to.fText);
    }
    fText = std::move(replaced.append(fText, begin));
}

std::string ChartString::toUTF8() const { return unicode::Encode(fText); }

ChartString XUtility::ChartStringFromOLANG(const std::string& text) { return ChartString(unicode::Decode(text)); }

ChartString XUtility::ChartStringFromLocalCodePage(const std::string& text) { return ChartStringFromOLANG(text); }

}  // namespace hierfit
