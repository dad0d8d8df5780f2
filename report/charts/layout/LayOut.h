#pragma once

#include "host/document/Picture.h"
#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// Widths that pictures are laid out for, in pixels: the column of a page on a desk, which paper takes too, and a
/// phone.
inline constexpr double kDeskWidth = 720;
inline constexpr double kPhoneWidth = 340;

/// Lays a picture out, with its title and notes, in at most the width; it is as wide as its content asks. What does not
/// fit the width even at its smallest, such as a hundred levels that may not be turned, makes the scene wider. At every
/// width the marks are the same, in the same order: a page names those of one layout by those of another.
Scene LayOut(const document::Picture& picture, double width);

}  // namespace hierfit::report::charts
