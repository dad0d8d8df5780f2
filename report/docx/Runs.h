#pragma once

#include <string>
#include <string_view>

/// Texts in WordprocessingML. Whatever a text holds, it adds no element; what is no character appears as `markup` has
/// it elsewhere.
namespace hierfit::report::docx {

/// What a run's properties can be besides its direction.
inline constexpr std::string_view kBold = "<w:b/><w:bCs/>";
inline constexpr std::string_view kNoteMark = "<w:rStyle w:val=\"NoteMark\"/>";

/// Appends a text as runs, one for each part that is written in one direction. `properties` are markup.
void AppendRuns(std::string& out, std::string_view text, std::string_view properties = {});

/// Appends the start of a paragraph in a style, down to where its runs stand. `properties` are markup of what follows
/// the style among a paragraph's properties, up to `w:tabs`.
void AppendParagraphStart(std::string& out, std::string_view style, std::string_view properties = {});

/// Properties of a paragraph by the direction of its text, which follow the others. A text from left to right begins at
/// the right of a page from right to left, so that figures and names in it keep their order.
std::string_view DirectionOf(std::string_view text);

/// The same of a paragraph in the middle.
std::string_view DirectionInMiddle(std::string_view text);

/// Appends a paragraph of a text alone, in the text's own direction.
void AppendParagraph(std::string& out, std::string_view style, std::string_view text, std::string_view properties = {});

inline constexpr std::string_view kKeepNext = "<w:keepNext/>";
inline constexpr std::string_view kParagraphEnd = "</w:p>\n";

/// Appends a field whose result shows as a text until the reader has it computed anew.
void AppendField(std::string& out, std::string_view instruction, std::string_view result,
                 std::string_view properties = {});

/// Appends ` name="number"`.
void AppendNumber(std::string& out, std::string_view name, long number);

}  // namespace hierfit::report::docx
