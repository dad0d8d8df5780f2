#pragma once

#include <string>
#include <string_view>

/// Captions that a word processor counts, and that its lists of tables and of figures find.
namespace hierfit::report::docx {

/// Whether a paragraph stays with the next one, or may be named elsewhere.
enum class Keep : unsigned char {
    Not,
    WithNext,
    WithNextAndNamed,  ///< its number can be repeated by `AppendContinuedCaption`
};

/// Appends "Table 3. Title", whose number is a field. The kind is the English word, which is the counter's name in
/// every language.
void AppendCaption(std::string& out, std::string_view kind, int number, std::string_view title, Keep keep);

/// Appends "Table 3 (continued)", which no list finds, and whose number is that of the table's caption.
void AppendContinuedCaption(std::string& out, std::string_view kind, int number);

}  // namespace hierfit::report::docx
