#include "program/arguments/Interface.h"

#include <CLI/Config.hpp>
#include <algorithm>
#include <charconv>
#include <memory>
#include <system_error>
#include <utility>

#include "program/arguments/HelpFormatter.h"
#include "report/formats/RenderSettings.h"

namespace hierfit::program {

namespace {

using session::Labels;
using Kind = Values::Kind;

constexpr int kMostJobs = 1024;

constexpr const char* kAbout = "Tables of generalized linear mixed models, from a PMML and a StatXML document.";
constexpr const char* kExitStatus =
    "Exit status: 0 the report was written, 1 wrong usage, 2 a document could not be read,\n"
    "3 the output could not be written, 4 a part of the program is missing; a closed pipe\n"
    "ends it with 141.";
constexpr const char* kExamples =
    "  hierfit examples/sleepstudy                           the tables on the terminal\n"
    "  hierfit report -o oats.html oats.pmml oats.statxml    a page for the browser\n"
    "  hierfit report -o oats.xlsx FOLDER                    a workbook, a sheet each\n"
    "  hierfit report -f svg -o charts/ FOLDER               each chart as a picture\n"
    "  hierfit report -f json FOLDER | jq .items             the document for a program\n"
    "  hierfit check FOLDER                                  what its documents lack\n"
    "  hierfit list FOLDER                                   its tables and charts by name\n"
    "  hierfit batch -o reports/ -f html models/*            a page for each model, and an index\n"
    "  hierfit help batch                                    what a command takes\n";

void AddFormat(OptionList& options, OutputOptions& output, const std::string& help) {
    Choices<Format> choices;
    for (const report::FormatName& name : report::FormatNames()) choices.emplace_back(name.fName, name.fFormat);
    options.AddChoice<std::optional<Format>, Format>("-f,--format", output.fFormat, choices, "FORMAT", "format", help);
}

void AddStyle(OptionList& options, OutputOptions& output) {
    Choices<report::style::StyleName> choices;
    for (const report::style::NamedStyle& style : report::style::Styles()) {
        choices.emplace_back(style.fWord, style.fStyle);
    }
    options.AddChoice<std::optional<report::style::StyleName>, report::style::StyleName>(
        "--style", output.fStyle, choices, "STYLE", "style",
        "How figures are written: plain (default), apa or ama; not\nfor json");
    options.AddNumber<int>(
        "--digits", &report::style::ReadDigits, [&output](int digits) { output.fDigits = digits; },
        "number from 0 to 15",
        "Places of estimates, errors, bounds and statistics, 0 to 15,\nin the place of those of the style");
}

/// What the report shows and how.
void AddAppearance(OptionList& options, OutputOptions& output) {
    options.AddItems("--only", output.fvOnly,
                     "These items alone, by the names that list tells, or all of a\nkind: GLMMEmMeans");
    AddStyle(options, output);
    options.AddNumber<double>(
        "--scale", &report::ReadScale, [&output](double scale) { output.fScale = scale; },
        "number above 0 and up to 20",
        "Pixels of a png, or of a picture in a docx or xlsx, to a\npixel of the page: 2 by default, above 0 and up to "
        "20");
    options.AddFlag("--static", output.fIsStatic, "HTML without the script; other formats stay as they are");
    options.AddFlag("--standalone", output.fIsStandalone,
                    "LaTeX that compiles by itself, with lualatex; else it is\na fragment for \\input");
    options.AddFlag("--charts", output.fHasChartValues, "Text with the values behind its charts");
    options.AddText("--title", output.fTitle, "TEXT",
                    "The report's title, in the place of \"Generalized Linear Mixed\nModels\"");
    options.AddText("--author", output.fAuthor, "TEXT", "Who stands below the title, and in the file's properties");
    options.AddChoice<Color, Color>(
        "--color", output.fColor, {{"auto", Color::Auto}, {"always", Color::Always}, {"never", Color::Never}}, "WHEN",
        "choice", "Colour in text: auto (default: on a terminal without\nNO_COLOR), always or never");
}

void AddPager(OptionList& options, bool& hasPager) {
    options.App().add_flag_callback(
        "--no-pager", [&hasPager] { hasPager = false; }, "No pager for text that is longer than the terminal");
}

void AddOutputOptions(OptionList& options, OutputOptions& output) {
    options.AddText("-o,--output", output.fFile, "FILE", "Where to write; - is standard output (default)", Kind::Files);
    AddFormat(options, output,
              "html, text, json, markdown, latex, docx, xlsx, or one that\n"
              "puts files into the folder FILE: svg or png each chart, csv\n"
              "each table; by default FILE's ending tells, else text goes\n"
              "to a terminal and html elsewhere");
    AddPager(options, output.fHasPager);
    AddAppearance(options, output);
}

/// "C, de, en"
std::string SpellLanguages() {
    std::string list;
    for (const std::string& language : session::Languages()) list += (list.empty() ? "" : ", ") + language;
    return list;
}

void AddSettings(OptionList& options, session::Settings& settings) {
    options.AddText(
        "--lang", settings.fLanguage, "LANG",
        "Language of the report (default en); C shows source texts\nand keys. There are " + SpellLanguages(),
        Kind::Languages);
    options.AddChoice<Labels, Labels>("--variables", settings.fVariables,
                                      {{"name", Labels::Name}, {"label", Labels::Label}, {"both", Labels::Both}},
                                      "WHAT", "choice", "Show variables by name, label (default) or both");
    options.AddChoice<Labels, Labels>("--values", settings.fValues,
                                      {{"value", Labels::Name}, {"label", Labels::Label}, {"both", Labels::Both}},
                                      "WHAT", "choice", "Show data values by value, label (default) or both");
    options.AddText("--templates", settings.fTemplateFolder, "DIR",
                    "A folder of chart templates that come before the installed\nones", Kind::Folders);
}

std::optional<int> ReadJobs(std::string_view text) {
    int jobs = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, jobs);
    const bool isNumber = read.ec == std::errc() && read.ptr == end;
    return isNumber && jobs >= 1 && jobs <= kMostJobs ? std::optional(jobs) : std::nullopt;
}

}  // namespace

Interface::Interface() : fApp(kAbout, "hierfit") {
    fApp.set_help_flag("-h,--help", "Print this help");
    fApp.add_flag("--version", fVersion.fIsAsked, "Print the version");
    fApp.add_flag("--verbose", fVersion.fIsVerbose,
                  "With --version: those of libraries, too, and where the\nprogram's parts lie");
    fApp.footer(kExitStatus);
    fApp.require_subcommand(0, 1);
    fApp.formatter(std::make_shared<HelpFormatter>(
        "hierfit report|render|check|list|batch [OPTIONS] ...\n       hierfit [OPTIONS] FOLDER\n"
        "       hierfit help [COMMAND]",
        kExamples));
    AddReport();
    AddRender();
    AddCheck();
    AddList();
    AddBatch();
}

std::vector<std::string> Interface::CommandNames() const {
    std::vector<std::string> names;
    for (const CLI::App* command : fApp.get_subcommands({})) names.push_back(command->get_name());
    return names;
}

const Values& Interface::ValuesOf(const CLI::Option* option) const {
    static const Values kAny;
    const auto found = fValues.find(option);
    return found == fValues.end() ? kAny : found->second;
}

Command Interface::TakeCommand() {
    if (fApp.got_subcommand("report")) return std::move(fReport);
    if (fApp.got_subcommand("render")) return std::move(fRender);
    if (fApp.got_subcommand("check")) return std::move(fCheck);
    if (fApp.got_subcommand("list")) return std::move(fList);
    if (fApp.got_subcommand("batch")) return std::move(fBatch);
    return fVersion;
}

CLI::App* Interface::AddCommand(const std::string& name, const std::string& about, const std::string& usage,
                                const std::string& examples, const std::string& footer) {
    CLI::App* command = fApp.add_subcommand(name, about);
    command->formatter(std::make_shared<HelpFormatter>(usage, examples));
    command->footer(footer);
    return command;
}

void Interface::AddReport() {
    CLI::App* command =
        AddCommand("report", "Read a model's two documents and write the report",
                   "hierfit report [OPTIONS] MODEL.pmml MODEL.statxml\n       hierfit report [OPTIONS] FOLDER",
                   "  hierfit report FOLDER                             the tables on the terminal\n"
                   "  hierfit report -o oats.html FOLDER                a page for the browser\n"
                   "  hierfit report -o oats.docx --style apa FOLDER    for a manuscript\n"
                   "  hierfit report --only FixedEffects-1 FOLDER       one table of it\n"
                   "  zcat oats.statxml.gz | hierfit report oats.pmml -\n",
                   kExitStatus);
    OptionList options(*command, fValues);
    options.AddArguments(fReport.fvDocuments, "MODEL.pmml MODEL.statxml | FOLDER", Kind::Files,
                         "Two documents, of which - is standard input, or one FOLDER\nthat holds them");
    AddSettings(options, fReport.fSettings);
    AddOutputOptions(options, fReport.fOutput);
}

void Interface::AddRender() {
    CLI::App* command = AddCommand("render", "Write a document saved by --format json in another format",
                                   "hierfit render [OPTIONS] FILE.json",
                                   "  hierfit render -o oats.html oats.json             a page from saved data\n"
                                   "  hierfit report -f json FOLDER | hierfit render -f text -\n",
                                   kExitStatus);
    OptionList options(*command, fValues);
    options.AddArguments(fRender.fvDocuments, "FILE.json", Kind::Files, "The saved document; - is standard input");
    AddOutputOptions(options, fRender.fOutput);
}

void Interface::AddCheck() {
    CLI::App* command =
        AddCommand("check", "Say what a model's two documents lack or contradict",
                   "hierfit check [--strict] MODEL.pmml MODEL.statxml\n       hierfit check [--strict] FOLDER",
                   "  hierfit check FOLDER                              a line for each remark\n"
                   "  hierfit check --strict FOLDER || echo incomplete\n",
                   "One remark a line, and the tables and charts that will be missing for it.\n"
                   "Exit status: 0 the documents can be read, 1 wrong usage, 2 they cannot, or there is a\n"
                   "remark and --strict was given, 3 the output could not be written, 4 a part of the program is\n"
                   "missing.");
    OptionList options(*command, fValues);
    options.AddArguments(fCheck.fvDocuments, "MODEL.pmml MODEL.statxml | FOLDER", Kind::Files, "As for report");
    options.AddFlag("--strict", fCheck.fIsStrict, "Exit status 2 on any remark");
    AddPager(options, fCheck.fHasPager);
}

void Interface::AddList() {
    CLI::App* command =
        AddCommand("list", "List the items of a report by name, kind and title",
                   "hierfit list [-f text|json] MODEL.pmml MODEL.statxml\n       hierfit list [-f text|json] FOLDER\n"
                   "       hierfit list [-f text|json] FILE.json",
                   "  hierfit list FOLDER                               names for --only\n"
                   "  hierfit list -f json oats.json | jq -r '.[].name'\n",
                   kExitStatus);
    OptionList options(*command, fValues);
    options.AddArguments(fList.fvDocuments, "MODEL.pmml MODEL.statxml | FOLDER | FILE.json", Kind::Files,
                         "As for report, or a document saved by\n--format json; - is standard input");
    options.AddChoice<bool, bool>("-f,--format", fList.fIsJson, {{"text", false}, {"json", true}}, "FORMAT", "format",
                                  "text (default) or json");
    AddPager(options, fList.fHasPager);
}

void Interface::AddBatch() {
    CLI::App* command = AddCommand(
        "batch", "Write the reports of many models, and an index of them",
        "hierfit batch [OPTIONS] -o DIR -f FORMAT FOLDER...\n       hierfit batch [OPTIONS] -o DIR -f FORMAT < LIST",
        "  hierfit batch -o reports/ -f html models/*        a page for each model\n"
        "  find models -name '*.pmml' -printf '%h\\n' | hierfit batch -o reports/ -f docx\n",
        "A report is named by its folder's last name, with -2, -3, ... where several have it, and is\n"
        "left alone while it is newer than the documents. DIR/index.html lists all of them.\n"
        "Exit status: 0 all is there, 1 wrong usage, 2 a model has no report, 3 an output could not be\n"
        "written, 4 a part of the program is missing.");
    fBatch.fOutput.fFile.clear();
    OptionList options(*command, fValues);
    options.AddArguments(fBatch.fvFolders, "FOLDER ...", Kind::Folders,
                         "As for report; without any, standard input lists them,\none a line");
    options.AddText("-o,--output", fBatch.fOutput.fFile, "DIR", "The folder of the reports, which is made if need be",
                    Kind::Folders);
    AddFormat(options, fBatch.fOutput,
              "html (default), text, json, xlsx, or svg or png, which make\na folder of charts for each model");
    options.AddNumber<int>(
        "--jobs", &ReadJobs, [this](int jobs) { fBatch.fJobs = jobs; }, "number from 1 to 1024",
        "Models at a time; as many as the machine does at once by\ndefault");
    options.AddFlag("--force", fBatch.fIsForced, "Reports that are newer than their documents are made again");
    AddSettings(options, fBatch.fSettings);
    AddAppearance(options, fBatch.fOutput);
}

}  // namespace hierfit::program
