// Fails the n-th allocation of runs and renderings, for many n, once alone and once with all that follow. Under the
// address sanitizer leaks are found, too. HIERFIT_FAULT_RUNS is how many n there are at most, evenly among all.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>

#include "interface/hierfit.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/Handles.h"

namespace {

constexpr std::uint64_t kNever = ~std::uint64_t{0};

std::uint64_t gCount = 0;
std::uint64_t gFirst = kNever;  ///< the first allocation that fails, counted from 1
std::uint64_t gLast = kNever;

/// Tests run in one thread, so nothing here is shared.
bool Fails() { return ++gCount >= gFirst && gCount <= gLast; }

void* Allocate(std::size_t size) { return Fails() ? nullptr : std::malloc(size > 0 ? size : 1); }

void* Allocate(std::size_t size, std::align_val_t alignment) {
    const auto each = static_cast<std::size_t>(alignment);
    return Fails() ? nullptr : std::aligned_alloc(each, (size + each - 1) / each * each);
}

void* OrThrow(void* memory) {
    if (!memory) throw std::bad_alloc();
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new[](std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new(std::size_t size, std::align_val_t alignment) { return OrThrow(Allocate(size, alignment)); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return OrThrow(Allocate(size, alignment)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }

namespace hierfit {

namespace {

using test::Model;
using test::Settings;

struct Documents {
    std::string fPmml;
    std::string fStatXml;
};

Documents ReadExample(const std::string& name) {
    return {test::ReadExample(name, "model.pmml"), test::ReadExample(name, "model.statxml")};
}

/// What a call came to. Nothing of it was allocated while allocations failed.
struct Outcome {
    int fCode;
    Model fRun;               ///< of a call that makes one
    char* fpBytes = nullptr;  ///< of a call that renders
    std::size_t fSize = 0;
};

std::uint64_t MostRuns() {
    const char* given = std::getenv("HIERFIT_FAULT_RUNS");
    return given ? std::strtoull(given, nullptr, 10) : 60;
}

/// An operation with the allocations from the first to the last failing, counted from 1.
Outcome Call(const std::function<Outcome()>& operation, std::uint64_t first, std::uint64_t last) {
    gCount = 0;
    gFirst = first;
    gLast = last;
    Outcome outcome = operation();
    gFirst = kNever;
    return outcome;
}

/// Calls an operation with one allocation after another failing. `check` looks at what came of it when memory is there
/// again.
void FailEach(const std::function<Outcome()>& operation, const std::function<void(const Outcome&)>& check) {
    const Outcome clean = Call(operation, kNever, kNever);
    hf_free(clean.fpBytes);
    ASSERT_EQ(clean.fCode, HF_OK);
    const std::uint64_t count = gCount;
    const std::uint64_t step = std::max<std::uint64_t>(1, (count + MostRuns() - 1) / MostRuns());
    std::printf("%llu of %llu allocations fail\n", static_cast<unsigned long long>((count + step - 1) / step),
                static_cast<unsigned long long>(count));
    for (std::uint64_t n = 1; n <= count; n += step) {
        for (const std::uint64_t last : {n, kNever}) {
            SCOPED_TRACE("allocation " + std::to_string(n) + (last == kNever ? " and all that follow" : ""));
            const Outcome outcome = Call(operation, n, last);
            check(outcome);
            hf_free(outcome.fpBytes);
            if (testing::Test::HasFailure()) return;
        }
    }
}

Outcome RunModel(const Documents& documents) {
    hf_run_t* run = nullptr;
    const int code = hf_run(documents.fPmml.data(), documents.fPmml.size(), documents.fStatXml.data(),
                            documents.fStatXml.size(), nullptr, &run);
    return {code, Model(run)};
}

Outcome ReadSaved(const std::string& json) {
    hf_run_t* run = nullptr;
    const int code = hf_read_json(json.data(), json.size(), &run);
    return {code, Model(run)};
}

Outcome RenderWith(hf_run_t* run, const char* format, const hf_settings* settings) {
    Outcome outcome{HF_OK, {}};
    outcome.fCode = hf_render(run, format, settings, &outcome.fpBytes, &outcome.fSize);
    return outcome;
}

std::string Render(hf_run_t* run, const char* format, const hf_settings* settings = nullptr) {
    const Outcome outcome = RenderWith(run, format, settings);
    EXPECT_EQ(outcome.fCode, HF_OK) << hf_error(run);
    std::string bytes(outcome.fpBytes, outcome.fSize);
    hf_free(outcome.fpBytes);
    return bytes;
}

/// A run that was made all the same holds all that it would have held; else it says why not.
void CheckRun(const Outcome& outcome, const std::string& json) {
    if (outcome.fCode == HF_OK) {
        EXPECT_EQ(Render(outcome.fRun.get(), "json"), json);
    } else if (!outcome.fRun) {
        EXPECT_EQ(outcome.fCode, HF_UNWRITABLE);
    } else {
        EXPECT_EQ(outcome.fCode, hf_outcome(outcome.fRun.get()));
        EXPECT_EQ(std::string(hf_error(outcome.fRun.get())), "memory is short");
    }
}

TEST(Allocation, RunsAreWholeOrSayWhyNot) {
    for (const char* example : {"sleepstudy", "warpbreaks", "bacteria"}) {
        SCOPED_TRACE(example);
        const Documents documents = ReadExample(example);
        const std::string json = Render(RunModel(documents).fRun.get(), "json");
        FailEach([&] { return RunModel(documents); }, [&](const Outcome& outcome) { CheckRun(outcome, json); });
    }
}

TEST(Allocation, SavedDocumentsAreReadWholeOrNot) {
    const std::string json = Render(RunModel(ReadExample("warpbreaks")).fRun.get(), "json");
    FailEach([&] { return ReadSaved(json); }, [&](const Outcome& outcome) { CheckRun(outcome, json); });
}

TEST(Allocation, SettingsStayAsTheyWere) {
    Settings settings(hf_settings_new());
    const std::string title(100, 't');
    FailEach(
        [&] {
            return Outcome{hf_settings_set(settings.get(), "title", title.c_str()), {}};
        },
        [&](const Outcome& outcome) {
            if (outcome.fCode == HF_OK) return;  // there was room from the call before
            EXPECT_EQ(outcome.fCode, HF_USAGE);
            EXPECT_EQ(std::string(hf_settings_error(settings.get())), "memory is short");
        });
    FailEach(
        [&] {
            const Settings made(hf_settings_new());
            return Outcome{made ? HF_OK : HF_UNWRITABLE, {}};
        },
        [](const Outcome& outcome) { EXPECT_EQ(outcome.fCode, HF_UNWRITABLE); });
}

class AllocationOf : public testing::TestWithParam<const char*> {};

TEST_P(AllocationOf, ReportsAreWholeOrNot) {
    const std::string format = GetParam();
    const Model run = RunModel(ReadExample("warpbreaks")).fRun;
    const Settings settings(hf_settings_new());
    const bool isPicture = format == "svg" || format == "png";
    const bool hasPictures = format == "docx" || format == "xlsx";
    const char* const chart = "GLMMSimpleContrasts-1";
    const char* const table = "FixedCoefficients-1";
    const std::string both = std::string(chart) + "," + table;
    hf_settings_set(settings.get(), "only",
                    isPicture         ? chart
                    : hasPictures     ? both.c_str()
                    : format == "csv" ? table
                                      : "");
    hf_settings_set(settings.get(), "scale", "0.25");
    const std::string expected = Render(run.get(), format.c_str(), settings.get());
    FailEach([&] { return RenderWith(run.get(), format.c_str(), settings.get()); },
             [&](const Outcome& outcome) {
                 if (outcome.fCode == HF_OK) {
                     EXPECT_TRUE(std::string(outcome.fpBytes, outcome.fSize) == expected);
                     return;
                 }
                 EXPECT_EQ(outcome.fCode, HF_UNWRITABLE);
                 EXPECT_EQ(outcome.fpBytes, nullptr);
                 EXPECT_EQ(std::string(hf_error(run.get())), "memory is short");
             });
    EXPECT_TRUE(Render(run.get(), format.c_str(), settings.get()) == expected) << "the run is no longer what it was";
}

INSTANTIATE_TEST_SUITE_P(Formats, AllocationOf,
                         testing::Values("html", "text", "json", "markdown", "latex", "csv", "svg", "png", "docx",
                                         "xlsx"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace

}  // namespace hierfit
