#pragma once

#include <memory>
#include <string>

#include "hierfit/store/HFITOutputStats.h"
#include "host/BpPivotTable.h"
#include "host/BpProcedure.h"
#include "host/KEST_DataSource.h"

namespace hierfit {

// What several tables have in common.

/// Lists of one item a line.
inline constexpr const char* kLines = "[%1:\n^1:]1";

/// A source text or key for the output to translate.
inline BpString Translated(const std::string& text) { return BpString(text, true); }

/// A text to print unchanged.
inline BpString Plain(const std::string& text) { return BpString(text, false); }

/// A figure in the shortest digits that give it back.
BpNumber SigDigitNumber(double number);

/// A figure in the count format.
BpNumber CountNumber(double number);

/// A pattern, translated, with one value.
BpComposite Composite(const std::string& pattern, const BpCellText& value);

/// Two texts one below the other.
BpComposite TwoLines(const BpCellText& first, const BpCellText& second);

/// A category with a translated name, and its one number.
BpCategory NumberCell(BpGroup& group, const char* name, double number, BpFormatSpec format);

/// The dimension of the statistics, on the columns, with its name hidden.
BpDimension StatisticsDimension(BpPivotTable& table);

/// "Target ..." with the target variable alone.
BpComposite TargetOnlyNote(const BuildSettings& settings, const KEST_DataSource& data);

/// "Target ..." with the target variable and, for events out of trials, the trials variable or their fixed number.
BpComposite TargetNote(const BuildSettings& settings, const KEST_DataSource& data);

/// The caption that names distribution and link, with the link's parameter where there is one.
BpComposite DistributionCaption(const HFITOutputStats& stats, const BuildSettings& settings, bool translateLink);

/// The name of a group of confidence bounds; the pattern's one mark is the level in percent.
BpComposite ConfidenceName(const char* pattern, const BuildSettings& settings);
inline constexpr const char* kConfidenceInterval = "^1% Confidence Interval";

/// The group of confidence bounds of a row.
BpGroup ConfidenceGroup(BpGroup& statistics, const BpComposite& name);

/// The fields and values of a data segment, as the label of its rows.
BpComposite GroupingCell(const SubjectData& segment, const KEST_DataSource& data);

/// A label of any length: in pieces of 255 characters where it is longer.
std::unique_ptr<BpCellText> LabelCell(const std::string& label);

}  // namespace hierfit
