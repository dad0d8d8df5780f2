#pragma once

#include <span>
#include <string_view>

/// How much room texts take in a table. Lengths are twentieths of a point.
namespace hierfit::report::docx {

/// A column can be as narrow as its longest word, and no wider than its longest line has a use for.
struct Room {
    double fLeast = 0;
    double fFull = 0;

    void Hold(const Room& other);
};

/// The width of a number's words, or of a part of them; that of other words may be more.
double MeasureFigure(std::string_view words);

/// Of a text that can be broken into lines. Words that are very long are to be broken, too.
Room MeasureText(std::string_view words);

/// Of a header over so many columns, which is broken rather than make its column wide.
Room MeasureHeader(std::string_view words, int columns = 1);

/// Makes columns together hold what stands over all of them.
void Spread(std::span<Room> columns, const Room& room);

}  // namespace hierfit::report::docx
