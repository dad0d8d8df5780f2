#include "report/charts/layout/levels/LevelsArrangement.h"

#include <algorithm>

#include "report/charts/layout/PanelGrid.h"

namespace hierfit::report::charts {

using document::LevelsPicture;

namespace {

constexpr double kPhone = 500;      // narrower pictures put panels below each other rather than turn words
constexpr double kLeastPlot = 110;  // of several panels side by side
constexpr double kLeastNumbers = 150;
constexpr double kLeastTable = 80;   // in a table of panels
constexpr double kDodged = 0.8;      // of a slot, for all series
constexpr double kLeastDodge = 5.4;  // side by side
constexpr double kLeastDodgeBelow = 9;
constexpr double kMostDodge = 26;
constexpr double kBesideDodge = 6;
constexpr double kSlotBelow = 20;
constexpr double kSlotAlone = 90;  // what a level asks for
constexpr double kSlotInPanel = 64;
constexpr double kLeastAlone = 270;
constexpr double kLeastInPanel = 150;
constexpr double kNumbersAlone = 560;
constexpr double kNumbersInPanel = 260;
constexpr double kMostAlone = 640;
constexpr double kBelowAlone = 420;
constexpr double kBelowInPanel = 220;

double CountOfLevels(const LevelsPicture& picture) {
    return static_cast<double>(std::max<std::size_t>(picture.fvLevels.size(), 1));
}

double CountOfSeries(const LevelsPicture& picture) {
    return static_cast<double>(std::max<std::size_t>(picture.fSeries.fvWords.size(), 1));
}

bool HasPanels(const LevelsPicture& picture) { return !picture.fPanels.fvAcross.empty(); }

/// The numbers of columns that come into question, the best first.
std::vector<int> ColumnsFor(const LevelsPicture& picture, const LevelsRoom& room) {
    const document::PicturePanels& panels = picture.fPanels;
    std::vector<int> columns;
    const double across = static_cast<double>(panels.fvAcross.size());
    if (!panels.fvDown.empty() && across * kLeastTable <= room.fWidth) {
        columns.push_back(static_cast<int>(panels.fvAcross.size()));
    }
    const int most = PanelGrid::MostAbreast(panels);
    const int least = room.fWidth < kPhone ? 1 : std::min(2, most);
    for (int count = most; count >= least; --count) columns.push_back(count);
    return columns;
}

double LeastPlot(const LevelsPicture& picture, int columns) {
    if (columns == 1) return 0;
    const bool isTable =
        !picture.fPanels.fvDown.empty() && columns == static_cast<int>(picture.fPanels.fvAcross.size());
    if (isTable) return kLeastTable;
    return picture.fvNumbers.empty() ? kLeastPlot : kLeastNumbers;
}

/// Tries arrangements with words at least so far apart.
class Trial {
  public:
    Trial(const LevelsPicture& picture, const LevelsRoom& room)
        : fPicture(picture), fRoom(room), fvColumns(ColumnsFor(picture, room)) {}

    /// The first number of columns whose plots are wide enough; 0 for none.
    int FirstFor(double leastSlot) const {
        const double forSeries = kLeastDodge * CountOfSeries(fPicture) / kDodged;
        const double least = std::max(leastSlot, forSeries) * CountOfLevels(fPicture);
        for (const int columns : fvColumns) {
            const double width = WidthForPlot(fPicture, columns, fRoom);
            if (width >= std::max(least, LeastPlot(fPicture, columns))) return columns;
        }
        return 0;
    }

    int FirstOfWidth(double width) const {
        const auto isWide = [&](int columns) { return WidthForPlot(fPicture, columns, fRoom) >= width; };
        const auto found = std::ranges::find_if(fvColumns, isWide);
        return found == fvColumns.end() ? 1 : *found;
    }

  private:
    const LevelsPicture& fPicture;
    LevelsRoom fRoom;
    std::vector<int> fvColumns;
};

double MostSlot(const LevelsPicture& picture, const LevelsRoom& room) { return room.fWidth / CountOfLevels(picture); }

}  // namespace

double WidthForPlot(const LevelsPicture& picture, int columns, const LevelsRoom& room) {
    PanelRooms rooms;
    rooms.fLeftOnce = room.fBeside;
    return PanelGrid::OfColumns(picture.fPanels, columns).PlotWidth(room.fWidth, rooms);
}

LevelsArrangement Arrange(const LevelsPicture& picture, const LevelsRoom& room) {
    const Trial trial(picture, room);
    if (!picture.fvNumbers.empty()) return {LevelsStand::Numbers, trial.FirstOfWidth(kLeastNumbers)};
    const double sideBySide = LeastSlotSideBySide(picture, MostSlot(picture, room));
    if (const int columns = trial.FirstFor(sideBySide)) return {LevelsStand::SideBySide, columns};
    const bool maySlant = picture.fIsContrast || (HasPanels(picture) && picture.fvLevels.size() > 1);
    if (maySlant) {
        if (const int columns = trial.FirstFor(kLeastSlanted)) return {LevelsStand::Slanted, columns};
    }
    if (!picture.fIsContrast) return {LevelsStand::Below, trial.FirstOfWidth(kLeastNumbers)};
    const int columns = trial.FirstFor(kLeastUpright);
    return {LevelsStand::Upright, std::max(columns, 1)};
}

double WidthAskedFor(const LevelsPicture& picture, LevelsStand stand, double most) {
    if (stand == LevelsStand::Numbers) return HasPanels(picture) ? kNumbersInPanel : kNumbersAlone;
    if (stand == LevelsStand::Below) return HasPanels(picture) ? kBelowInPanel : kBelowAlone;
    double slot = std::max(HasPanels(picture) ? kSlotInPanel : kSlotAlone,
                           1.5 * kLeastDodgeBelow * CountOfSeries(picture) / kDodged);
    if (stand == LevelsStand::SideBySide)
        slot = std::max(slot, LeastSlotSideBySide(picture, most / CountOfLevels(picture)));
    const double width = std::max(slot * CountOfLevels(picture), HasPanels(picture) ? kLeastInPanel : kLeastAlone);
    return stand == LevelsStand::SideBySide ? width : std::min(width, kMostAlone);
}

double LeastSlotBelow(const LevelsPicture& picture) {
    return std::max(kSlotBelow, kLeastDodgeBelow * CountOfSeries(picture) + kBesideDodge);
}

double DodgeIn(const LevelsPicture& picture, double slot) {
    return std::min(slot * kDodged / CountOfSeries(picture), kMostDodge);
}

}  // namespace hierfit::report::charts
