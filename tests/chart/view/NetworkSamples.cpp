#include "tests/chart/view/NetworkSamples.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace hierfit::chart {

namespace {

using document::ChartSource;
using document::ChartValue;
using document::ChartVariable;

const KEST_Format kTwoDecimals{40, KEST_FormatType::Numeric, 2};
const std::vector<std::string> kTypes = {"continuous", "categorical", "ordinal", "interaction", "unknown"};
const std::string kHostile = "</script><b>\"x\" & 'y' ]]> ${1} {{z}} \x01\xff\n=1+1 \xE2\x80\xAE";

Words Plain(std::string text) { return {std::move(text), {}}; }

Mark MarkOf(Mark::Kind kind, std::string source, std::string tip) {
    Mark mark{};
    mark.fKind = kind;
    mark.fSource = std::move(source);
    mark.fTip = std::move(tip);
    return mark;
}

Field FieldFor(const std::string& slot, const std::string& name, const std::string& label) {
    Field field{};
    field.fSlot = slot;
    field.fName = name;
    field.fLabel = label;
    field.fFormat = kTwoDecimals;
    return field;
}

Legend LegendFor(std::string id, std::string of) {
    Legend legend;
    legend.fId = std::move(id);
    legend.fOf = std::move(of);
    return legend;
}

void AddDiagramMarks(Plot& plot) {
    Mark links = MarkOf(Mark::Kind::Links, "edgeSource", "LineTooltip");
    links.fX = "FromX";
    links.fY = "FromY";
    links.fX2 = "ToX";
    links.fY2 = "ToY";
    links.fWeight = "Weight";
    links.fSign = "Weight2";
    Mark points = MarkOf(Mark::Kind::Points, "pointSource", "PointTooltip");
    points.fX = "X";
    points.fY = "Y";
    points.fShape = "Type";
    Mark names = MarkOf(Mark::Kind::Names, "pointSource", "PointTooltip");
    names.fX = "Label_X";
    names.fY = "Label_Y";
    names.fText = "Nodes";
    names.fBeside = "X";
    Mark anchor = MarkOf(Mark::Kind::Anchor, "targetPointSource", "PointTooltip");
    anchor.fX = "X";
    anchor.fY = "Y";
    anchor.fText = "Nodes";
    plot.fvMarks = {links, points, names, anchor};
}

void AddDiagramLegends(Specification& specification) {
    Legend weights = LegendFor("weightLegend", "Weight");
    weights.fHigh = 9;
    weights.fLow = 1;
    weights.fHeading = Plain("Significance");
    const std::vector<std::string> words = {"≥ 0.2",   "< 0.2",   "< 0.1",    "< 0.05",  "< 0.01",
                                            "< 0.005", "< 0.001", "< 0.0005", "< 0.0001"};
    for (std::size_t at = 0; at < words.size(); ++at) {
        weights.fvEntries.push_back({std::to_string(at + 1), Plain(words[at])});
    }
    Legend types = LegendFor("typeLegend", "Type");
    types.fHeading = Plain("Type");
    types.fvEntries = {{"intercept", Plain("Intercept")},     {"continuous", Plain("Continuous")},
                       {"ordinal", Plain("Ordinal")},         {"categorical", Plain("Categorical")},
                       {"interaction", Plain("Interaction")}, {"unknown", Plain("Unknown")}};
    Legend signs = LegendFor("legendStyle", "Weight2");
    signs.fHeading = Plain("Coefficient Estimate");
    specification.fvLegends = {weights, types, signs};
}

/// The values of a variable for the rows given.
template <typename Value>
ChartVariable Made(std::string name, int rows, Value value) {
    ChartVariable variable{std::move(name), {}};
    for (int row = 0; row < rows; ++row) variable.fvValues.emplace_back(value(row));
    return variable;
}

/// Where the node of a row stands on the left half of an ellipse.
double NodeX(int row, int nodes) {
    const double height = nodes - row - (nodes + 1) / 2.0;
    return nodes - std::sqrt(nodes * nodes - 4 * height * height);
}

ChartSource EdgeSource(int nodes, bool hasSigns) {
    ChartSource source{"edgeSource", 0, {}};
    source.fvVariables = {
        Made("FromX", nodes, [nodes](int row) { return NodeX(row, nodes); }),
        Made("FromY", nodes, [nodes](int row) { return double(nodes - row); }),
        Made("ToX", nodes, [nodes](int) { return double(nodes); }),
        Made("ToY", nodes, [nodes](int) { return (nodes + 1) / 2.0; }),
        Made("Weight", nodes, [](int row) { return 1.0 + row * 4 % 9; }),
        Made("LineTooltip", nodes, [](int row) { return "Significance = 0.0" + std::to_string(row % 10); })};
    if (!hasSigns) return source;
    source.fvVariables.push_back(
        Made("Weight2", nodes, [](int row) { return std::string(row % 3 == 2 ? "Negative" : "Positive"); }));
    return source;
}

ChartSource PointSource(int nodes) {
    const auto name = [](int row) { return row % 7 == 4 ? "week*[site=\"North\"]" : "factor=" + std::to_string(row); };
    const auto type = [](int row) {
        return row == 0 ? "intercept" : kTypes[static_cast<std::size_t>(row) % kTypes.size()];
    };
    return {"pointSource",
            0,
            {Made("X", nodes, [nodes](int row) { return NodeX(row, nodes); }),
             Made("Y", nodes, [nodes](int row) { return double(nodes - row); }),
             Made("Label_X", nodes, [nodes](int row) { return NodeX(row, nodes) - 0.2 * nodes; }),
             Made("Label_Y", nodes, [nodes](int row) { return double(nodes - row); }), Made("Type", nodes, type),
             Made("Nodes", nodes, name), Made("PointTooltip", nodes, name)}};
}

Sample DistributionSample(const std::string& name, const Curve& curve, double first, double step,
                          const std::vector<double>& counts) {
    std::vector<ChartValue> centers;
    for (std::size_t bin = 0; bin < counts.size(); ++bin) centers.emplace_back(first + step * static_cast<double>(bin));
    return {"histogram-" + name,
            HistogramSpecification(curve),
            HistogramData(centers, {counts.begin(), counts.end()}),
            {},
            {}};
}

void AddHistograms(std::vector<Sample>& samples) {
    const auto add = [&samples](const std::string& name, const Curve& curve, double first, double step,
                                const std::vector<double>& counts) {
        samples.push_back(DistributionSample(name, curve, first, step, counts));
    };
    add("normal", {"normal", {}, {}}, 171, 22, {0, 4, 7, 16, 25, 27, 32, 32, 12, 9, 9, 2, 2, 3});
    add("gamma", {"gamma", 3.15, 0.0259}, 25, 50, {85, 193, 122, 94, 47, 23, 12, 2});
    add("gamma-pole", {"gamma", 0.4, 0.02}, 5, 10, {85, 30, 22, 14, 7, 3, 2, 2});
    add("inverse-gaussian", {"gaussianinverse", 28.15, 137.5}, 15, 10, {18, 21, 6, 4, 3, 2});
    add("poisson", {"poisson", 4.2, {}}, 0, 1, {5, 18, 28, 43, 50, 45, 27, 13, 13, 4, 2, 0, 0});
    add("empty", {"normal", {}, {}}, 0, 1, {});
    add("one-bin", {"normal", {}, {}}, 5, 1, {12});
    add("impossible", {"gamma", -1, 0}, 0, 1, {1, 2, 3});
    add("no-counts", {"poisson", 2, {}}, 0, 1, {0, 0, 0, 0});
    add("far-values", {"binomialnegative", 0.9, 0.098}, 0, 1, {});
    samples.back().fvData = HistogramData({0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 7.0, 8.0, 12.0, 40.0, 63.0, 102.0},
                                          {23.0, 16.0, 20.0, 33.0, 29.0, 17.0, 13.0, 11.0, 6.0, 1.0, 1.0, 1.0});
}

Sample HostileDiagram() {
    Sample sample = DiagramSample("diagram-hostile", 9, true);
    for (ChartSource& source : sample.fvData) {
        for (ChartVariable& variable : source.fvVariables) {
            for (ChartValue& value : variable.fvValues) {
                if (std::holds_alternative<std::string>(value)) value = kHostile + std::get<std::string>(value);
            }
        }
    }
    VariableOf(sample, "edgeSource", "FromX").fvValues[1] = std::numeric_limits<double>::infinity();
    VariableOf(sample, "edgeSource", "Weight").fvValues[2] = std::monostate();
    VariableOf(sample, "pointSource", "Y").fvValues[3] = std::nan("");
    sample.fSpecification.fTitle = Plain(kHostile);
    return sample;
}

void AddDiagrams(std::vector<Sample>& samples) {
    for (const int nodes : {0, 1, 2, 6, 9, 40, 500}) {
        samples.push_back(DiagramSample("diagram-" + std::to_string(nodes), nodes, nodes != 6));
        AddInset(samples.back(), {"normal", {}, {}});
    }
    samples.push_back(DiagramSample("diagram-no-histogram", 9, true));
    samples.push_back(HostileDiagram());
    samples.push_back(DiagramSample("diagram-no-data", 3, true));
    samples.back().fvData.clear();
}

void AddPairwisePlot(Specification& specification) {
    Plot& plot = specification.fPlot;
    plot.fArrange = Plot::Arrange::Circle;
    plot.fSquare = true;
    Mark links = MarkOf(Mark::Kind::Links, "edgeSource_1", "tooltip");
    links.fFrom = "from";
    links.fTo = "to";
    links.fWeight = "weight";
    links.fMark = "type";
    Mark points = MarkOf(Mark::Kind::Points, "nodeSource_1", "");
    points.fNode = "node";
    Mark names = MarkOf(Mark::Kind::Names, "nodeSource_1", "");
    names.fNode = names.fText = "node";
    plot.fvMarks = {links, points, names};
    specification.fFaceting = Faceting{{"facet1", "facet2"}, 0, {true, false}};
    specification.fvLegends = {LegendFor("typeLegend", "type")};
}

std::vector<ChartSource> PairwiseSources() {
    ChartSource nodes{"nodeSource_1", 0, {{"node", {}}, {"facet1", {}}, {"facet2", {}}}};
    ChartSource edges{"edgeSource_1", 0, {}};
    for (const char* name : {"from", "to", "weight", "weightInPopup", "type", "facet1", "facet2", "tooltip"}) {
        edges.fvVariables.push_back({name, {}});
    }
    return {nodes, edges};
}

/// Adds the values of one row to the variables of a source.
void AddRow(ChartSource& source, const std::vector<ChartValue>& values) {
    for (std::size_t at = 0; at < values.size(); ++at) source.fvVariables[at].fvValues.push_back(values[at]);
}

/// The key of a level in a panel.
std::string Key(const ChartValue& across, const ChartValue& down, int level) {
    std::string key;
    for (const ChartValue& facet : {across, down}) {
        if (const double* number = std::get_if<double>(&facet)) key += std::to_string(static_cast<int>(*number));
        if (const std::string* text = std::get_if<std::string>(&facet)) key += *text;
    }
    return key + "L" + std::to_string(100 + level);
}

void AddPairwiseRows(int levels, const ChartValue& across, const ChartValue& down, std::vector<ChartSource>& sources) {
    for (int from = 0; from < levels; ++from) {
        AddRow(sources[0], {Key(across, down, from), across, down});
        for (int to = 0; to < from; ++to) {
            const bool isSignificant = (from * 7 + to * 3) % (levels > 20 ? 89 : 3) == 0;
            const double p = isSignificant ? 0.001 * to : 0.05 + 0.9 * (from * to % 11) / 11;
            AddRow(sources[1],
                   {Key(across, down, from), Key(across, down, to), 1 / ((1 - p) * (1 - p)), p,
                    isSignificant ? 1.0 : 0.0, across, down, "Level " + std::to_string(from) + " and another"});
        }
    }
}

/// Labels of the levels in the first panel, and words of what is significant.
void AddPairwiseSettings(int levels, Sample& sample) {
    const std::vector<std::string> names = {"Placebo", "Low dose", "Middle dose", "High dose", "Usual care"};
    for (const char* name : {"node", "from", "to"}) {
        VariableSetting setting;
        setting.fName = name;
        setting.fLabel = "Treatment arm";
        for (const ChartValue& value : VariableOf(sample, "nodeSource_1", "node").fvValues) {
            const std::string& key = std::get<std::string>(value);
            const auto level = static_cast<std::size_t>(std::stoi(key.substr(key.size() - 2)));
            const std::string label = levels <= 5 ? names[level] : "District " + std::to_string(level + 1);
            setting.fvLabels.emplace_back(key, label);
        }
        sample.fvSettings.push_back(setting);
    }
    VariableSetting type;
    type.fName = "type";
    type.fvLabels = {{"0", "Not Significant"}, {"1", "Significant"}};
    sample.fvSettings.push_back(type);
}

void AddPairwise(std::vector<Sample>& samples) {
    for (const int levels : {0, 1, 2, 3, 5, 9, 14, 40, 120}) {
        samples.push_back(PairwiseSample("pairwise-" + std::to_string(levels), levels, {}));
    }
    samples.push_back(PairwiseSample("pairwise-facets", 4, {{"Sex = Female", "Sex = Male", "Sex = Not stated"}}));
    samples.push_back(PairwiseSample("pairwise-facets-5", 3, {{1.0, 2.0, 3.0, 4.0, 5.0}}));
    samples.push_back(PairwiseSample("pairwise-grid", 3, {{1.0, 2.0}, {"a", "b", kHostile}}));
    samples.push_back(PairwiseSample("pairwise-facets-20", 20, {{"North", "South"}}));
}

void AddScatters(std::vector<Sample>& samples) {
    for (const int points : {0, 1, 230}) samples.push_back(ScatterSample("scatter-" + std::to_string(points), points));
    samples.push_back(ScatterSample("scatter-hidden-legend", 50));
    samples.back().fSpecification.fvLegends.front().fIsVisible = false;
    samples.push_back(ScatterSample("scatter-no-frequency", 50));
    samples.back().fvData.front().fvVariables.pop_back();
}

}  // namespace

ChartVariable& VariableOf(Sample& sample, const std::string& source, const std::string& name) {
    for (ChartSource& each : sample.fvData) {
        for (ChartVariable& variable : each.fvVariables) {
            if (each.fName == source && variable.fName == name) return variable;
        }
    }
    throw std::out_of_range(name);
}

Specification HistogramSpecification(Curve curve) {
    Specification specification;
    specification.fPlot.fBars = Bars{"", "X", "Y", {}};
    specification.fPlot.fCurve = std::move(curve);
    specification.fvFields = {FieldFor("X", "X", "Average reaction time (ms)"), FieldFor("Y", "Y", "")};
    return specification;
}

std::vector<ChartSource> HistogramData(const std::vector<ChartValue>& centers, const std::vector<ChartValue>& counts) {
    return {{"source0", 0, {{"X", centers}, {"Y", counts}}}};
}

Sample DiagramSample(std::string name, int nodes, bool hasSigns) {
    Sample sample;
    sample.fName = std::move(name);
    sample.fSpecification.fTitle = Plain(hasSigns ? "Fixed Coefficients" : "Fixed Effects");
    AddDiagramMarks(sample.fSpecification.fPlot);
    AddDiagramLegends(sample.fSpecification);
    sample.fSpecification.fPlot.fX.fMax = std::max(2.0, nodes * 4 / 3.0);
    if (nodes == 0) return sample;
    ChartSource target{"targetPointSource", 0, {}};
    const std::string tip = "Reaction\nAverage reaction time (ms)\nNormal, identity";
    target.fvVariables = {{"X", {double(nodes)}},
                          {"Y", {(nodes + 1) / 2.0}},
                          {"Nodes", {"Average reaction time (ms)"}},
                          {"PointTooltip", {tip}}};
    sample.fvData = {target, PointSource(nodes), EdgeSource(nodes, hasSigns)};
    return sample;
}

void AddInset(Sample& sample, Curve curve) {
    Inset inset{"anchor", 2, std::make_unique<Specification>(HistogramSpecification(std::move(curve))), {}};
    inset.fvData = HistogramData({175.0, 225.0, 275.0, 325.0, 375.0, 425.0, 475.0, 525.0},
                                 {2.0, 34.0, 66.0, 45.0, 25.0, 4.0, 4.0, 1.0});
    sample.fSpecification.fInset = std::move(inset);
}

Sample PairwiseSample(std::string name, int levels, const std::vector<std::vector<ChartValue>>& facets) {
    Sample sample;
    sample.fName = std::move(name);
    Specification& specification = sample.fSpecification;
    specification.fTitle = Plain("Pairwise Contrasts");
    specification.fSubtitle = Plain("Target: Average reaction time (ms)");
    specification.fFootnote = Plain("The least significant difference adjusted significance level is 0.05.");
    specification.fvPopups = {{"weightInPopup", Plain("Adj. Sig.")}};
    AddPairwisePlot(specification);
    std::vector<ChartSource> sources = PairwiseSources();
    const ChartValue none;
    const std::vector<ChartValue> one = {none};
    for (const ChartValue& across : facets.empty() ? one : facets[0]) {
        for (const ChartValue& down : facets.size() < 2 ? one : facets[1]) {
            AddPairwiseRows(levels, across, down, sources);
        }
    }
    for (ChartVariable& variable : sources[0].fvVariables) {
        std::reverse(variable.fvValues.begin(), variable.fvValues.end());
    }
    sample.fvData = std::move(sources);
    AddPairwiseSettings(levels, sample);
    return sample;
}

Sample ScatterSample(std::string name, int points) {
    Sample sample;
    sample.fName = std::move(name);
    Specification& specification = sample.fSpecification;
    specification.fTitle = Plain("Predicted by Observed");
    specification.fPlot.fSquare = true;
    specification.fPlot.fHasDiagonal = true;
    Mark mark = MarkOf(Mark::Kind::Points, "", "");
    mark.fX = "X";
    mark.fY = "Y";
    mark.fOpacity = "Transparency";
    specification.fPlot.fvMarks = {mark};
    specification.fvFields = {FieldFor("X", "X", "Average reaction time (ms)"), FieldFor("Y", "Y", "Predicted Value"),
                              FieldFor("Transparency", "Frequency", "Frequency")};
    specification.fvLegends = {LegendFor("legendStyle", "Transparency")};
    const auto y = [](int row) { return 200 + 10 * (row % 17) + 25 * std::sin(row); };
    sample.fvData = {{"source0",
                      points,
                      {Made("X", points, [](int row) { return 200 + 10.0 * (row % 17); }), Made("Y", points, y),
                       Made("Frequency", points, [](int row) { return 1.0 + row % 20; })}}};
    return sample;
}

std::vector<Sample> NetworkSamples() {
    std::vector<Sample> samples;
    AddDiagrams(samples);
    AddPairwise(samples);
    AddScatters(samples);
    AddHistograms(samples);
    return samples;
}

}  // namespace hierfit::chart
