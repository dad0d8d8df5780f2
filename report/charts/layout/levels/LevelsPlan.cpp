#include "report/charts/layout/levels/LevelsPlan.h"

#include <algorithm>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/levels/LevelsArrangement.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::LevelsPicture;

namespace {

constexpr double kTitleSpan = 800;  // a title beside rows of panels stands in the middle of so much of them at most
constexpr std::size_t kTitleLines = 3;
constexpr double kBetweenTicks = 8;
constexpr double kPanelGap = 18;
constexpr double kTableHeight = 170;
constexpr double kLeastHeight = 200;
constexpr double kPanelHeight = 256;
constexpr double kHeight = 320;

Extent ValuesOf(const LevelsPicture& picture) {
    Extent extent;
    for (const document::LevelMark& mark : picture.fvMarks) {
        extent.Add(mark.fValue);
        for (const std::optional<double>& other : {mark.fBase, mark.fLow, mark.fHigh}) {
            if (other) extent.Add(*other);
        }
    }
    for (const document::LevelGuide& guide : picture.fvGuides) extent.Add(guide.fValue);
    return extent;
}

class Planner {
  public:
    Planner(const LevelsPicture& picture, double width)
        : fPicture(picture), fWidth(width), fExtent(ValuesOf(picture)), fPlan{{},
                                                                              {},
                                                                              PanelGrid::OfColumns(picture.fPanels, 1),
                                                                              {},
                                                                              0,
                                                                              0} {}

    LevelsPlan Make() {
        const LevelsArrangement arrangement = Arrange(fPicture, {fWidth, MostBeside()});
        fPlan.fGrid = PanelGrid::OfColumns(fPicture.fPanels, arrangement.fColumns);
        arrangement.fStand == LevelsStand::Below ? PlanTurned() : PlanUpright(arrangement.fStand);
        const bool isTooNarrow = arrangement.fStand == LevelsStand::Slanted && fPlan.fAxis.fSlot < kLeastSlanted;
        if (isTooNarrow) fPicture.fIsContrast ? PlanUpright(LevelsStand::Upright) : PlanTurned();
        return std::move(fPlan);
    }

  private:
    NumberAxis MakeValues(double length, bool isLevel) const {
        return MakeNumberAxis(fPicture.fValues, fExtent, length, isLevel, true);
    }

    /// What an upright axis of values takes, however high the plot will be.
    double MostBeside() const {
        double most = 0;
        for (const double height : {kTableHeight, kLeastHeight, kPanelHeight, kHeight}) {
            most = std::max(most, RoomOnTheLeft(MakeValues(height, false), true));
        }
        return most;
    }

    double MostForPlot() const { return fPlan.fGrid.PlotWidth(fWidth, fPlan.fRooms); }

    /// Words of numbers at the ends of an axis reach half beyond it, and must not meet those of the next panel.
    double BesideTicks(const NumberAxis& axis) const {
        const double widest = axis.fWidestTick;
        return fPlan.fGrid.Columns() > 1 ? std::max(widest / 2, widest + kBetweenTicks - kPanelGap) : widest / 2;
    }

    void SetBelow(double room) {
        fPlan.fRooms.fBelow = room;
        fPlan.fRooms.fBelowEach = fPlan.fGrid.IsTable() ? 0 : room;
    }

    // --- values upright

    double MostWords() const { return std::min(160.0, 0.4 * fWidth); }

    void PlanUpright(LevelsStand stand) {
        fPlan.fRooms.fLeftOnce = MostBeside();
        FitLevels(stand);
        fPlan.fPlotHeight = HeightFor(fPlan.fPlotWidth);
        fPlan.fValues = MakeValues(fPlan.fPlotHeight, false);
        fPlan.fValues.fvTitle = WrapText(fPicture.fValues.fTitle, TitleSpan(), kAxisTitleStyle, kTitleLines);
        fPlan.fRooms.fLeftOnce = RoomOnTheLeft(fPlan.fValues, true);
        FitLevels(stand);
        if (stand == LevelsStand::Slanted) MakeRoomForSlant();
        SetBelow(fPlan.fAxis.fRoom);
    }

    double HeightFor(double plotWidth) const {
        if (!fPlan.fGrid.HasHeadings()) return std::clamp(0.6 * plotWidth, 240.0, kHeight);
        if (fPlan.fGrid.IsTable() && fPlan.fGrid.Rows() > 1) return kTableHeight;
        return std::clamp(0.9 * plotWidth, kLeastHeight, kPanelHeight);
    }

    double TitleSpan() const {
        return std::min(static_cast<double>(fPlan.fGrid.Rows()) * fPlan.fPlotHeight, kTitleSpan);
    }

    void FitLevels(LevelsStand stand) {
        const double asked = WidthAskedFor(fPicture, stand, MostForPlot());
        if (stand == LevelsStand::Numbers) {
            SetLevels(stand, std::min(MostForPlot(), asked));
            fPlan.fRooms.fRightEach = BesideTicks(fPlan.fAxis.fNumbers);
        }
        SetLevels(stand, std::min(MostForPlot(), asked));
    }

    void SetLevels(LevelsStand stand, double length) {
        fPlan.fAxis = MakeLevelAxis(fPicture, stand, length, MostWords());
        fPlan.fPlotWidth = fPlan.fAxis.fLength;
    }

    /// Where panels stand below each other, slanted words of one may reach below the title beside them.
    void MakeRoomForSlant() {
        PanelRooms& rooms = fPlan.fRooms;
        const double title = fPlan.fGrid.Rows() > 1 ? RoomForTitle(fPlan.fValues.fvTitle) : 0;
        const double shared = fPlan.fGrid.Columns() * fPlan.fPlotWidth + rooms.fLeftOnce - title;
        const double overhang = OverhangOf(fPlan.fAxis, shared, fPlan.fGrid.Columns()) + title;
        if (overhang <= rooms.fLeftOnce) return;
        rooms.fLeftOnce = overhang;
        SetLevels(LevelsStand::Slanted, std::min(MostForPlot(), fPlan.fPlotWidth));
    }

    // --- levels below each other

    void PlanTurned() {
        const bool hasPanels = fPlan.fGrid.HasHeadings();
        const double words = hasPanels ? std::min(170.0, 0.36 * fWidth) : std::min(260.0, 0.42 * fWidth);
        fPlan.fAxis = MakeTurnedAxis(fPicture, LeastSlotBelow(fPicture), words);
        fPlan.fPlotHeight = fPlan.fAxis.fLength;
        const double asked = WidthAskedFor(fPicture, LevelsStand::Below, fWidth);
        fPlan.fValues = MakeValues(asked, true);
        for (int pass = 0; pass < 2; ++pass) {
            fPlan.fRooms.fLeftOnce = std::max(fPlan.fAxis.fRoom, fPlan.fValues.fWidestTick / 2);
            fPlan.fRooms.fRightEach = BesideTicks(fPlan.fValues);
            fPlan.fPlotWidth = std::min(MostForPlot(), asked);
            fPlan.fValues = MakeValues(fPlan.fPlotWidth, true);
        }
        SetBelow(RoomBelow(fPlan.fValues, false));
    }

    const LevelsPicture& fPicture;
    double fWidth;
    Extent fExtent;
    LevelsPlan fPlan;
};

}  // namespace

LevelsPlan PlanLevels(const LevelsPicture& picture, double width) { return Planner(picture, width).Make(); }

}  // namespace hierfit::report::charts
