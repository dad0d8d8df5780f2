#pragma once

#include <string_view>

#include "host/document/Table.h"

namespace hierfit::test {

/// A table from a sketch of a few lines:
///
///     title   Fixed_Effects
///     caption A_caption
///     note    A_note_of_the_table
///     rows    2 -name -labels < Name : a b*note g::c g::h::d k>::e
///     columns 1 Name : x y
///     cells   a,x=1 g::c,y=2.5*note -,x=3
///
/// Underscores stand for blanks, "|" for line feeds, "@" for `word`; "*" parts notes, "::" a group from what is in it,
/// which may be nothing. Before a dimension's name "-name" and "-labels" hide, "<" and ">" there and behind a group
/// sort up and down. A cell names a category of each dimension, in their order: by its label, or by groups and label
/// where the label stands in several groups; "-" is none. Cells without "=" stand in order, the last dimension's
/// categories running fastest; "~" leaves one out. What begins as a number does is one. The subtype is the title
/// without its blanks. Throws std::out_of_range when the sketch cannot be read.
document::Table SketchTable(std::string_view sketch, std::string_view word = "@");

/// A fixed text of those words.
document::Text MakeText(std::string_view words);

}  // namespace hierfit::test
