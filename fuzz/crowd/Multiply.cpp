#include "fuzz/crowd/Multiply.h"

#include <variant>
#include <vector>

namespace hierfit::fuzz {

namespace {

using document::CirclePanel;
using document::CirclePicture;
using document::HistogramBin;
using document::HistogramPicture;
using document::LevelsPicture;
using document::NetworkPicture;
using document::ScatterPicture;

struct Count {
    std::size_t operator()(const LevelsPicture& levels) const { return levels.fvMarks.size() + levels.fvGuides.size(); }
    std::size_t operator()(const CirclePicture& circle) const {
        std::size_t count = 0;
        for (const CirclePanel& panel : circle.fvPanels) count += panel.fvNodes.size() + panel.fvLinks.size();
        return count;
    }
    std::size_t operator()(const NetworkPicture& network) const {
        return network.fvNodes.size() + network.fvLinks.size() +
               (network.fHistogram ? (*this)(*network.fHistogram) : 0);
    }
    std::size_t operator()(const ScatterPicture& scatter) const { return scatter.fvPoints.size(); }
    std::size_t operator()(const HistogramPicture& histogram) const {
        return histogram.fvBins.size() + histogram.fvCurve.size();
    }
};

/// Each item so many times in a row; `change` gets a copy and its number.
template <typename Item, typename Change>
void Repeat(std::vector<Item>& items, std::size_t times, const Change& change) {
    std::vector<Item> all;
    all.reserve(items.size() * times);
    for (const Item& item : items) {
        for (std::size_t i = 0; i < times; ++i) change(all.emplace_back(item), static_cast<int>(i));
    }
    items = std::move(all);
}

template <typename Item>
void Repeat(std::vector<Item>& items, std::size_t times) {
    Repeat(items, times, [](Item&, int) {});
}

struct Multiplication {
    std::size_t fTimes;
    bool fIsWhole;

    void operator()(LevelsPicture& levels) const {
        const auto times = static_cast<int>(fTimes);
        Repeat(levels.fvMarks, fTimes, [&](document::LevelMark& mark, int i) {
            if (fIsWhole) mark.fLevel = mark.fLevel * times + i;
        });
        Repeat(levels.fvGuides, fTimes);
        if (!fIsWhole) return;
        Repeat(levels.fvLevels, fTimes);
        Repeat(levels.fvNumbers, fTimes);
    }

    void operator()(CirclePicture& circle) const {
        for (CirclePanel& panel : circle.fvPanels) {
            const auto times = static_cast<int>(fTimes);
            Repeat(panel.fvLinks, fTimes, [&](document::CircleLink& link, int i) {
                if (!fIsWhole) return;
                link.fFrom = link.fFrom * times + i;
                link.fTo = link.fTo * times + i;
            });
            if (fIsWhole) Repeat(panel.fvNodes, fTimes);
        }
    }

    void operator()(NetworkPicture& network) const {
        const auto times = static_cast<int>(fTimes);
        Repeat(network.fvLinks, fTimes, [&](document::NetworkLink& link, int i) {
            if (fIsWhole && link.fNode) *link.fNode = *link.fNode * times + i;
        });
        if (fIsWhole) Repeat(network.fvNodes, fTimes);
        if (network.fHistogram) (*this)(*network.fHistogram);
    }

    void operator()(ScatterPicture& scatter) const { Repeat(scatter.fvPoints, fTimes); }

    /// A bin becomes as many next to each other, as far as there are numbers between its edges.
    void operator()(HistogramPicture& histogram) const {
        Repeat(histogram.fvCurve, fTimes);
        std::vector<HistogramBin> bins;
        for (const HistogramBin& bin : histogram.fvBins) {
            const double width = (bin.fHigh - bin.fLow) / static_cast<double>(fTimes);
            double low = bin.fLow;
            for (std::size_t i = 1; i <= fTimes; ++i) {
                const double high = i == fTimes ? bin.fHigh : bin.fLow + width * static_cast<double>(i);
                if (high > low) bins.push_back({low, high, bin.fCount, bin.fTip});
                low = high;
            }
        }
        histogram.fvBins = std::move(bins);
    }
};

}  // namespace

std::size_t CountMarks(const document::Picture& picture) { return std::visit(Count(), picture.fContent); }

document::Picture Multiply(document::Picture picture, std::size_t times, bool isWhole) {
    std::visit(Multiplication{times, isWhole}, picture.fContent);
    return picture;
}

}  // namespace hierfit::fuzz
