#pragma once

#include <string>
#include <vector>

#include "host/KEST_Format.h"

namespace hierfit::pmml {

/// One category of a field.
struct Category {
    std::string fValue;
    std::string fLabel;  ///< empty for none
};

/// One field of the data dictionary (PMML 4.4, DataField), in the host's terms.
struct Field {
    std::string fName;
    std::string fLabel;         ///< `displayName`; empty for none
    int fMeasurementLevel = 3;  ///< `optype`: categorical 1, ordinal 2, continuous 3
    int fType = 2;              ///< `dataType`: 0 string, 1 integer, 2 real
    KEST_Format fFormat;  ///< the extension "format", else F8.2, F8.0 for integers, or A of the longest value's width
    std::vector<Category> fvCategories;  ///< the `Value`s whose `property` is "valid" or absent
};

}  // namespace hierfit::pmml
