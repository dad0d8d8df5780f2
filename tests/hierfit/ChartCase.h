#pragma once

#include <functional>
#include <span>
#include <string>

#include "hierfit/charts/HFITChartOutput.h"
#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {

/// A store that a case fills, and the charts that come of it. The keys whose marks the charts fill in have short words,
/// such as "^1: ^2 > ^3" for "Simple Higher".
struct ChartStage {
    ChartStage();

    HFITChartOutput Charts() { return {&fRun.GetOutput(), fRun.GetDataSource(), &fStats}; }
    EffectStruct Effect(const Strings& fields);
    CFStatVariableValue Value(const std::string& field, const std::string& text);

    ProcedureRun fRun;
    HFITOutputStats fStats;
};

/// A step that fills the store and makes charts.
struct ChartCase {
    std::function<void(ChartStage&)> fMake;
    Strings fvHolds = {};  ///< texts of the charts as they are drawn, in this order; behind "!" what they lack
    const char* fDiagnostics = "";
};

/// Compares the charts of each case. None may come where a case holds nothing.
void CheckCharts(std::span<const ChartCase> cases);

}  // namespace hierfit::test
