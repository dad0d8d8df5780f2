#include "host/chart/picture/histogram/Bins.h"

#include <algorithm>
#include <cmath>

#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

std::vector<Bin> ReadSorted(const ShownVariable* centers, const ShownVariable* counts) {
    std::vector<Bin> bins;
    if (centers == nullptr) return bins;
    for (std::size_t row = 0; row < centers->Rows(); ++row) {
        const auto center = PlaceableAt(centers, row);
        const auto count = PlaceableAt(counts, row);
        if (center && count && *count >= 0) bins.push_back({*center, *center, *center, *count});
    }
    std::stable_sort(bins.begin(), bins.end(), [](const Bin& a, const Bin& b) { return a.fCenter < b.fCenter; });
    return bins;
}

void JoinEqual(std::vector<Bin>& bins) {
    std::vector<Bin> joined;
    for (const Bin& bin : bins) {
        if (joined.empty() || joined.back().fCenter != bin.fCenter) {
            joined.push_back(bin);
        } else {
            joined.back().fCount = std::min(joined.back().fCount + bin.fCount, kFarthest);
        }
    }
    bins = std::move(joined);
}

double TypicalWidth(const std::vector<Bin>& bins) {
    if (bins.size() < 2) return bins.empty() ? 1 : 2 * RoomAbout(bins.front().fCenter);
    std::vector<double> distances;
    for (std::size_t at = 1; at < bins.size(); ++at) distances.push_back(bins[at].fCenter - bins[at - 1].fCenter);
    const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), middle, distances.end());
    return *middle;
}

void SetEdges(std::vector<Bin>& bins, double width) {
    for (std::size_t at = 0; at < bins.size(); ++at) {
        Bin& bin = bins[at];
        const double below = at == 0 ? width : bin.fCenter - bins[at - 1].fCenter;
        const double above = at + 1 == bins.size() ? width : bins[at + 1].fCenter - bin.fCenter;
        bin.fLow = std::max(bin.fCenter - std::min(below, width) / 2, -kFarthest);
        bin.fHigh = std::min(bin.fCenter + std::min(above, width) / 2, kFarthest);
        // Between neighbours that differ in their last digits there is no number half way.
        if (bin.fLow >= bin.fHigh) bin.fLow = std::nextafter(bin.fHigh, -kFarthest);
    }
}

}  // namespace

double Bins::Mean() const {
    double mean = 0;
    for (const Bin& bin : fvBins) mean += bin.fCenter * (bin.fCount / fCount);
    return mean;
}

double Bins::Deviation() const {
    if (fCount <= 0) return 0;
    const double mean = Mean();
    double square = 0;
    for (const Bin& bin : fvBins) square += (bin.fCenter - mean) * (bin.fCenter - mean) * (bin.fCount / fCount);
    return std::sqrt(square);
}

bool Bins::AreWhole() const {
    return fWidth == 1 && std::all_of(fvBins.begin(), fvBins.end(),
                                      [](const Bin& bin) { return bin.fCenter == std::floor(bin.fCenter); });
}

Bins ReadBins(const ShownVariable* centers, const ShownVariable* counts) {
    Bins bins;
    bins.fvBins = ReadSorted(centers, counts);
    JoinEqual(bins.fvBins);
    bins.fWidth = TypicalWidth(bins.fvBins);
    SetEdges(bins.fvBins, bins.fWidth);
    for (const Bin& bin : bins.fvBins) bins.fCount += bin.fCount;
    return bins;
}

}  // namespace hierfit::chart
