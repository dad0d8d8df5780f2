#include "host/chart/picture/histogram/Histogram.h"

#include <algorithm>
#include <cmath>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

std::string CountLabel(const Specification& specification, const ShownVariable* counts) {
    const std::string& reference = specification.fPlot.fBars->fY;
    const bool hasLabel = counts != nullptr && counts->Label() != reference && !counts->Label().empty();
    return AxisTitleOr(specification, false, hasLabel ? counts->Label() : Translated("E60352"));
}

/// The range of a bin in words, or its one value.
std::string RangeInWords(const Bins& bins, const Bin& bin) {
    if (bins.AreWhole()) return ShortNumber(bin.fCenter);
    return Translated("^1 to ^2", {ShortNumber(bin.fLow), ShortNumber(bin.fHigh)});
}

/// The end of the axis of counts.
double Top(const Histogram& histogram) {
    constexpr double kRoomAbove = 1.04;
    constexpr double kMostOverBars = 2;
    double bars = 0;
    for (const Bin& bin : histogram.fBins.fvBins) bars = std::max(bars, bin.fCount);
    double curve = 0;
    for (const document::CurvePoint& point : histogram.fCurve.fvPoints) curve = std::max(curve, point.fY);
    const double top = std::max(bars, std::min(curve, kMostOverBars * bars)) * kRoomAbove;
    return top > 0 ? std::min(top, kFarthest) : 1;
}

bool AreCounts(const std::vector<Bin>& bins) {
    return std::ranges::all_of(bins, [](const Bin& bin) { return bin.fCount == std::floor(bin.fCount); });
}

}  // namespace

Histogram ReadHistogram(const Specification& specification, const ShownData& data, std::optional<int> fieldType) {
    Histogram histogram;
    if (!specification.fPlot.fBars) return histogram;
    const Bars& bars = *specification.fPlot.fBars;
    const ShownVariable* centers = data.Find(bars.fSource, bars.fX);
    const ShownVariable* counts = data.Find(bars.fSource, bars.fY);
    histogram.fBins = ReadBins(centers, counts);
    histogram.fLabel = AxisTitleOr(specification, true, data.LabelOf(bars.fSource, bars.fX));
    histogram.fCountLabel = CountLabel(specification, counts);
    const auto& curve = specification.fPlot.fCurve;
    if (curve) histogram.fCurve = MakeDistributionCurve(histogram.fBins, *curve, fieldType);
    return histogram;
}

document::HistogramPicture ShowHistogram(const Histogram& histogram) {
    const Bins& bins = histogram.fBins;
    const double room = bins.fvBins.size() == 1 ? bins.fWidth : 0;
    document::HistogramPicture picture;
    picture.fValues = {histogram.fLabel, std::max(bins.Low() - room, -kFarthest),
                       std::min(bins.High() + room, kFarthest), bins.AreWhole()};
    picture.fCounts = {histogram.fCountLabel, 0, Top(histogram), AreCounts(bins.fvBins)};
    const std::string name = CutName(histogram.fLabel) + ": ";
    const std::string countName = "\n" + CutName(histogram.fCountLabel) + ": ";
    for (const Bin& bin : bins.fvBins) {
        const std::string tip = name + RangeInWords(bins, bin) + countName + ShortNumber(bin.fCount);
        picture.fvBins.push_back({bin.fLow, bin.fHigh, bin.fCount, tip});
    }
    picture.fvCurve = histogram.fCurve.fvPoints;
    picture.fIsCurveOfCounts = histogram.fCurve.fIsOfCounts;
    return picture;
}

std::string HistogramSentence(const Histogram& histogram) {
    const Bins& bins = histogram.fBins;
    std::string sentence = Translated(
        "Histogram of ^1. Bars: ^2, from ^3 to ^4.",
        {histogram.fLabel, std::to_string(bins.fvBins.size()), ShortNumber(bins.Low()), ShortNumber(bins.High())});
    if (histogram.fCurve.fvPoints.empty()) return sentence;
    return sentence + " " + Translated("A curve shows the frequencies that the distribution lets expect.");
}

document::ChartTable ShowBins(const Histogram& histogram) {
    document::ChartTable table{{TitleOr(histogram.fLabel, Translated("Level")), histogram.fCountLabel}, 1, {}};
    for (const Bin& bin : histogram.fBins.fvBins) {
        table.fvRows.push_back({RangeInWords(histogram.fBins, bin), ShortNumber(bin.fCount)});
    }
    return table;
}

}  // namespace hierfit::chart
