#include "host/chart/view/levels/LevelsMarks.h"

#include "host/chart/view/parts/ChartWords.h"

namespace hierfit::chart {

namespace {

void SetIfMissing(std::string& reference, const std::string& given) {
    if (reference.empty()) reference = given;
}

/// Takes what one mark tells of the chart's variables.
void Take(const Mark& mark, const ViewContext& context, LevelsMarks& marks) {
    const auto find = [&](const ShownVariable*& variable, const std::string& reference) {
        if (variable == nullptr) variable = context.fData.Find(mark.fSource, reference);
    };
    SetIfMissing(marks.fSource, mark.fSource);
    SetIfMissing(marks.fXReference, mark.fX);
    SetIfMissing(marks.fMeanReference, mark.fY);
    find(marks.fpX, mark.fX);
    find(marks.fpMean, mark.fY);
    find(marks.fpRange, mark.fOf);
    find(marks.fpMark, mark.fMark);
    find(marks.fpTip, mark.fTip);
    marks.fIsContrast = marks.fIsContrast || mark.fKind == Mark::Kind::Stems;
}

}  // namespace

LevelsMarks FindLevelsMarks(const ViewContext& context) {
    const Specification& specification = context.fSpecification;
    LevelsMarks marks;
    for (const Mark& mark : specification.fPlot.fvMarks) Take(mark, context, marks);
    marks.fColorReference = specification.fPlot.fColor;
    marks.fpColor = context.fData.Find(marks.fSource, marks.fColorReference);
    const std::string mean = Translated("Estimated Mean");
    const auto label = [&](const std::string& reference) { return context.fData.LabelOf(marks.fSource, reference); };
    const std::string meanLabel = label(marks.fMeanReference);
    marks.fXTitle = AxisTitleOr(specification, true, label(marks.fXReference));
    marks.fMeanTitle = AxisTitleOr(specification, false, meanLabel.empty() ? mean : meanLabel);
    marks.fXName = PopupOr(specification, marks.fXReference, label(marks.fXReference));
    marks.fMeanName = PopupOr(specification, marks.fMeanReference, mean);
    marks.fColorName = PopupOr(specification, marks.fColorReference, label(marks.fColorReference));
    return marks;
}

}  // namespace hierfit::chart
