#include "host/chart/Draft.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "host/Diagnose.h"
#include "host/chart/data/DataStore.h"
#include "host/chart/picture/MakePicture.h"
#include "host/chart/specification/ReadSpecification.h"
#include "host/context/RunContext.h"
#include "host/unicode/Excerpt.h"

namespace hierfit::chart {

namespace {

/// One template that holds something unknown may be used many times; it is told once in a run.
void DiagnoseOnce(context::RunContext& run, const std::string& text) {
    const auto& told = run.GetDocument().fvDiagnostics;
    const auto isSame = [&](const document::Diagnostic& diagnostic) { return diagnostic.fText == text; };
    if (std::ranges::none_of(told, isSame)) Diagnose(text);
}

}  // namespace

int Draft::FindOrAddVariable(const std::string& name, int index) {
    const auto isIt = [&](const DraftVariable& variable) {
        return variable.fCalls.fIndex == index && variable.fCalls.fName == name;
    };
    const auto found = std::ranges::find_if(fvVariables, isIt);
    const auto entry = static_cast<int>(found - fvVariables.begin());
    if (found == fvVariables.end()) {
        DraftVariable& added = fvVariables.emplace_back();
        added.fCalls = {name, index, {}};
        added.fSetting.fName = name;
        added.fSetting.fIndex = index;
    }
    return entry;
}

void Draft::Record(int entry, std::string call, std::vector<document::ChartCall::Argument> arguments) {
    fvVariables[static_cast<std::size_t>(entry)].fCalls.fvCalls.push_back({std::move(call), std::move(arguments)});
}

bool Draft::Send(const std::array<bool, 3>& arguments) const {
    auto result = ReadSpecification(fXml);
    if (const auto* failure = std::get_if<Unreadable>(&result)) {
        Diagnose("chart \"" + unicode::Excerpt(fDescription) + "\" was left out: " + failure->fReason);
        return false;
    }
    auto& [specification, remarks] = std::get<Reading>(result);
    auto& run = context::RunContext::Current();
    const auto tell = [&, templateName =
                              unicode::Excerpt(specification.fTemplate)](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) DiagnoseOnce(run, "chart " + templateName + ": " + text);
    };
    tell(remarks);

    document::Chart chart{fDescription, arguments, fEditor, specification.fTemplate, fXml, {}, {}, {}};
    if (fpData) chart.fvData = fpData->Snapshot();
    std::vector<VariableSetting> settings;
    for (const auto& [calls, setting] : fvVariables) {
        chart.fvSettings.push_back(calls);
        settings.push_back(setting);
    }
    MadePicture made = MakePicture(specification, chart.fvData, settings);
    chart.fPicture = std::move(made.fPicture);
    tell(made.fvRemarks);
    run.InnermostItems().push_back({std::move(chart)});
    return true;
}

}  // namespace hierfit::chart
