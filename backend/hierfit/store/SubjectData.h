#pragma once

#include <string>
#include <vector>

#include "host/CFStatVariableValue.h"

namespace hierfit {

/// The values of the fields that identify one data segment, a subject or a group. The vectors are parallel.
struct SubjectData {
    std::vector<std::string> fSubjectNames;
    std::vector<int> fSubjectIndices;  ///< data-source indices
    std::vector<CFStatVariableValue> fSubjectValues;
    std::vector<int> fSubjectLevels;  ///< number of categories
};

}  // namespace hierfit
