// Feeds command lines, an argument a line, to the command's parser. What it takes for a request is rendered from a
// small document, into memory alone.

#include <algorithm>
#include <variant>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "program/Rendering.h"
#include "program/arguments/CommandLine.h"
#include "program/files/StandardError.h"
#include "report/formats/Files.h"
#include "report/formats/Render.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::fuzz {

namespace {

/// The arguments, the first of which is the program's name. Like any argument, a line ends at a zero byte.
std::vector<std::string> SplitLines(std::string_view input) {
    std::vector<std::string> lines{"hierfit"};
    while (true) {
        const std::size_t end = input.find('\n');
        const std::string line(input.substr(0, end));
        lines.emplace_back(line.c_str());
        if (end == std::string_view::npos) return lines;
        input.remove_prefix(end + 1);
    }
}

program::Command Parse(const std::vector<std::string>& lines) {
    std::vector<const char*> arguments;
    for (const std::string& line : lines) arguments.push_back(line.c_str());
    return program::ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

void CheckError(const report::RenderError& error) {
    if (error.fText.empty()) Fail("no text says why a request is refused");
    if (error.fFault == report::RenderFault::Missing) Fail(error.fText);
}

/// Formats of other libraries' making are left out: they take long, and ask no more of the command line.
bool IsQuick(report::Format format) {
    return format != report::Format::Png && format != report::Format::Docx && format != report::Format::Xlsx;
}

void Render(const program::OutputOptions& output) {
    if (!(output.fScale > 0 && output.fScale <= 20)) Fail("a scale out of its range");
    if (output.fDigits && (*output.fDigits < 0 || *output.fDigits > 15)) Fail("a number of digits out of its range");
    const report::Format format = output.fFormat.value_or(report::Format::Html);
    if (!IsQuick(format)) return;
    static const document::Document example = RunExample("cbpp");
    document::Document document = example;
    const report::RenderSettings settings = program::MakeRenderSettings(output, false);
    if (const auto error = report::Prepare(document, format, settings)) return CheckError(*error);
    if (report::ExtentOf(format) == report::Extent::Folder && output.fvOnly.empty()) {
        const auto files = report::ListFiles(document, format, settings);
        if (const auto* error = std::get_if<report::RenderError>(&files)) CheckError(*error);
        return;
    }
    const auto made = report::Render(document, format, settings);
    if (const auto* error = std::get_if<report::RenderError>(&made)) CheckError(*error);
}

/// What comes of each kind of command.
struct Judge {
    void operator()(const program::Explanation& told) const {
        if (told.fText.empty() ? told.fIsError : told.fText.back() != '\n') Fail("no line says what is wrong");
        if (!told.fIsError) return;
        if (!told.fText.starts_with("hierfit: ")) Fail("an error without the program's name: " + told.fText);
        constexpr std::size_t kMostBytes = 4 * program::kMostOfText + 200;
        if (told.fText.size() > kMostBytes) Fail("a long error: " + told.fText);
    }
    void operator()(const program::VersionCommand& command) const {
        if (!command.fIsAsked) Fail("a version that nobody asked for");
    }
    void operator()(const program::ReportCommand& command) const {
        CheckDocuments(command.fvDocuments);
        CheckLanguage(command.fSettings);
        Render(command.fOutput);
    }
    void operator()(const program::RenderCommand& command) const {
        if (command.fvDocuments.size() != 1) Fail("a number of documents out of its range");
        Render(command.fOutput);
    }
    void operator()(const program::CheckCommand& command) const { CheckDocuments(command.fvDocuments); }
    void operator()(const program::ListCommand& command) const { CheckDocuments(command.fvDocuments); }
    void operator()(const program::BatchCommand& command) const {
        if (command.fOutput.fFile.empty() || command.fOutput.fFile == "-") Fail("a batch without a folder");
        if (command.fJobs < 0 || command.fJobs > 1024) Fail("a number of jobs out of its range");
        CheckLanguage(command.fSettings);
        Render(command.fOutput);
    }

  private:
    static void CheckDocuments(const std::vector<std::string>& documents) {
        if (documents.empty() || documents.size() > 2) Fail("a number of documents out of its range");
    }

    static void CheckLanguage(const session::Settings& settings) {
        const std::vector<std::string> languages = session::Languages();
        if (std::ranges::find(languages, settings.fLanguage) == languages.end()) Fail("a language that there is not");
    }
};

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kLines}; }

void RunInput(std::string_view input) {
    const std::vector<std::string> lines = SplitLines(input);
    // A completion looks into the documents that stand in the line; here it must not wait for standard input.
    if (lines[1] == "--complete" && std::ranges::count(lines, "-") > 0) return;
    std::visit(Judge(), Parse(lines));
}

}  // namespace hierfit::fuzz
