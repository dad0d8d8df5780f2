#include "fuzz/change/Parts.h"

#include <algorithm>

namespace hierfit::fuzz {

namespace {

bool IsMarker(char byte) { return static_cast<unsigned char>(byte) < kMarkers; }

}  // namespace

Parts SplitInput(std::string_view input, std::size_t count) {
    Parts parts{std::vector<std::string>(count), std::string(count - 1, '\0')};
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const auto length = static_cast<std::size_t>(std::ranges::find_if(input, IsMarker) - input.begin());
        parts.fvTexts[i] = input.substr(0, length);
        if (length == input.size()) return parts;
        parts.fMarkers[i] = input[length];
        input.remove_prefix(length + 1);
    }
    parts.fvTexts.back() = input;
    return parts;
}

std::string JoinParts(const Parts& parts) {
    std::string input = parts.fvTexts.front();
    for (std::size_t i = 0; i < parts.fMarkers.size(); ++i) input.append(1, parts.fMarkers[i]) += parts.fvTexts[i + 1];
    return input;
}

}  // namespace hierfit::fuzz
