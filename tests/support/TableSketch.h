#pragma once

#include <string_view>

#include "host/document/Table.h"

namespace hierfit::test {

/// A table from a sketch of a few lines:
///
///     title   Fixed_Effects
///     caption A_caption
///     note    A_note_of_the_table
///     rows    2 -name -labels < Name : a b*note g(c+h(d)) k>(e)
///     columns 1 Name : x y
///     cells   a,x=1 g/c,y=#2.5*note -,x=3
///
/// Underscores stand for blanks, "|" for line feeds, "*" parts notes, "+" the members of a group. Before a dimension's
/// name "-name" and "-labels" hide, "<" and ">" there and behind a group sort up and down. A cell names a category of
/// each dimension, in their order: by its label, by the path of labels where the label stands in several groups, by "#"
/// and its id, or "-" for none. A content behind "#" is a number. Throws std::invalid_argument or std::out_of_range
/// when the sketch cannot be read.
document::Table SketchTable(std::string_view sketch);

/// A fixed text of those words.
document::Text MakeText(std::string_view words);

}  // namespace hierfit::test
