// Renderings of a document of one table: time over the number of cells, which must be linear. "bytes_per_second" counts
// the bytes of the rendering, "items_per_second" the cells.

#include <benchmark/benchmark.h>

#include <nlohmann/json.hpp>
#include <string>

#include "GeneratedDocument.h"
#include "report/archive/Archive.h"
#include "report/docx/DocxFile.h"
#include "report/html/HtmlReport.h"
#include "report/json/JsonDocument.h"
#include "report/latex/LatexReport.h"
#include "report/layout/Grid.h"
#include "report/text/TextReport.h"

namespace {

namespace report = hierfit::report;
using hierfit::document::Document;
using hierfit::document::Table;

constexpr std::size_t kDocxText = 4;  // among the files

void Count(benchmark::State& state, std::size_t bytes) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.SetComplexityN(state.range(0));
}

template <typename Render>
void MeasureRendering(benchmark::State& state, Render render) {
    const Document document = bench::GenerateDocument(static_cast<int>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text = render(document);
        benchmark::DoNotOptimize(text.data());
        bytes = text.size();
    }
    Count(state, bytes);
}

template <typename Read>
void MeasureReading(benchmark::State& state, Read read) {
    const std::string json = report::WriteJson(bench::GenerateDocument(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        const auto result = read(json);
        benchmark::DoNotOptimize(&result);
    }
    Count(state, json.size());
}

void WriteJson(benchmark::State& state) { MeasureRendering(state, report::WriteJson); }

void ReadJson(benchmark::State& state) { MeasureReading(state, report::ReadJson); }

/// To compare with: the same text into a tree of values that knows nothing of documents.
void ReadJsonAsTree(benchmark::State& state) {
    MeasureReading(state, [](const std::string& json) { return nlohmann::json::parse(json); });
}

void MakeHtmlReport(benchmark::State& state) {
    MeasureRendering(state, [](const Document& document) { return report::MakeHtmlReport(document); });
}

void MakeTextReport(benchmark::State& state) {
    MeasureRendering(state, [](const Document& document) { return report::MakeTextReport(document, {}); });
}

std::vector<report::ArchiveFile> MakeFiles(const Document& document) {
    return report::MakeDocxFiles(document, {{}, {}, [](const std::string&, double) { return std::nullopt; }});
}

void MakeLatexReport(benchmark::State& state) {
    MeasureRendering(state, [](const Document& document) { return report::MakeLatexReport(document, {}); });
}

/// The text of a file for a word processor, before it is packed.
void MakeDocxText(benchmark::State& state) {
    MeasureRendering(state, [](const Document& document) { return std::move(MakeFiles(document)[kDocxText].fBytes); });
}

void MakeDocx(benchmark::State& state) {
    const auto archive = report::Archive::Load(HIERFIT_ARCHIVE);
    if (const auto* reason = std::get_if<std::string>(&archive)) return state.SkipWithError(reason->c_str());
    MeasureRendering(
        state, [&](const Document& document) { return *std::get<report::Archive>(archive).Pack(MakeFiles(document)); });
}

void MakeGrid(benchmark::State& state) {
    const Document document = bench::GenerateDocument(static_cast<int>(state.range(0)));
    const Table& table = std::get<Table>(document.fItems.front().fContent);
    for (auto _ : state) {
        const report::Grid grid = report::MakeGrid(table);
        benchmark::DoNotOptimize(&grid);
    }
    Count(state, 0);
}

void SetSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oN);
}

BENCHMARK(WriteJson)->Apply(SetSizes);
BENCHMARK(ReadJson)->Apply(SetSizes);
BENCHMARK(ReadJsonAsTree)->Apply(SetSizes);
BENCHMARK(MakeGrid)->Apply(SetSizes);
BENCHMARK(MakeTextReport)->Apply(SetSizes);
BENCHMARK(MakeHtmlReport)->Apply(SetSizes);
BENCHMARK(MakeLatexReport)->Apply(SetSizes);
BENCHMARK(MakeDocxText)->Apply(SetSizes);
BENCHMARK(MakeDocx)->Apply(SetSizes);

}  // namespace

BENCHMARK_MAIN();
