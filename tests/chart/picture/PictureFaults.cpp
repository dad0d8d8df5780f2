#include "tests/chart/picture/PictureFaults.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace hierfit::chart {

namespace {

using document::CirclePicture;
using document::HistogramPicture;
using document::LevelsPicture;
using document::NetworkPicture;
using document::PicturePanels;
using document::ScatterPicture;

constexpr double kFarthest = 1e300;

/// Collects what is wrong with the parts of a picture.
class Judge {
  public:
    std::string Faults() const { return fFaults; }

    void Expect(bool isGood, const char* fault) {
        if (!isGood && fFaults.find(fault) == std::string::npos) fFaults += std::string(fault) + "; ";
    }

    template <typename... Numbers>
    void Place(Numbers... numbers) {
        for (const std::optional<double> number : {std::optional<double>(numbers)...}) {
            Expect(!number || std::abs(*number) <= kFarthest, "a number has no place");
        }
    }

    void Count(int number, std::size_t size, const char* of) {
        Expect(number >= 0 && static_cast<std::size_t>(number) < size, of);
    }

    void Look(const document::PanelPlace& place, const PicturePanels& panels) {
        Count(place.fAcross, std::max<std::size_t>(panels.fvAcross.size(), 1), "across");
        Count(place.fDown, std::max<std::size_t>(panels.fvDown.size(), 1), "down");
    }

    void Look(const document::PictureAxis& axis) {
        Place(axis.fLow, axis.fHigh);
        Expect(!axis.fLow || !axis.fHigh || *axis.fLow <= *axis.fHigh, "an axis runs backwards");
    }

    void Look(const document::ChartTable& table) {
        const int columns = static_cast<int>(table.fvColumns.size());
        Expect(columns > 0 && table.fKeys < columns && table.fKeys >= 0, "keys of a table");
        for (const auto& row : table.fvRows) Expect(row.size() == table.fvColumns.size(), "cells of a row");
    }

    void Look(const LevelsPicture& picture) {
        Look(picture.fValues);
        Look(picture.fPredictor);
        const bool isLinear = !picture.fvNumbers.empty();
        Expect(!isLinear || picture.fvNumbers.size() == picture.fvLevels.size(), "numbers of levels");
        for (const double number : picture.fvNumbers) Place(number);
        for (const document::LevelMark& mark : picture.fvMarks) {
            Place(mark.fValue, mark.fBase, mark.fLow, mark.fHigh);
            Expect(mark.fLow.has_value() == mark.fHigh.has_value(), "half a whisker");
            Expect(!mark.fLow || *mark.fLow <= *mark.fHigh, "a whisker upside down");
            Count(mark.fLevel, picture.fvLevels.size(), "level");
            Count(mark.fSeries, std::max<std::size_t>(picture.fSeries.fvWords.size(), 1), "series");
            Look(mark.fPanel, picture.fPanels);
            Expect(!mark.fTip.empty(), "no tip");
        }
        for (const document::LevelGuide& guide : picture.fvGuides) {
            Place(guide.fValue);
            Look(guide.fPanel, picture.fPanels);
        }
    }

    void Look(const CirclePicture& picture) {
        for (const document::CirclePanel& panel : picture.fvPanels) {
            Look(panel.fPlace, picture.fPanels);
            Expect(!panel.fvNodes.empty(), "a panel without nodes");
            for (const document::CircleLink& link : panel.fvLinks) {
                Count(link.fFrom, panel.fvNodes.size(), "from");
                Count(link.fTo, panel.fvNodes.size(), "to");
                Expect(link.fShare >= 0 && link.fShare <= 1, "share");
            }
        }
    }

    void Look(const NetworkPicture& picture) {
        Place(picture.fLowX, picture.fHighX, picture.fTarget.fX, picture.fTarget.fY);
        Expect(picture.fvKinds.size() == picture.fTypes.fvWords.size(), "kinds");
        Expect(!picture.fTarget.fTip.empty(), "no tip of the target");
        Expect(!picture.fIsLastNegative || !picture.fSigns.fvWords.empty(), "no negative sign");
        for (const document::NetworkNode& node : picture.fvNodes) {
            Place(node.fX, node.fY);
            if (node.fType) Count(*node.fType, picture.fTypes.fvWords.size(), "type");
        }
        for (const document::NetworkLink& link : picture.fvLinks) {
            Place(link.fX, link.fY, link.fX2, link.fY2, link.fWeight);
            if (link.fSign) Count(*link.fSign, picture.fSigns.fvWords.size(), "sign");
            if (link.fNode) Count(*link.fNode, picture.fvNodes.size(), "node");
        }
        Place(picture.fWeights.fLow, picture.fWeights.fHigh);
        Expect(picture.fWeights.fLow < picture.fWeights.fHigh, "weights without a range");
        if (picture.fHistogram) Look(*picture.fHistogram);
    }

    void Look(const ScatterPicture& picture) {
        Look(picture.fX);
        Look(picture.fY);
        for (const document::ScatterPoint& point : picture.fvPoints) {
            Expect(point.fX >= *picture.fX.fLow && point.fX <= *picture.fX.fHigh, "x beyond its axis");
            Expect(point.fY >= *picture.fY.fLow && point.fY <= *picture.fY.fHigh, "y beyond its axis");
            Expect(point.fFrequency >= 0, "frequency");
        }
    }

    void Look(const HistogramPicture& picture) {
        Look(picture.fValues);
        Look(picture.fCounts);
        for (const document::HistogramBin& bin : picture.fvBins) {
            Place(bin.fLow, bin.fHigh, bin.fCount);
            Expect(bin.fLow < bin.fHigh, "a bin without width");
        }
        for (const document::CurvePoint& point : picture.fvCurve) Place(point.fX, point.fY);
    }

  private:
    std::string fFaults;
};

}  // namespace

std::string FaultsOf(const document::Picture& picture) {
    Judge judge;
    std::visit([&](const auto& content) { judge.Look(content); }, picture.fContent);
    for (const document::ChartTable& table : picture.fvTables) judge.Look(table);
    return judge.Faults();
}

}  // namespace hierfit::chart
