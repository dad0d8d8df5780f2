#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hierfit/store/HFITOutputStats.h"
#include "host/BpProcedure.h"
#include "host/ChartString.h"
#include "host/KEST_DataSource.h"
#include "host/VarDataProcessor.h"
#include "host/XDocument.h"

namespace hierfit {

struct ChartState;
struct NodeGeometry;

/// Builds the charts of the model viewer: it puts data and chart XML together and sends them. Output, data source and
/// store outlive it; what one of its charts learns for the next one, line weights and the target's distribution, lives
/// and dies with it. A chart whose data the store lacks is not sent and stops nothing.
class HFITChartOutput {
  public:
    HFITChartOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats);
    ~HFITChartOutput();
    HFITChartOutput(const HFITChartOutput&) = delete;
    HFITChartOutput& operator=(const HFITChartOutput&) = delete;

    void BuildPredictedByObservedChart();

    /// Also takes over the figures of the target's distribution, for the coefficients' diagram too.
    void BuildFixedEffectsDiagram();
    void BuildFixedCoefficientsDiagram();

    /// One chart for each of the first records, under a heading of their own.
    void BuildTopMeansCharts();
    void BuildCustomEffectsChart(const EmmeansData& block);

    /// Pairwise, deviation or simple, as the block says.
    void BuildContrastChart(const EmmeansData& block);
    void BuildPairwiseContrastsChart(const EmmeansData& block);

  private:
    class LevelContrasts;
    class PairwiseContrasts;
    class TopMeans;

    // Texts
    std::string LookUp(const char* key) const;
    ChartString LookUpText(const char* key) const;
    std::string MakeTargetTooltip() const;
    ChartString MakeFixedAtFootnote(const EmmeansData& block) const;
    ChartString MakeAdjustmentFootnote(const EmmeansData& block) const;
    std::string TargetSubtitle() const;

    /// A tip in which the target stands for "^1", and the two levels for "^2" and "^3".
    std::string ContrastTooltip(const char* key, const std::string& level, const std::string& reference) const;
    std::string ContrastCaption(const char* key, const std::string& compareField, const std::string& reference) const;

    /// Null when the data has no such variable.
    const KEST_Variable* FindVariable(const std::string& name) const;

    /// The text of a template file.
    static std::string ReadTemplate(const char* name);

    // Diagrams of nodes and edges
    void AddTargetSource(VarDataProcessor& processor, std::size_t nodeCount) const;
    void AddNodeEdgeSources(VarDataProcessor& processor) const;
    void WriteNode(VarDataProcessor& processor, int row, const NodeGeometry& geometry, double radius) const;
    void WriteLineEnd(VarDataProcessor& processor, int row, const NodeGeometry& geometry) const;
    void WriteWeight(VarDataProcessor& processor, int row, double significance);
    void SendNodeEdgeChart(std::size_t nodeCount, const char* titleKey, const VarDataProcessor& processor,
                           bool hidesLegend);
    void EmbedTargetHistogram(std::string& diagram);
    void WriteEffect(VarDataProcessor& processor, int row, const EffectStruct& effect) const;
    void WriteCoefficient(VarDataProcessor& processor, int row, const ParamEstimate& estimate) const;
    void WriteIntercept(VarDataProcessor& processor, int row) const;
    void WriteTerm(VarDataProcessor& processor, int row, const ParamEstimate& estimate) const;
    void PatchCustomEffects(std::string& xml, const EmmeansData& block,
                            const std::vector<const KEST_Variable*>& variables) const;

    /// Whether a block's contrasts have what a chart needs; the host is told of what is missing.
    bool CanChartContrasts(const EmmeansData& block) const;
    void BuildLevelContrastsChart(const EmmeansData& block);

    std::unique_ptr<ChartState> fpState;
};

}  // namespace hierfit
