#include "report/markup/LanguageTag.h"

#include <algorithm>
#include <string_view>

namespace hierfit::report {

namespace {

constexpr const char* kEnglish = "en";
constexpr std::size_t kLongest = 35;

bool IsLetter(char byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }

// Scripts of ISO 15924, and languages of ISO 639 that are written in one of them without saying so.
constexpr std::string_view kScripts[] = {"Adlm", "Arab", "Hebr", "Nkoo", "Rohg", "Syrc", "Thaa"};
constexpr std::string_view kLanguages[] = {"ar", "ckb", "dv", "fa", "he", "ps", "sd", "ug", "ur", "yi"};

bool IsTagCharacter(char byte) { return IsLetter(byte) || (byte >= '0' && byte <= '9') || byte == '-'; }

}  // namespace

std::string MakeLanguageTag(std::string language) {
    std::replace(language.begin(), language.end(), '_', '-');
    const auto letters = std::find_if_not(language.begin(), language.end(), IsLetter) - language.begin();
    const bool isTag = letters >= 2 && letters <= 3 && language.size() <= kLongest && language.back() != '-' &&
                       std::all_of(language.begin(), language.end(), IsTagCharacter);
    return isTag ? language : kEnglish;
}

bool IsWrittenRightToLeft(const std::string& language) {
    constexpr std::size_t kScriptLength = 4;
    const std::string tag = MakeLanguageTag(language);
    const std::size_t end = std::min(tag.find('-'), tag.size());
    const std::string_view behind = std::string_view(tag).substr(std::min(end + 1, tag.size()));
    const std::string_view script = behind.substr(0, behind.find('-'));
    const bool hasScript = script.size() == kScriptLength && std::ranges::all_of(script, IsLetter);
    if (hasScript) return std::ranges::find(kScripts, script) != std::end(kScripts);
    return std::ranges::find(kLanguages, std::string_view(tag).substr(0, end)) != std::end(kLanguages);
}

}  // namespace hierfit::report
