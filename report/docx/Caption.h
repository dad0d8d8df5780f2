#pragma once

#include <string>
#include <string_view>

/// Captions that a word processor counts, and that its lists of tables and of figures find.
namespace hierfit::report::docx {

/// Whether `AppendContinuedCaption` repeats a caption's number.
enum class Continued : bool { No, Yes };

/// Appends "Table 3. Title", whose number is a field, above a table.
void AppendCaption(std::string& out, std::string_view kind, int number, std::string_view title, Continued continued);

/// The same below a picture: nearer to it than to what follows.
void AppendCaptionBelow(std::string& out, std::string_view kind, int number, std::string_view title);

/// Appends "Table 3 (continued)", which no list finds, and whose number is that of the table's caption.
void AppendContinuedCaption(std::string& out, std::string_view kind, int number);

}  // namespace hierfit::report::docx
