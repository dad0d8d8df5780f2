#pragma once

#include <string>
#include <string_view>

/// Texts in HTML and SVG. Whatever a text holds, it adds no element, and it neither changes the direction of what
/// stands around it nor hides anything: control characters appear as their symbols; bidirectional controls, characters
/// that HTML or XML forbids and bytes that are no UTF-8 as U+FFFD.
namespace hierfit::report {

/// Appends a text as content of an HTML element. Line breaks are elements of their own, and a text that is written from
/// right to left stands apart from its surroundings, and so do its figures with signs; on a page from right to left, the
/// others do.
void AppendText(std::string& out, std::string_view text);

/// Appends a text as characters only: in an attribute between double quotes, or in an element such as `title`.
/// `lineBreak`, which is markup, stands for each of its line breaks.
void AppendCharacters(std::string& out, std::string_view text, std::string_view lineBreak = " ");

/// What is seen of a character in a line of text: itself, a blank, or what stands in its place.
char32_t ShownFor(char32_t code);

/// A line break in an attribute that keeps it.
inline constexpr std::string_view kAttributeLineBreak = "&#10;";

/// Whether the first letter that has a direction is one of a script that is written from right to left.
bool BeginsRightToLeft(std::string_view text);

}  // namespace hierfit::report
