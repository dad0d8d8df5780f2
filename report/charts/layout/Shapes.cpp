#include "report/charts/layout/Shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::report::charts {

namespace {

/// Corners of a symbol about its middle, for a radius of 1.
using Outline = std::vector<Point>;

const Outline& OutlineOf(Symbol symbol) {
    constexpr double kSide = 0.886;      // half the side of a square of a circle's area
    constexpr double kDiagonal = 1.253;  // the same square, on a corner
    constexpr double kHalf = 1.24;       // of a triangle's base
    constexpr double kRise = 1.35;       // from a triangle's middle to its tip
    constexpr double kFall = 0.85;
    constexpr double kArm = 1.189;  // of a cross
    constexpr double kWaist = 0.396;
    static const std::array<Outline, kSymbols> kOutlines = {{
        {},
        {{-kSide, -kSide}, {kSide, -kSide}, {kSide, kSide}, {-kSide, kSide}},
        {{0, -kRise}, {kHalf, kFall}, {-kHalf, kFall}},
        {{0, -kDiagonal}, {kDiagonal, 0}, {0, kDiagonal}, {-kDiagonal, 0}},
        {{-kWaist, -kArm},
         {kWaist, -kArm},
         {kWaist, -kWaist},
         {kArm, -kWaist},
         {kArm, kWaist},
         {kWaist, kWaist},
         {kWaist, kArm},
         {-kWaist, kArm},
         {-kWaist, kWaist},
         {-kArm, kWaist},
         {-kArm, -kWaist},
         {-kWaist, -kWaist}},
        {{0, kRise}, {-kHalf, -kFall}, {kHalf, -kFall}},
        {{kRise, 0}, {-kFall, kHalf}, {-kFall, -kHalf}},
        {{-kRise, 0}, {kFall, -kHalf}, {kFall, kHalf}},
    }};
    return kOutlines[static_cast<std::size_t>(symbol)];
}

void MovePoint(Point& point, double right, double down) {
    point.fX += right;
    point.fY += down;
}

/// Moves a form of each kind.
struct Mover {
    double fRight;
    double fDown;

    void operator()(Rectangle& form) const { MovePoint(form.fAt, fRight, fDown); }
    void operator()(Circle& form) const { MovePoint(form.fAt, fRight, fDown); }
    void operator()(Text& form) const { MovePoint(form.fAt, fRight, fDown); }
    void operator()(Line& form) const {
        MovePoint(form.fFrom, fRight, fDown);
        MovePoint(form.fTo, fRight, fDown);
    }
    void operator()(Path& form) const {
        for (std::vector<Point>& part : form.fvParts) {
            for (Point& point : part) MovePoint(point, fRight, fDown);
        }
    }
};

}  // namespace

Ink InkOfClass(int number, int count) {
    const auto inkAt = [](Ink first, int place) { return static_cast<Ink>(static_cast<int>(first) + place); };
    if (count <= kLevelInks) return inkAt(Ink::Level, number);
    return inkAt(Ink::Ramp, number * (kRampInks - 1) / (count - 1));
}

Symbol SymbolOfClass(int number) { return static_cast<Symbol>(number % kSymbols); }

Shape MakeSymbol(Symbol symbol, Point at, double radius, const Paint& paint) {
    if (symbol == Symbol::Circle) return {paint, Circle{at, radius}};
    Path path;
    path.fIsClosed = true;
    std::vector<Point>& part = path.fvParts.emplace_back();
    for (const Point& corner : OutlineOf(symbol)) {
        part.push_back({at.fX + corner.fX * radius, at.fY + corner.fY * radius});
    }
    return {paint, std::move(path)};
}

Shape MakeLine(Point from, Point to, const Paint& paint) { return {paint, Line{from, to}}; }

Shape MakeCoarseLine(Point from, Point to, Paint paint) {
    paint.fStrokeWidth = std::max(0.5, std::round(2 * paint.fStrokeWidth) / 2);
    return {paint, Path{{{from, to}}, false, true}};
}

Shape MakeText(std::string words, Point at, const TextStyle& style, Anchor anchor, Ink ink) {
    return {{.fFill = ink}, Text{std::move(words), at, style, anchor, 0}};
}

void AddLines(Element& element, const std::vector<std::string>& lines, Point at, const TextStyle& style, Anchor anchor,
              Ink ink) {
    for (const std::string& line : lines) {
        element.fvShapes.push_back(MakeText(line, at, style, anchor, ink));
        at.fY += LineHeight(style);
    }
}

void Move(Shape& shape, double right, double down) { std::visit(Mover{right, down}, shape.fForm); }

void Move(Scene& scene, double right, double down, std::size_t firstElement) {
    for (std::size_t at = firstElement; at < scene.fvElements.size(); ++at) {
        for (Shape& shape : scene.fvElements[at].fvShapes) Move(shape, right, down);
    }
}

}  // namespace hierfit::report::charts
