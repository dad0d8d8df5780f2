#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "report/items/Words.h"

/// The page's own words, all of them; what the document holds is in its own language.
namespace hierfit::report::html::words {

inline constexpr std::string_view kLanguage = "en";

inline constexpr std::string_view kSkip = "Skip to the output";
inline constexpr std::string_view kContents = "Contents";
inline constexpr std::string_view kTarget = "Target";
inline constexpr std::string_view kOutOf = " out of ";
inline constexpr std::string_view kRecords = "Records";
inline constexpr std::string_view kSources = "Documents";
inline constexpr std::string_view kMore = " more";
inline constexpr std::string_view kTable = "table";
inline constexpr std::string_view kSmall = "Figures that would show as zero are given with three significant digits.";
inline constexpr std::string_view kReferences = "Reference levels, whose coefficients are zero: ";
inline constexpr std::string_view kShowRedundant = "Show redundant coefficients";
inline constexpr std::string_view kOnPaper = "Print them";
inline constexpr std::string_view kSameTable = ": the same table as in ";
inline constexpr std::string_view kShowHere = "Show it here";

inline constexpr std::string_view kIsChart = " (chart)";
inline constexpr std::string_view kValues = "Values";
inline constexpr std::string_view kPicture = "Picture";
inline constexpr std::string_view kWay = "Arrow keys lead through its marks, with Shift through its legend";

inline constexpr std::string_view kCopy = "Copy";
inline constexpr std::string_view kCopied = "Copied";
inline constexpr std::string_view kNotCopied = "Not copied";
inline constexpr std::string_view kSave = "Save picture";
inline constexpr std::string_view kNotSaved = "Not saved";
inline constexpr std::string_view kMoreWays = "More ways to copy or save";
inline constexpr std::string_view kAsTable = "Copy as table";
inline constexpr std::string_view kAsMarkdown = "Copy as Markdown";
inline constexpr std::string_view kAsLatex = "Copy as LaTeX";
inline constexpr std::string_view kAsCsv = "Copy as CSV";
inline constexpr std::string_view kSaveCsv = "Save as CSV";
inline constexpr std::string_view kSaveSvg = "Save as SVG";
inline constexpr std::string_view kSavePng = "Save as PNG";
inline constexpr std::string_view kCopyValues = "Copy values as CSV";

/// How grave a message or diagnostic is.
struct Level {
    std::string_view fWord;
    std::string_view fClass;  ///< in the style sheet
};

inline constexpr std::array<Level, 3> kLevels{
    {{items::kLevels[0], "information"}, {items::kLevels[1], "warning"}, {items::kLevels[2], "error"}}};

/// Levels count from 1; one outside the range is taken as the nearest.
constexpr const Level& LevelOf(int level) {
    return kLevels[static_cast<std::size_t>(std::clamp(level, 1, static_cast<int>(kLevels.size())) - 1)];
}

}  // namespace hierfit::report::html::words
