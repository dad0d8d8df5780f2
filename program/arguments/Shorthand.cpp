#include "program/arguments/Shorthand.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/unicode/Excerpt.h"
#include "program/documents/Suggestion.h"
#include "program/files/StandardError.h"

namespace hierfit::program {

namespace {

constexpr const char* kReport = "report";
constexpr const char* kHelp = "help";
constexpr std::array<std::string_view, 4> kOwnOptions{"-h", "--help", "--version", "--verbose"};

using Words = std::vector<std::string>;

bool IsOneOf(const std::string& word, const auto& words) { return std::ranges::find(words, word) != words.end(); }

bool IsOption(const std::string& word) { return word.starts_with('-') && word.size() > 1; }

std::string Quote(const std::string& word) { return "\"" + unicode::Excerpt(word, kMostOfText) + "\""; }

std::variant<Words, NoCommand> ExpandHelp(const Words& arguments, const Words& commands) {
    if (arguments.size() == 1 || arguments[1] == kHelp) return Words{"--help"};
    const std::string& topic = arguments[1];
    if (IsOneOf(topic, commands) || IsOption(topic)) return Words{topic, "--help"};
    return NoCommand{"no command " + Quote(topic) + Suggest(FindNearest(topic, commands))};
}

NoCommand DescribeWord(const std::string& word, Words commands) {
    commands.emplace_back(kHelp);
    std::string meant = FindNearest(word, commands);
    if (meant.empty()) meant = FindNearestPath(word);
    return {"no command or folder " + Quote(word) + Suggest(meant)};
}

}  // namespace

std::variant<Words, NoCommand> Expand(Words arguments, const Words& commands) {
    if (arguments.empty()) return NoCommand{"Give a command, or a folder with the two documents of a model"};
    const std::string& first = arguments.front();
    if (first == kHelp) return ExpandHelp(arguments, commands);
    if (IsOneOf(first, commands) || IsOneOf(first, kOwnOptions)) return arguments;
    if (IsOption(first)) {
        const auto command = std::ranges::find_if(
            arguments, [&](const std::string& word) { return IsOneOf(word, commands) && !Exists(word); });
        if (command != arguments.end())
            return NoCommand{"Give options behind the command: hierfit " + *command + " ..."};
    } else if (first != "-" && !Exists(first)) {
        return DescribeWord(first, commands);
    }
    arguments.insert(arguments.begin(), kReport);
    return arguments;
}

}  // namespace hierfit::program
