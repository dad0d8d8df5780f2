#include "host/chart/picture/MakePicture.h"

#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/PictureContext.h"
#include "host/chart/picture/UnknownReferences.h"

namespace hierfit::chart {

namespace {

bool HasLinks(const Plot& plot) {
    return std::ranges::any_of(plot.fvMarks, [](const Mark& mark) {
        return mark.fKind == Mark::Kind::Links || mark.fKind == Mark::Kind::Anchor;
    });
}

document::Picture MakeContent(const PictureContext& context) {
    const Plot& plot = context.fSpecification.fPlot;
    if (plot.fArrange == Plot::Arrange::Levels) return MakeLevelsPicture(context);
    if (plot.fArrange == Plot::Arrange::Circle) return MakeCirclePicture(context);
    if (plot.fBars) return MakeHistogramPicture(context);
    return HasLinks(plot) ? MakeNetworkPicture(context) : MakeScatterPicture(context);
}

void RemarkInset(const Inset& inset, Remarks& remarks) {
    RemarkUnknownReferences(*inset.fpChart, ShownData(*inset.fpChart, inset.fvData, {}), remarks);
}

std::string InWordsOrNone(const std::optional<Words>& words) { return words ? InWords(*words) : std::string(); }

}  // namespace

MadePicture MakePicture(const Specification& specification, const std::vector<document::ChartSource>& data,
                        const std::vector<VariableSetting>& settings) {
    const ShownData shownData(specification, data, settings);
    document::Picture picture = MakeContent({specification, shownData});
    picture.fTitle = InWordsOrNone(specification.fTitle);
    picture.fSubtitle = InWordsOrNone(specification.fSubtitle);
    picture.fCaption = InWordsOrNone(specification.fCaption);
    picture.fFootnote = InWordsOrNone(specification.fFootnote);
    Remarks remarks;
    RemarkUnknownReferences(specification, shownData, remarks);
    if (specification.fInset && specification.fInset->fpChart) RemarkInset(*specification.fInset, remarks);
    return {std::move(picture), remarks.Take()};
}

}  // namespace hierfit::chart
