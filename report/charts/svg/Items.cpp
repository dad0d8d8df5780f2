#include "report/charts/svg/Items.h"

#include <algorithm>

#include "report/charts/svg/Forms.h"
#include "report/markup/Escape.h"

namespace hierfit::report::charts {

namespace {

// Words that are read from right to left begin at their right.
Anchor Opposite(Anchor anchor) {
    if (anchor == Anchor::Middle) return anchor;
    return anchor == Anchor::Start ? Anchor::End : Anchor::Start;
}

Look LookOf(const Shape& shape) {
    Look look;
    look.fPaint = shape.fPaint;
    const auto* text = std::get_if<Text>(&shape.fForm);
    if (!text) return look;
    look.fIsText = true;
    look.fStyle = text->fStyle;
    look.fIsRightToLeft = BeginsRightToLeft(text->fWords);
    look.fAnchor = look.fIsRightToLeft ? Opposite(text->fAnchor) : text->fAnchor;
    return look;
}

bool HasAttributes(const Element& element) {
    return !element.fTip.empty() || element.fIsEntry || !element.fvKeys.empty();
}

bool IsOutline(const Shape& shape) {
    return IsLines(shape.fForm) && shape.fPaint.fFill == Ink::None && shape.fPaint.fOpacity >= 1;
}

Item MakeItem(const Element& element) {
    Item item{element.fvShapes, &element, {}};
    if (element.fvShapes.empty()) return item;
    const Look look = LookOf(element.fvShapes.front());
    if (std::ranges::all_of(element.fvShapes, [&](const Shape& shape) { return LookOf(shape) == look; })) {
        item.fLook = look;
    }
    return item;
}

}  // namespace

void ListDecoration(std::vector<Item>& items, Shapes shapes) {
    while (!shapes.empty()) {
        const Look look = LookOf(shapes.front());
        std::size_t count = 1;
        if (IsOutline(shapes.front())) {
            while (count < shapes.size() && IsOutline(shapes[count]) && LookOf(shapes[count]) == look) ++count;
        }
        items.push_back({shapes.first(count), nullptr, look});
        shapes = shapes.subspan(count);
    }
}

std::vector<Item> ListItems(const std::vector<Element>& elements) {
    std::vector<Item> items;
    for (const Element& element : elements) {
        if (HasAttributes(element)) {
            items.push_back(MakeItem(element));
        } else {
            ListDecoration(items, element.fvShapes);
        }
    }
    return items;
}

}  // namespace hierfit::report::charts
