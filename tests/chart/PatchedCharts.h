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

/// Labels that could be taken for something else, each with a name.
struct Label {
    std::string fName;
    std::string fText;
};
std::vector<Label> HostileLabels();

}  // namespace hierfit::test
