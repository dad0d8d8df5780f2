#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/MarkNumbers.h"
#include "host/chart/picture/Numbers.h"
#include "host/chart/picture/PictureContext.h"

namespace hierfit::chart {

namespace {

using document::PictureAxis;
using document::ScatterPicture;
using document::ScatterPoint;

/// The variables of the points; null where there are none. Titles as the specification or the variables have them.
struct ScatterVariables {
    explicit ScatterVariables(const PictureContext& context) {
        const Mark* mark = context.fSpecification.fPlot.Find(Mark::Kind::Points);
        if (mark == nullptr) return;
        fpX = context.fData.Find(mark->fSource, mark->fX);
        fpY = context.fData.Find(mark->fSource, mark->fY);
        fpFrequency = context.fData.Find(mark->fSource, mark->fOpacity);
        fXTitle = AxisTitleOr(context.fSpecification, true, fpX == nullptr ? std::string() : fpX->Label());
        fYTitle = AxisTitleOr(context.fSpecification, false, fpY == nullptr ? std::string() : fpY->Label());
        if (fpFrequency != nullptr) fReference = mark->fOpacity;
    }

    const ShownVariable* fpX = nullptr;
    const ShownVariable* fpY = nullptr;
    const ShownVariable* fpFrequency = nullptr;
    std::string fXTitle;
    std::string fYTitle;
    std::string fReference;  ///< to the variable of frequencies
};

/// A point without a number for x or y is left out; one without a frequency stands for one record.
std::vector<ScatterPoint> ReadPoints(const ScatterVariables& variables) {
    std::vector<ScatterPoint> points;
    if (variables.fpX == nullptr || variables.fpY == nullptr) return points;
    for (std::size_t row = 0; row < variables.fpX->Rows(); ++row) {
        const auto x = PlaceableAt(variables.fpX, row);
        const auto y = PlaceableAt(variables.fpY, row);
        if (!x || !y) continue;
        points.push_back({*x, *y, std::max(0.0, PlaceableAt(variables.fpFrequency, row).value_or(1)), {}});
    }
    std::ranges::stable_sort(points, {}, &ScatterPoint::fFrequency);
    return points;
}

/// The words of a point's numbers.
std::vector<std::string> WordsOf(const ScatterVariables& variables, const ScatterPoint& point) {
    std::vector<std::string> words = {variables.fpX->Figure(point.fX), variables.fpY->Figure(point.fY)};
    if (variables.fpFrequency != nullptr) words.push_back(ShortNumber(point.fFrequency));
    return words;
}

std::string Tip(const ScatterVariables& variables, const ScatterPoint& point) {
    const std::vector<std::string> words = WordsOf(variables, point);
    std::string tip =
        CutName(variables.fXTitle) + ": " + words[0] + "\n" + CutName(variables.fYTitle) + ": " + words[1];
    if (words.size() > 2) tip += "\n" + variables.fpFrequency->Name() + ": " + words[2];
    return tip;
}

/// With the range of what stands upwards.
std::string Sentence(const ScatterVariables& variables, const std::vector<ScatterPoint>& points) {
    if (points.empty()) return Translated("Chart: ^1. No values.", {variables.fYTitle});
    const auto [least, greatest] = std::ranges::minmax_element(points, {}, &ScatterPoint::fY);
    return Translated("Scatter plot of ^1 by ^2. Points: ^3, from ^4 to ^5.",
                      {variables.fYTitle, variables.fXTitle, std::to_string(points.size()),
                       variables.fpY->Figure(least->fY), variables.fpY->Figure(greatest->fY)});
}

/// Its rows are points, which have no names.
document::ChartTable ShowPoints(const ScatterVariables& variables, const std::vector<ScatterPoint>& points) {
    document::ChartTable table;
    table.fvColumns = {TitleOr(variables.fXTitle, Translated("Level")),
                       TitleOr(variables.fYTitle, Translated("Estimated Mean"))};
    if (variables.fpFrequency != nullptr) {
        table.fvColumns.push_back(TitleOr(variables.fpFrequency->Name(), Translated("E60352")));
    }
    for (const ScatterPoint& point : points) table.fvRows.push_back(WordsOf(variables, point));
    return table;
}

void Hold(PictureAxis& axis, std::optional<double> number) {
    if (!number) return;
    axis.fLow = std::min(axis.fLow.value_or(*number), *number);
    axis.fHigh = std::max(axis.fHigh.value_or(*number), *number);
}

/// What both ends of an axis hold gets some room about it.
void Widen(PictureAxis& axis) {
    constexpr double kRoomAtEnds = 0.03;
    const double low = axis.fLow.value_or(0);
    const double high = axis.fHigh.value_or(0);
    const double room = high > low ? (high - low) * kRoomAtEnds : RoomAbout(low);
    axis.fLow = std::max(low - room, -kFarthest);
    axis.fHigh = std::min(high + room, kFarthest);
}

/// The axes hold the specification's span and every point; both are the same where the plot is square.
void SetLimits(const Plot& plot, ScatterPicture& picture) {
    for (const auto& number : {Placeable(plot.fX.fMin), Placeable(plot.fX.fMax)}) Hold(picture.fX, number);
    for (const auto& number : {Placeable(plot.fY.fMin), Placeable(plot.fY.fMax)}) Hold(picture.fY, number);
    for (const ScatterPoint& point : picture.fvPoints) {
        Hold(picture.fX, point.fX);
        Hold(picture.fY, point.fY);
    }
    if (plot.fSquare) {
        for (const auto& number : {picture.fX.fLow, picture.fX.fHigh}) Hold(picture.fY, number);
        picture.fX.fLow = picture.fY.fLow;
        picture.fX.fHigh = picture.fY.fHigh;
    }
    Widen(picture.fX);
    Widen(picture.fY);
}

ScatterPicture Draw(const Specification& specification, const ScatterVariables& variables,
                    std::vector<ScatterPoint> points) {
    ScatterPicture picture;
    picture.fX.fTitle = variables.fXTitle;
    picture.fY.fTitle = variables.fYTitle;
    picture.fIsSquare = specification.fPlot.fSquare;
    picture.fHasDiagonal = specification.fPlot.fHasDiagonal;
    if (variables.fpFrequency != nullptr) {
        const Legend* legend = FindLegend(specification, variables.fReference);
        const std::string& name = variables.fpFrequency->Name();
        picture.fHasFrequencies = true;
        picture.fFrequencyTitle = legend == nullptr ? name : LegendTitleOr(*legend, name);
        picture.fHasLegend = legend != nullptr && !points.empty();
    }
    picture.fvPoints = std::move(points);
    SetLimits(specification.fPlot, picture);
    Thinning(picture.fvPoints.size()).Thin(picture.fvPoints);
    for (ScatterPoint& point : picture.fvPoints) point.fTip = Tip(variables, point);
    return picture;
}

}  // namespace

document::Picture MakeScatterPicture(const PictureContext& context) {
    const ScatterVariables variables(context);
    std::vector<ScatterPoint> points = ReadPoints(variables);
    document::Picture picture;
    Thinning(points.size()).AddNote(picture.fvNotes);
    picture.fSentence = Sentence(variables, points);
    picture.fvTables.push_back(ShowPoints(variables, points));
    picture.fContent = Draw(context.fSpecification, variables, std::move(points));
    return picture;
}

}  // namespace hierfit::chart
