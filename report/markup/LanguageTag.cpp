#include "report/markup/LanguageTag.h"

#include <algorithm>

namespace hierfit::report {

namespace {

constexpr const char* kEnglish = "en";
constexpr std::size_t kLongest = 35;

bool IsLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

bool IsTagCharacter(char byte) { return IsLetter(byte) || (byte >= '0' && byte <= '9') || byte == '-'; }

}  // namespace

std::string MakeLanguageTag(std::string language) {
    std::replace(language.begin(), language.end(), '_', '-');
    const auto letters = std::find_if_not(language.begin(), language.end(), IsLetter) - language.begin();
    const bool isTag = letters >= 2 && letters <= 3 && language.size() <= kLongest && language.back() != '-' &&
                       std::all_of(language.begin(), language.end(), IsTagCharacter);
    return isTag ? language : kEnglish;
}

}  // namespace hierfit::report
