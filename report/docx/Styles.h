#pragma once

#include <string_view>

#include "report/archive/Archive.h"

/// The styles that the text is written in, so that a reader changes its looks in one place.
namespace hierfit::report::docx {

inline constexpr int kHeadings = 9;  ///< there is no deeper one

/// Letters in tables: pixels to the em, as the pictures' texts are measured.
inline constexpr double kTableSize = 12;

/// Room at the left and the right of a table's cell, in twentieths of a point.
inline constexpr int kCellMargin = 65;

/// Names of styles in markup.
namespace styles {
inline constexpr std::string_view kTitle = "Title";
inline constexpr std::string_view kSubtitle = "Subtitle";
inline constexpr std::string_view kAuthor = "Author";
inline constexpr std::string_view kMessage = "Message";
inline constexpr std::string_view kCaption = "Caption";             ///< what lists of tables and of figures find
inline constexpr std::string_view kContinued = "CaptionContinued";  ///< of a table's further parts
inline constexpr std::string_view kTable = "ReportTable";
inline constexpr std::string_view kCellText = "TableText";
inline constexpr std::string_view kFigure = "TableFigure";  ///< a number, below others at the decimal sign
inline constexpr std::string_view kColumnHeader = "TableHeader";
inline constexpr std::string_view kSpanner = "TableSpanner";  ///< a header of several columns, with a rule below
inline constexpr std::string_view kNote = "TableNote";
inline constexpr std::string_view kPicture = "Picture";
inline constexpr std::string_view kSectionEnd = "SectionEnd";  ///< a line that is not seen
}  // namespace styles

/// The part of all styles; `language` is a tag.
ArchiveFile MakeStyles(std::string_view language);

}  // namespace hierfit::report::docx
