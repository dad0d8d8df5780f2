#include <algorithm>

#include "hierfit/HFITChartOutput.h"
#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
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

/// Whether the first factor is the first field of an effect.
bool LeadsAnEffect(const std::vector<Coordinates>& factors, const std::vector<EffectStruct>& effects) {
    if (factors.empty()) return false;
    return std::any_of(effects.begin(), effects.end(), [&](const EffectStruct& effect) {
        return !effect.fvFieldNames.empty() && !effect.fvNestingLevels.empty() &&
               effect.fvFieldNames.front() == factors.front().fField;
    });
}

/// Names a factor's axis or legend, and its values by their labels; without them when the library refuses.
void LabelFactor(XDocument& document, const char* name, const KEST_Variable* variable) {
    if (!variable) return;
    try {
        XVariable shown = document.getExternalGraph().getVariable(name, 0);
        shown.setLabel(VariableDisplayName(*variable));
        shown.setKESTVariable(variable);
        shown.addRelabels();
    } catch (...) {}
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
    void WriteEffects(std::size_t v, int row);
    void WriteMean(std::size_t v, int row, const Coordinates& limits);
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
    fTemplate.addVariable(name, name, isFactor, text, source, format, label);
    return AddVariable(fProcessor, source, name);
}

std::string HFITChartOutput::TopMeans::MakeTitle() const {
    std::string title = fCharts.LookUp("^1 by ^2");
    ReplaceFirst(title, "^1", fCharts.fpState->fTargetLabel);
    ReplaceFirst(title, "^2", fSecond.fpVariable ? fFirst.fText + " * " + fSecond.fText : fFirst.fText);
    return title;
}

void HFITChartOutput::TopMeans::WriteRows() {
    for (std::size_t v = 0; v < fRecord.fvFactorCoords.front().fvValues.size(); ++v) {
        const int row = static_cast<int>(2 * v);
        WriteEffects(v, row);
        WriteEffects(v, row + 1);
        if (v >= fRecord.fMean.fvValues.size()) continue;
        WriteMean(v, row, fRecord.fCILower);
        WriteMean(v, row + 1, fRecord.fCIUpper);
    }
}

void HFITChartOutput::TopMeans::WriteEffects(std::size_t v, int row) {
    const std::vector<Coordinates>& factors = fRecord.fvFactorCoords;
    const std::string& level = factors[0].fvValues[v];
    if (fFirst.fpVariable && fFirst.fpVariable->IsString()) {
        fProcessor.SetStringVariableValue(fEffect1, row, level);
    } else {
        SetNumberOrText(fProcessor, fEffect1, row, level);
    }
    if (factors.size() > 1 && v < factors[1].fvValues.size()) {
        SetNumberOrText(fProcessor, fEffect2, row, factors[1].fvValues[v]);
    }
}

void HFITChartOutput::TopMeans::WriteMean(std::size_t v, int row, const Coordinates& limits) {
    fProcessor.SetVariableValue(fTarget, row, ParseNumber(fRecord.fMean.fvValues[v]));
    fProcessor.SetVariableValue(fMargin, row, ParseNumber(EntryOf(limits, v)));
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
    HFITChartOutput::Send(document, XUtility::ChartStringFromOLANG(MakeTitle()), fProcessor);
}

void HFITChartOutput::BuildTopMeansCharts() {
    const BuildSettings* settings = fpState->fpStats->GetBuildSettings();
    const std::vector<EstimateData>* records = fpState->fpStats->GetEmmeansEstimates();
    if (!settings || settings->fvFixedEffectList.empty() || !records) return;
    const BpHeading heading =
        fpState->fProcedure->Heading(BpString("Estimated Marginal Means for Top Significant Fixed Effects", true));
    int nCharts = 0;
    for (const EstimateData& record : *records) {
        if (!LeadsAnEffect(record.fvFactorCoords, settings->fvFixedEffectList)) {
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
