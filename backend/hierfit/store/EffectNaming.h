#pragma once

#include <string>
#include <vector>

#include "hierfit/store/BuildSettings.h"

namespace hierfit {

/// The name of an effect put together from the names of its fields: "a * b" crossed, "a(b)" nested. A bracket opens
/// where the nesting level rises above the highest before it; all close at the end. No field gives an empty name.
std::string EffectName(const EffectStruct& effect, const std::vector<std::string>& fieldNames);

}  // namespace hierfit
