#include "tests/chart/picture/Samples.h"

#include <algorithm>

namespace hierfit::chart {

namespace {

using document::ChartSource;
using document::ChartValue;

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

}  // namespace

std::vector<ChartValue> Named(const std::string& word, int count) {
    std::vector<ChartValue> levels;
    for (int i = 1; i <= count; ++i) levels.emplace_back(word + " " + std::to_string(i));
    return levels;
}

std::vector<SampleMean> CrossedMeans(const std::vector<std::vector<ChartValue>>& levels, double middle) {
    std::size_t count = 1;
    for (const auto& each : levels) count *= each.size();
    std::vector<SampleMean> means;
    for (std::size_t at = 0; at < count; ++at) {
        const double value = middle * (1 + 0.01 * static_cast<double>(at % 7));
        SampleMean mean{{}, value, value - 0.05 * middle, value + 0.05 * middle};
        for (std::size_t rest = at; const auto& ofFactor : levels) {
            mean.fvLevels.push_back(ofFactor[rest % ofFactor.size()]);
            rest /= ofFactor.size();
        }
        means.push_back(mean);
    }
    return means;
}

Sample MeansSample(const std::vector<std::string>& factors, const std::vector<SampleMean>& means) {
    ChartSource source = SourceOf("source0", {"target", "confMargin", "effect1", "effect2", "effect3"});
    for (const SampleMean& mean : means) {
        for (const ChartValue& limit : {mean.fLow, mean.fHigh}) {
            std::vector<ChartValue> row = {mean.fMean, limit};
            row.insert(row.end(), mean.fvLevels.begin(), mean.fvLevels.end());
            AddRow(source, row);
        }
    }
    Sample sample{ReadChart(kMeans), {source}, {}};
    AddFactors(sample, factors, {"effect1", "effect2", "effect3"});
    return sample;
}

Sample ContrastSample(const std::vector<std::string>& factors, const std::vector<SampleMean>& means, double base) {
    ChartSource source = SourceOf("source", {"value", "confMargin", "type", "tooltip", "category", "facet1", "facet2"});
    Sample sample{ReadChart(kContrasts), {}, {}};
    sample.fSpecification.fPlot.fvLineGuides = {{base, "false"}};
    for (std::size_t at = 0; at < means.size(); ++at) {
        const auto& [levels, mean, low, high] = means[at];
        const std::string tip = "Average reaction time (ms) of " + std::get<std::string>(levels[0]) + " is higher";
        for (const bool isFirst : {true, false}) {
            std::vector<ChartValue> row = {isFirst ? base : mean, isFirst ? low : high, at % 3 == 0 ? 1.0 : 0.0, tip};
            row.insert(row.end(), levels.begin(), levels.end());
            AddRow(source, row);
        }
    }
    sample.fvData = {source};
    AddFactors(sample, factors, {"category", "facet1", "facet2"});
    return sample;
}

void MakeLinear(Sample& sample) { sample.fvSettings[0].fIsCategorical = false; }

}  // namespace hierfit::chart
