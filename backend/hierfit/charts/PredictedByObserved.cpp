#include <algorithm>

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "host/Diagnose.h"
#include "host/XViZTemplate.h"

namespace hierfit {

namespace {

/// Below this number of records a point's transparency says little.
constexpr int kManyRecords = 100;

/// A variable of the chart: its name, the slot that it fills, its values by row.
struct Column {
    const char* fName;
    const char* fSlot;
    std::string fLabel;
    const std::vector<double>* fpValues;
    VarDataProcessor::_varinfo fVariable;
};

void Declare(Column& column, const std::string& source, VarDataProcessor& processor, XViZTemplate& viz) {
    column.fVariable = AddVariable(processor, source, column.fName);
    viz.addVariable(column.fSlot, column.fName, false, "", source, nullptr, column.fLabel);
}

void WriteRow(const std::vector<Column>& columns, std::size_t row, VarDataProcessor& processor) {
    for (const Column& column : columns) {
        processor.SetVariableValue(column.fVariable, static_cast<int>(row), (*column.fpValues)[row]);
    }
}

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

    std::vector<Column> columns = {
        {"X", "X", fpState->fTargetLabel, &data.fvObserved, {}},
        {"Y", "Y", LookUpText("E61604").toUTF8(), &data.fvStatistic, {}},
        {"Frequency", "Transparency", LookUpText("E60352").toUTF8(), &data.fvFrequency, {}},
    };
    XViZTemplate viz;
    viz.setTemplateInternalName("GLMMPredictedByObserved");
    VarDataProcessor processor;
    processor.AddDataSource(source, static_cast<int>(nRows));
    for (Column& column : columns) Declare(column, source, processor, viz);
    viz.addLabel(0, title.toUTF8());
    for (std::size_t row = 0; row < nRows; ++row) WriteRow(columns, row, processor);
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
        document.SetDescription(title);
        document.SetChartData(&processor);
        document.SendChart(true, false, false);
    } catch (...) {  // the chart is missing then, and nothing else
        NoteDropped();
    }
}

}  // namespace hierfit
