#pragma once

#include <optional>
#include <string_view>

#include "host/document/Table.h"

namespace hierfit::program {

/// What a text was made from, whatever the language: its source string or pattern; empty for other texts.
std::string_view SourceOf(const document::Text& text);

/// A pattern's argument, null when the text is no such pattern or has fewer.
const document::Text* ArgumentOf(const document::Text& text, std::size_t number);

/// The id of the category of a label in a dimension: at its top where the group is empty, else in that group.
std::optional<int> FindCategory(const document::Dimension& dimension, std::string_view group, std::string_view label);

/// The dimension of a name; null when the table has none.
const document::Dimension* FindDimension(const document::Table& table, std::string_view name);

/// The first cell of a category; null when there is none.
const document::Text* FindCell(const document::Table& table, const document::Dimension& dimension, int category);

/// Whether a text is a number that is not known: the system-missing value, or a count below 0.
bool IsUnknownNumber(const document::Text& text);

}  // namespace hierfit::program
