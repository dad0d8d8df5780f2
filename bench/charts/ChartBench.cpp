// From a chart's specification and data to its picture: time over the number of rows, which must be linear. Rows are
// means, contrasts, points, nodes, or pairs of levels.

#include <benchmark/benchmark.h>

#include <string>

#include "host/context/RunContext.h"
#include "tests/chart/picture/Samples.h"

namespace {

namespace chart = hierfit::chart;
namespace context = hierfit::context;

/// Words are their own translations.
class NoTranslator : public context::Translator {
  public:
    std::optional<std::string_view> Find(std::string_view) const override { return {}; }
};

std::vector<chart::SampleMean> MeansOf(int rows) { return chart::CrossedMeans({chart::Named("District", rows)}, 60); }

template <typename MakeSample>
void MeasurePicture(benchmark::State& state, MakeSample makeSample) {
    const NoTranslator translator;
    context::RunContext run(context::Settings{}, &translator, "");
    const context::RunContext::Activation activation{run};
    const chart::Sample sample = makeSample(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(sample.Make());
    const auto rows = static_cast<std::int64_t>(sample.fvData.back().fvVariables.front().fvValues.size());
    state.SetItemsProcessed(state.iterations() * rows);
    state.SetComplexityN(rows);
}

void Means(benchmark::State& state) {
    MeasurePicture(state, [](int n) { return chart::MeansSample({"District"}, MeansOf(n)); });
}
void Contrasts(benchmark::State& state) {
    MeasurePicture(state, [](int n) { return chart::ContrastSample({"District"}, MeansOf(n), 60); });
}
void Pairs(benchmark::State& state) {
    MeasurePicture(state, [](int n) { return chart::PairwiseSample(n, {}); });
}
void Diagram(benchmark::State& state) {
    MeasurePicture(state, [](int n) { return chart::DiagramSample(n, true); });
}
void Scatter(benchmark::State& state) {
    MeasurePicture(state, [](int n) { return chart::ScatterSample(n); });
}

BENCHMARK(Means)->RangeMultiplier(4)->Range(64, 16384)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(Contrasts)->RangeMultiplier(4)->Range(64, 16384)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(Diagram)->RangeMultiplier(4)->Range(64, 16384)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(Scatter)->RangeMultiplier(4)->Range(64, 16384)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(Pairs)->RangeMultiplier(2)->Range(16, 256)->Complexity()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
