#include "host/chart/picture/MarkNumbers.h"

#include "host/chart/picture/ChartWords.h"

namespace hierfit::chart {

std::vector<std::size_t> NumberAnew(std::size_t count, const std::vector<int*>& numbers) {
    std::vector<int> anew(count, -1);
    for (const int* number : numbers) anew[static_cast<std::size_t>(*number)] = 0;
    std::vector<std::size_t> kept;
    for (std::size_t old = 0; old < count; ++old) {
        if (anew[old] < 0) continue;
        anew[old] = static_cast<int>(kept.size());
        kept.push_back(old);
    }
    for (int* number : numbers) *number = anew[static_cast<std::size_t>(*number)];
    return kept;
}

void Thinning::AddNote(std::vector<std::string>& notes) const {
    if (!IsNeeded()) return;
    notes.push_back(Translated("^1 of ^2 marks are drawn.", {std::to_string(kMostMarks), std::to_string(fCount)}));
}

}  // namespace hierfit::chart
