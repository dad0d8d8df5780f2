#pragma once

#include <string_view>

#include "report/archive/Archive.h"

/// The styles that the text is written in, so that a reader changes its looks in one place.
namespace hierfit::report::docx {

inline constexpr int kHeadings = 9;  ///< there is no deeper one

/// Plain letters in tables: pixels to the em, as the pictures' texts are measured.
inline constexpr double kTableSize = 12;

/// Names of styles in markup.
namespace styles {
inline constexpr std::string_view kTitle = "Title";
inline constexpr std::string_view kSubtitle = "Subtitle";
inline constexpr std::string_view kAuthor = "Author";
inline constexpr std::string_view kMessage = "Message";
inline constexpr std::string_view kCaption = "Caption";             ///< what lists of tables and of figures find
inline constexpr std::string_view kContinued = "CaptionContinued";  ///< of a table's further parts
inline constexpr std::string_view kNote = "TableNote";
inline constexpr std::string_view kPicture = "Picture";
inline constexpr std::string_view kSectionEnd = "SectionEnd";  ///< a line that is not seen
}  // namespace styles

/// The styles of a table and of what its cells hold.
struct TableStyles {
    std::string_view fTable;
    std::string_view fText;
    std::string_view fFigure;  ///< a number, below others at the decimal sign
    std::string_view fColumnHeader;
    std::string_view fSpanner;  ///< a header of several columns, with a rule below
    double fScale;              ///< of the letters
    int fMargin;                ///< room at the left and the right of a cell, in twentieths of a point
};

inline constexpr TableStyles kPlainTable{
    "ReportTable", "TableText", "TableFigure", "TableHeader", "TableSpanner", 1, 65};
inline constexpr TableStyles kSmallTable{
    "ReportTableSmall", "TableTextSmall", "TableFigureSmall", "TableHeaderSmall", "TableSpannerSmall", 8.0 / 9, 40};

/// The part of all styles; `language` is a tag.
ArchiveFile MakeStyles(std::string_view language);

}  // namespace hierfit::report::docx
