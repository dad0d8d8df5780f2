// From a picture to its scene, and from that to SVG: time over the number of marks, which must be linear.
// "bytes_per_second" counts the bytes of the SVG.

#include <benchmark/benchmark.h>

#include <string>

#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"

namespace {

namespace charts = hierfit::report::charts;
namespace document = hierfit::document;

document::Picture MakePicture(std::int64_t count) {
    document::Picture picture;
    picture.fTitle = "Predicted by observed";
    document::ScatterPicture points;
    points.fX = {"Observed", 0, static_cast<double>(count), false};
    points.fY = {"Predicted", 0, 101, false};
    for (std::int64_t i = 0; i < count; ++i) {
        const auto at = static_cast<double>(i);
        const auto height = static_cast<double>(i * 37 % 101);
        points.fvPoints.push_back({at, height, 1, "Observed = " + std::to_string(i) + "\nPredicted = 3.5"});
    }
    picture.fContent = std::move(points);
    return picture;
}

void Scene(benchmark::State& state) {
    const document::Picture picture = MakePicture(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(charts::LayOut(picture, charts::kDeskWidth));
    state.SetComplexityN(state.range(0));
}

void Svg(benchmark::State& state) {
    const charts::Scene scene = charts::LayOut(MakePicture(state.range(0)), charts::kDeskWidth);
    std::size_t bytes = 0;
    for (auto _ : state) bytes = charts::MakeSvgFile(scene, "Points", "Many of them").size();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(Scene)->RangeMultiplier(10)->Range(100, 10'000)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(Svg)->RangeMultiplier(10)->Range(100, 10'000)->Complexity()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
