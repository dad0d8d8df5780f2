#include "tests/pictures/SceneChecks.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "report/charts/layout/LayOut.h"
#include "report/charts/layout/text/TextWidth.h"

namespace hierfit::test {

using report::charts::Anchor;
using report::charts::Circle;
using report::charts::Element;
using report::charts::Line;
using report::charts::Point;
using report::charts::Scene;
using report::charts::Shape;
using report::charts::Text;

namespace {

constexpr double kGrace = 0.25;
constexpr double kLeastSize = 12;

/// The corners of a text's box, in turn, and the box about them that stands upright.
struct Box {
    const Text* fpText;
    std::array<Point, 4> fvCorners;
    Point fLeast;
    Point fMost;
};

Box BoxOf(const Text& text) {
    const double width = report::charts::TextWidth(text.fWords, text.fStyle);
    const double before = text.fAnchor == Anchor::Start ? 0 : text.fAnchor == Anchor::End ? width : width / 2;
    const double left = kGrace - before;
    const double right = std::max(width - before - kGrace, left);
    const double top = kGrace - report::charts::Ascent(text.fStyle);
    const double bottom = report::charts::Descent(text.fStyle) - kGrace;
    const double turn = text.fTurn * std::numbers::pi / 180;
    Box box{&text, {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}}, {}, {}};
    for (Point& corner : box.fvCorners) {
        corner = {text.fAt.fX + corner.fX * std::cos(turn) - corner.fY * std::sin(turn),
                  text.fAt.fY + corner.fX * std::sin(turn) + corner.fY * std::cos(turn)};
    }
    const auto [leastX, mostX] = std::ranges::minmax(box.fvCorners, {}, &Point::fX);
    const auto [leastY, mostY] = std::ranges::minmax(box.fvCorners, {}, &Point::fY);
    box.fLeast = {leastX.fX, leastY.fY};
    box.fMost = {mostX.fX, mostY.fY};
    return box;
}

/// Whether a line at a right angle to one of the first box's sides parts them.
bool IsParted(const Box& box, const Box& other) {
    for (std::size_t side = 0; side < 2; ++side) {
        const Point from = box.fvCorners[side];
        const Point to = box.fvCorners[side + 1];
        const auto along = [&](const Point& point) {
            return (point.fX - from.fX) * (to.fX - from.fX) + (point.fY - from.fY) * (to.fY - from.fY);
        };
        const auto [least, most] = std::ranges::minmax(other.fvCorners, {}, along);
        if (along(most) < 0 || along(least) > along(to)) return true;
    }
    return false;
}

bool DoOverlap(const Box& box, const Box& other) { return !IsParted(box, other) && !IsParted(other, box); }

std::string Place(const Box& box) {
    return fmt::format("\"{}\" at {:.1f}, {:.1f}", box.fpText->fWords, box.fpText->fAt.fX, box.fpText->fAt.fY);
}

std::vector<Box> BoxesOf(const Scene& scene) {
    std::vector<Box> boxes;
    for (const Element& element : scene.fvElements) {
        for (const Shape& shape : element.fvShapes) {
            const Text* text = std::get_if<Text>(&shape.fForm);
            if (text != nullptr && text->fWords.find_first_not_of(' ') != std::string::npos) {
                boxes.push_back(BoxOf(*text));
            }
        }
    }
    return boxes;
}

/// Along the longer side of the scene, so that a box meets those alone that begin before it ends.
void AddOverlaps(const Scene& scene, std::vector<Box> boxes, std::vector<std::string>& faults) {
    const auto side = scene.fWidth > scene.fHeight ? &Point::fX : &Point::fY;
    std::ranges::stable_sort(boxes, {}, [side](const Box& box) { return box.fLeast.*side; });
    for (std::size_t at = 0; at < boxes.size(); ++at) {
        const double end = boxes[at].fMost.*side;
        for (std::size_t next = at + 1; next < boxes.size() && boxes[next].fLeast.*side < end; ++next) {
            if (DoOverlap(boxes[at], boxes[next])) {
                faults.push_back(Place(boxes[at]) + " lies on " + Place(boxes[next]));
            }
        }
    }
}

bool IsInside(const Scene& scene, const Point& least, const Point& most) {
    return least.fX >= 0 && least.fY >= 0 && most.fX <= scene.fWidth && most.fY <= scene.fHeight;
}

bool IsInside(const Scene& scene, const Shape& shape) {
    const auto isInside = [&scene](const Point& point) { return IsInside(scene, point, point); };
    if (const auto* line = std::get_if<Line>(&shape.fForm)) return isInside(line->fFrom) && isInside(line->fTo);
    const auto* circle = std::get_if<Circle>(&shape.fForm);
    return circle == nullptr || isInside(circle->fAt);
}

}  // namespace

std::vector<std::string> FaultsOf(const Scene& scene) {
    std::vector<std::string> faults;
    const std::vector<Box> boxes = BoxesOf(scene);
    for (const Box& box : boxes) {
        if (!IsInside(scene, box.fLeast, box.fMost)) {
            faults.push_back(Place(box) + fmt::format(" leaves {:.1f} by {:.1f}", scene.fWidth, scene.fHeight));
        }
        if (box.fpText->fStyle.fSize < kLeastSize) faults.push_back(Place(box) + " is too small");
    }
    AddOverlaps(scene, boxes, faults);
    for (const Element& element : scene.fvElements) {
        for (const Shape& shape : element.fvShapes) {
            if (!IsInside(scene, shape)) faults.push_back("a shape of \"" + element.fTip + "\" stands out");
        }
    }
    return faults;
}

void CheckLayouts(const std::function<Scene(double)>& layOut, std::size_t marks) {
    const std::vector<std::string> tips = TipsOf(layOut(report::charts::kDeskWidth));
    EXPECT_EQ(tips.size(), marks);
    for (const double width : {report::charts::kDeskWidth, report::charts::kPhoneWidth}) {
        const Scene scene = layOut(width);
        EXPECT_EQ(FaultsOf(scene), std::vector<std::string>()) << width;
        EXPECT_LE(scene.fWidth, width);
        EXPECT_EQ(TipsOf(scene), tips) << width;
    }
}

std::vector<std::string> WordsOf(const Scene& scene) {
    std::vector<std::string> words;
    for (const Box& box : BoxesOf(scene)) words.push_back(box.fpText->fWords);
    return words;
}

std::vector<const Element*> MarksOf(const Scene& scene) {
    std::vector<const Element*> marks;
    for (const Element& element : scene.fvElements) {
        if (!element.fTip.empty()) marks.push_back(&element);
    }
    return marks;
}

std::vector<std::string> TipsOf(const Scene& scene) {
    std::vector<std::string> tips;
    for (const Element* mark : MarksOf(scene)) tips.push_back(mark->fTip);
    return tips;
}

}  // namespace hierfit::test
