// Runs the procedure on broken documents and renders what comes out: run_mutations [COUNT [SEED]]. Each run must end
// within its time with a report or with a located error, and a report must survive the way through JSON.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz/Checks.h"
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

/// Whether there is a report.
bool RunOnce(const std::string& pmml, const std::string& statXml) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const session::Result result = session::Run({"model.pmml", pmml}, {"model.statxml", statXml}, {});
    fuzz::JudgeRun(result);
    fuzz::RenderFreshAndSaved(result.fDocument);
    const std::chrono::duration<double> seconds = Clock::now() - start;
    if (seconds.count() > HIERFIT_MOST_SECONDS) fuzz::Fail("it took too long");
    return result.fOutcome == session::Outcome::Issued;
}

int Run(int count, std::uint32_t seed) {
    const std::vector<std::string> examples = ListExamples();
    Mutator mutator(seed);
    int issued = 0;
    for (int i = 0; i < count; ++i) {
        const std::string& example = examples[static_cast<std::size_t>(i) % examples.size()];
        std::string pmml = ReadExample(example, "model.pmml");
        std::string statXml = ReadExample(example, "model.statxml");
        std::string what;
        std::string& changed = i % 10 == 9 ? pmml : statXml;
        changed = mutator.Mutate(changed, what);
        std::fprintf(stderr, "run %d, %s (%s)\n", i, example.c_str(), what.c_str());
        if (RunOnce(pmml, statXml)) ++issued;
    }
    std::printf("%d runs, %d with a report\n", count, issued);
    return issued == 0 || issued == count ? 1 : 0;
}

}  // namespace

}  // namespace hierfit::test

int main(int argumentCount, char** arguments) {
    const int count = argumentCount > 1 ? std::stoi(arguments[1]) : 2000;
    const auto seed = static_cast<std::uint32_t>(argumentCount > 2 ? std::stoul(arguments[2]) : 1);
    return hierfit::test::Run(count, seed);
}
