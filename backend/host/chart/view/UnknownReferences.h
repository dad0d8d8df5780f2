#pragma once

#include <string>
#include <vector>

#include "host/chart/specification/Specification.h"
#include "host/chart/view/ShownData.h"

namespace hierfit::chart {

/// The references of marks, bars, colours and panels that no slot and no variable of their source answers, in the order
/// of the specification, each once: what depends on them is not drawn. A variable without values answers; a source without
/// variables asks for none, as that of a diagram without nodes.
std::vector<std::string> UnknownReferences(const Specification& specification, const ShownData& data);

}  // namespace hierfit::chart
