#pragma once

#include <string>
#include <string_view>

#include "report/archive/Archive.h"

/// How the parts of the file find each other.
namespace hierfit::report::docx {

inline constexpr std::string_view kFooterRelation = "footer";

/// Names of a figure's two pictures, by its number.
std::string PixelsName(int figure);
std::string VectorsName(int figure);

/// Their relations from the text.
std::string PixelsRelation(int figure);
std::string VectorsRelation(int figure);

/// The list of the types of all parts.
ArchiveFile MakeContentTypes();

/// The relations of the whole file, and those of its text, which has so many figures.
ArchiveFile MakeFileRelations();
ArchiveFile MakeTextRelations(int figures);

}  // namespace hierfit::report::docx
