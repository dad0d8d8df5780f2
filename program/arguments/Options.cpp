#include "program/arguments/Options.h"

#include <algorithm>
#include <iterator>

#include "program/documents/Suggestion.h"
#include "report/items/Selection.h"

namespace hierfit::program {

std::string DescribeUnknown(const std::string& word, const std::string& kind, const std::vector<std::string>& words) {
    const std::string suggestion = Suggest(FindNearest(word, words));
    std::string text = word + ": no such " + kind + (suggestion.empty() ? "; there are " : suggestion + " There are ");
    for (const std::string& each : words) text += (&each == &words.front() ? "" : ", ") + each;
    return text;
}

CLI::Option* OptionList::AddText(const std::string& name, std::string& target, const std::string& placeholder,
                                 const std::string& help, Values::Kind kind) {
    CLI::Option* option = fApp.add_option(name, target, help)->option_text(placeholder);
    fValues[option] = {kind, {}};
    return option;
}

void OptionList::AddItems(const std::string& name, std::vector<std::string>& names, const std::string& help) {
    const auto add = [&names](const std::vector<std::string>& lists) {
        for (const std::string& list : lists) {
            std::ranges::move(report::items::SplitNames(list), std::back_inserter(names));
        }
    };
    CLI::Option* option = fApp.add_option_function<std::vector<std::string>>(name, add, help)
                              ->expected(1)
                              ->take_all()
                              ->allow_extra_args(false)
                              ->option_text("NAME,...");
    fValues[option] = {Values::Kind::Items, {}};
}

void OptionList::AddArguments(std::vector<std::string>& target, const std::string& placeholder, Values::Kind kind,
                              const std::string& help) {
    fValues[fApp.add_option("arguments", target, help)->option_text(placeholder)] = {kind, {}};
}

void OptionList::AddWords(const std::string& name, const std::function<void(const std::string&)>& take,
                          std::vector<std::string> words, const std::string& placeholder, const std::string& kind,
                          const std::string& help) {
    const auto check = [words, kind](const std::string& word) {
        return std::ranges::find(words, word) == words.end() ? DescribeUnknown(word, kind, words) : std::string();
    };
    CLI::Option* option =
        fApp.add_option_function<std::string>(name, take, help)->check(check)->option_text(placeholder);
    fValues[option] = {Values::Kind::Words, std::move(words)};
}

}  // namespace hierfit::program
