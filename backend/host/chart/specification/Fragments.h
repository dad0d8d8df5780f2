#pragma once

#include <string>

namespace hierfit::chart {

/// The chart XML with every `use` replaced by what the fragment of its name holds: the children of `fragment`, the root
/// of the file NAME.xml among the templates. A fragment may use others, to a depth of 8. A `use` that cannot be
/// followed is left as it stands. Texts are never looked into.
std::string ExpandFragments(const std::string& xml);

}  // namespace hierfit::chart
