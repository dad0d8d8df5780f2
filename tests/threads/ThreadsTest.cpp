// Runs and renders in eight threads at once. The preset `thread` has them watched by the thread sanitizer.

#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "interface/hierfit.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/Handles.h"

namespace hierfit {

namespace {

constexpr std::size_t kThreads = 8;

using test::Model;
using test::Settings;

struct Job {
    const char* fpModel;
    const char* fpLanguage;
    const char* fpFormat;
    const char* fpOnly;
};

// Each format with other models and languages.
constexpr const char* kSome = "FixedCoefficients-1,GLMMFixedCoefficients-1";
constexpr Job kJobs[] = {
    {"sleepstudy", "en", "html", ""},
    {"oats", "C", "html", ""},
    {"bacteria", "en", "docx", kSome},
    {"wine", "C", "docx", kSome},
    {"oats", "en", "xlsx", kSome},
    {"pastes", "C", "xlsx", kSome},
    {"oats", "en", "png", "GLMMEmMeans-1"},
    {"pastes", "C", "png", "GLMMEmMeans-1"},
    {"wine", "en", "latex", ""},
    {"wine", "C", "markdown", ""},
    {"housing", "C", "csv", "FixedCoefficients-1"},
    {"warpbreaks", "en", "json", ""},
};

/// The report, or why there is none.
std::string Do(const Job& job) {
    const Settings settings(hf_settings_new());
    if (hf_settings_set(settings.get(), "lang", job.fpLanguage) != HF_OK) return hf_settings_error(settings.get());
    if (hf_settings_set(settings.get(), "only", job.fpOnly) != HF_OK) return hf_settings_error(settings.get());
    hf_settings_set(settings.get(), "scale", "0.25");
    const std::string pmml = test::ReadExample(job.fpModel, "model.pmml");
    const std::string statXml = test::ReadExample(job.fpModel, "model.statxml");
    hf_run_t* made = nullptr;
    hf_run(pmml.data(), pmml.size(), statXml.data(), statXml.size(), settings.get(), &made);
    const Model run(made);
    char* bytes = nullptr;
    std::size_t size = 0;
    if (hf_render(run.get(), job.fpFormat, settings.get(), &bytes, &size) != HF_OK) return hf_error(run.get());
    std::string report(bytes, size);
    hf_free(bytes);
    return report;
}

/// Every thread does every job, and no two threads the same at a time.
std::vector<std::vector<std::string>> DoAll() {
    std::vector<std::vector<std::string>> reports(kThreads, std::vector<std::string>(std::size(kJobs)));
    std::barrier begin(kThreads);
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            begin.arrive_and_wait();
            for (std::size_t i = 0; i < std::size(kJobs); ++i) {
                const std::size_t job = (i + 2 * thread) % std::size(kJobs);
                reports[thread][job] = Do(kJobs[job]);
            }
        });
    }
    threads.clear();
    return reports;
}

// The first round finds nothing loaded: modules, catalogues, fonts. The second finds it all.
TEST(Threads, GiveWhatOneAloneGives) {
    for (const char* round : {"cold", "warm"}) {
        SCOPED_TRACE(round);
        const auto reports = DoAll();
        for (std::size_t job = 0; job < std::size(kJobs); ++job) {
            SCOPED_TRACE(std::string(kJobs[job].fpModel) + " " + kJobs[job].fpFormat);
            const std::string alone = Do(kJobs[job]);
            EXPECT_GT(alone.size(), 500U) << alone;
            for (const auto& each : reports) EXPECT_TRUE(each[job] == alone);
        }
    }
}

}  // namespace

}  // namespace hierfit
