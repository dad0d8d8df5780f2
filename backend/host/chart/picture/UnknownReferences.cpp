#include "host/chart/picture/UnknownReferences.h"

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
    Search(const ShownData& data, Remarks& remarks) : fpData(&data), fpRemarks(&remarks) {}

    void Look(std::string_view source, const std::string& reference) {
        if (reference.empty() || !fpData->Lacks(source, reference)) return;
        fpRemarks->Add("its data hold no variable " + Quote(reference));
    }

  private:
    const ShownData* fpData;
    Remarks* fpRemarks;
};

}  // namespace

void RemarkUnknownReferences(const Specification& specification, const ShownData& data, Remarks& remarks) {
    Search search(data, remarks);
    const Plot& plot = specification.fPlot;
    for (const Mark& mark : plot.fvMarks) {
        for (const auto reference : kReferences) search.Look(mark.fSource, mark.*reference);
    }
    if (plot.fBars) {
        search.Look(plot.fBars->fSource, plot.fBars->fX);
        search.Look(plot.fBars->fSource, plot.fBars->fY);
    }
    search.Look({}, plot.fColor);
    if (!specification.fFaceting) return;
    for (const std::string& variable : specification.fFaceting->fvVariables) search.Look({}, variable);
}

}  // namespace hierfit::chart
