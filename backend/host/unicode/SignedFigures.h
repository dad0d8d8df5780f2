#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::unicode {

/// Bytes of a text, from `fBegin` up to `fEnd`.
struct Span {
    std::size_t fBegin;
    std::size_t fEnd;
};

/// The figures of a text whose signs would be shown behind them: those that begin with a sign, a relation or a decimal
/// sign and come behind letters from right to left, in a line that begins with such letters.
std::vector<Span> FindTurnedFigures(std::string_view text);

/// The text with U+200E before each of them, so that they read as ever.
std::string KeepSigns(std::string_view text);

}  // namespace hierfit::unicode
