#include <string_view>
#include <unordered_set>

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "host/Diagnose.h"
#include "host/XViZTemplate.h"

namespace hierfit {

namespace {

constexpr int kMostCharts = 11;

/// A factor of a record: what it is called, and its variable where the data has it.
struct ShownFactor {
    ShownFactor() = default;
    ShownFactor(const std::string& field, const KEST_Variable* variable)
        : fText(variable && variable->GetLabel() ? variable->GetLabel() : field), fpVariable(variable) {
        if (variable) fFormat = variable->GetFormat();
    }

    /// Null without a variable.
    const KEST_Format* Format() const { return fpVariable ? &fFormat : nullptr; }

    std::string fText;
    const KEST_Variable* fpVariable = nullptr;
    KEST_Format fFormat;
};

using Names = std::unordered_set<std::string_view>;

/// The first fields of the effects.
Names LeadingFields(const std::vector<EffectStruct>& effects) {
    Names names;
    for (const EffectStruct& effect : effects) {
        if (!effect.fvFieldNames.empty() && !effect.fvNestingLevels.empty()) names.insert(effect.fvFieldNames.front());
    }
    return names;
}

/// Names a factor's axis or legend, and its values by their labels; without them when the library refuses.
void LabelFactor(XDocument& document, const char* name, const KEST_Variable* variable) {
    if (!variable) return;
    try {
        XGraph graph = document.getExternalGraph();
        LabelVariable(graph, name, 0, *variable);
    } catch (...) {
        NoteDropped();
    }
}

}  // namespace

/// A chart of one record of means on its way: two rows for each mean, which together span its confidence limits.
class HFITChartOutput::TopMeans {
  public:
    /// The record must have a factor.
    TopMeans(const HFITChartOutput& charts, const EstimateData& record);

    void WriteRows();
    void Send();

  private:
    ShownFactor MakeFactor(std::size_t i) const;
    VarDataProcessor::_varinfo Add(const char* name, bool isFactor, const char* text, const KEST_Format* format,
                                   const std::string& label);
    void WriteLevel(int row, const std::string& level);
    void WriteMean(int row, std::size_t v);
    std::string MakeTitle() const;

    const HFITChartOutput& fCharts;
    const EstimateData& fRecord;
    ShownFactor fFirst;
    ShownFactor fSecond;
    XViZTemplate fTemplate;
    VarDataProcessor fProcessor;
    VarDataProcessor::_varinfo fEffect1;
    VarDataProcessor::_varinfo fEffect2;
    VarDataProcessor::_varinfo fTarget;
    VarDataProcessor::_varinfo fMargin;
};

HFITChartOutput::TopMeans::TopMeans(const HFITChartOutput& charts, const EstimateData& record)
    : fCharts(charts), fRecord(record), fFirst(MakeFactor(0)), fSecond(MakeFactor(1)) {
    const ChartState& state = *charts.fpState;
    fTemplate.setTemplateInternalName("GLMMEmMeans");
    fTemplate.addLabel(0, XUtility::ChartStringFromOLANG(MakeTitle()).toUTF8());
    fProcessor.AddDataSource(state.fSourceName, 0);
    fEffect1 = Add("effect1", true, "effect1Label", fFirst.Format(), fFirst.fText);
    fEffect2 = Add("effect2", true, "", fSecond.Format(), fSecond.fText);
    fTarget = Add("target", false, "", &state.fTargetFormat, state.fTargetLabel);
    fMargin = Add("confMargin", false, "", &state.fTargetFormat, state.fTargetLabel);
}

ShownFactor HFITChartOutput::TopMeans::MakeFactor(std::size_t i) const {
    if (i >= fRecord.fvFactorCoords.size()) return {};
    const std::string& field = fRecord.fvFactorCoords[i].fField;
    return ShownFactor(field, fCharts.FindVariable(field));
}

VarDataProcessor::_varinfo HFITChartOutput::TopMeans::Add(const char* name, bool isFactor, const char* text,
                                                          const KEST_Format* format, const std::string& label) {
    const std::string& source = fCharts.fpState->fSourceName;
    const auto variable = AddVariable(fProcessor, source, name);
    fTemplate.addVariable(name, name, isFactor, text, source, format, label);
    return variable;
}

std::string HFITChartOutput::TopMeans::MakeTitle() const {
    std::string title = fCharts.LookUp("^1 by ^2");
    ReplaceFirst(title, "^1", fCharts.fpState->fTargetLabel);
    ReplaceFirst(title, "^2", fSecond.fpVariable ? fFirst.fText + " * " + fSecond.fText : fFirst.fText);
    return title;
}

void HFITChartOutput::TopMeans::WriteRows() {
    const std::vector<Coordinates>& factors = fRecord.fvFactorCoords;
    for (std::size_t v = 0; v < factors[0].fvValues.size(); ++v) {
        const int row = static_cast<int>(2 * v);
        WriteLevel(row, factors[0].fvValues[v]);
        if (factors.size() > 1 && v < factors[1].fvValues.size()) {
            SetNumberOrText(fProcessor, fEffect2, row, factors[1].fvValues[v]);
            SetNumberOrText(fProcessor, fEffect2, row + 1, factors[1].fvValues[v]);
        }
        if (v < fRecord.fMean.fvValues.size()) WriteMean(row, v);
    }
}

void HFITChartOutput::TopMeans::WriteLevel(int row, const std::string& level) {
    const bool isString = fFirst.fpVariable && fFirst.fpVariable->IsString();
    for (const int at : {row, row + 1}) {
        if (isString) {
            fProcessor.SetStringVariableValue(fEffect1, at, level);
        } else {
            SetNumberOrText(fProcessor, fEffect1, at, level);
        }
    }
}

void HFITChartOutput::TopMeans::WriteMean(int row, std::size_t v) {
    const double mean = ParseNumber(fRecord.fMean.fvValues[v]);
    fProcessor.SetVariableValue(fTarget, row, mean);
    fProcessor.SetVariableValue(fTarget, row + 1, mean);
    fProcessor.SetVariableValue(fMargin, row, ParseNumber(EntryOf(fRecord.fCILower, v)));
    fProcessor.SetVariableValue(fMargin, row + 1, ParseNumber(EntryOf(fRecord.fCIUpper, v)));
}

void HFITChartOutput::TopMeans::Send() {
    std::string xml;
    std::string unused;
    fTemplate.convert(xml, unused);
    ReplaceFirst(xml, "YAxisLabel", fCharts.fpState->fTargetLabel);
    if (!fSecond.fpVariable) EraseFromThrough(xml, "<legend", "</legend>");
    XDocument document(xml);
    document.setEditor(2);
    document.setLanguage();
    LabelFactor(document, "effect1", fFirst.fpVariable);
    LabelFactor(document, "effect2", fSecond.fpVariable);
    document.SetDescription(XUtility::ChartStringFromOLANG(MakeTitle()));
    document.SetChartData(&fProcessor);
    document.SendChart(true, false, false);
}

void HFITChartOutput::BuildTopMeansCharts() {
    const BuildSettings* settings = fpState->fpStats->GetBuildSettings();
    const std::vector<EstimateData>* records = fpState->fpStats->GetEmmeansEstimates();
    if (!settings || settings->fvFixedEffectList.empty() || !records) return;
    const BpHeading heading =
        fpState->fProcedure->Heading(BpString("Estimated Marginal Means for Top Significant Fixed Effects", true));
    const Names leading = LeadingFields(settings->fvFixedEffectList);
    int nCharts = 0;
    for (const EstimateData& record : *records) {
        if (record.fvFactorCoords.empty() || !leading.contains(record.fvFactorCoords.front().fField)) {
            Diagnose("a chart of means is left out: its first factor begins no fixed effect");
            continue;
        }
        TopMeans chart(*this, record);
        chart.WriteRows();
        chart.Send();
        if (++nCharts == kMostCharts) break;
    }
}

}  // namespace hierfit
