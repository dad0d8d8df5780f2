// From a picture to its scene, and from that to SVG: time over the number of marks, which must be linear.
// "bytes_per_second" counts the bytes of the SVG, "bytes" and "of_tips" how large
// it is and how much of that are the tips.

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <string>

#include "report/charts/layout/LayOut.h"
#include "report/charts/svg/Svg.h"

namespace {

namespace charts = hierfit::report::charts;
namespace document = hierfit::document;

enum class Kind : unsigned char { Points, Means, Contrasts, Links };

std::string Figure(double number) { return fmt::format("{:.2f}", number); }

/// Points whose tips are as long as those of real charts.
document::Picture MakePoints(std::int64_t count) {
    document::ScatterPicture points;
    points.fX = {"Observed", 0, static_cast<double>(count), false};
    points.fY = {"Predicted", 0, 101, false};
    for (std::int64_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i) * 0.97;
        const double y = static_cast<double>(i * 37 % 10'007) * 0.01;
        points.fvPoints.push_back({x, y, 1, "Reaction: " + Figure(x) + "\nPredicted Value: " + Figure(y)});
    }
    document::Picture picture;
    picture.fTitle = "Predicted by observed";
    picture.fContent = std::move(points);
    return picture;
}

/// Means with whiskers, or contrasts of which every third is set off.
document::Picture MakeLevels(std::int64_t count, bool isContrast) {
    constexpr int kSeries = 4;
    document::LevelsPicture levels;
    levels.fIsContrast = isContrast;
    levels.fSeries = {"Dose", {"none", "low", "medium", "high"}, true};
    if (isContrast) levels.fEmphasis = {"Significant", "Not Significant", true};
    for (int i = 0; i < static_cast<int>(count); ++i) {
        const int level = i / kSeries;
        const int series = i % kSeries;
        if (series == 0) levels.fvLevels.push_back(std::to_string(level));
        document::LevelMark mark{{}, level, series, 0.01 * (i * 37 % 1009), {}, {}, {}, isContrast && i % 3 == 0, {}};
        mark.fLow = mark.fValue - 1;
        mark.fHigh = mark.fValue + 1;
        if (isContrast) mark.fBase = 5;
        mark.fTip = "Subject: " + std::to_string(level) +
                    "\nDose: " + levels.fSeries.fvWords[static_cast<std::size_t>(series)] +
                    "\nEstimated Mean: " + Figure(mark.fValue) + "\nConfidence Interval: " + Figure(*mark.fLow) +
                    " to " + Figure(*mark.fHigh);
        levels.fvMarks.push_back(std::move(mark));
    }
    document::Picture picture;
    picture.fTitle = "Means";
    picture.fContent = std::move(levels);
    return picture;
}

/// Levels on a circle, of which each is compared with each, until there are as many comparisons.
document::Picture MakeLinks(std::int64_t count) {
    document::CirclePicture circle;
    circle.fEmphasis = {"Significant", "Not Significant", true};
    document::CirclePanel& panel = circle.fvPanels.emplace_back();
    for (int to = 0; static_cast<std::int64_t>(panel.fvLinks.size()) < count; ++to) {
        const std::string name = "level " + std::to_string(to);
        panel.fvNodes.push_back({name, "Subject: " + name + "\nEstimated Mean: " + Figure(to)});
        for (int from = 0; from < to && static_cast<std::int64_t>(panel.fvLinks.size()) < count; ++from) {
            const double p = 0.001 * ((from * 37 + to) % 1000);
            const std::string tip = "level " + std::to_string(from) + " - " + name + "\nAdj. Sig.: " + Figure(p);
            panel.fvLinks.push_back({from, to, 1 - p, from % 3 == 0, tip});
        }
    }
    document::Picture picture;
    picture.fTitle = "Comparisons";
    picture.fContent = std::move(circle);
    return picture;
}

document::Picture MakePicture(Kind kind, std::int64_t count) {
    if (kind == Kind::Links) return MakeLinks(count);
    return kind == Kind::Points ? MakePoints(count) : MakeLevels(count, kind == Kind::Contrasts);
}

void Scene(benchmark::State& state, Kind kind) {
    const document::Picture picture = MakePicture(kind, state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(charts::LayOut(picture, charts::kDeskWidth));
    state.SetComplexityN(state.range(0));
}

void Svg(benchmark::State& state, Kind kind) {
    const charts::Scene scene = charts::LayOut(MakePicture(kind, state.range(0)), charts::kDeskWidth);
    std::size_t bytes = 0;
    for (auto _ : state) bytes = charts::MakeSvgFile(scene, "Marks", "Many of them").size();
    std::size_t tips = 0;
    for (const charts::Element& element : scene.fvElements) tips += element.fTip.size();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.counters["bytes"] = static_cast<double>(bytes);
    state.counters["of_tips"] = static_cast<double>(tips);
    state.SetComplexityN(state.range(0));
}

void Range(benchmark::internal::Benchmark* measure) {
    measure->RangeMultiplier(10)->Range(100, 10'000)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(Scene, Points, Kind::Points)->Apply(Range);
BENCHMARK_CAPTURE(Scene, Means, Kind::Means)->Apply(Range);
BENCHMARK_CAPTURE(Scene, Contrasts, Kind::Contrasts)->Apply(Range);
BENCHMARK_CAPTURE(Scene, Links, Kind::Links)->Apply(Range);
BENCHMARK_CAPTURE(Svg, Points, Kind::Points)->Apply(Range);
BENCHMARK_CAPTURE(Svg, Means, Kind::Means)->Apply(Range);
BENCHMARK_CAPTURE(Svg, Contrasts, Kind::Contrasts)->Apply(Range);
BENCHMARK_CAPTURE(Svg, Links, Kind::Links)->Apply(Range);

}  // namespace

BENCHMARK_MAIN();
