#include "tests/pictures/DiagramChecks.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/pictures/SceneChecks.h"

namespace hierfit::test {

using report::charts::Circle;
using report::charts::Element;
using report::charts::Line;
using report::charts::Point;
using report::charts::Scene;
using report::charts::Shape;

void CheckLayouts(const std::function<Scene(double)>& layOut, std::size_t marks) {
    std::vector<std::vector<std::string>> tips;
    for (const double width : kWidths) {
        SCOPED_TRACE(width);
        const Scene scene = layOut(width);
        EXPECT_EQ(FaultsOf(scene), std::vector<std::string>());
        EXPECT_LE(scene.fWidth, width);
        EXPECT_TRUE(AreMarksInside(scene));
        tips.push_back(TipsOf(scene));
        EXPECT_EQ(tips.back().size(), marks);
        EXPECT_EQ(tips.back(), tips.front());
    }
}

std::vector<const Element*> MarksOf(const Scene& scene) {
    std::vector<const Element*> marks;
    for (const Element& element : scene.fvElements) {
        if (!element.fTip.empty()) marks.push_back(&element);
    }
    return marks;
}

const Element* EntryOf(const Scene& scene, const std::string& words) {
    for (const Element& element : scene.fvElements) {
        const auto* text = std::get_if<report::charts::Text>(&element.fvShapes.back().fForm);
        if (element.fIsEntry && text != nullptr && text->fWords == words) return &element;
    }
    return nullptr;
}

std::vector<std::string> TipsWithKeysOf(const Scene& scene, const Element& element) {
    std::vector<std::string> tips;
    for (const Element* mark : MarksOf(scene)) {
        const bool isOne = std::ranges::any_of(
            mark->fvKeys, [&](int key) { return std::ranges::find(element.fvKeys, key) != element.fvKeys.end(); });
        if (isOne) tips.push_back(mark->fTip);
    }
    return tips;
}

bool AreMarksInside(const Scene& scene) {
    const auto isInside = [&scene](const Point& point) {
        return point.fX >= 0 && point.fY >= 0 && point.fX <= scene.fWidth && point.fY <= scene.fHeight;
    };
    for (const Element& element : scene.fvElements) {
        for (const Shape& shape : element.fvShapes) {
            const auto* line = std::get_if<Line>(&shape.fForm);
            if (line != nullptr && !(isInside(line->fFrom) && isInside(line->fTo))) return false;
            const auto* circle = std::get_if<Circle>(&shape.fForm);
            if (circle != nullptr && !isInside(circle->fAt)) return false;
        }
    }
    return true;
}

std::vector<std::string> NamesOf(const std::string& kind, int count) {
    std::vector<std::string> names;
    for (int at = 0; at < count; ++at) {
        const std::string number = std::to_string(at + 1);
        if (kind == "equal") names.emplace_back("Golden Rain");
        if (kind == "short") names.push_back(number);
        if (kind == "long") names.push_back("[nitro=0." + number + "]*[Variety=Golden Rain of the north]");
        if (kind == "unbroken") names.push_back(std::string(300, 'W') + number);
    }
    return names;
}

}  // namespace hierfit::test
