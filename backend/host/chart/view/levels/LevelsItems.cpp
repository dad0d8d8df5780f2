#include "host/chart/view/levels/LevelsItems.h"

#include <algorithm>

#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

/// Makes items out of rows, or out of pairs of rows.
class ItemReader {
  public:
    ItemReader(const LevelsMarks& marks, const LevelsItems& items, bool isPaired)
        : fpMarks(&marks), fpItems(&items), fStep(isPaired ? 2 : 1) {}

    std::vector<LevelsItem> Read() const {
        std::vector<LevelsItem> items;
        if (fpMarks->fpMean == nullptr) return items;
        for (std::size_t row = 0; row < fpMarks->fpMean->Rows(); row += fStep) {
            if (auto item = ReadAt(row)) items.push_back(*item);
        }
        return items;
    }

  private:
    /// Either row of a pair tells what both have in common.
    template <typename Get>
    auto OfPair(std::size_t row, const Get& get) const {
        const auto first = get(row);
        return first || fStep == 1 ? first : get(row + 1);
    }

    std::optional<LevelsItem> ReadAt(std::size_t row) const {
        const auto x = OfPair(row, [&](std::size_t at) { return fpItems->fX.At(at); });
        const auto place = OfPair(row, [&](std::size_t at) { return fpItems->fPanels.At(at); });
        const auto color = fpMarks->fpColor == nullptr
                               ? std::optional<std::size_t>(0)
                               : OfPair(row, [&](std::size_t at) { return fpItems->fColors.At(at); });
        const auto mean = MeanAt(row);
        const auto number = OfPair(row, [&](std::size_t at) { return PlaceableAt(fpMarks->fpX, at); });
        if (!x || !place || !color || !mean || (fpItems->fIsLinear && !number)) return std::nullopt;
        LevelsItem item;
        item.fTipRow = OfPair(row, [&](std::size_t at) { return TipRow(at); });
        item.fPlace = *place;
        item.fX = *x;
        item.fColor = *color;
        item.fMean = *mean;
        item.fRange = RangeAt(row);
        item.fNumber = number.value_or(0);
        item.fIsSetOff = OfPair(row, [&](std::size_t at) { return PlaceableAt(fpMarks->fpMark, at); }) == 1.0;
        if (fpMarks->fIsContrast) item.fBase = PlaceableAt(fpMarks->fpMean, row);
        return item;
    }

    std::optional<std::size_t> TipRow(std::size_t row) const {
        return WordsAt(fpMarks->fpTip, row).empty() ? std::nullopt : std::optional(row);
    }

    /// The second row of a pair has the mean, the first one the same or what it is compared with.
    std::optional<double> MeanAt(std::size_t row) const {
        if (fStep == 1) return PlaceableAt(fpMarks->fpMean, row);
        const auto second = PlaceableAt(fpMarks->fpMean, row + 1);
        return second || fpMarks->fIsContrast ? second : PlaceableAt(fpMarks->fpMean, row);
    }

    std::optional<LevelsItem::Range> RangeAt(std::size_t row) const {
        if (fStep == 1) return std::nullopt;
        const auto low = PlaceableAt(fpMarks->fpRange, row);
        const auto high = PlaceableAt(fpMarks->fpRange, row + 1);
        if (!low || !high) return std::nullopt;
        return LevelsItem::Range{std::min(*low, *high), std::max(*low, *high)};
    }

    const LevelsMarks* fpMarks;
    const LevelsItems* fpItems;
    std::size_t fStep;
};

bool WantsNumbers(const ShownVariable* variable) {
    return variable != nullptr && variable->Setting() != nullptr && variable->Setting()->fIsCategorical == false;
}

bool AreNumbers(const Levels& levels) {
    for (std::size_t level = 0; level < levels.Count(); ++level) {
        if (!std::holds_alternative<double>(levels.Value(level))) return false;
    }
    return levels.Count() > 1;
}

}  // namespace

LevelsItems::LevelsItems(const ViewContext& context, const LevelsMarks& marks)
    : fPanels(context, marks.fSource),
      fX(marks.fpX),
      fColors(marks.fpColor),
      fIsLinear(!marks.fIsContrast && WantsNumbers(marks.fpX) && AreNumbers(fX)) {
    fvItems = ItemReader(marks, *this, context.fSpecification.fPlot.fPairs).Read();
}

}  // namespace hierfit::chart
