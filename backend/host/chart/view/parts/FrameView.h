#pragma once

#include <string>

#include "host/chart/view/Drawing.h"

namespace hierfit::chart {

/// The whole view as JSON text: the drawing with title, caption, footnote, words of levels and the common look. An
/// invalid byte of a text becomes U+FFFD.
std::string FrameView(const Specification& specification, Drawing& drawing);

}  // namespace hierfit::chart
