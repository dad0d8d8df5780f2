#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "host/chart/specification/Specification.h"
#include "host/document/Picture.h"

namespace hierfit::chart {

/// A text of the run's string table; the key itself without a run or an entry.
std::string Translated(std::string_view key);

/// The same with the marks ^1, ^2, ... filled in. What is filled in is not looked at for marks.
std::string Translated(std::string_view key, std::initializer_list<std::string_view> arguments);

/// The text, or its first characters and an ellipsis, together no more than the count.
std::string CutCharacters(std::string_view text, std::size_t count);

/// A label or title, cut to what each of many tips and headings has room for.
std::string CutName(std::string_view name);

/// The words as they stand, or from the string table.
std::string InWords(const Words& words);

/// The title that the specification gives an axis, else the label.
std::string AxisTitleOr(const Specification& specification, bool isX, const std::string& label);

/// An axis with the limits that a picture can place; of two the low one stands first.
document::PictureAxis AxisWithin(const Span& span, std::string title);

/// What a variable is called in tips: as the specification has it for the reference, else the label; very long ones
/// are cut.
std::string PopupOr(const Specification& specification, std::string_view reference, const std::string& label);

/// A title of a column, or the word where it is empty.
std::string TitleOr(const std::string& title, const std::string& word);

/// The first legend for a variable; null when there is none or it is not shown.
const Legend* FindLegend(const Specification& specification, std::string_view reference);

/// The legend's heading, else the label.
std::string LegendTitleOr(const Legend& legend, const std::string& label);

/// The title of the chart in one line, for sentences; empty where it has none.
std::string TitleInWords(const Specification& specification);

}  // namespace hierfit::chart
