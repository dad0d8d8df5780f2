#pragma once

#include <string>
#include <vector>

namespace hierfit::test {

/// A template as it is when the procedure has put words and figures into it.
struct PatchedChart {
    std::string fName;
    std::string fXml;
};

/// Every template in every shape that a run gives it, with one label in all places that take a label.
std::vector<PatchedChart> MakePatchedCharts(const std::string& label);

/// Labels that could be taken for something else.
std::vector<std::string> HostileLabels();

/// Where the procedure itself takes a label for a marker: the search for one begins in the label, or the cut of the
/// surplus guides ends in it. Such a chart may lose words or be left out, and no more than that.
bool IsTakenForMarker(const std::string& chart, const std::string& label);

}  // namespace hierfit::test
