#include "report/docx/table/ColumnRoom.h"

#include <algorithm>

#include "report/charts/layout/text/TextWidth.h"
#include "report/docx/Styles.h"

namespace hierfit::report::docx {

namespace {

constexpr double kTwentiethsToAPixel = 15;

// Texts are measured in a font that is wider than the file's. Of its letters some are so by a thirtieth, of its digits
// all by an eighth.
constexpr double kOfLetters = 0.96;
constexpr double kOfDigits = 0.9;

constexpr double kMostOfWord = 2400;
constexpr double kMostOfLine = 5000;
constexpr double kComfort = 1000;  // lines are not broken more than this asks for
constexpr double kMostOfHeader = 1150;
constexpr double kOfTwoLines = 0.55;        // of a header over several columns, so that two lines hold it
constexpr double kMostOfSpanner = 600;      // that each of them gives for that
constexpr double kMostLines = 12;           // of a text, where its column can be as wide as a long word
constexpr std::size_t kMostMeasured = 500;  // bytes: what is longer is wide

/// The width of one line.
double MeasureLine(std::string_view words) {
    return charts::TextWidth(words.substr(0, kMostMeasured), {kTableSize, false}) * kTwentiethsToAPixel * kOfLetters;
}

/// The longest word, or more for a text of many words, and the longest line.
Room Measure(std::string_view words) {
    words = words.substr(0, kMostMeasured);
    const double blank = MeasureLine(" ");
    Room room;
    double line = 0;
    for (std::size_t place = 0; place <= words.size();) {
        const std::size_t end = std::min(words.find_first_of(" \n", place), words.size());
        const double word = MeasureLine(words.substr(place, end - place));
        line += word;
        room.Hold({word, line});
        line = end < words.size() && words[end] == '\n' ? 0 : line + blank;
        place = end + 1;
    }
    room.fLeast = std::max(room.fLeast, room.fFull / kMostLines);
    return room;
}

}  // namespace

void Room::Hold(const Room& other) {
    fLeast = std::max(fLeast, other.fLeast);
    fFull = std::max(fFull, other.fFull);
}

double MeasureFigure(std::string_view words) {
    return charts::TextWidth(words.substr(0, kMostMeasured), {kTableSize, false}) * kTwentiethsToAPixel * kOfDigits;
}

Room MeasureText(std::string_view words) {
    const Room room = Measure(words);
    const double full = std::min(room.fFull, kMostOfLine);
    return {std::max(std::min(room.fLeast, kMostOfWord), std::min(full, kComfort)), full};
}

Room MeasureHeader(std::string_view words, int columns) {
    const Room room = Measure(words);
    const double two = columns > 1 ? std::min(room.fFull * kOfTwoLines, kMostOfSpanner * columns) : 0;
    const double least = std::max(std::min(room.fLeast, kMostOfWord), two);
    return {least, std::max(least, std::min(room.fFull, kMostOfHeader * columns))};
}

void Spread(std::span<Room> columns, const Room& room) {
    Room sum;
    for (const Room& column : columns) {
        sum.fLeast += column.fLeast;
        sum.fFull += column.fFull;
    }
    const auto count = static_cast<double>(columns.size());
    for (Room& column : columns) {
        column.fLeast += std::max(0.0, room.fLeast - sum.fLeast) / count;
        column.fFull += std::max(0.0, room.fFull - sum.fFull) / count;
    }
}

}  // namespace hierfit::report::docx
