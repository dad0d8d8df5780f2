#include "host/chart/picture/levels/Means.h"

#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

void SetIfMissing(std::string& reference, const std::string& given) {
    if (reference.empty()) reference = given;
}

bool WantsNumbers(const ShownVariable* variable) {
    return variable != nullptr && variable->Setting() != nullptr && variable->Setting()->fIsCategorical == false;
}

bool AreNumbers(const Levels& levels) {
    for (std::size_t level = 0; level < levels.Count(); ++level) {
        if (!std::holds_alternative<double>(levels.Value(level))) return false;
    }
    return levels.Count() > 1;
}

/// Makes marks out of rows, or out of pairs of rows.
class MarkReader {
  public:
    MarkReader(const Means& means, bool isPaired)
        : fpMeans(&means), fpVariables(&means.fVariables), fStep(isPaired ? 2 : 1) {}

    std::vector<document::LevelMark> Read() const {
        std::vector<document::LevelMark> marks;
        if (fpVariables->fpMean == nullptr) return marks;
        for (std::size_t row = 0; row < fpVariables->fpMean->Rows(); row += fStep) {
            if (auto mark = ReadAt(row)) marks.push_back(std::move(*mark));
        }
        return marks;
    }

  private:
    /// Either row of a pair tells what both have in common.
    template <typename Get>
    auto OfPair(std::size_t row, const Get& get) const {
        const auto first = get(row);
        return first || fStep == 1 ? first : get(row + 1);
    }

    std::optional<std::size_t> LevelOf(const Levels& levels, std::size_t row) const {
        return OfPair(row, [&](std::size_t at) { return levels.At(at); });
    }

    std::optional<document::LevelMark> ReadAt(std::size_t row) const {
        const auto x = LevelOf(fpMeans->fX, row);
        const auto place = OfPair(row, [&](std::size_t at) { return fpMeans->fPanels.At(at); });
        const auto color =
            fpVariables->fpColor == nullptr ? std::optional<std::size_t>(0) : LevelOf(fpMeans->fColors, row);
        const auto mean = MeanAt(row);
        const auto number = OfPair(row, [&](std::size_t at) { return PlaceableAt(fpVariables->fpX, at); });
        if (!x || !place || !color || !mean || (fpMeans->fIsLinear && !number)) return std::nullopt;
        document::LevelMark mark;
        mark.fPanel = *place;
        mark.fLevel = static_cast<int>(*x);
        mark.fSeries = static_cast<int>(*color);
        mark.fValue = *mean;
        if (fpVariables->fIsContrast) mark.fBase = PlaceableAt(fpVariables->fpMean, row);
        SetRange(row, mark);
        mark.fIsSetOff = OfPair(row, [&](std::size_t at) { return PlaceableAt(fpVariables->fpMark, at); }) == 1.0;
        mark.fTip = WordsAt(fpVariables->fpTip, row);
        if (mark.fTip.empty() && fStep == 2) mark.fTip = WordsAt(fpVariables->fpTip, row + 1);
        return mark;
    }

    /// The second row of a pair has the mean, the first one the same or what it is compared with.
    std::optional<double> MeanAt(std::size_t row) const {
        if (fStep == 1) return PlaceableAt(fpVariables->fpMean, row);
        const auto second = PlaceableAt(fpVariables->fpMean, row + 1);
        return second || fpVariables->fIsContrast ? second : PlaceableAt(fpVariables->fpMean, row);
    }

    void SetRange(std::size_t row, document::LevelMark& mark) const {
        const auto low = PlaceableAt(fpVariables->fpRange, row);
        const auto high = PlaceableAt(fpVariables->fpRange, row + 1);
        if (fStep == 1 || !low || !high) return;
        mark.fLow = std::min(*low, *high);
        mark.fHigh = std::max(*low, *high);
    }

    const Means* fpMeans;
    const MeansVariables* fpVariables;
    std::size_t fStep;
};

}  // namespace

MeansVariables::MeansVariables(const PictureContext& context) {
    for (const Mark& mark : context.fSpecification.fPlot.fvMarks) Take(mark, context);
    fColorReference = context.fSpecification.fPlot.fColor;
    fpColor = context.fData.Find(fSource, fColorReference);
    Name(context);
}

void MeansVariables::Take(const Mark& mark, const PictureContext& context) {
    const auto find = [&](const ShownVariable*& variable, const std::string& reference) {
        if (variable == nullptr) variable = context.fData.Find(mark.fSource, reference);
    };
    SetIfMissing(fSource, mark.fSource);
    SetIfMissing(fXReference, mark.fX);
    SetIfMissing(fMeanReference, mark.fY);
    if (!mark.fMark.empty()) fMarkReference = mark.fMark;
    find(fpX, mark.fX);
    find(fpMean, mark.fY);
    find(fpRange, mark.fOf);
    find(fpMark, mark.fMark);
    find(fpTip, mark.fTip);
    fIsContrast = fIsContrast || mark.fKind == Mark::Kind::Stems;
}

void MeansVariables::Name(const PictureContext& context) {
    const Specification& specification = context.fSpecification;
    const auto label = [&](const std::string& reference) { return context.fData.LabelOf(fSource, reference); };
    const std::string mean = Translated("Estimated Mean");
    const std::string target = label(fMeanReference);
    fXTitle = AxisTitleOr(specification, true, label(fXReference));
    fMeanOf = AxisTitleOr(specification, false, target.empty() ? mean : target);
    fMeanTitle = !target.empty() && fMeanOf == target ? Translated("Estimated Mean of ^1", {target}) : fMeanOf;
    fXName = PopupOr(specification, fXReference, label(fXReference));
    fMeanName = PopupOr(specification, fMeanReference, mean);
    fColorName = PopupOr(specification, fColorReference, label(fColorReference));
}

Means::Means(const PictureContext& context)
    : fVariables(context),
      fPanels(context, fVariables.fSource),
      fX(fVariables.fpX),
      fColors(fVariables.fpColor),
      fIsLinear(!fVariables.fIsContrast && WantsNumbers(fVariables.fpX) && AreNumbers(fX)) {
    fvMarks = MarkReader(*this, context.fSpecification.fPlot.fPairs).Read();
}

}  // namespace hierfit::chart
