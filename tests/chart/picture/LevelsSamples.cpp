#include "tests/chart/picture/LevelsSamples.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace hierfit::chart {

namespace {

using document::ChartSource;
using document::ChartValue;

const std::vector<ChartValue> kArms = {"Placebo", "Low dose", "High dose"};
const std::vector<ChartValue> kSexes = {"Female", "Male"};

constexpr const char* kMeans = R"xml(<chart>
<plot arrange="levels" rows="pairs">
  <color of="effect2"/>
  <ranges x="effect1" of="confMargin"/>
  <points x="effect1" y="target"/>
</plot>
<faceting><variableReference name="effect3"/></faceting>
<facetLayout wrap="3"><facetLevel depth="1" along="columns"/></facetLayout>
<legend><shows of="effect2"/></legend>
<field slot="target" name="target" label="Average reaction time (ms)" format="F40.2"/>
<field slot="confMargin" name="confMargin" format="F40.2"/>
</chart>)xml";

constexpr const char* kContrasts = R"xml(<chart>
<plot arrange="levels" rows="pairs">
  <stems x="category" y="value" mark="type" tip="tooltip"/>
  <ranges x="category" of="confMargin" mark="type" tip="tooltip"/>
  <points x="category" y="value" mark="type" tip="tooltip"/>
</plot>
<faceting><variableReference name="facet1"/><variableReference name="facet2"/></faceting>
<facetLayout><facetLevel depth="1" along="columns"/><facetLevel depth="2" along="rows"/></facetLayout>
<field slot="value" name="value" format="F40.2"/>
<field slot="confMargin" name="confMargin" format="F40.2"/>
<title>Deviation Contrasts</title>
<footnote>The sequential Bonferroni adjusted significance level is 0.05.
Confidence interval bounds are approximate.</footnote>
</chart>)xml";

/// Labels the variables of the factors; those that make panels bear them as prefixes too.
void AddFactors(Sample& sample, const std::vector<std::string>& factors, const std::vector<std::string>& variables) {
    for (std::size_t factor = 0; factor < factors.size(); ++factor) {
        VariableSetting& setting = sample.fvSettings.emplace_back();
        setting.fName = variables[factor];
        setting.fLabel = factors[factor];
        const auto& facets = sample.fSpecification.fFaceting->fvVariables;
        if (std::ranges::find(facets, variables[factor]) != facets.end()) setting.fPrefix = factors[factor] + " = ";
    }
}

std::string Text(const ChartValue& value) {
    const std::string* text = std::get_if<std::string>(&value);
    return text == nullptr ? "0" : *text;
}

/// The condition that names a mean's panel.
std::string ConditionOf(const SampleMean& mean) {
    std::string condition = mean.fvLevels.size() < 2 ? "false" : "";
    for (std::size_t factor = 1; factor < mean.fvLevels.size(); ++factor) {
        condition += (factor == 1 ? "facet" : "||facet") + std::to_string(factor) + "!=&quot;" +
                     Text(mean.fvLevels[factor]) + "&quot;";
    }
    return condition;
}

std::vector<ChartValue> Numbers(int count, double step) {
    std::vector<ChartValue> numbers;
    for (int i = 0; i < count; ++i) numbers.emplace_back(i * step);
    return numbers;
}

std::vector<SampleMean> Broken() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<SampleMean> means = CrossedMeans({Named("Level", 8)}, 10);
    means[0].fMean = nan;
    means[1].fMean = std::monostate();
    means[2].fLow = std::monostate();
    means[3].fHigh = -std::numeric_limits<double>::max();
    means[4].fLow = std::numeric_limits<double>::infinity();
    means[5].fvLevels = {std::monostate()};
    means[6].fvLevels = {nan};
    return means;
}

}  // namespace

std::vector<ChartValue> Named(const std::string& word, int count) {
    std::vector<ChartValue> levels;
    for (int i = 1; i <= count; ++i) {
        levels.emplace_back(word + " " + std::to_string(i) + (i % 5 == 2 ? " with a long name" : ""));
    }
    return levels;
}

std::vector<SampleMean> CrossedMeans(const std::vector<std::vector<ChartValue>>& levels, double middle) {
    std::size_t count = 1;
    for (const auto& each : levels) count *= each.size();
    std::vector<SampleMean> means;
    for (std::size_t at = 0; at < count; ++at) {
        SampleMean mean;
        double wave = 0;
        std::size_t rest = at;
        for (std::size_t factor = 0; factor < levels.size(); rest /= levels[factor++].size()) {
            const std::size_t level = rest % levels[factor].size();
            mean.fvLevels.push_back(levels[factor][level]);
            wave += std::sin(2.3 * static_cast<double>(level) + 1.7 * static_cast<double>(factor));
        }
        const double value = middle * (1 + 0.04 * wave);
        mean.fMean = value;
        mean.fLow = value - 0.05 * middle;
        mean.fHigh = value + 0.05 * middle;
        means.push_back(mean);
    }
    return means;
}

Sample MeansSample(std::string name, std::vector<std::string> factors, std::vector<SampleMean> means) {
    const std::vector<std::string> effects = {"effect1", "effect2", "effect3"};
    ChartSource source = SourceOf("source0", {"target", "confMargin", "effect1", "effect2", "effect3"});
    for (const SampleMean& mean : means) {
        for (const ChartValue& limit : {mean.fLow, mean.fHigh}) {
            std::vector<ChartValue> row = {mean.fMean, limit};
            row.insert(row.end(), mean.fvLevels.begin(), mean.fvLevels.end());
            AddRow(source, row);
        }
    }
    Sample sample{std::move(name), ReadChart(kMeans), {source}, {}};
    sample.fSpecification.fTitle = Words{"Average reaction time (ms) by " + factors[0], {}};
    AddFactors(sample, factors, effects);
    return sample;
}

Sample ContrastSample(std::string name, std::vector<std::string> factors, std::vector<SampleMean> means, double base) {
    ChartSource source = SourceOf("source", {"value", "confMargin", "type", "tooltip", "category", "facet1", "facet2"});
    Sample sample{std::move(name), ReadChart(kContrasts), {}, {}};
    std::map<std::string, double> heights;  // one for each panel
    for (std::size_t at = 0; at < means.size(); ++at) {
        const SampleMean& mean = means[at];
        const double next = base * (1 + 0.01 * static_cast<double>(heights.size()));
        const auto [height, isNew] = heights.emplace(ConditionOf(mean), next);
        if (isNew) sample.fSpecification.fPlot.fvLineGuides.push_back({height->second, height->first});
        const std::string tip = "Average reaction time (ms) of " + Text(mean.fvLevels[0]) + " is higher";
        for (const bool isFirst : {true, false}) {
            std::vector<ChartValue> row = {isFirst ? height->second : mean.fMean, isFirst ? mean.fLow : mean.fHigh,
                                           at % 3 == 0 ? 1.0 : 0.0, tip};
            row.insert(row.end(), mean.fvLevels.begin(), mean.fvLevels.end());
            AddRow(source, row);
        }
    }
    sample.fvData = {source};
    sample.fSpecification.fCaption = Words{
        "The horizontal line is the overall mean of Average reaction time (ms) over the levels of " + factors[0] + ".",
        {}};
    AddFactors(sample, factors, {"category", "facet1", "facet2"});
    return sample;
}

void MakeLinear(Sample& sample) { sample.fvSettings[0].fIsCategorical = false; }

std::vector<Sample> LevelsSamples() {
    std::vector<Sample> samples;
    using Levels = std::vector<std::vector<ChartValue>>;
    using Factors = std::vector<std::string>;
    const auto means = [&](const char* name, const Factors& factors, const Levels& levels, double middle) {
        samples.push_back(MeansSample(name, factors, CrossedMeans(levels, middle)));
    };
    const auto contrasts = [&](const char* name, const Factors& factors, const Levels& levels, double middle,
                               double base) {
        samples.push_back(ContrastSample(name, factors, CrossedMeans(levels, middle), base));
    };
    const std::string days = "Days of sleep deprivation";
    const std::string arm = "Treatment arm";
    means("means-1", {"Age group at entry"}, {{"18 to 29", "30 to 44", "45 to 59", "60 and over"}}, 300);
    means("means-2", {days, "Sex"}, {Numbers(6, 2), kSexes}, 300);
    means("means-3", {arm, "Sex", "Visit"}, {kArms, kSexes, Named("Week", 5)}, 300);
    means("means-40", {"District of residence"}, {Named("District", 40)}, 60);
    means("means-9x9", {"Region", "Year"}, {Named("Region", 9), Numbers(9, 1)}, 80);
    means("means-wrapped", {"Highest degree of education"},
          {{"No degree at all", "Lower secondary school", "Upper secondary school", "University of applied sciences",
            "University"}},
          5000);
    means("linear-1", {days}, {Numbers(10, 1)}, 300);
    MakeLinear(samples.back());
    means("linear-2", {"Dose", "Sex"}, {Numbers(5, 2.5), kSexes}, 300);
    MakeLinear(samples.back());
    contrasts("contrasts-1", {arm}, {Named("Arm", 5)}, 300, 298.4);
    contrasts("contrasts-40", {"District"}, {Named("District", 40)}, 60, 60);
    contrasts("contrasts-2", {arm, "Visit"}, {Named("Arm", 5), Named("Week", 3)}, 300, 301);
    contrasts("contrasts-3", {arm, "Visit", "Sex"}, {kArms, Named("Week", 3), kSexes}, 300, 301);

    const std::string endless(10000, 'w');
    const std::string hostile = "</script><img src=x onerror=alert(1)> x_text[0] \"'\\ ]]> \x01 \xff";
    samples.push_back(MeansSample("no-rows", {"Arm", "Sex"}, {}));
    samples.push_back({"nothing", ReadChart("<chart><plot arrange=\"levels\"/></chart>"), {}, {}});
    samples.push_back(MeansSample("broken", {"Level"}, Broken()));
    samples.push_back(MeansSample("equal", {"Level"}, {{{"a"}, 3.0, 3.0, 3.0}, {{"b"}, 3.0, 3.0, 3.0}}));
    samples.push_back(MeansSample("one", {"Level", "Series"}, {{{"a", "s"}, 3.0, 2.0, 4.0}}));
    means("endless", {endless, endless, endless},
          {{endless + "1", endless + "2"}, {endless, endless + "2"}, {endless, "short"}}, 5);
    means("hostile", {hostile, hostile, hostile}, {{hostile, "  two  blanks "}, {hostile, ""}, {hostile, "\n\n"}}, 5);
    contrasts("contrasts-500", {"Level"}, {Named("Level", 500)}, 5, 5);
    contrasts("contrasts-endless", {endless, endless}, {{endless + "1", endless + "2"}, {endless}}, 5, 5);
    contrasts("panels-101", {"Arm", "Clinic"}, {kArms, Named("Clinic", 101)}, 5, 5);
    means("colors-40", {"Arm", "District"}, {kArms, Named("District", 40)}, 60);
    means("many", {"Level", "Series"}, {Numbers(500, 1), Numbers(12, 1)}, 60);
    means("tiny", {"Arm"}, {kArms}, 1e-7);
    means("huge", {"Arm"}, {kArms}, 1e300);
    return samples;
}

}  // namespace hierfit::chart
