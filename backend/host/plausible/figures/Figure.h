#pragma once

#include <initializer_list>
#include <optional>
#include <string_view>

namespace hierfit::plausible {

/// A number as a document writes it. The text must outlive it.
struct Figure {
    double fValue;
    std::string_view fText;
};

using MaybeFigure = std::optional<Figure>;

/// Nothing for a missing figure: any text that is no finite number.
MaybeFigure ReadFigure(std::string_view text);

/// How far a number may be from what was rounded: half a unit of the last digit that is written, and no more than
/// `most`.
double RoundingOf(const Figure& figure, double most);

/// The same for a number that stands beside others of its kind: where these have decimals, one without is taken to be
/// exact to as many.
double RoundingBeside(const Figure& figure, std::initializer_list<Figure> others);

}  // namespace hierfit::plausible
