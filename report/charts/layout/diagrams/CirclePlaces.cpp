#include "report/charts/layout/diagrams/CirclePlaces.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "report/charts/layout/Shapes.h"
#include "report/charts/layout/diagrams/NodeNames.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

using document::CircleNode;
using document::CirclePanel;

namespace {

constexpr std::size_t kMostUpright = 14;
constexpr std::size_t kMostLines = 3;  // of upright names
constexpr double kNameGap = 12;        // from the middle of a node
constexpr double kNodeEdge = 7;
constexpr double kLeastRadius = 42;
constexpr double kRadius = 110;
constexpr double kPanelRadius = 84;  // where there are several panels
constexpr double kMoreEach = 7;      // for each node beyond six
constexpr double kRoomyRadius = 190;
constexpr double kRoomyArc = 30;  // between radial names
constexpr double kWidestName = 150;
constexpr double kWidestWord = 110;      // panels grow rather than break shorter words
constexpr double kShareOfName = 0.21;    // of the width
constexpr double kLeastRadialName = 56;  // names are cut to this rather than left out
constexpr double kUsualRadialName = 90;
constexpr double kTurnaround = 2 * std::numbers::pi;

/// What a line of words takes across, with a little between two.
double LineRoom() { return Ascent(kLabelStyle) + Descent(kLabelStyle) + 0.5; }

std::size_t MostNodes(const std::vector<CirclePanel>& panels) {
    std::size_t most = 0;
    for (const CirclePanel& panel : panels) most = std::max(most, panel.fvNodes.size());
    return most;
}

double RadiusFor(std::size_t panels) { return panels > 1 ? kPanelRadius : kRadius; }

/// The radius at which the lines of so many radial names just stand clear.
double TightRadius(std::size_t nodes) {
    return std::max(static_cast<double>(nodes) * LineRoom() / kTurnaround - kNameGap, kLeastRadius);
}

Point Direction(std::size_t node, std::size_t count) {
    const double first = count == 2 ? -std::numbers::pi : -std::numbers::pi / 2;
    const double angle = first + kTurnaround * static_cast<double>(node) / static_cast<double>(count);
    return {std::cos(angle), std::sin(angle)};
}

std::vector<std::string> NamesOf(const CirclePanel& panel) {
    std::vector<std::string> names;
    for (const CircleNode& node : panel.fvNodes) names.push_back(node.fName);
    return names;
}

double LongestWordOf(const std::vector<CirclePanel>& panels) {
    double longest = 0;
    for (const CirclePanel& panel : panels) {
        for (const CircleNode& node : panel.fvNodes) longest = std::max(longest, LongestWord(node.fName, kLabelStyle));
    }
    return std::min(longest + 1, kWidestWord);
}

double LongestNameOf(const std::vector<CirclePanel>& panels) {
    double longest = 0;
    for (const CirclePanel& panel : panels) longest = std::max(longest, WidestLine(NamesOf(panel), kLabelStyle));
    return longest;
}

void Hold(Frame& reach, const Frame& frame) {
    reach = {std::min(reach.fLeft, frame.fLeft), std::min(reach.fTop, frame.fTop), std::max(reach.fRight, frame.fRight),
             std::max(reach.fBottom, frame.fBottom)};
}

/// The side of its place on which a name stands: left, middle or right, by the direction from the circle's middle.
Anchor AnchorTowards(const Point& direction) {
    constexpr double kUpright = 0.1;
    if (std::abs(direction.fX) < kUpright) return Anchor::Middle;
    return direction.fX < 0 ? Anchor::End : Anchor::Start;
}

double LeftOf(double at, double width, Anchor anchor) {
    if (anchor == Anchor::Start) return at;
    return anchor == Anchor::End ? at - width : at - width / 2;
}

/// Names that stand upright about circles, in lines.
class UprightNames {
  public:
    UprightNames(const std::vector<CirclePanel>& panels, double width, std::size_t lines) : fWidth(width) {
        const double most = std::max(std::min({std::max(width * kShareOfName, LongestWordOf(panels)),
                                               width / 2 - kLeastRadius - kNameGap, kWidestName}),
                                     1.0);
        for (const CirclePanel& panel : panels) {
            fvNames.push_back(SetNames(NamesOf(panel), std::vector<double>(panel.fvNodes.size(), most), lines));
        }
    }

    /// Places everything. Names that lie on others are left out; tells whether there are none of these.
    bool Place(CirclePlaces& places) const {
        const double radius = Radius();
        bool areAllFree = true;
        for (const auto& names : fvNames) {
            std::vector<Frame> frames;
            for (std::size_t at = 0; at < names.size(); ++at) {
                frames.push_back(FrameOf(names[at], Direction(at, names.size()), radius));
            }
            const std::vector<bool> free = AreFree(frames);
            std::vector<CirclePlace>& panel = places.fvPanels.emplace_back();
            for (std::size_t at = 0; at < names.size(); ++at) {
                const Point direction = Direction(at, names.size());
                panel.push_back({{radius * direction.fX, radius * direction.fY}, {}});
                areAllFree = areAllFree && free[at];
                if (free[at]) panel.back().fvName = Words(names[at], direction, frames[at]);
                if (free[at]) Hold(places.fReach, frames[at]);
            }
        }
        return areAllFree;
    }

  private:
    static Frame FrameOf(const std::vector<std::string>& lines, const Point& direction, double radius) {
        const double width = WidestLine(lines, kLabelStyle);
        const double height = static_cast<double>(lines.size()) * LineHeight(kLabelStyle);
        const double outer = radius + kNameGap;
        const double left = LeftOf(outer * direction.fX, width, AnchorTowards(direction));
        const double top = outer * direction.fY + (direction.fY - 1) * height / 2;
        return {left, top, left + width, top + height};
    }

    static std::vector<Shape> Words(const std::vector<std::string>& lines, const Point& direction, const Frame& frame) {
        const Anchor anchor = AnchorTowards(direction);
        const double x = anchor == Anchor::Start ? frame.fLeft
                         : anchor == Anchor::End ? frame.fRight
                                                 : (frame.fLeft + frame.fRight) / 2;
        Element words;
        AddLines(words, lines, {x, frame.fTop + Ascent(kLabelStyle) + 0.5}, kLabelStyle, anchor);
        return std::move(words.fvShapes);
    }

    /// As wished, or as the names on both sides leave room for.
    double Radius() const {
        const double usual = RadiusFor(fvNames.size());
        double radius = usual;
        for (const auto& names : fvNames) {
            radius = std::max(radius, usual + kMoreEach * (static_cast<double>(names.size()) - 6));
        }
        for (const auto& names : fvNames) {
            for (std::size_t at = 0; at < names.size(); ++at) {
                const Point direction = Direction(at, names.size());
                if (AnchorTowards(direction) == Anchor::Middle) continue;
                const double room = fWidth / 2 - WidestLine(names[at], kLabelStyle);
                radius = std::min(radius, room / std::abs(direction.fX) - kNameGap);
            }
        }
        return std::max(std::min(radius, fWidth / 2 - kNodeEdge), kLeastRadius);
    }

    double fWidth;
    std::vector<std::vector<std::vector<std::string>>> fvNames;
};

/// Names along the radius, in one line each.
class RadialNames {
  public:
    RadialNames(const std::vector<CirclePanel>& panels, double width) {
        const std::size_t most = MostNodes(panels);
        const double longest = std::min(LongestNameOf(panels) + 0.5, kWidestName);
        const double room = width / 2 - kNameGap - 1;
        fRadius = Radius(most, longest, room, RadiusFor(panels.size()));
        const double forName = std::max(std::min(kWidestName, room - fRadius), 1.0);
        for (const CirclePanel& panel : panels) fvNames.push_back(CutTexts(NamesOf(panel), forName, kLabelStyle));
    }

    void Place(CirclePlaces& places) const {
        for (const std::vector<std::string>& names : fvNames) {
            const double arc = kTurnaround * (fRadius + kNameGap) / static_cast<double>(names.size());
            const auto step = static_cast<std::size_t>(std::max(1.0, std::ceil(LineRoom() / arc - 1e-9)));
            std::vector<CirclePlace>& panel = places.fvPanels.emplace_back();
            for (std::size_t at = 0; at < names.size(); ++at) {
                const Point direction = Direction(at, names.size());
                panel.push_back({{fRadius * direction.fX, fRadius * direction.fY}, {}});
                // The last name stands beside the first one.
                if (at % step == 0 && at + step <= names.size()) AddName(panel.back(), names[at], direction, places);
            }
        }
    }

  private:
    /// Roomy where names leave it so; as tight as the lines of names can be if that is enough for names cut short;
    /// else some names are left out, and the others keep their room.
    static double Radius(std::size_t nodes, double longest, double room, double usual) {
        const double roomy = std::clamp(static_cast<double>(nodes) * kRoomyArc / kTurnaround, usual, kRoomyRadius);
        const double tight = TightRadius(nodes);
        if (tight > room - std::min(longest, kLeastRadialName)) {
            return std::max(room - std::min(longest, kUsualRadialName), kLeastRadius);
        }
        return std::clamp(room - longest, tight, std::max(roomy, tight));
    }

    void AddName(CirclePlace& place, const std::string& name, const Point& direction, CirclePlaces& places) const {
        const bool isLeft = direction.fX < -1e-9;
        const double outer = fRadius + kNameGap - 1;
        const double below = (Ascent(kLabelStyle) - Descent(kLabelStyle)) / 2;  // from the middle to the baseline
        const Point down = isLeft ? Point{direction.fY, -direction.fX} : Point{-direction.fY, direction.fX};
        Shape shape = MakeText(name, {outer * direction.fX + below * down.fX, outer * direction.fY + below * down.fY},
                               kLabelStyle, isLeft ? Anchor::End : Anchor::Start);
        const double degrees = std::atan2(direction.fY, direction.fX) * 360 / kTurnaround;
        std::get<Text>(shape.fForm).fTurn = degrees + (isLeft ? (degrees > 0 ? -180 : 180) : 0);
        place.fvName = {std::move(shape)};
        const double far = outer + TextWidth(name, kLabelStyle);
        const double halfX = LineRoom() / 2 * std::abs(direction.fY);
        const double halfY = LineRoom() / 2 * std::abs(direction.fX);
        for (const double along : {outer, far}) {
            const Point end{along * direction.fX, along * direction.fY};
            Hold(places.fReach, {end.fX - halfX, end.fY - halfY, end.fX + halfX, end.fY + halfY});
        }
    }

    std::vector<std::vector<std::string>> fvNames;
    double fRadius;
};

/// The nodes themselves reach beyond their names where these are left out.
void HoldNodes(CirclePlaces& places) {
    for (const auto& panel : places.fvPanels) {
        for (const CirclePlace& place : panel) {
            Hold(places.fReach, {place.fAt.fX - kNodeEdge, place.fAt.fY - kNodeEdge, place.fAt.fX + kNodeEdge,
                                 place.fAt.fY + kNodeEdge});
        }
    }
}

}  // namespace

double LeastCircleWidth(const std::vector<CirclePanel>& panels) {
    const std::size_t most = MostNodes(panels);
    if (most > kMostUpright) {
        const double name = std::clamp(LongestNameOf(panels), kLeastRadialName, kUsualRadialName);
        return 2 * (TightRadius(most) + kNameGap + name + 1);
    }
    return 2 * (kLeastRadius + kNameGap + LongestWordOf(panels));
}

CirclePlaces PlaceCircles(const std::vector<CirclePanel>& panels, double width) {
    constexpr double kNothing = 1e9;
    CirclePlaces places;
    const auto begin = [&places] {
        places.fvPanels.clear();
        places.fReach = {kNothing, kNothing, -kNothing, -kNothing};
    };
    begin();
    places.fAreNamesRadial = MostNodes(panels) > kMostUpright;
    if (places.fAreNamesRadial) {
        RadialNames(panels, width).Place(places);
    } else {
        for (std::size_t lines = kMostLines; lines > 0; --lines) {
            begin();
            if (UprightNames(panels, width, lines).Place(places)) break;
        }
    }
    HoldNodes(places);
    if (MostNodes(panels) == 0) places.fReach = {};
    return places;
}

}  // namespace hierfit::report::charts
