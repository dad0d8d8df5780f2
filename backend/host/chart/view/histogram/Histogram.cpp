#include "host/chart/view/histogram/Histogram.h"

#include <algorithm>

#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

constexpr double kRoomAbove = 1.04;
constexpr double kMostOverBars = 2;

std::string CountLabel(const Specification& specification, const ShownVariable* counts) {
    const std::string& reference = specification.fPlot.fBars->fY;
    const bool hasLabel = counts != nullptr && counts->Label() != reference && !counts->Label().empty();
    return AxisTitleOr(specification, false, hasLabel ? counts->Label() : Translated("E60352"));
}

}  // namespace

double Histogram::Top() const {
    double bars = 0;
    for (const Bin& bin : fBins.fvBins) bars = std::max(bars, bin.fCount);
    double curve = 0;
    for (const CurvePoint& point : fCurve.fvPoints) curve = std::max(curve, point.fY);
    const double top = std::max(bars, std::min(curve, kMostOverBars * bars)) * kRoomAbove;
    return top > 0 ? top : 1;
}

double Histogram::Low() const { return fBins.Low() - (fBins.fvBins.size() == 1 ? fBins.fWidth : 0); }

double Histogram::High() const { return fBins.High() + (fBins.fvBins.size() == 1 ? fBins.fWidth : 0); }

double Histogram::Place(double number) const { return Rounded(number, High() - Low()); }

std::string Histogram::RangeInWords(const Bin& bin) const {
    if (fBins.AreWhole()) return ShortNumber(bin.fCenter);
    return Translated("^1 to ^2", {ShortNumber(bin.fLow), ShortNumber(bin.fHigh)});
}

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
        table.fvRows.push_back({histogram.RangeInWords(bin), ShortNumber(bin.fCount)});
    }
    return table;
}

}  // namespace hierfit::chart
