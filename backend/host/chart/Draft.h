#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/VarDataProcessor.h"
#include "host/chart/picture/VariableSetting.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

class DataStore;

/// What was set on one variable: each call as it came, and what the calls come to.
struct DraftVariable {
    document::ChartSetting fCalls;
    VariableSetting fSetting;
};

/// A chart while it is put together. Document, graph and variables share it.
class Draft {
  public:
    explicit Draft(std::string xml) : fXml(std::move(xml)) {}

    /// Number of the entry for the index-th variable of a name; the same one for the same name and index.
    int FindOrAddVariable(const std::string& name, int index);

    VariableSetting& SettingOf(int entry) { return fvVariables[static_cast<std::size_t>(entry)].fSetting; }
    void Record(int entry, std::string call, std::vector<document::ChartCall::Argument> arguments);

    /// Puts the chart into the output of the run that is under way. False, with a diagnostic, for XML that is no chart.
    bool Send(const std::array<bool, 3>& arguments) const;

    std::string fXml;
    std::string fDescription;
    int fEditor = 0;
    std::shared_ptr<const DataStore> fpData;

  private:
    std::vector<DraftVariable> fvVariables;
};

}  // namespace hierfit::chart
