// Feeds a data stream, a label and chart XML, parted by markers that choose settings, through the chart library.

#include <memory>
#include <optional>

#include "fuzz/Checks.h"
#include "fuzz/Target.h"
#include "fuzz/change/Parts.h"
#include "host/VarDataProcessor.h"
#include "host/XDocument.h"
#include "host/chart/data/DataStream.h"
#include "host/context/RunContext.h"

namespace hierfit::fuzz {

namespace {

using document::ChartSource;

void Fill(VarDataProcessor& processor, const std::vector<ChartSource>& sources) {
    for (const ChartSource& source : sources) {
        processor.AddDataSource(source.fName, source.fRows);
        for (const document::ChartVariable& variable : source.fvVariables) {
            VarDataProcessor::_varinfo handle;
            processor.AddVariable(source.fName, variable.fName, &handle);
            for (int row = 0; const document::ChartValue& value : variable.fvValues) {
                if (const auto* number = std::get_if<double>(&value)) {
                    processor.SetVariableValue(handle, row, *number);
                } else if (const auto* text = std::get_if<std::string>(&value)) {
                    processor.SetStringVariableValue(handle, row, *text);
                }
                ++row;
            }
        }
    }
}

/// What is written as a stream can be read from it.
void CheckStream(const VarDataProcessor& processor) {
    int length = 0;
    const std::unique_ptr<const char[]> stream(processor.GetDataStream(&length));
    if (!chart::ReadDataStream({stream.get(), static_cast<std::size_t>(length)})) Fail("the stream cannot be read");
}

/// A variable of the data source that is called by the label, and two of whose values are.
KEST_Variable MakeVariable(const std::string& label) {
    KEST_VariableDefinition definition;
    definition.fName = label;
    definition.fLabel = label;
    definition.fFormat = {12, KEST_FormatType::Numeric, 1};
    definition.fValueLabels.fOfNumbers = {{0.0, label}, {1.0, label}};
    return KEST_Variable(std::move(definition));
}

void Set(XVariable variable, int choice, const KEST_Variable& known, const ChartString& label) {
    if (choice % 3 > 0) variable.setCategorical(choice % 3 == 1);
    if (choice / 3 == 0) return;
    variable.setLabel(label);
    variable.addRelabel(2.0, label);
    if (choice / 3 == 1) return;
    variable.setKESTVariable(&known);
    variable.addRelabels();
    variable.setFormatBasedOnKESTVariable(&known);
    variable.SetFormatPrefix(label);
}

}  // namespace

std::vector<const Form*> FormsOfInput() { return {&kJson, &kPlainText, &kXml}; }

void RunInput(std::string_view input) {
    const Parts parts = SplitInput(input, 3);
    const std::string& label = parts.fvTexts[1];
    const ChartString words = XUtility::ChartStringFromLocalCodePage(label);
    const KEST_Variable known = MakeVariable(label);
    const auto sources = chart::ReadDataStream(parts.fvTexts[0]).value_or(std::vector<document::ChartSource>());

    context::RunContext run({}, nullptr, HIERFIT_SHARE);
    const context::RunContext::Activation activation(run);
    VarDataProcessor processor;
    Fill(processor, sources);
    CheckStream(processor);
    XDocument document(parts.fvTexts[2]);
    if (parts.fMarkers[1] % 2 == 1) document.applyTemplates();
    document.SetDescription(words);
    document.SetChartData(&processor);
    XGraph graph = document.getExternalGraph();
    for (const document::ChartSource& source : sources) {
        for (const document::ChartVariable& variable : source.fvVariables) {
            Set(graph.getVariable(variable.fName, 0), parts.fMarkers[0], known, words);
        }
    }
    const bool isSent = document.SendChart(true, false, false);
    if (isSent == run.GetDocument().fItems.empty()) Fail("what was sent is not in the output");
    if (!isSent && run.GetDocument().fvDiagnostics.empty()) Fail("no text says why the chart was left out");
    RenderFreshAndSaved(run.GetDocument());
}

}  // namespace hierfit::fuzz
