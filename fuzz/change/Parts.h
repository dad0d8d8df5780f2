#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hierfit::fuzz {

/// Bytes that part an input: those that stand neither in XML nor in JSON.
inline constexpr unsigned char kMarkers = 9;

/// What a target takes its input apart into.
struct Parts {
    std::vector<std::string> fvTexts;
    std::string fMarkers;  ///< the byte behind each text but the last; its value may mean something to the target
};

/// As many texts as asked for; the last one has all that is left, and those behind it are empty.
Parts SplitInput(std::string_view input, std::size_t count);
std::string JoinParts(const Parts& parts);

/// What a marker chooses of so many; each `step` markers that follow each other choose the same.
template <typename Choice, std::size_t n>
const Choice& OneOf(const std::array<Choice, n>& choices, char marker, std::size_t step = 1) {
    return choices[static_cast<std::size_t>(marker) / step % n];
}

}  // namespace hierfit::fuzz
