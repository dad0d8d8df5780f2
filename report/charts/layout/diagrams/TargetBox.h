#pragma once

#include <string>
#include <vector>

#include "host/document/Picture.h"
#include "report/charts/layout/Axes.h"

namespace hierfit::report::charts {

/// The box that all links of a network lead to: the target's name and below it the histogram, whichever there is.
/// Without both there is no box, and it has no width.
struct TargetBox {
    Frame fFrame;
    std::vector<std::string> fvTitle;
    bool fHasHistogram = false;

    bool IsEmpty() const { return fvTitle.empty() && !fHasHistogram; }
};

/// How wide a box may be, in pixels.
struct BoxWidths {
    double fLeast;  ///< with a histogram
    double fMost;
};

/// A box at 0, 0: about as wide as wished where it holds a histogram, else as its name.
TargetBox MakeTargetBox(const document::NetworkPicture& picture, double wished, const BoxWidths& widths);

void AddTargetBox(Scene& scene, const document::NetworkPicture& picture, const TargetBox& box);

}  // namespace hierfit::report::charts
