#include "report/layout/FlatNames.h"

#include <unordered_map>
#include <unordered_set>

namespace hierfit::report {

std::vector<std::string> JoinColumnNames(const Grid& grid) {
    std::vector<std::string> names(static_cast<std::size_t>(grid.fColumns));
    for (const HeaderCell& header : grid.fvColumnHeaders) {
        if (!header.fpLabel || header.fpLabel->fWords.empty()) continue;
        for (int column = header.fFirst; column < header.fFirst + header.fSpan; ++column) {
            std::string& name = names[static_cast<std::size_t>(column)];
            name.append(name.empty() ? "" : ", ").append(header.fpLabel->fWords);
        }
    }
    return names;
}

std::vector<std::string> NameRowLevels(const Grid& grid) {
    std::vector<std::string> names(static_cast<std::size_t>(grid.fRowLevels));
    for (const CornerCell& corner : grid.fvCorner) {
        if (!corner.fpName) continue;
        for (int level = 0; level < corner.fLevels; ++level) {
            std::string& name = names[static_cast<std::size_t>(corner.fLevel + level)];
            name = corner.fpName->fWords;
            if (level > 0) name += " " + std::to_string(level + 1);
        }
    }
    return names;
}

void MakeUnique(std::vector<std::string>& names) {
    const std::unordered_set<std::string> given(names.begin(), names.end());
    std::unordered_set<std::string> taken;
    std::unordered_map<std::string, int> counts;
    for (std::string& name : names) {
        if (taken.insert(name).second) continue;
        int& count = counts.try_emplace(name, 1).first->second;
        std::string unique;
        do unique = name + " (" + std::to_string(++count) + ")";
        while (given.contains(unique) || taken.contains(unique));
        taken.insert(unique);
        name = std::move(unique);
    }
}

RowLabels::RowLabels(const Grid& grid) : fGrid(grid), fvLabels(static_cast<std::size_t>(grid.fRowLevels)) {}

const std::vector<const HeaderCell*>& RowLabels::Next() {
    for (; fNext < fGrid.fvRowHeaders.size() && fGrid.fvRowHeaders[fNext].fFirst == fRow; ++fNext) {
        const HeaderCell& header = fGrid.fvRowHeaders[fNext];
        const auto first = static_cast<std::size_t>(header.fLevel);
        fvLabels[first] = &header;
        for (int level = 1; level < header.fLevels; ++level)
            fvLabels[first + static_cast<std::size_t>(level)] = nullptr;
    }
    ++fRow;
    return fvLabels;
}

}  // namespace hierfit::report
