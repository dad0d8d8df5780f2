#include "report/xlsx/cells/CellRanges.h"

namespace hierfit::report::xlsx {

namespace {

std::string NameOf(int row, int column) {
    constexpr int kLetters = 26;
    std::string letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / kLetters) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % kLetters));
    }
    return letters + std::to_string(row + 1);
}

}  // namespace

void CellRanges::Add(int row, int column) {
    const auto [last, isNew] = fLast.emplace(column, fvRanges.size());
    if (!isNew && fvRanges[last->second].fLastRow + 1 == row) {
        fvRanges[last->second].fLastRow = row;
        return;
    }
    last->second = fvRanges.size();
    fvRanges.push_back({column, row, row});
}

std::string CellRanges::Spell() const {
    std::string names;
    for (const Range& range : fvRanges) {
        names.append(names.empty() ? "" : ", ").append(NameOf(range.fFirstRow, range.fColumn));
        if (range.fLastRow > range.fFirstRow) names.append(":").append(NameOf(range.fLastRow, range.fColumn));
    }
    return names;
}

}  // namespace hierfit::report::xlsx
