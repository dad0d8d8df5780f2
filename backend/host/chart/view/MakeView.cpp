#include "host/chart/view/MakeView.h"

#include <algorithm>

#include "host/chart/view/Drawing.h"
#include "host/chart/view/UnknownReferences.h"
#include "host/chart/view/parts/FrameView.h"

namespace hierfit::chart {

namespace {

bool HasLinks(const Plot& plot) {
    return std::any_of(plot.fvMarks.begin(), plot.fvMarks.end(), [](const Mark& mark) {
        return mark.fKind == Mark::Kind::Links || mark.fKind == Mark::Kind::Anchor;
    });
}

Drawing MakeDrawing(const ViewContext& context) {
    const Plot& plot = context.fSpecification.fPlot;
    if (plot.fArrange == Plot::Arrange::Levels) return MakeLevelsDrawing(context);
    if (plot.fArrange == Plot::Arrange::Circle) return MakeCircleDrawing(context);
    if (plot.fBars) return MakeHistogramDrawing(context);
    return HasLinks(plot) ? MakeDiagramDrawing(context) : MakeScatterDrawing(context);
}

void RemarkInset(const Inset& inset, Remarks& remarks) {
    RemarkUnknownReferences(*inset.fpChart, ShownData(*inset.fpChart, inset.fvData, {}), remarks);
}

}  // namespace

View MakeView(const Specification& specification, const std::vector<document::ChartSource>& data,
              const std::vector<VariableSetting>& settings) {
    const ShownData shownData(specification, data, settings);
    Drawing drawing = MakeDrawing({specification, shownData});
    View view;
    view.fJson = FrameView(specification, drawing);
    view.fShown = std::move(drawing.fShown);
    Remarks remarks;
    RemarkUnknownReferences(specification, shownData, remarks);
    if (specification.fInset && specification.fInset->fpChart) RemarkInset(*specification.fInset, remarks);
    view.fvRemarks = remarks.Take();
    return view;
}

}  // namespace hierfit::chart
