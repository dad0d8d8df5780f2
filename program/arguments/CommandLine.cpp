#include "program/arguments/CommandLine.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "host/unicode/Excerpt.h"
#include "program/arguments/Completion.h"
#include "program/arguments/Interface.h"
#include "program/arguments/Shorthand.h"
#include "program/documents/Suggestion.h"
#include "program/files/StandardError.h"

namespace hierfit::program {

namespace {

constexpr std::string_view kComplete = "--complete";  // what the shells' completions ask by; no option of a user's

/// The format by the file's ending; an unknown ending is wrong usage, none leaves it open.
std::optional<std::string> SettleFormat(OutputOptions& output) {
    if (output.fFormat || output.fFile == "-") return {};
    const std::size_t slash = output.fFile.find_last_of('/');
    const std::string name = slash == std::string::npos ? output.fFile : output.fFile.substr(slash + 1);
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos || dot == 0) return {};
    const std::string ending = name.substr(dot);
    output.fFormat = report::FindFormatOfEnding(ending);
    if (output.fFormat) return {};
    return "--output: " + output.fFile + ": no format has the ending " + ending + "; say which by --format";
}

/// A saved document is whole, and in no style.
std::optional<std::string> CheckJson(const OutputOptions& output) {
    if (output.fFormat == Format::Json && !output.fvOnly.empty()) {
        return std::string("--only: json holds the whole document or none of it");
    }
    if (output.fFormat == Format::Json && (output.fStyle || output.fDigits)) {
        return std::string("--style, --digits: json holds the document itself, without a style");
    }
    return {};
}

/// Many files need a folder.
std::optional<std::string> CheckOutput(OutputOptions& output) {
    if (output.fFile.empty()) return std::string("--output: an empty name");
    if (auto wrong = SettleFormat(output)) return wrong;
    const bool isFolder = output.fFormat && report::ExtentOf(*output.fFormat) == report::Extent::Folder;
    const bool isOneTable = output.fFormat == Format::Csv && !output.fvOnly.empty();
    if (isFolder && !isOneTable && output.fFile == "-") {
        return "--format " + std::string(report::NameOf(*output.fFormat)) + ": --output must name a folder";
    }
    return CheckJson(output);
}

std::optional<std::string> CheckSettings(const session::Settings& settings) {
    const std::vector<std::string> languages = session::Languages();
    if (std::ranges::find(languages, settings.fLanguage) == languages.end()) {
        return "--lang: " + DescribeUnknown(settings.fLanguage, "language", languages);
    }
    const std::string& templates = settings.fTemplateFolder;
    if (templates.empty() || IsFolder(templates)) return {};
    if (Exists(templates)) return "--templates: " + templates + ": Not a directory";
    return "--templates: " + DescribeMissing(templates).fText;
}

/// Whether there are as many documents as a command takes; which files they are is found out when they are read.
std::optional<std::string> CheckDocuments(const std::string& command, const std::vector<std::string>& documents) {
    if (documents.empty()) {
        return "Give a folder with the two documents, or both documents: hierfit " + command + " FOLDER";
    }
    const auto folders = std::ranges::count_if(documents, &IsFolder);
    if (folders > 1) {
        return command + " takes one model, and there are " + std::to_string(folders) +
               " folders; hierfit batch -o DIR FOLDER... writes a report for each";
    }
    if (documents.size() <= 2) return {};
    return command + " takes a folder or two documents, and there are " + std::to_string(documents.size()) +
           " arguments";
}

Explanation Wrong(const std::string& what) {
    return {"hierfit: " + unicode::Excerpt(what, kMostOfText) + "\nTry: hierfit --help\n", true};
}

/// The command unless something is wrong with it.
Command Check(const std::optional<std::string>& wrong, auto&& command) {
    if (wrong) return Wrong(*wrong);
    return std::move(command);
}

/// The first of what is wrong.
std::optional<std::string> FirstOf(std::initializer_list<std::optional<std::string>> all) {
    const auto found = std::ranges::find_if(all, [](const auto& each) { return each.has_value(); });
    return found == all.end() ? std::nullopt : *found;
}

Command Finish(ReportCommand command) {
    const auto wrong = FirstOf({CheckDocuments("report", command.fvDocuments), CheckOutput(command.fOutput),
                                CheckSettings(command.fSettings)});
    return Check(wrong, std::move(command));
}

Command Finish(RenderCommand command) {
    if (command.fvDocuments.empty()) {
        return Wrong("Give a saved document, such as hierfit report -f json writes; - is standard input");
    }
    if (command.fvDocuments.size() > 1) {
        return Wrong("render takes one document, and there are " + std::to_string(command.fvDocuments.size()));
    }
    return Check(CheckOutput(command.fOutput), std::move(command));
}

Command Finish(CheckCommand command) { return Check(CheckDocuments("check", command.fvDocuments), std::move(command)); }

Command Finish(ListCommand command) { return Check(CheckDocuments("list", command.fvDocuments), std::move(command)); }

Command Finish(BatchCommand command) {
    if (command.fOutput.fFile.empty()) return Wrong("--output is required: the folder that the reports go to");
    if (command.fOutput.fFile == "-") return Wrong("--output must name a folder");
    return Check(FirstOf({CheckJson(command.fOutput), CheckSettings(command.fSettings)}), std::move(command));
}

Command Finish(VersionCommand command) {
    if (!command.fIsAsked) return Wrong("--verbose: say of what: hierfit --version --verbose");
    return command;
}

Command Finish(Explanation explanation) { return explanation; }

/// A word that a command does not take: an option that there is not.
Explanation DescribeExtra(const CLI::App& app) {
    const std::vector<std::string> extras = app.remaining(true);
    const auto given = app.get_subcommands();
    const CLI::App& command = given.empty() ? app : *given.front();
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
        for (const std::string& name : option->get_snames()) names.push_back("-" + name);
    }
    const std::string name = extras.front().substr(0, extras.front().find('='));
    return Wrong(command.get_name() + " has no option " + unicode::Excerpt(name, kMostOfText) +
                 Suggest(FindNearest(name, names)));
}

/// What there is to say instead of running a command; nothing when there is one to run.
std::optional<Explanation> ParseWith(CLI::App& app, std::vector<std::string> arguments) {
    std::ranges::reverse(arguments);
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return Explanation{app.help(), false};
    } catch (const CLI::ExtrasError&) {
        return DescribeExtra(app);
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string what = error.what();
        return Wrong(what.substr(0, what.find(':')) + ": the value is missing");
    } catch (const CLI::ParseError& error) {
        return Wrong(error.what());
    }
    return {};
}

}  // namespace

Command ParseCommandLine(int argumentCount, const char* const* arguments) {
    std::vector<std::string> words(arguments + std::min(argumentCount, 1), arguments + argumentCount);
    if (!words.empty() && words.front() == kComplete) {
        return Explanation{Complete({words.begin() + 1, words.end()}), false};
    }
    Interface interface;
    auto expanded = Expand(std::move(words), interface.CommandNames());
    if (const auto* none = std::get_if<NoCommand>(&expanded)) return Wrong(none->fText);
    auto& all = std::get<std::vector<std::string>>(expanded);
    if (auto explanation = ParseWith(interface.App(), std::move(all))) return *std::move(explanation);
    return std::visit([](auto&& command) { return Finish(std::move(command)); }, interface.TakeCommand());
}

}  // namespace hierfit::program
