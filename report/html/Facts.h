#pragma once

#include <optional>
#include <string>
#include <vector>

#include "report/html/Contents.h"

namespace hierfit::report::html {

/// What tells a model from others at a glance, as far as the document has it.
struct Facts {
    std::string fTarget;  ///< the target, or its events; empty where no model summary names one
    std::string fTrials;  ///< what the events are counted out of; mostly empty
    std::optional<double> fRecords;
    std::optional<double> fAkaike;  ///< information criteria, where the model summary has them
    std::optional<double> fBayesian;
};

/// Reads the facts from the items of a page. Records are counted where the document counts them itself: in the points
/// of the predicted by the observed values, else in a classification of a target that is no count of events.
Facts FindFacts(const std::vector<items::Entry>& entries);

/// The target with what its events are counted out of.
std::string SpellTarget(const Facts& facts);

}  // namespace hierfit::report::html
