#include <algorithm>

#include "hierfit/HFITChartOutput.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "host/XViZTemplate.h"

namespace hierfit {

namespace {

/// Below this number of records a point's transparency says little.
constexpr int kManyRecords = 100;

void SetLimits(std::string& xml, const PredByObserved& data) {
    ReplaceFirst(xml, "98.8", NumberToText(data.fAxisMax));
    ReplaceFirst(xml, "33.667", NumberToText(data.fAxisMin));
}

void HideLegend(std::string& xml) {
    const std::size_t place = xml.find("id=\"legendStyle");
    if (place != std::string::npos) xml.insert(place, " visible=\"false\" ");
}

}  // namespace

void HFITChartOutput::BuildPredictedByObservedChart() {
    const ModelDiagnostics* diagnostics = fpState->fpStats->GetModelDiagnostics();
    if (!diagnostics || diagnostics->fPredByObserved.fDescription.empty()) return;
    const PredByObserved& data = diagnostics->fPredByObserved;
    const std::size_t nRows = std::min({data.fvObserved.size(), data.fvStatistic.size(), data.fvFrequency.size()});
    const std::string& source = fpState->fSourceName;
    const ChartString title = LookUpText("Predicted by Observed");

    struct Column {
        const char* fName;
        const char* fSlot;
        std::string fLabel;
        const std::vector<double>& fvValues;
    };
    const Column columns[] = {
        {"X", "X", fpState->fTargetLabel, data.fvObserved},
        {"Y", "Y", LookUpText("E61604").toUTF8(), data.fvStatistic},
        {"Frequency", "Transparency", LookUpText("E60352").toUTF8(), data.fvFrequency},
    };
    XViZTemplate viz;
    viz.setTemplateInternalName("GLMMPredictedByObserved");
    VarDataProcessor processor;
    processor.AddDataSource(source, static_cast<int>(nRows));
    for (const Column& column : columns) {
        VarDataProcessor::_varinfo variable;
        processor.AddVariable(source, column.fName, &variable);
        viz.addVariable(column.fSlot, column.fName, false, "", source, nullptr, column.fLabel);
        for (std::size_t i = 0; i < nRows; ++i) {
            processor.SetVariableValue(variable, static_cast<int>(i), column.fvValues[i]);
        }
    }
    viz.addLabel(0, title.toUTF8());
    std::string xml;
    std::string unused;
    viz.convert(xml, unused);
    SetLimits(xml, data);
    if (data.fTotalFreq < kManyRecords) HideLegend(xml);
    try {
        XDocument document(xml);
        document.setEditor(2);
        document.setLanguage();
        XGraph graph = document.getExternalGraph();
        graph.getVariable("X", 0).setFormat(fpState->fTargetFormat);
        graph.getVariable("Y", 0).setFormat(fpState->fTargetFormat);
        Send(document, title, processor);
    } catch (...) {  // the chart is missing then, and nothing else
    }
}

}  // namespace hierfit
