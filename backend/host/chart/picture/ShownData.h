#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "host/chart/picture/ShownVariable.h"

namespace hierfit::chart {

/// The variables of a chart, found by slot or by name.
class ShownData {
  public:
    /// All three must outlive it.
    ShownData(const Specification& specification, const std::vector<document::ChartSource>& data,
              const std::vector<VariableSetting>& settings);

    /// The variable that a reference of a mark means, or null when there is none or nothing was written to it. Without
    /// a source the first variable of that slot or name counts.
    const ShownVariable* Find(std::string_view source, std::string_view reference) const;

    /// Whether a source has variables, and a reference means none of them. Without a source all count.
    bool Lacks(std::string_view source, std::string_view reference) const;

    /// The label of the variable that a reference means, written to or not; empty when there is none.
    std::string LabelOf(std::string_view source, std::string_view reference) const;

  private:
    struct Entry {
        std::string_view fSource;
        std::string_view fName;
        ShownVariable fVariable;
    };

    const Field* FieldOf(std::string_view source, std::string_view name) const;
    static const VariableSetting* SettingOf(const std::vector<VariableSetting>& settings, std::string_view name,
                                            int index);
    const ShownVariable* FindAny(std::string_view source, std::string_view reference) const;
    const ShownVariable* FindNamed(std::string_view source, std::string_view name) const;

    const Specification* fpSpecification;
    std::deque<Entry> fvEntries;
};

}  // namespace hierfit::chart
