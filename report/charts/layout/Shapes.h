#pragma once

#include <string>
#include <vector>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// Styles that all pictures share, in pixels. Nothing is smaller than the words of a page's tables.
inline constexpr TextStyle kTitleStyle{16, true};
inline constexpr TextStyle kHeadingStyle{12.5, true};  ///< of panels and boxes
inline constexpr TextStyle kAxisTitleStyle{13, false};
inline constexpr TextStyle kLabelStyle{12, false};

/// Marks of a kind: of more, each is drawn in short, and those of one paint come together where they can.
inline constexpr std::size_t kMostInFull = 2000;

/// Outlines of points.
enum class Symbol : unsigned char { Circle, Square, Triangle, Diamond, Cross, Nabla, TriangleRight, TriangleLeft };
inline constexpr int kSymbols = 8;

/// The symbol of a class: circles first, repeated after eight.
Symbol SymbolOfClass(int number);

/// A point of about the area of a circle of that radius.
Shape MakeSymbol(Symbol symbol, Point at, double radius, const Paint& paint);

Shape MakeLine(Point from, Point to, const Paint& paint);

/// One of very many: its ends are whole pixels and its width is a multiple of half a pixel, so that many have one paint.
Shape MakeCoarseLine(Point from, Point to, Paint paint);

Shape MakeText(std::string words, Point at, const TextStyle& style, Anchor anchor = Anchor::Start, Ink ink = Ink::Ink);

/// Lines of words below each other: `at` is on the first one's baseline.
void AddLines(Element& element, const std::vector<std::string>& lines, Point at, const TextStyle& style,
              Anchor anchor = Anchor::Start, Ink ink = Ink::Ink);

/// Moves everything that a scene holds, from an element on.
void Move(Scene& scene, double right, double down, std::size_t firstElement = 0);
void Move(Shape& shape, double right, double down);

}  // namespace hierfit::report::charts
