#pragma once

#include <optional>
#include <span>
#include <vector>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

using Shapes = std::span<const Shape>;

/// All that shapes side by side can have in common.
struct Look {
    Paint fPaint;
    bool fIsText = false;
    TextStyle fStyle;
    Anchor fAnchor = Anchor::Start;
    bool fIsRightToLeft = false;

    bool operator==(const Look&) const = default;
};

/// Shapes that become one element: a part of an element of the scene, or the whole of one that has attributes.
struct Item {
    Shapes fvShapes;
    const Element* fpElement = nullptr;  ///< null for mere decoration
    std::optional<Look> fLook;           ///< unless the shapes differ in it
};

/// The items of a scene, in drawing order; they borrow its elements.
std::vector<Item> ListItems(const std::vector<Element>& elements);

/// Appends the items of shapes without attributes. Lines side by side with the same paint are one item.
void ListDecoration(std::vector<Item>& items, Shapes shapes);

}  // namespace hierfit::report::charts
