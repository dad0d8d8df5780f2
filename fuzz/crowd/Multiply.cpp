#include "fuzz/crowd/Multiply.h"

#include <variant>
#include <vector>

namespace hierfit::fuzz {

namespace {

class Multiplication {
  public:
    Multiplication(std::size_t times, bool isWhole) : fTimes(times), fIsWhole(isWhole) {}

    /// How many marks there are now.
    std::size_t Marks() const { return fMarks; }

    void operator()(document::LevelsPicture& levels) {
        Repeat(levels.fvMarks, [&](document::LevelMark& mark, std::size_t i) { Move(mark.fLevel, i); });
        Repeat(levels.fvGuides);
        if (!fIsWhole) return;
        Repeat(levels.fvLevels);
        Repeat(levels.fvNumbers);
    }

    void operator()(document::CirclePicture& circle) {
        for (document::CirclePanel& panel : circle.fvPanels) {
            Repeat(panel.fvLinks, [&](document::CircleLink& link, std::size_t i) {
                Move(link.fFrom, i);
                Move(link.fTo, i);
            });
            if (fIsWhole) Repeat(panel.fvNodes);
        }
    }

    void operator()(document::NetworkPicture& network) {
        Repeat(network.fvLinks, [&](document::NetworkLink& link, std::size_t i) {
            if (link.fNode) Move(*link.fNode, i);
        });
        if (fIsWhole) Repeat(network.fvNodes);
        if (network.fHistogram) (*this)(*network.fHistogram);
    }

    void operator()(document::ScatterPicture& scatter) { Repeat(scatter.fvPoints); }

    /// A bin becomes as many next to each other, as far as there are numbers between its edges.
    void operator()(document::HistogramPicture& histogram) {
        Repeat(histogram.fvCurve);
        const auto parts = static_cast<double>(fTimes);
        Repeat(histogram.fvBins, [&](document::HistogramBin& bin, std::size_t i) {
            const double width = (bin.fHigh - bin.fLow) / parts;
            const double low = bin.fLow + width * static_cast<double>(i);
            bin = {low, i + 1 == fTimes ? bin.fHigh : low + width, bin.fCount, bin.fTip};
        });
        std::erase_if(histogram.fvBins, [](const document::HistogramBin& bin) { return bin.fHigh <= bin.fLow; });
    }

  private:
    /// Each item so many times in a row; `change` gets a copy and its number.
    template <typename Item, typename Change>
    void Repeat(std::vector<Item>& items, const Change& change) {
        std::vector<Item> all;
        all.reserve(items.size() * fTimes);
        for (const Item& item : items) {
            for (std::size_t i = 0; i < fTimes; ++i) change(all.emplace_back(item), i);
        }
        items = std::move(all);
        fMarks += items.size();
    }

    template <typename Item>
    void Repeat(std::vector<Item>& items) {
        Repeat(items, [](Item&, std::size_t) {});
    }

    /// From a level or node to one of those that have taken its place.
    void Move(int& index, std::size_t i) const {
        if (fIsWhole) index = index * static_cast<int>(fTimes) + static_cast<int>(i);
    }

    std::size_t fTimes;
    bool fIsWhole;
    std::size_t fMarks = 0;
};

}  // namespace

std::size_t CountMarks(document::Picture picture) {
    Multiplication once(1, true);
    std::visit(once, picture.fContent);
    return once.Marks();
}

document::Picture Multiply(document::Picture picture, std::size_t times, bool isWhole) {
    std::visit(Multiplication(times, isWhole), picture.fContent);
    return picture;
}

}  // namespace hierfit::fuzz
