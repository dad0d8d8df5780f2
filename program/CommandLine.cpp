#include "CommandLine.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <functional>
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
    "  hierfit report -o oats.xlsx FOLDER                    a workbook, a sheet each\n"
    "  hierfit report -f svg -o charts/ FOLDER               each chart as a picture\n"
    "  hierfit report -f json FOLDER | jq .items             the document for a program\n"
    "  hierfit check FOLDER                                  what its documents lack\n"
    "  hierfit list FOLDER                                   its tables and charts by name\n"
    "  hierfit batch -o reports/ -f html models/*            a page for each model, and an index\n";

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

void AddFormat(CLI::App& app, OutputOptions& output, const std::string& help) {
    Choices<Format> choices;
    for (const report::FormatName& name : report::FormatNames()) choices.emplace_back(name.fName, name.fFormat);
    AddChoice<std::optional<Format>, Format>(app, "-f,--format", output.fFormat, choices, "FORMAT", help);
}

/// A number that stands in a text, or what it must be.
template <typename Number>
void AddNumber(CLI::App& app, const std::string& name, std::optional<Number> (*read)(std::string_view),
               const std::function<void(Number)>& take, const std::string& expected, const std::string& help) {
    app.add_option_function<std::string>(
           name, [=](const std::string& text) { take(*read(text)); }, help)
        ->check([=](const std::string& text) { return read(text) ? "" : text + " is no " + expected; })
        ->option_text("N");
}

void AddStyle(CLI::App& app, OutputOptions& output) {
    Choices<report::style::StyleName> choices;
    for (const report::style::NamedStyle& style : report::style::Styles())
        choices.emplace_back(style.fWord, style.fStyle);
    AddChoice<std::optional<report::style::StyleName>, report::style::StyleName>(
        app, "--style", output.fStyle, choices, "STYLE",
        "How figures are written: plain (default), apa or ama; not\nfor json");
    AddNumber<int>(
        app, "--digits", &report::style::ReadDigits, [&output](int digits) { output.fDigits = digits; },
        "number from 0 to 15",
        "Places of estimates, errors, bounds and statistics, 0 to 15,\nin the place of those of the style");
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
        ->allow_extra_args(false)
        ->option_text("NAME,...");
}

/// What the report shows and how.
void AddAppearance(CLI::App& app, OutputOptions& output) {
    AddSelection(app, output.fvOnly);
    AddStyle(app, output);
    AddNumber<double>(
        app, "--scale", &report::ReadScale, [&output](double scale) { output.fScale = scale; },
        "number above 0 and up to 20",
        "Pixels of a png, or of a picture in a docx or xlsx, to a\npixel of the page: 2 by default, above 0 and up to "
        "20");
    app.add_flag("--static", output.fIsStatic, "HTML without the script; other formats stay as they are");
    app.add_flag("--standalone", output.fIsStandalone,
                 "LaTeX that compiles by itself, with lualatex; else it is\na fragment for \\input");
    app.add_flag("--charts", output.fHasChartValues, "Text with the values behind its charts");
    app.add_option("--title", output.fTitle, "The report's title, in the place of \"Generalized Linear Mixed\nModels\"")
        ->option_text("TEXT");
    app.add_option("--author", output.fAuthor, "Who stands below the title, and in the file's properties")
        ->option_text("TEXT");
    AddChoice<Color, Color>(app, "--color", output.fColor,
                            {{"auto", Color::Auto}, {"always", Color::Always}, {"never", Color::Never}}, "WHEN",
                            "Colour in text: auto (default: on a terminal without\nNO_COLOR), always or never");
}

void AddOutputOptions(CLI::App& app, OutputOptions& output) {
    app.add_option("-o,--output", output.fFile, "Where to write; - is standard output (default)")->option_text("FILE");
    AddFormat(app, output,
              "html, text, json, markdown, latex, docx, xlsx, or one that\n"
              "puts files into the folder FILE: svg or png each chart, csv\n"
              "each table; by default FILE's ending tells, else text goes\n"
              "to a terminal and html elsewhere");
    app.add_flag_callback(
        "--no-pager", [&output] { output.fHasPager = false; }, "No pager for text that is longer than the terminal");
    AddAppearance(app, output);
}

/// "C, de, en"
std::string SpellLanguages() {
    std::string list;
    for (const std::string& language : session::Languages()) list += (list.empty() ? "" : ", ") + language;
    return list;
}

void AddSettings(CLI::App& app, session::Settings& settings) {
    app.add_option("--lang", settings.fLanguage,
                   "Language of the report (default en); C shows source texts\nand keys. There are " + SpellLanguages())
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
    if (auto wrong = SettleFormat(output)) return wrong;
    const bool isFolder = output.fFormat && report::ExtentOf(*output.fFormat) == report::Extent::Folder;
    const bool isOneTable = output.fFormat == Format::Csv && !output.fvOnly.empty();
    if (isFolder && !isOneTable && output.fFile == "-") {
        return "--format " + std::string(report::NameOf(*output.fFormat)) + ": --output must name a folder";
    }
    return CheckJson(output);
}

std::optional<std::string> CheckLanguage(const std::string& language) {
    const std::vector<std::string> languages = session::Languages();
    if (std::ranges::find(languages, language) != languages.end()) return {};
    return "--lang: " + language + ": no such language; there are " + SpellLanguages();
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

Command Finish(BatchCommand command) {
    if (command.fOutput.fFile == "-") return Wrong("--output must name a folder");
    if (const auto wrong = CheckJson(command.fOutput)) return Wrong(*wrong);
    if (const auto wrong = CheckLanguage(command.fSettings.fLanguage)) return Wrong(*wrong);
    return command;
}

/// What there is to say instead of running a command; nothing when there is one to run.
std::optional<Explanation> ParseWith(CLI::App& app, int argumentCount, const char* const* arguments) {
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::CallForHelp&) {
        return Explanation{app.help(), false};
    } catch (const CLI::CallForVersion& version) {
        return Explanation{std::string(version.what()) + "\n", false};
    } catch (const CLI::ParseError& error) {
        return Wrong(error.what());
    }
    return {};
}

CLI::App* AddBatch(CLI::App& app, BatchCommand& batch) {
    constexpr int kMostJobs = 1024;
    CLI::App* command = app.add_subcommand("batch", "Write the reports of many models, and an index of them");
    command
        ->add_option("folders", batch.fvFolders, "As for report; without any, standard input lists them,\none a line")
        ->option_text("FOLDER ...");
    command->add_option("-o,--output", batch.fOutput.fFile, "The folder of the reports, which is made if need be")
        ->required()
        ->option_text("DIR");
    AddFormat(*command, batch.fOutput,
              "html (default), text, json, xlsx, or svg or png, which make\na folder of charts for each model");
    command->add_option("--jobs", batch.fJobs, "Models at a time; as many as the machine does at once by\ndefault")
        ->check(CLI::Range(1, kMostJobs))
        ->option_text("N");
    command->add_flag("--force", batch.fIsForced, "Reports that are newer than their documents are made again");
    AddSettings(*command, batch.fSettings);
    AddAppearance(*command, batch.fOutput);
    command->formatter(std::make_shared<HelpFormatter>(
        "hierfit batch [OPTIONS] -o DIR -f FORMAT FOLDER...\n       hierfit batch [OPTIONS] -o DIR -f FORMAT < LIST"));
    command->footer(
        "A report is named by its folder's last name, with -2, -3, ... where several have it, and is\n"
        "left alone while it is newer than the documents. DIR/index.html lists all of them.\n"
        "Exit status: 0 all is there, 1 wrong usage, 2 a model has no report, 3 an output could not be\n"
        "written, 4 a part of the program is missing.");
    return command;
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
    app.formatter(std::make_shared<HelpFormatter>("hierfit report|render|check|list|batch [OPTIONS] ..."));

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
    BatchCommand batchCommand;
    const CLI::App* batch = AddBatch(app, batchCommand);

    if (auto explanation = ParseWith(app, argumentCount, arguments)) return *std::move(explanation);
    if (inspection) return *std::move(inspection);
    if (batch->parsed()) return Finish(std::move(batchCommand));
    return report->parsed() ? Finish(std::move(reportCommand)) : Finish(std::move(renderCommand));
}

}  // namespace hierfit::program
