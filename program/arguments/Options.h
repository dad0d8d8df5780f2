#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace hierfit::program {

/// What may stand as the value of an option, or as an argument, as a shell completes it.
struct Values {
    enum class Kind { Any, Words, Languages, Files, Folders, Items };
    Kind fKind = Kind::Any;
    std::vector<std::string> fvWords;  ///< of `Words`
};

using ValueTable = std::unordered_map<const CLI::Option*, Values>;

template <typename Value>
using Choices = std::vector<std::pair<std::string, Value>>;

/// In one line, that a word is none of some, what it may have been meant to be, and which there are.
std::string DescribeUnknown(const std::string& word, const std::string& kind, const std::vector<std::string>& words);

/// Adds options to a command, and what their values may be to a table.
class OptionList {
  public:
    OptionList(CLI::App& app, ValueTable& values) : fApp(app), fValues(values) {}

    CLI::App& App() const { return fApp; }

    void AddFlag(const std::string& name, bool& target, const std::string& help) { fApp.add_flag(name, target, help); }

    CLI::Option* AddText(const std::string& name, std::string& target, const std::string& placeholder,
                         const std::string& help, Values::Kind kind = Values::Kind::Any);

    /// An option whose value is one of a few words; `kind` is what they are called together.
    template <typename Target, typename Value>
    void AddChoice(const std::string& name, Target& target, const Choices<Value>& choices,
                   const std::string& placeholder, const std::string& kind, const std::string& help) {
        std::vector<std::string> words;
        for (const auto& choice : choices) words.push_back(choice.first);
        const auto take = [&target, choices](const std::string& word) {
            for (const auto& choice : choices) {
                if (choice.first == word) target = choice.second;
            }
        };
        AddWords(name, take, std::move(words), placeholder, kind, help);
    }

    /// A number that stands in a text, or what it must be.
    template <typename Number>
    void AddNumber(const std::string& name, std::optional<Number> (*read)(std::string_view),
                   const std::function<void(Number)>& take, const std::string& expected, const std::string& help) {
        fApp.add_option_function<std::string>(
                name, [=](const std::string& text) { take(*read(text)); }, help)
            ->check([=](const std::string& text) { return read(text) ? "" : text + " is no " + expected; })
            ->option_text("N");
    }

    /// Names between commas; several such options add up.
    void AddItems(const std::string& name, std::vector<std::string>& names, const std::string& help);

    void AddArguments(std::vector<std::string>& target, const std::string& placeholder, Values::Kind kind,
                      const std::string& help);

  private:
    void AddWords(const std::string& name, const std::function<void(const std::string&)>& take,
                  std::vector<std::string> words, const std::string& placeholder, const std::string& kind,
                  const std::string& help);

    CLI::App& fApp;
    ValueTable& fValues;
};

}  // namespace hierfit::program
