#include "host/chart/view/UnknownReferences.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace hierfit::chart {

namespace {

constexpr std::array kReferences = {&Mark::fX,    &Mark::fY,      &Mark::fX2,     &Mark::fY2,
                                    &Mark::fOf,   &Mark::fNode,   &Mark::fFrom,   &Mark::fTo,
                                    &Mark::fText, &Mark::fBeside, &Mark::fShape,  &Mark::fOpacity,
                                    &Mark::fTip,  &Mark::fSign,   &Mark::fWeight, &Mark::fMark};

class Search {
  public:
    explicit Search(const ShownData& data) : fpData(&data) {}

    void Look(std::string_view source, const std::string& reference) {
        if (reference.empty() || !fpData->Lacks(source, reference)) return;
        if (std::ranges::find(fvUnknown, reference) == fvUnknown.end()) fvUnknown.push_back(reference);
    }
    std::vector<std::string> Take() { return std::move(fvUnknown); }

  private:
    const ShownData* fpData;
    std::vector<std::string> fvUnknown;
};

}  // namespace

std::vector<std::string> UnknownReferences(const Specification& specification, const ShownData& data) {
    Search search(data);
    const Plot& plot = specification.fPlot;
    for (const Mark& mark : plot.fvMarks) {
        for (const auto reference : kReferences) search.Look(mark.fSource, mark.*reference);
    }
    if (plot.fBars) {
        search.Look(plot.fBars->fSource, plot.fBars->fX);
        search.Look(plot.fBars->fSource, plot.fBars->fY);
    }
    search.Look({}, plot.fColor);
    if (!specification.fFaceting) return search.Take();
    for (const std::string& variable : specification.fFaceting->fvVariables) search.Look({}, variable);
    return search.Take();
}

}  // namespace hierfit::chart
