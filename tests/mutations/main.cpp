// Runs the procedure on broken documents and renders what comes out: run_mutations [COUNT [SEED]]. Each run must end
// within its time with a report or with a located error, and a report must survive the way through JSON.

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "host/session/Session.h"
#include "report/formats/Render.h"
#include "report/json/JsonDocument.h"
#include "tests/mutations/Mutation.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {

namespace {

std::vector<std::string> ListExamples() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(HIERFIT_EXAMPLES)) {
        if (exists(entry.path() / "model.pmml")) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// What is wrong with the outcome; empty when nothing is.
std::string Judge(const session::Result& result) {
    if (result.fOutcome == session::Outcome::NotSetUp) return "the installation is not complete";
    if (result.fOutcome == session::Outcome::Unreadable) {
        const auto& diagnostics = result.fDocument.fvDiagnostics;
        return diagnostics.empty() || diagnostics.back().fLevel != 3 ? "no error says why there is no report" : "";
    }
    for (const report::Format format : {report::Format::Html, report::Format::Text}) {
        const auto rendered = report::Render(result.fDocument, format, {});
        if (const auto* error = std::get_if<report::RenderError>(&rendered)) return error->fText;
        if (std::get<std::string>(rendered).empty()) return std::string(report::NameOf(format)) + ": nothing rendered";
    }
    const auto read = report::ReadJson(report::WriteJson(result.fDocument));
    if (const auto* error = std::get_if<report::JsonError>(&read)) return error->fPath + ": " + error->fText;
    return std::get<document::Document>(read) == result.fDocument ? "" : "the document does not survive JSON";
}

int Run(int count, std::uint32_t seed) {
    using Clock = std::chrono::steady_clock;
    const std::vector<std::string> examples = ListExamples();
    Mutator mutator(seed);
    int issued = 0;
    int faults = 0;
    for (int i = 0; i < count; ++i) {
        const std::string& example = examples[static_cast<std::size_t>(i) % examples.size()];
        std::string pmml = ReadExample(example, "model.pmml");
        std::string statXml = ReadExample(example, "model.statxml");
        std::string what;
        std::string& changed = i % 10 == 9 ? pmml : statXml;
        changed = mutator.Mutate(changed, what);
        const auto start = Clock::now();
        const session::Result result = session::Run({"model.pmml", pmml}, {"model.statxml", statXml}, {});
        std::string fault = Judge(result);
        const std::chrono::duration<double> seconds = Clock::now() - start;
        if (fault.empty() && seconds.count() > HIERFIT_MOST_SECONDS) fault = "it took too long";
        if (result.fOutcome == session::Outcome::Issued) ++issued;
        if (fault.empty()) continue;
        ++faults;
        fmt::print("{} ({}), seed {}, run {}: {}\n", example, what, seed, i, fault);
    }
    fmt::print("{} runs, {} with a report, {} failed\n", count, issued, faults);
    return faults > 0 || issued == 0 || issued == count ? 1 : 0;
}

}  // namespace

}  // namespace hierfit::test

int main(int argumentCount, char** arguments) {
    const int count = argumentCount > 1 ? std::stoi(arguments[1]) : 2000;
    const auto seed = static_cast<std::uint32_t>(argumentCount > 2 ? std::stoul(arguments[2]) : 1);
    return hierfit::test::Run(count, seed);
}
