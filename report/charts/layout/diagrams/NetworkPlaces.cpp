#include "report/charts/layout/diagrams/NetworkPlaces.h"

#include <algorithm>
#include <cmath>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/diagrams/NodeNames.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::NetworkLink;
using document::NetworkNode;
using document::NetworkPicture;

namespace {

constexpr double kNarrow = 480;  // pictures below this are laid out for a phone
constexpr double kLeastWidth = 200;
constexpr double kLongestName = 230;
constexpr double kGrace = 0.5;   // sums of widths are rounded
constexpr double kBelowRow = 5;  // between names of several lines
constexpr double kTallest = 16000;
constexpr std::size_t kRowsOfLargeNodes = 20;

/// What differs between wide and narrow pictures, in pixels.
struct Measures {
    BoxWidths fBox;
    double fLeastLinks;  ///< what long names leave to the links of the leftmost node
    double fMostLinks;
    double fHighestRow;
    double fLowerEach;  ///< rows are so much lower for each of them
    std::size_t fNameLines;
};

constexpr Measures kWide{{150, 200}, 240, 380, 60, 2, 1};
constexpr Measures kPhone{{104, 136}, 96, 380, 40, 1, 3};

Extent ReachOfX(const NetworkPicture& picture) {
    Extent reach;
    for (const NetworkNode& node : picture.fvNodes) reach.Add(node.fX);
    if (picture.fLowX) reach.Add(*picture.fLowX);
    if (picture.fTarget.fX) {
        reach.Add(*picture.fTarget.fX);
    } else {
        for (const NetworkLink& link : picture.fvLinks) reach.Add(link.fX2);
    }
    return reach;
}

Extent ReachOfY(const NetworkPicture& picture) {
    Extent reach;
    for (const NetworkNode& node : picture.fvNodes) reach.Add(node.fY);
    return reach;
}

Extent OfSomeLength(const Extent& extent) {
    if (extent.Length() > 0) return extent;
    return {extent.fLow, extent.fLow + std::abs(extent.fLow) + 1, false};
}

/// The share of a width right of the target, where the limits leave some there.
double ShareOfBox(const NetworkPicture& picture, const Extent& x) {
    if (!picture.fHighX || *picture.fHighX <= x.fHigh || x.fIsEmpty) return 0;
    return (*picture.fHighX - x.fHigh) / (*picture.fHighX - x.fLow);
}

/// Where the links of the leftmost node begin, and how far the box is from there.
struct Spread {
    double fStart = 0;
    double fLength = 0;

    double At(double share) const { return fStart + share * fLength; }
};

/// Gives every name its room left of its node. `shares` tell how far nodes are on their way to the target.
Spread SpreadFor(const std::vector<double>& names, const std::vector<double>& shares, double room,
                 const Measures& measures, double leastStart) {
    double start = leastStart;
    for (std::size_t node = 0; node < names.size(); ++node) {
        const double need = names[node] + kNameGap + kGrace;
        if (shares[node] < 1) start = std::max(start, (need - shares[node] * room) / (1 - shares[node]));
    }
    start = std::max(std::min(start, room - measures.fLeastLinks), leastStart);
    const double length = std::max(room - start, 1.0);
    if (length <= measures.fMostLinks) return {start, length};
    start = leastStart;
    for (std::size_t node = 0; node < names.size(); ++node) {
        start = std::max(start, names[node] + kNameGap + kGrace - shares[node] * measures.fMostLinks);
    }
    return {start, measures.fMostLinks};
}

std::vector<double> WidthsOf(const std::vector<std::vector<std::string>>& names) {
    std::vector<double> widths;
    widths.reserve(names.size());
    for (const std::vector<std::string>& lines : names) widths.push_back(WidestLine(lines, kLabelStyle));
    return widths;
}

double HeightOf(const std::vector<std::string>& lines) {
    return static_cast<double>(lines.size()) * LineHeight(kLabelStyle);
}

/// Places the nodes of a picture, of which there is one at least.
class NetworkPlacer {
  public:
    NetworkPlacer(const NetworkPicture& picture, double width, const Measures& measures)
        : fPicture(picture), fMeasures(measures), fReachX(ReachOfX(picture)) {
        fPlaces.fWidth = width;
        fPlaces.fBox = MakeTargetBox(picture, ShareOfBox(picture, fReachX) * width, measures.fBox);
    }

    NetworkPlaces Place() {
        PlaceAcross();
        PlaceDown();
        for (const NetworkNode& node : fPicture.fvNodes) {
            fPlaces.fvNodes.push_back({fPlaces.fX.Within(node.fX), fPlaces.fY.Within(node.fY)});
        }
        PlaceBox();
        LeaveNamesOut();
        return std::move(fPlaces);
    }

  private:
    double ShareOf(double x) const { return fReachX.Length() > 0 ? (x - fReachX.fLow) / fReachX.Length() : 0; }

    void PlaceAcross() {
        std::vector<std::string> names;
        std::vector<double> shares;
        for (const NetworkNode& node : fPicture.fvNodes) {
            names.push_back(node.fName);
            shares.push_back(ShareOf(node.fX));
        }
        names = CutTexts(names, kLongestName, kLabelStyle);
        const double leastStart = NodeRadius(names.size()) + 3;
        const double room = fPlaces.fWidth - fPlaces.fBox.fFrame.Width() - (fPlaces.fBox.IsEmpty() ? 4 : 1);
        std::vector<double> widths;
        widths.reserve(names.size());
        for (const std::string& name : names) widths.push_back(TextWidth(name, kLabelStyle));
        Spread spread = SpreadFor(widths, shares, room, fMeasures, leastStart);
        for (std::size_t at = 0; at < names.size(); ++at) widths[at] = std::max(spread.At(shares[at]) - kNameGap, 1.0);
        fPlaces.fvNames = SetNames(names, widths, fMeasures.fNameLines);
        spread = SpreadFor(WidthsOf(fPlaces.fvNames), shares, room, fMeasures, leastStart);
        fPlaces.fTarget.fX = spread.At(1);
        fPlaces.fX = {OfSomeLength(fReachX), spread.fStart, spread.At(1)};
    }

    double RowHeight() const {
        const double rows = static_cast<double>(fPicture.fvNodes.size());
        double height =
            std::clamp(fMeasures.fHighestRow + fMeasures.fLowerEach * (1 - rows), 20.0, fMeasures.fHighestRow);
        for (std::size_t at = 1; at < fPlaces.fvNames.size(); ++at) {
            const double both = HeightOf(fPlaces.fvNames[at - 1]) + HeightOf(fPlaces.fvNames[at]);
            height = std::max(height, both / 2 + kBelowRow);
        }
        return std::min(height, kTallest / rows);
    }

    /// What the nodes near the ends and their names need above and below, when so many pixels are between the
    /// outermost.
    double RoomAtEnds(const Extent& y, double row, double between) const {
        double room = std::max(row / 2, NodeRadius(fPicture.fvNodes.size()) + 3);
        for (std::size_t at = 0; at < fPlaces.fvNames.size(); ++at) {
            const double share = (fPicture.fvNodes[at].fY - y.fLow) / OfSomeLength(y).Length();
            const double toEnd = std::min(share, 1 - share) * between;
            room = std::max(room, HeightOf(fPlaces.fvNames[at]) / 2 + 1 - toEnd);
        }
        return room;
    }

    void PlaceDown() {
        const Extent y = ReachOfY(fPicture);
        const double row = RowHeight();
        const double between = y.Length() > 0 ? row * static_cast<double>(fPicture.fvNodes.size() - 1) : 0;
        const double room = RoomAtEnds(y, row, between);
        fPlaces.fHeight = std::max(between + 2 * room, fPlaces.fBox.fFrame.Height() + 2);
        const double top = (fPlaces.fHeight - between) / 2;
        fPlaces.fY = {OfSomeLength(y), top + between, top};
    }

    void PlaceBox() {
        Frame& box = fPlaces.fBox.fFrame;
        const Extent& y = fPlaces.fY.fDomain;
        const double height = box.Height();
        const double middle = fPlaces.fY.Within(fPicture.fTarget.fY.value_or(y.fLow / 2 + y.fHigh / 2));
        const double top = std::clamp(middle - height / 2, 1.0, std::max(fPlaces.fHeight - height - 1, 1.0));
        box = {fPlaces.fTarget.fX, top, fPlaces.fTarget.fX + box.Width(), top + height};
        fPlaces.fTarget.fY = middle;
        fPlaces.fWidth = box.fRight + (fPlaces.fBox.IsEmpty() ? 4 : 1);
    }

    void LeaveNamesOut() {
        std::vector<Frame> frames;
        for (std::size_t at = 0; at < fPlaces.fvNames.size(); ++at) {
            const double right = fPlaces.fvNodes[at].fX - kNameGap;
            const double middle = fPlaces.fvNodes[at].fY;
            const double half = HeightOf(fPlaces.fvNames[at]) / 2;
            const double width = WidestLine(fPlaces.fvNames[at], kLabelStyle);
            frames.push_back({right - width, middle - half, right, middle + half});
        }
        const std::vector<bool> free = AreFree(frames);
        for (std::size_t at = 0; at < free.size(); ++at) {
            if (!free[at]) fPlaces.fvNames[at].clear();
        }
    }

    const NetworkPicture& fPicture;
    const Measures& fMeasures;
    Extent fReachX;
    NetworkPlaces fPlaces;
};

NetworkPlaces PlaceBoxAlone(const NetworkPicture& picture, const Measures& measures) {
    NetworkPlaces places;
    places.fBox = MakeTargetBox(picture, measures.fBox.fMost, measures.fBox);
    Frame& frame = places.fBox.fFrame;
    if (places.fBox.IsEmpty()) return places;
    places.fWidth = frame.fRight + 2;
    places.fHeight = frame.fBottom + 2;
    frame = {1, 1, frame.fRight + 1, frame.fBottom + 1};
    return places;
}

}  // namespace

double NodeRadius(std::size_t nodes) { return nodes > kRowsOfLargeNodes ? 5.4 : 6.2; }

NetworkPlaces PlaceNetwork(const NetworkPicture& picture, double width) {
    const Measures& measures = width < kNarrow ? kPhone : kWide;
    if (picture.fvNodes.empty()) return PlaceBoxAlone(picture, measures);
    return NetworkPlacer(picture, std::max(width, kLeastWidth), measures).Place();
}

}  // namespace hierfit::report::charts
