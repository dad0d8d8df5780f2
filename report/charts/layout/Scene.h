#pragma once

#include <string>
#include <variant>
#include <vector>

namespace hierfit::report::charts {

/// What a colour is for. Each rendering has its own colours for them; a page has others for the dark.
enum class Ink : unsigned char {
    None,
    Ink,               ///< words and lines
    Soft,              ///< words of less weight
    Axis,              ///< the lines of axes
    Grid,              ///< lines behind the marks
    Paper,             ///< the ground
    Bar,               ///< bars of a histogram
    BoxEdge,           ///< the edge of a diagram's box
    Quiet,             ///< what is not set off
    Link,              ///< a link without a class
    SetOff,            ///< what is set off, and the negative class
    Level,             ///< the first of eight colours of classes: Level + 0 ... Level + 7
    Ramp = Level + 8,  ///< the first of sixteen, from dark to light: Ramp + 0 ... Ramp + 15
};
inline constexpr int kLevelInks = 8;
inline constexpr int kRampInks = 16;
inline constexpr int kInks = static_cast<int>(Ink::Ramp) + kRampInks;

/// The colour of one of so many classes.
Ink InkOfClass(int number, int count);

/// Pixels of 1/96 inch; x grows to the right, y downwards.
struct Point {
    double fX = 0;
    double fY = 0;

    bool operator==(const Point&) const = default;
};

enum class Dash : unsigned char { Solid, Long, Short };  ///< 7 on and 3 off; 4 and 3
enum class Anchor : unsigned char { Start, Middle, End };

/// How a shape is painted. What stands side by side with the same paint is printed as one group.
struct Paint {
    Ink fFill = Ink::None;
    Ink fStroke = Ink::None;
    double fStrokeWidth = 1;
    Dash fDash = Dash::Solid;
    double fOpacity = 1;

    bool operator==(const Paint&) const = default;
};

struct Rectangle {
    Point fAt;  ///< upper left corner
    double fWidth = 0;
    double fHeight = 0;
    double fRound = 0;  ///< radius of its corners
};

struct Line {
    Point fFrom;
    Point fTo;
};

/// Straight lines from point to point. Where several parts follow each other, each begins anew.
struct Path {
    std::vector<std::vector<Point>> fvParts;
    bool fIsClosed = false;
    bool fIsCoarse = false;  ///< whole pixels are enough, as in a crowd
};

struct Circle {
    Point fAt;
    double fRadius = 0;
};

/// How words are set. The family is the same for all.
struct TextStyle {
    double fSize = 12;  ///< pixels to the em
    bool fIsBold = false;

    bool operator==(const TextStyle&) const = default;
};

/// One line of words.
struct Text {
    std::string fWords;
    Point fAt;  ///< on the baseline, at the anchor
    TextStyle fStyle;
    Anchor fAnchor = Anchor::Start;
    double fTurn = 0;  ///< about `fAt`, in degrees clockwise
};

using Form = std::variant<Rectangle, Line, Path, Circle, Text>;

struct Shape {
    Paint fPaint;
    Form fForm;
};

/// Shapes that belong together. A mark is an element with a tip; all others are decoration.
struct Element {
    std::vector<Shape> fvShapes;
    std::string
        fTip;  ///< what the mark is, in lines: shown when it is pointed at, and its name to those who do not see it
    std::vector<int> fvKeys;  ///< what it has to do with; marks and legend entries that share a key go together
    bool fIsEntry = false;    ///< an entry of a legend: its keys are those that it explains
};

/// A picture, placed: elements in drawing order, the first at the back.
struct Scene {
    double fWidth = 0;
    double fHeight = 0;
    std::vector<Element> fvElements;
};

}  // namespace hierfit::report::charts
