#include "tests/chart/picture/Samples.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace hierfit::chart {

namespace {

using document::ChartSource;
using document::ChartValue;
using document::ChartVariable;

const std::vector<std::string> kTypes = {"continuous", "categorical", "ordinal", "interaction", "unknown"};

constexpr const char* kHistogram = R"xml(<chart>
<plot><bars x="X" y="Y"/></plot>
<field slot="X" name="X" label="Average reaction time (ms)" format="F40.2"/>
<field slot="Y" name="Y" format="F40.2"/>
</chart>)xml";

constexpr const char* kDiagram = R"xml(<chart>
<plot>
  <links source="edgeSource" x="FromX" y="FromY" x2="ToX" y2="ToY" weight="Weight" sign="Weight2" tip="LineTooltip"/>
  <points source="pointSource" x="X" y="Y" shape="Type" tip="PointTooltip"/>
  <names source="pointSource" x="Label_X" y="Label_Y" text="Nodes" beside="X" tip="PointTooltip"/>
  <anchor source="targetPointSource" x="X" y="Y" text="Nodes" tip="PointTooltip"/>
</plot>
<legend>
  <shows of="Weight" high="9" low="1"/>
  <heading>Significance</heading>
  <entry value="1">≥ 0.2</entry><entry value="4">&lt; 0.05</entry><entry value="5">&lt; 0.01</entry>
  <entry value="8">&lt; 0.0005</entry><entry value="9">&lt; 0.0001</entry>
</legend>
<legend>
  <shows of="Type"/>
  <heading>Type</heading>
  <entry value="intercept">Intercept</entry><entry value="ordinal">Ordinal</entry>
  <entry value="unknown">Unknown</entry>
</legend>
<legend><shows of="Weight2"/><heading>Coefficient Estimate</heading></legend>
</chart>)xml";

constexpr const char* kPairwise = R"xml(<chart>
<plot arrange="circle" square="true">
  <links source="edgeSource_1" from="from" to="to" weight="weight" mark="type" tip="tooltip"/>
  <points source="nodeSource_1" node="node"/>
  <names source="nodeSource_1" node="node" text="node"/>
</plot>
<faceting><variableReference name="facet1"/><variableReference name="facet2"/></faceting>
<facetLayout><facetLevel depth="1" along="columns"/><facetLevel depth="2" along="rows"/></facetLayout>
<legend><shows of="type"/></legend>
<popup of="weightInPopup">Adj. Sig.</popup>
</chart>)xml";

constexpr const char* kScatter = R"xml(<chart>
<plot square="true"><diagonal/><points x="X" y="Y" opacity="Transparency"/></plot>
<legend><shows of="Transparency"/></legend>
<field slot="X" name="X" label="Average reaction time (ms)" format="F40.2"/>
<field slot="Y" name="Y" label="Predicted Value" format="F40.2"/>
<field slot="Transparency" name="Frequency" label="Frequency" format="F40.2"/>
</chart>)xml";

/// Adds the nodes of a panel, whose keys no other panel has, and a line for each pair of them.
void AddPairwiseRows(int levels, const ChartValue& across, const ChartValue& down, std::vector<ChartSource>& sources) {
    const std::string panel = std::to_string(sources[0].fvVariables[0].fvValues.size()) + "L";
    const auto key = [&panel](int level) { return panel + std::to_string(100 + level); };
    for (int from = 0; from < levels; ++from) {
        AddRow(sources[0], {key(from), across, down});
        for (int to = 0; to < from; ++to) {
            const bool isSignificant = (from * 7 + to * 3) % 3 == 0;
            const double p = isSignificant ? 0.001 * to : 0.05 + 0.9 * (from * to % 11) / 11;
            AddRow(sources[1], {key(from), key(to), 1 / ((1 - p) * (1 - p)), p, isSignificant ? 1.0 : 0.0, across, down,
                                "Level " + std::to_string(from) + " and another"});
        }
    }
}

/// Labels of the levels by their keys, and words of what is significant.
void AddPairwiseSettings(Sample& sample) {
    VariableSetting setting;
    setting.fLabel = "Treatment arm";
    for (const ChartValue& value : ValuesOf(sample, "nodeSource_1", "node")) {
        const std::string& key = std::get<std::string>(value);
        const auto level = static_cast<std::size_t>(std::stoi(key.substr(key.size() - 2)));
        setting.fvLabels.emplace_back(key, level == 0 ? "Placebo" : "Arm " + std::to_string(level));
    }
    for (const char* name : {"node", "from", "to"}) {
        setting.fName = name;
        sample.fvSettings.push_back(setting);
    }
    VariableSetting& type = sample.fvSettings.emplace_back();
    type.fName = "type";
    type.fvLabels = {{"0", "Not Significant"}, {"1", "Significant"}};
}

}  // namespace

Sample HistogramSample(Curve curve, const std::vector<ChartValue>& centers, const std::vector<ChartValue>& counts) {
    Sample sample{ReadChart(kHistogram), {{"source0", 0, {{"X", centers}, {"Y", counts}}}}, {}};
    sample.fSpecification.fPlot.fCurve = std::move(curve);
    return sample;
}

Sample DiagramSample(int nodes, bool hasSigns) {
    Sample sample{ReadChart(kDiagram), {}, {}};
    sample.fSpecification.fPlot.fX.fMax = std::max(2.0, nodes * 4 / 3.0);
    if (nodes == 0) return sample;
    ChartSource target = SourceOf("targetPointSource", {"X", "Y", "Nodes", "PointTooltip"});
    AddRow(target, {0.0 + nodes, nodes / 2.0, "Average reaction time (ms)",
                    "Reaction\nAverage reaction time (ms)\nNormal, identity"});
    ChartSource points = SourceOf("pointSource", {"X", "Y", "Label_X", "Label_Y", "Type", "Nodes", "PointTooltip"});
    ChartSource edges = SourceOf("edgeSource", {"FromX", "FromY", "ToX", "ToY", "Weight", "LineTooltip", "Weight2"});
    for (int row = 0; row < nodes; ++row) {
        const double y = nodes - row;
        const std::string node = row % 7 == 4 ? "week*[site=\"North\"]" : "factor=" + std::to_string(row);
        const std::string type = row == 0 ? "intercept" : kTypes[static_cast<std::size_t>(row) % kTypes.size()];
        AddRow(points, {0.1 * y, y, 0.0, y, type, node, node});
        AddRow(edges, {0.1 * y, y, 0.0 + nodes, nodes / 2.0, 1.0 + row * 4 % 9,
                       "Significance = 0.0" + std::to_string(row % 10), row % 3 == 2 ? "Negative" : "Positive"});
    }
    if (!hasSigns) edges.fvVariables.pop_back();
    sample.fvData = {target, points, edges};
    return sample;
}

void AddInset(Sample& sample) {
    Sample histogram = HistogramSample({"normal", {}, {}}, {175., 225., 275., 325., 375., 425., 475., 525.},
                                       {2., 34., 66., 45., 25., 4., 4., 1.});
    auto chart = std::make_unique<Specification>(std::move(histogram.fSpecification));
    sample.fSpecification.fInset = Inset{"anchor", 2, std::move(chart), histogram.fvData};
}

Sample PairwiseSample(int levels, const std::vector<std::vector<ChartValue>>& facets) {
    Sample sample{ReadChart(kPairwise), {}, {}};
    sample.fvData = {
        SourceOf("nodeSource_1", {"node", "facet1", "facet2"}),
        SourceOf("edgeSource_1", {"from", "to", "weight", "weightInPopup", "type", "facet1", "facet2", "tooltip"})};
    const std::vector<ChartValue> none(1);
    for (const ChartValue& across : facets.empty() ? none : facets[0]) {
        for (const ChartValue& down : facets.size() < 2 ? none : facets[1]) {
            AddPairwiseRows(levels, across, down, sample.fvData);
        }
    }
    for (ChartVariable& nodes : sample.fvData[0].fvVariables) std::ranges::reverse(nodes.fvValues);
    AddPairwiseSettings(sample);
    return sample;
}

Sample ScatterSample(int points) {
    ChartSource source = SourceOf("source0", {"X", "Y", "Frequency"});
    for (int row = 0; row < points; ++row) {
        const double x = 200 + 10.0 * (row % 17);
        AddRow(source, {x, x + 25 * std::sin(row), 1.0 + row % 20});
    }
    return {ReadChart(kScatter), {source}, {}};
}

}  // namespace hierfit::chart
