#pragma once

#include "host/chart/specification/Specification.h"
#include "host/chart/view/ShownData.h"

namespace hierfit::chart {

/// What a view is made from: the specification and its data as they are shown. It borrows both.
struct ViewContext {
    const Specification& fSpecification;
    const ShownData& fData;
};

}  // namespace hierfit::chart
