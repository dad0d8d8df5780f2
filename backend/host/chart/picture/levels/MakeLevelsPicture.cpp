#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/MarkNumbers.h"
#include "host/chart/picture/levels/LineGuides.h"
#include "host/chart/picture/levels/MeansWords.h"

namespace hierfit::chart {

namespace {

bool IsHidden(const Specification& specification, const std::string& reference) {
    return std::ranges::any_of(specification.fvLegends,
                               [&](const Legend& legend) { return legend.fOf == reference && !legend.fIsVisible; });
}

std::vector<int*> NumbersOf(std::vector<document::LevelMark>& marks, int document::LevelMark::*number) {
    std::vector<int*> numbers;
    numbers.reserve(marks.size());
    for (document::LevelMark& mark : marks) numbers.push_back(&(mark.*number));
    return numbers;
}

document::PictureClasses SeriesOf(const Specification& specification, const Means& means,
                                  std::vector<document::LevelMark>& marks) {
    document::PictureClasses series;
    const MeansVariables& variables = means.fVariables;
    if (variables.fpColor == nullptr) return series;
    const Legend* legend = FindLegend(specification, variables.fColorReference);
    const std::string& label = variables.fpColor->Label();
    series.fTitle = legend == nullptr ? label : LegendTitleOr(*legend, label);
    series.fHasLegend = !variables.fIsContrast && !IsHidden(specification, variables.fColorReference);
    const auto kept = NumberAnew(means.fColors.Count(), NumbersOf(marks, &document::LevelMark::fSeries));
    series.fvWords = Pick(means.fColors.Texts(), kept);
    return series;
}

document::PictureEmphasis EmphasisOf(const Specification& specification, const Means& means) {
    document::PictureEmphasis emphasis;
    if (!means.fVariables.fIsContrast) return emphasis;
    const auto setOff = std::ranges::count_if(means.fvMarks, &document::LevelMark::fIsSetOff);
    if (setOff > 0) emphasis.fSetOff = Translated("Significant");
    if (setOff < std::ssize(means.fvMarks)) emphasis.fRest = Translated("Not Significant");
    const std::string& reference = means.fVariables.fMarkReference;
    emphasis.fHasLegend = reference.empty() || !IsHidden(specification, reference);
    return emphasis;
}

/// Levels in words. Of those that have numbers only those that occur stand on the axis.
void SetLevels(const Means& means, document::LevelsPicture& picture) {
    picture.fvLevels = means.fX.Texts();
    if (!means.fIsLinear) return;
    const auto kept = NumberAnew(means.fX.Count(), NumbersOf(picture.fvMarks, &document::LevelMark::fLevel));
    picture.fvLevels = Pick(picture.fvLevels, kept);
    for (const std::size_t level : kept) picture.fvNumbers.push_back(std::get<double>(means.fX.Value(level)));
}

document::PicturePanels ShowPanels(const Panels& panels, document::LevelsPicture& picture) {
    std::vector<document::PanelPlace*> places;
    for (document::LevelMark& mark : picture.fvMarks) places.push_back(&mark.fPanel);
    for (document::LevelGuide& guide : picture.fvGuides) places.push_back(&guide.fPanel);
    return panels.Show(places);
}

document::LevelsPicture Draw(const Specification& specification, Means& means, const Thinning& thinning) {
    document::LevelsPicture picture;
    picture.fIsContrast = means.fVariables.fIsContrast;
    picture.fValues = AxisWithin(specification.fPlot.fY, means.fVariables.fMeanTitle);
    picture.fPredictor = AxisWithin(specification.fPlot.fX, means.fVariables.fXTitle);
    thinning.Thin(means.fvMarks);
    for (document::LevelMark& mark : means.fvMarks) mark.fTip = MeanTip(means, mark);
    picture.fEmphasis = EmphasisOf(specification, means);
    picture.fvGuides = GuidesOf(specification, means);
    picture.fvMarks = std::move(means.fvMarks);
    picture.fSeries = SeriesOf(specification, means, picture.fvMarks);
    SetLevels(means, picture);
    picture.fPanels = ShowPanels(means.fPanels, picture);
    return picture;
}

}  // namespace

document::Picture MakeLevelsPicture(const PictureContext& context) {
    Means means(context);
    const Thinning thinning(means.fvMarks.size());
    document::Picture picture;
    if (std::string note = IntervalNote(means); !note.empty()) picture.fvNotes.push_back(std::move(note));
    thinning.AddNote(picture.fvNotes);
    picture.fSentence = MeansSentence(means);
    picture.fvTables.push_back(MeansTable(means));
    picture.fContent = Draw(context.fSpecification, means, thinning);
    return picture;
}

}  // namespace hierfit::chart
