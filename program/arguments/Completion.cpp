#include "program/arguments/Completion.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>

#include "program/arguments/Interface.h"
#include "program/documents/Documents.h"
#include "report/items/Entries.h"
#include "report/items/Selection.h"

namespace hierfit::program {

namespace {

constexpr const char* kFiles = ":files\n";
constexpr const char* kFolders = ":folders\n";

/// The place of a word in a command line, from 1.
bool ReadPlace(const std::string& text, std::size_t& place) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), place);
    return read.ec == std::errc() && place > 0;
}

bool IsOption(std::string_view word) { return word.starts_with('-') && word.size() > 1; }

/// Candidates of one place, each behind what stands before them in their word.
class Candidates {
  public:
    Candidates(std::string before, std::string_view begin) : fBefore(std::move(before)), fBegin(begin) {}

    void Add(std::string_view word, std::string_view meaning) {
        if (!word.starts_with(fBegin)) return;
        fText.append(fBefore).append(word).append("\t");
        for (const char byte : meaning) fText += byte == '\n' || byte == '\t' ? ' ' : byte;
        fText += '\n';
    }

    std::string Take() { return std::move(fText); }

  private:
    std::string fBefore;
    std::string_view fBegin;
    std::string fText;
};

/// The words of a command ahead of the last one: its arguments, and the option whose value comes next.
struct Words {
    std::vector<std::string> fvArguments;
    const CLI::Option* fpOpen = nullptr;
};

const CLI::Option* FindOption(const CLI::App& command, const std::string& name) {
    const CLI::Option* option = command.get_option_no_throw(name);
    return option && !option->get_positional() ? option : nullptr;
}

Words ReadWords(const CLI::App& command, const std::vector<std::string>& words) {
    Words read;
    for (const std::string& word : words) {
        if (std::exchange(read.fpOpen, nullptr)) continue;
        if (!IsOption(word)) {
            read.fvArguments.push_back(word);
            continue;
        }
        const CLI::Option* option = FindOption(command, word);
        if (option && option->get_items_expected_max() > 0) read.fpOpen = option;
    }
    return read;
}

/// The document that a command is about; nothing where it cannot be had without waiting or failing.
std::optional<document::Document> Open(const CLI::App& command, const std::vector<std::string>& arguments) {
    if (arguments.empty() || std::ranges::find(arguments, "-") != arguments.end()) return {};
    if (command.get_name() == "render") {
        auto saved = ReadSaved(arguments.front());
        auto* document = std::get_if<document::Document>(&saved);
        return document ? std::optional(std::move(*document)) : std::nullopt;
    }
    auto run = RunModel(command.get_name() == "batch" ? std::vector{arguments.front()} : arguments, {});
    auto* model = std::get_if<ModelRun>(&run);
    if (!model || model->fResult.fOutcome != session::Outcome::Issued) return {};
    return std::move(model->fResult.fDocument);
}

/// Items by name, and kinds of which there are several.
std::string CompleteItems(const document::Document& document, const std::string& before, std::string_view value) {
    const std::size_t begin = value.rfind(',') + 1;
    Candidates candidates(before + std::string(value.substr(0, begin)), value.substr(begin));
    std::set<std::string_view> kinds;
    const std::vector<report::items::Entry> entries = report::items::ListEntries(document);
    for (const report::items::Entry& entry : entries) {
        const std::string_view kind = report::items::KindOfName(entry.fAnchor);
        const auto bears = [kind](const auto& other) { return report::items::KindOfName(other.fAnchor) == kind; };
        if (kinds.insert(kind).second && std::ranges::count_if(entries, bears) > 1) candidates.Add(kind, "All of them");
        candidates.Add(entry.fAnchor, report::items::TitleOf(*entry.fpItem));
    }
    return candidates.Take();
}

/// `before` stands before the value in the same word: "--format=".
std::string CompleteValue(const CLI::App& command, const Values& values, const std::vector<std::string>& arguments,
                          const std::string& before, std::string_view value) {
    Candidates candidates(before, value);
    switch (values.fKind) {
        case Values::Kind::Files:
            return kFiles;
        case Values::Kind::Folders:
            return kFolders;
        case Values::Kind::Items:
            if (const auto document = Open(command, arguments)) return CompleteItems(*document, before, value);
            break;
        case Values::Kind::Languages:
            for (const std::string& language : session::Languages()) candidates.Add(language, "");
            break;
        case Values::Kind::Words:
            for (const std::string& word : values.fvWords) candidates.Add(word, "");
            break;
        case Values::Kind::Any:
            break;
    }
    return candidates.Take();
}

std::string CompleteOption(const CLI::App& command, const std::string& word) {
    Candidates candidates({}, word);
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) candidates.Add("--" + name, option->get_description());
    }
    return candidates.Take();
}

std::string CompleteCommand(const CLI::App& app, const std::string& word, bool isTopic) {
    Candidates candidates({}, word);
    for (const CLI::App* command : app.get_subcommands({})) {
        candidates.Add(command->get_name(), command->get_description());
    }
    if (isTopic) return candidates.Take();
    candidates.Add("help", "Say what a command takes");
    return candidates.Take() + kFiles;
}

}  // namespace

std::string Complete(const std::vector<std::string>& request) {
    std::size_t place = 1;
    if (request.empty() || !ReadPlace(request.front(), place)) return {};
    const auto at = request.begin() + static_cast<std::ptrdiff_t>(std::min(place, request.size()));
    const std::string word = at == request.end() ? "" : *at;
    std::vector<std::string> before(request.begin() + 1, at);
    const std::vector<std::string> behind(at == request.end() ? at : at + 1, request.end());

    Interface interface;
    CLI::App& app = interface.App();
    if (before.empty()) return word.starts_with('-') ? CompleteOption(app, word) : CompleteCommand(app, word, false);
    if (before.front() == "help") return before.size() == 1 ? CompleteCommand(app, word, true) : "";
    const std::vector<std::string> names = interface.CommandNames();
    const bool isNamed = std::ranges::find(names, before.front()) != names.end();
    const CLI::App& command = *app.get_subcommand(isNamed ? before.front() : "report");
    if (isNamed) before.erase(before.begin());

    Words words = ReadWords(command, before);
    std::ranges::move(ReadWords(command, behind).fvArguments, std::back_inserter(words.fvArguments));
    if (words.fpOpen) return CompleteValue(command, interface.ValuesOf(words.fpOpen), words.fvArguments, "", word);
    const std::size_t equal = word.find('=');
    if (word.starts_with("--") && equal != std::string::npos) {
        const CLI::Option* option = FindOption(command, word.substr(0, equal));
        if (!option) return {};
        return CompleteValue(command, interface.ValuesOf(option), words.fvArguments, word.substr(0, equal + 1),
                             std::string_view(word).substr(equal + 1));
    }
    if (word.starts_with('-')) return CompleteOption(command, word);
    return CompleteValue(command, interface.ValuesOf(command.get_option("arguments")), {}, "", word);
}

}  // namespace hierfit::program
