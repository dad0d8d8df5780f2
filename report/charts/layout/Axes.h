#pragma once

#include <string>
#include <vector>

#include "report/charts/layout/Scale.h"
#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// An axis of numbers with its ticks, ready to be drawn once it is known where.
struct NumberAxis {
    std::vector<std::string> fvTitle;  ///< in lines
    Extent fDomain;
    std::vector<Tick> fvTicks;
    double fWidestTick = 0;  ///< pixels
};

/// The title of an axis in lines of about equal width, a few at most.
std::vector<std::string> WrapTitle(const std::string& title, double length);

/// Makes the axis over what marks reach, for a length in pixels. Ticks stand at least so far apart that their words do
/// not meet, be the axis level or upright. `isNice`: rounded outwards to ticks.
NumberAxis MakeNumberAxis(const document::PictureAxis& axis, const Extent& extent, double length, bool isLevel,
                          bool isNice);

/// The room beside a plot for the words of an axis on its left, and below it for those of an axis there. `hasTitle`:
/// with the title.
double RoomOnTheLeft(const NumberAxis& axis, bool hasTitle);
double RoomBelow(const NumberAxis& axis, bool hasTitle);

/// Where a plot stands.
struct Frame {
    double fLeft = 0;
    double fTop = 0;
    double fRight = 0;
    double fBottom = 0;

    double Width() const { return fRight - fLeft; }
    double Height() const { return fBottom - fTop; }
};

/// Grid lines across the plot at the ticks.
void AddGrid(Scene& scene, const NumberAxis& axis, const Frame& plot, bool isLevel);

/// The words of the ticks on the left of the plot, and the title, upright, left of them.
void AddLeftAxis(Scene& scene, const NumberAxis& axis, const Frame& plot, bool hasTitle);

/// A line below the plot, short marks at the ticks and their words, and below them the title.
void AddBottomAxis(Scene& scene, const NumberAxis& axis, const Frame& plot, bool hasTitle);

/// The words of the ticks once more above a plot, and their room.
void AddTopWords(Scene& scene, const NumberAxis& axis, const Frame& plot);
double RoomAbove();

/// The title of an axis below a plot: `top` is where its first line begins.
void AddBottomTitle(Scene& scene, const std::vector<std::string>& lines, double middle, double top);

/// The title of an axis left of a plot, turned; it ends at `right`.
void AddLeftTitle(Scene& scene, const std::vector<std::string>& lines, double middle, double right);

/// The room that a title of so many lines takes across, with its distance from what it belongs to.
double RoomForTitle(const std::vector<std::string>& lines);

}  // namespace hierfit::report::charts
