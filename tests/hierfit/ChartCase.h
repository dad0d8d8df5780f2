#pragma once

#include <functional>
#include <string>

#include "hierfit/charts/HFITChartOutput.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {

/// A store that a case fills, and the charts that come of it. Two values of "a" and one of "b" have labels; the keys
/// whose marks the charts fill in have short words, such as "^1: ^2 > ^3" for "Simple Higher".
struct ChartStage {
    ChartStage();

    int Index(const std::string& field) { return fRun.GetDataSource()->FindVarIndex(field, 0); }

    EffectStruct Effect(const Strings& fields);
    CFStatVariableValue Value(const std::string& field, const std::string& text);

    ProcedureRun fRun;
    HFITOutputStats fStats;
};

/// A store and the charts that a builder makes of it.
struct ChartCase {
    const char* fName;
    std::function<void(ChartStage&)> fFill;
    std::function<void(ChartStage&, HFITChartOutput&)> fBuild;
    const char* fDrawn;       ///< behind a line feed; "" for none, null for any
    Strings fvXmlHolds = {};  ///< in this order
    Strings fvXmlLacks = {};
    const char* fDiagnostics = "";
};

void CheckChart(const ChartCase& one);

template <std::size_t n>
void CheckCharts(const ChartCase (&cases)[n]) {
    for (const ChartCase& one : cases) CheckChart(one);
}

/// The XML of all charts, one behind the other.
std::string XmlOfCharts(const std::list<document::Item>& items);

/// Fills for a case that needs none.
inline void Nothing(ChartStage&) {}

}  // namespace hierfit::test
