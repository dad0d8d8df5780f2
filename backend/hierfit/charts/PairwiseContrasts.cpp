#include <limits>
#include <map>
#include <optional>

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/ContrastRows.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

constexpr const char* kTitle = "Pairwise Contrasts";
constexpr const char* kNodeSource = "nodeSource_1";
constexpr const char* kEdgeSource = "edgeSource_1";
constexpr const char* kPanels[] = {"facet1", "facet2"};

using Handle = VarDataProcessor::_varinfo;
using TextMap = std::map<std::string, std::string>;

struct Nodes {
    TextMap fPanel1;  ///< node key -> level of the first panel variable
    TextMap fPanel2;
    TextMap fRelabels;  ///< node key without leading zeros -> value label
};

struct NodeVariables {
    explicit NodeVariables(VarDataProcessor& processor)
        : fNode(AddVariable(processor, kNodeSource, "node")),
          fPanel1(AddVariable(processor, kNodeSource, kPanels[0])),
          fPanel2(AddVariable(processor, kNodeSource, kPanels[1])) {}

    Handle fNode;
    Handle fPanel1;
    Handle fPanel2;
};

struct EdgeVariables {
    explicit EdgeVariables(VarDataProcessor& processor)
        : fFrom(AddVariable(processor, kEdgeSource, "from")),
          fTo(AddVariable(processor, kEdgeSource, "to")),
          fWeight(AddVariable(processor, kEdgeSource, "weight")),
          fWeightInPopup(AddVariable(processor, kEdgeSource, "weightInPopup")),
          fType(AddVariable(processor, kEdgeSource, "type")),
          fPanel1(AddVariable(processor, kEdgeSource, kPanels[0])),
          fPanel2(AddVariable(processor, kEdgeSource, kPanels[1])),
          fTooltip(AddVariable(processor, kEdgeSource, "tooltip")) {}

    Handle fFrom;
    Handle fTo;
    Handle fWeight;
    Handle fWeightInPopup;
    Handle fType;
    Handle fPanel1;
    Handle fPanel2;
    Handle fTooltip;
};

/// The graph draws a line the nearer, the closer its levels are.
double WeightOf(double significance) {
    if (significance == 1) return std::numeric_limits<double>::max();
    return 1 / ((1 - significance) * (1 - significance));
}

std::string WithoutLeadingZeros(const std::string& key) {
    const std::size_t begin = key.find_first_not_of('0');
    return begin == std::string::npos ? "" : key.substr(begin);
}

/// The value label of a level that is a number, else the level.
std::string TipLabel(const std::string& level, const KEST_Variable* variable) {
    bool isNumber = false;
    const double number = ParseNumber(level, isNumber);
    const char* label = variable && isNumber ? ValueLabel(*variable, number) : nullptr;
    return label ? label : level;
}

/// One contrast: its panel and its two levels.
struct Pair {
    Pair(const ContrastRows& rows, std::size_t row)
        : fPanel1(rows.PanelLevel(0, row)),
          fPanel2(rows.PanelLevel(1, row)),
          fA(EntryOf(rows.Reference(), row)),
          fB(EntryOf(rows.Compared(), row)) {}

    std::string KeyOf(const std::string& level) const { return fPanel1 + fPanel2 + level; }

    std::string fPanel1;
    std::string fPanel2;
    std::string fA;  ///< the level in the last column
    std::string fB;  ///< the level in the column before it
};

void CollectNodes(Nodes& nodes, const Pair& pair, const KEST_Variable* variable) {
    for (const std::string* level : {&pair.fA, &pair.fB}) {
        const std::string key = pair.KeyOf(*level);
        nodes.fPanel1.emplace(key, pair.fPanel1);
        nodes.fPanel2.emplace(key, pair.fPanel2);
        const char* label = variable ? LabelOfText(*variable, *level) : nullptr;
        if (label) nodes.fRelabels.emplace(WithoutLeadingZeros(key), label);
    }
}

/// Nodes stand in descending order of their keys.
void WriteNodes(VarDataProcessor& processor, const NodeVariables& variables, const Nodes& nodes) {
    int row = 0;
    for (auto node = nodes.fPanel1.rbegin(); node != nodes.fPanel1.rend(); ++node) {
        const auto panel2 = nodes.fPanel2.find(node->first);
        if (panel2 == nodes.fPanel2.end()) continue;
        SetNumberOrText(processor, variables.fNode, row, node->first);
        SetNumberOrText(processor, variables.fPanel1, row, node->second);
        SetNumberOrText(processor, variables.fPanel2, row, panel2->second);
        ++row;
    }
}

void LabelNodes(XGraph& graph, const TextMap& relabels) {
    XVariable variables[] = {graph.getVariable("node", 0), graph.getVariable("from", 0), graph.getVariable("to", 0)};
    for (const auto& [key, label] : relabels) {
        for (XVariable& variable : variables) {
            variable.addRelabel(XUtility::ChartStringFromLocalCodePage(key), XUtility::ChartStringFromOLANG(label));
        }
    }
}

/// Both sources hold a variable for the panels.
void LabelPanel(XGraph& graph, const char* name, const KEST_Variable& variable) {
    for (const int index : {0, 1}) LabelVariable(graph, name, index, variable);
}

}  // namespace

/// A graph of pairwise contrasts on its way: one edge for each contrast, one node for each level and panel.
class HFITChartOutput::PairwiseContrasts {
  public:
    PairwiseContrasts(const HFITChartOutput& charts, const EmmeansData& block)
        : fCharts(charts),
          fBlock(block),
          fRows(block.fContrasts),
          fpCompare(charts.FindVariable(fRows.Reference().fField)) {
        fProcessor.AddDataSource(kNodeSource, 0);
        fProcessor.AddDataSource(kEdgeSource, 0);
        fNodeVariables.emplace(fProcessor);
        fEdgeVariables.emplace(fProcessor);
    }

    void WriteRows();
    void Send();

  private:
    void WritePair(int row, const Pair& pair, const std::string& significance);
    std::string TooltipOf(const Pair& pair, std::size_t i, bool isSignificant) const;
    std::string MakeXml() const;
    void LabelVariables(XGraph& graph) const;

    const HFITChartOutput& fCharts;
    const EmmeansData& fBlock;
    ContrastRows fRows;
    const KEST_Variable* fpCompare;
    Nodes fNodes;
    VarDataProcessor fProcessor;
    std::optional<NodeVariables> fNodeVariables;
    std::optional<EdgeVariables> fEdgeVariables;
};

void HFITChartOutput::PairwiseContrasts::WriteRows() {
    const std::vector<std::string>& significances = fBlock.fContrasts.fAdjustedSig.fvValues;
    for (std::size_t i = 0; i < significances.size(); ++i) {
        const Pair pair(fRows, i);
        CollectNodes(fNodes, pair, fpCompare);
        WritePair(static_cast<int>(i), pair, significances[i]);
    }
    WriteNodes(fProcessor, *fNodeVariables, fNodes);
}

void HFITChartOutput::PairwiseContrasts::WritePair(int row, const Pair& pair, const std::string& significance) {
    const EdgeVariables& edges = *fEdgeVariables;
    SetNumberOrText(fProcessor, edges.fFrom, row, pair.KeyOf(pair.fA));
    SetNumberOrText(fProcessor, edges.fTo, row, pair.KeyOf(pair.fB));
    bool isKnown = false;
    const double p = ParseNumber(significance, isKnown);
    if (isKnown) {
        fProcessor.SetVariableValue(edges.fWeight, row, WeightOf(p));
        fProcessor.SetVariableValue(edges.fWeightInPopup, row, p);
    }
    const bool isSignificant = p < fBlock.fContrasts.fAdjustedSigLevel;
    fProcessor.SetVariableValue(edges.fType, row, isSignificant ? 1.0 : 0.0);
    SetNumberOrText(fProcessor, edges.fPanel1, row, pair.fPanel1);
    SetNumberOrText(fProcessor, edges.fPanel2, row, pair.fPanel2);
    const std::string tip = TooltipOf(pair, static_cast<std::size_t>(row), isSignificant);
    fProcessor.SetStringVariableValue(edges.fTooltip, row, tip);
}

std::string HFITChartOutput::PairwiseContrasts::TooltipOf(const Pair& pair, std::size_t i, bool isSignificant) const {
    bool isNumber = false;
    const double estimate = ParseNumber(EntryOf(fBlock.fContrasts.fContrastEstimate, i), isNumber);
    const bool isSwapped = isNumber && estimate < 0;
    const std::string a = TipLabel(pair.fA, fpCompare);
    const std::string b = TipLabel(pair.fB, fpCompare);
    return fCharts.ContrastTooltip(isSignificant ? "Simple Higher" : "Simple Same", isSwapped ? b : a,
                                   isSwapped ? a : b);
}

std::string HFITChartOutput::PairwiseContrasts::MakeXml() const {
    std::string xml = ReadTemplate("GLMMPairwiseContrasts.viztemplate");
    ReplaceFirst(xml, "TitleText", fCharts.LookUpText(kTitle).toUTF8());
    ReplaceFirst(xml, "subTitleText", fCharts.TargetSubtitle());
    ReplaceFirst(xml, "FootnoteText", fCharts.MakeAdjustmentFootnote(fBlock).toUTF8());
    if (!fRows.HasPanel(0)) {
        RemoveFacetingBlock(xml);
    } else if (!fRows.HasPanel(1)) {
        RemoveSecondFacet(xml);
    }
    return xml;
}

void HFITChartOutput::PairwiseContrasts::LabelVariables(XGraph& graph) const {
    if (fpCompare) {
        XVariable node = graph.getVariable("node", 0);
        node.setLabel(VariableDisplayName(*fpCompare));
        node.setKESTVariable(fpCompare);
    }
    XVariable type = graph.getVariable("type", 0);
    type.addRelabel(0.0, fCharts.LookUpText("Not Significant"));
    type.addRelabel(1.0, fCharts.LookUpText("Significant"));
    for (const std::size_t i : {0, 1}) {
        const KEST_Variable* variable = fRows.HasPanel(i) ? fCharts.FindVariable(fRows.PanelField(i)) : nullptr;
        if (variable) LabelPanel(graph, kPanels[i], *variable);
    }
    LabelNodes(graph, fNodes.fRelabels);
}

void HFITChartOutput::PairwiseContrasts::Send() {
    const std::string xml = MakeXml();
    try {
        XDocument document(xml);
        XGraph graph = document.getExternalGraph();
        LabelVariables(graph);
        document.setEditor(2);
        document.setLanguage();
        document.SetDescription(fCharts.LookUpText(kTitle));
        document.SetChartData(&fProcessor);
        document.SendChart(true, false, false);
    } catch (...) {  // the chart is missing then, and nothing else
        NoteDropped();
    }
}

void HFITChartOutput::BuildPairwiseContrastsChart(const EmmeansData& block) {
    if (!CanChartContrasts(block)) return;
    PairwiseContrasts chart(*this, block);
    chart.WriteRows();
    chart.Send();
}

std::string HFITChartOutput::TargetSubtitle() const {
    std::string text = LookUp("Target\\: ^1");
    ReplaceFirst(text, "^1", fpState->fTargetLabel);
    ReplaceFirst(text, "\\:", ":");
    return XUtility::ChartStringFromOLANG(text).toUTF8();
}

}  // namespace hierfit
