#pragma once

#include <string>
#include <string_view>

#include "report/charts/layout/Scene.h"

namespace hierfit::report::charts {

/// What a picture says of itself to those who do not see it.
enum class Names : unsigned char {
    Marks,  ///< each mark has its tip as title, which names it and is shown where it is pointed at, and its keys. Of
            ///< very many marks that look alike, their group tells the keys that all have, and its description is a tip
            ///< with dots at the ends of those lines that differ; titles are then no more than what stands for the
            ///< dots.
    None,  ///< marks are of class "m" and have neither: another layout of the same picture, with its marks in the same
           ///< order, says all that
};

/// Appends a scene as an SVG element. Every ink is a colour, and a class by which a style sheet can give it another:
/// "f" and its number where it fills, "s" and its number where it strokes. `attributes` of the element and `content`
/// ahead of the shapes are markup.
void AppendSvg(std::string& out, const Scene& scene, Names names, std::string_view attributes,
               std::string_view content = {});

/// A scene as a file of its own, on white ground.
std::string MakeSvgFile(const Scene& scene, std::string_view title, std::string_view sentence);

}  // namespace hierfit::report::charts
