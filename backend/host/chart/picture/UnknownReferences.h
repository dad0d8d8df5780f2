#pragma once

#include "host/chart/picture/ShownData.h"
#include "host/chart/specification/Remarks.h"
#include "host/chart/specification/Specification.h"

namespace hierfit::chart {

/// Remarks on the references of marks, bars, colours and panels that no slot and no variable of their source answers:
/// what depends on them is not drawn. A variable without values answers; a source without variables asks for none, as
/// that of a diagram without nodes.
void RemarkUnknownReferences(const Specification& specification, const ShownData& data, Remarks& remarks);

}  // namespace hierfit::chart
