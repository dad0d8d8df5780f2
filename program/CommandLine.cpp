#include "CommandLine.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "StandardError.h"
#include "host/unicode/Excerpt.h"
#include "report/formats/RenderSettings.h"
#include "report/items/Selection.h"

namespace hierfit::program {

namespace {

namespace items = report::items;
using session::Labels;

template <typename Value>
using Choices = std::vector<std::pair<std::string, Value>>;

constexpr const char* kAbout = "Tables of generalized linear mixed models, from a PMML and a StatXML document.";
constexpr const char* kExitStatus =
    "Exit status: 0 the report was written, 1 wrong usage, 2 a document could not be read,\n"
    "3 the output could not be written, 4 a part of the program is missing; a closed pipe\n"
    "ends it with 141.";
constexpr const char* kExamples =
    "Examples:\n"
    "  hierfit report examples/sleepstudy                    the tables on the terminal\n"
    "  hierfit report -o oats.html oats.pmml oats.statxml    a page for the browser\n"
    "  hierfit report -f svg -o charts/ FOLDER               each chart as a picture\n"
    "  hierfit report -f json FOLDER | jq .items             the document for a program\n"
    "  hierfit check FOLDER                                  what its documents lack\n"
    "  hierfit list FOLDER                                   its tables and charts by name\n";

/// Help with usage lines in the words of the project.
class HelpFormatter : public CLI::Formatter {
  public:
    explicit HelpFormatter(std::string usage) : fUsage(std::move(usage)) {}
    std::string make_usage(const CLI::App*, std::string) const override { return "Usage: " + fUsage + "\n"; }

  private:
    std::string fUsage;
};

/// An option whose value is one of a few words.
template <typename Target, typename Value>
void AddChoice(CLI::App& app, const std::string& name, Target& target, const Choices<Value>& choices,
               const std::string& placeholder, const std::string& help) {
    std::vector<std::string> words;
    for (const auto& choice : choices) words.push_back(choice.first);
    const auto take = [&target, choices](const std::string& word) {
        target = std::ranges::find(choices, word, &std::pair<std::string, Value>::first)->second;
    };
    app.add_option_function<std::string>(name, take, help)->check(CLI::IsMember(words))->option_text(placeholder);
}

void AddFormat(CLI::App& app, OutputOptions& output) {
    Choices<Format> choices;
    for (const report::FormatName& name : report::FormatNames()) choices.emplace_back(name.fName, name.fFormat);
    AddChoice<std::optional<Format>, Format>(app, "-f,--format", output.fFormat, choices, "FORMAT",
                                             "html, text, json, or svg or png, which put each chart\n"
                                             "into the folder FILE; by default FILE's ending tells, else\n"
                                             "text goes to a terminal and html elsewhere");
}

/// Several such options add up.
void AddSelection(CLI::App& app, std::vector<std::string>& names) {
    const auto add = [&names](const std::vector<std::string>& lists) {
        for (const std::string& list : lists) std::ranges::move(items::SplitNames(list), std::back_inserter(names));
    };
    app.add_option_function<std::vector<std::string>>(
           "--only", add, "These items alone, by the names that list tells, or all of a\nkind: GLMMEmMeans")
        ->expected(1)
        ->take_all()
        ->option_text("NAME,...");
}

void AddOutputOptions(CLI::App& app, OutputOptions& output) {
    app.add_option("-o,--output", output.fFile, "Where to write; - is standard output (default)")->option_text("FILE");
    AddFormat(app, output);
    AddSelection(app, output.fvOnly);
    app.add_option_function<std::string>(
           "--scale", [&output](const std::string& text) { output.fScale = *report::ReadScale(text); },
           "Pixels of a png to a pixel of the page: 2 by default, above\n0 and up to 20; other formats stay as they "
           "are")
        ->check([](const std::string& text) {
            return report::ReadScale(text) ? "" : text + " is no number above 0 and up to 20";
        })
        ->option_text("N");
    app.add_flag("--static", output.fIsStatic, "HTML without the script; other formats stay as they are");
    app.add_flag("--charts", output.fHasChartValues, "Text with the values behind its charts");
    app.add_flag("!--no-pager", output.fHasPager, "No pager for text that is longer than the terminal");
    app.add_option("--title", output.fTitle, "The page's title, in the place of \"Generalized Linear Mixed\nModels\"")
        ->option_text("TEXT");
    app.add_option("--author", output.fAuthor, "Who stands below the title, and in the page's head")
        ->option_text("TEXT");
    AddChoice<Color, Color>(app, "--color", output.fColor,
                            {{"auto", Color::Auto}, {"always", Color::Always}, {"never", Color::Never}}, "WHEN",
                            "Colour in text: auto (default: on a terminal without\nNO_COLOR), always or never");
}

void AddSettings(CLI::App& app, session::Settings& settings) {
    app.add_option("--lang", settings.fLanguage, "Language of the report (default en); C shows source texts\nand keys")
        ->option_text("LANG");
    AddChoice<Labels, Labels>(app, "--variables", settings.fVariables,
                              {{"name", Labels::Name}, {"label", Labels::Label}, {"both", Labels::Both}}, "WHAT",
                              "Show variables by name, label (default) or both");
    AddChoice<Labels, Labels>(app, "--values", settings.fValues,
                              {{"value", Labels::Name}, {"label", Labels::Label}, {"both", Labels::Both}}, "WHAT",
                              "Show data values by value, label (default) or both");
    app.add_option("--templates", settings.fTemplateFolder,
                   "A folder of chart templates that come before the installed\nones")
        ->check(CLI::ExistingDirectory)
        ->option_text("DIR");
}

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

/// Pictures need a folder, and a saved document is whole.
std::optional<std::string> CheckOutput(OutputOptions& output) {
    if (auto wrong = SettleFormat(output)) return wrong;
    if (!output.fFormat) return {};
    if (report::IsPictures(*output.fFormat) && output.fFile == "-") {
        return "--format " + std::string(report::NameOf(*output.fFormat)) + ": --output must name a folder";
    }
    if (output.fFormat == Format::Json && !output.fvOnly.empty()) {
        return std::string("--only: json holds the whole document or none of it");
    }
    return {};
}

std::optional<std::string> CheckLanguage(const std::string& language) {
    const std::vector<std::string> languages = session::Languages();
    if (std::ranges::find(languages, language) != languages.end()) return {};
    std::string list;
    for (const std::string& one : languages) list += (list.empty() ? "" : ", ") + one;
    return "--lang: " + language + ": no such language; there are " + list;
}

Explanation Wrong(const std::string& what) {
    return {"hierfit: " + unicode::Excerpt(what, kMostOfText) + "\nTry: hierfit --help\n", true};
}

Command Finish(ReportCommand command) {
    if (const auto wrong = CheckOutput(command.fOutput)) return Wrong(*wrong);
    if (const auto wrong = CheckLanguage(command.fSettings.fLanguage)) return Wrong(*wrong);
    return command;
}

Command Finish(RenderCommand command) {
    if (const auto wrong = CheckOutput(command.fOutput)) return Wrong(*wrong);
    return command;
}

Command ParseWith(CLI::App& app, int argumentCount, const char* const* arguments, const CLI::App* report,
                  ReportCommand& reportCommand, RenderCommand& renderCommand) {
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::CallForHelp&) {
        return Explanation{app.help(), false};
    } catch (const CLI::CallForVersion& version) {
        return Explanation{std::string(version.what()) + "\n", false};
    } catch (const CLI::ParseError& error) {
        return Wrong(error.what());
    }
    return report->parsed() ? Finish(std::move(reportCommand)) : Finish(std::move(renderCommand));
}

/// The commands that look at a model and write no report. Their options stand in `check` and `list`; the one that was
/// given goes into `chosen`.
void AddInspections(CLI::App& app, CheckCommand& check, ListCommand& list, std::optional<Command>& chosen) {
    CLI::App* checking = app.add_subcommand("check", "Say what a model's two documents lack or contradict");
    checking->add_option("documents", check.fvDocuments, "As for report")
        ->required()
        ->expected(1, 2)
        ->option_text("MODEL.pmml MODEL.statxml | FOLDER");
    checking->add_flag("--strict", check.fIsStrict, "Exit status 2 on any remark");
    checking->formatter(std::make_shared<HelpFormatter>(
        "hierfit check [--strict] MODEL.pmml MODEL.statxml\n       hierfit check [--strict] FOLDER"));
    checking->footer(
        "One remark a line, and the tables and charts that will be missing for it.\n"
        "Exit status: 0 the documents can be read, 1 wrong usage, 2 they cannot, or there is a\n"
        "remark and --strict was given, 3 the output could not be written, 4 a part of the program is\n"
        "missing.");
    checking->callback([&] { chosen = check; });

    CLI::App* listing = app.add_subcommand("list", "List the items of a report by name, kind and title");
    listing
        ->add_option("documents", list.fvDocuments,
                     "As for report, or a document saved by\n--format json; - is standard input")
        ->required()
        ->expected(1, 2)
        ->option_text("MODEL.pmml MODEL.statxml | FOLDER | FILE.json");
    AddChoice<bool, bool>(*listing, "-f,--format", list.fIsJson, {{"text", false}, {"json", true}}, "FORMAT",
                          "text (default) or json");
    listing->formatter(std::make_shared<HelpFormatter>(
        "hierfit list [-f text|json] MODEL.pmml MODEL.statxml\n       hierfit list [-f text|json] FOLDER\n"
        "       hierfit list [-f text|json] FILE.json"));
    listing->footer(kExitStatus);
    listing->callback([&] { chosen = list; });
}

}  // namespace

Command ParseCommandLine(int argumentCount, const char* const* arguments) {
    CLI::App app(kAbout, "hierfit");
    app.set_version_flag("--version", "hierfit " HIERFIT_VERSION, "Print the version");
    app.set_help_flag("-h,--help", "Print this help");
    app.footer(std::string(kExamples) + "\n" + kExitStatus);
    app.require_subcommand(1);
    app.formatter(std::make_shared<HelpFormatter>("hierfit report|render|check|list [OPTIONS] ..."));

    ReportCommand reportCommand;
    CLI::App* report = app.add_subcommand("report", "Read a model's two documents and write the report");
    report
        ->add_option("documents", reportCommand.fvDocuments,
                     "MODEL.pmml and MODEL.statxml, or one FOLDER that\nholds model.pmml and model.statxml")
        ->required()
        ->expected(1, 2)
        ->option_text("MODEL.pmml MODEL.statxml | FOLDER");
    report->formatter(std::make_shared<HelpFormatter>(
        "hierfit report [OPTIONS] MODEL.pmml MODEL.statxml\n       hierfit report [OPTIONS] FOLDER"));
    AddSettings(*report, reportCommand.fSettings);
    AddOutputOptions(*report, reportCommand.fOutput);

    RenderCommand renderCommand;
    CLI::App* render = app.add_subcommand("render", "Write a document saved by --format json in another format");
    render->add_option("document", renderCommand.fDocument, "The saved document; - is standard input")
        ->required()
        ->option_text("FILE.json");
    render->formatter(std::make_shared<HelpFormatter>("hierfit render [OPTIONS] FILE.json"));
    AddOutputOptions(*render, renderCommand.fOutput);

    for (CLI::App* command : {report, render}) command->footer(kExitStatus);
    CheckCommand checkCommand;
    ListCommand listCommand;
    std::optional<Command> inspection;
    AddInspections(app, checkCommand, listCommand, inspection);
    Command command = ParseWith(app, argumentCount, arguments, report, reportCommand, renderCommand);
    return inspection && !std::holds_alternative<Explanation>(command) ? *inspection : command;
}

}  // namespace hierfit::program
