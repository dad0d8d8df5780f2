#include "report/layout/Axis.h"

#include <algorithm>
#include <numeric>

namespace hierfit::report {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::size_t CountSharedGroups(const Leaf& a, const Leaf& b) {
    const auto end = std::mismatch(a.fvGroups.begin(), a.fvGroups.end(), b.fvGroups.begin(), b.fvGroups.end()).first;
    return static_cast<std::size_t>(end - a.fvGroups.begin());
}

}  // namespace

/// Header cells under way. A cell of a level grows line by line until another opens there.
struct Axis::Drawing {
    std::vector<HeaderCell> fvHeaders;
    std::vector<std::size_t> fvOpen;  ///< for each level the header that covers it
    int fLine = 0;

    HeaderCell& Open(int level, int levels) {
        HeaderCell header;
        header.fFirst = fLine;
        header.fLevel = level;
        header.fLevels = levels;
        for (int covered = level; covered < level + levels; ++covered) {
            fvOpen[static_cast<std::size_t>(covered)] = fvHeaders.size();
        }
        return fvHeaders.emplace_back(std::move(header));
    }

    void Grow(int firstLevel, int levels) {
        for (int level = firstLevel; level < firstLevel + levels; ++level) {
            HeaderCell& header = fvHeaders[fvOpen[static_cast<std::size_t>(level)]];
            header.fSpan = fLine - header.fFirst + 1;
        }
    }
};

Axis::Axis(const document::Table& table, const std::vector<std::size_t>& dimensions, Shows shows) : fShows(shows) {
    fvParts.reserve(dimensions.size());
    for (const std::size_t index : dimensions) AddPart(table, index);
    for (Part& part : fvParts) SetLevels(part);
    SetLines(SortCells(table.fvCells.size()));
}

void Axis::AddPart(const document::Table& table, std::size_t index) {
    const document::Dimension& dimension = table.fvDimensions[index];
    Part part{&dimension, LeafOrder(dimension), {}};
    if (!part.fOrder.HasCategories()) return;
    part.fvPlaces.reserve(table.fvCells.size());
    for (const document::Cell& cell : table.fvCells) {
        const int id = index < cell.fvAt.size() ? cell.fvAt[index] : document::kNoCategory;
        part.fvPlaces.push_back(static_cast<Index>(part.fOrder.FindPlace(id)));
    }
    fvParts.push_back(std::move(part));
}

void Axis::SetLevels(Part& part) {
    part.fFirstLevel = fLevels;
    if (part.fpDimension->fHideLabels && fShows != Shows::All) return;
    part.fNameLevels = fShows == Shows::Named && !part.fpDimension->fHideName ? 1 : 0;
    std::size_t groups = 0;
    for (const std::size_t place : part.fvPlaces) groups = std::max(groups, part.fOrder.At(place).fvGroups.size());
    part.fLabelLevels = static_cast<int>(groups) + 1;
    fLevels += part.fNameLevels + part.fLabelLevels;
}

std::vector<Axis::Index> Axis::SortCells(std::size_t count) const {
    std::vector<Index> cells(count);
    std::iota(cells.begin(), cells.end(), Index{0});
    for (auto part = fvParts.rbegin(); part != fvParts.rend(); ++part) SortByPlace(cells, *part);
    return cells;
}

// Sorts cells by their places in one dimension; cells at the same place keep their order.
void Axis::SortByPlace(std::vector<Index>& cells, const Part& part) {
    std::vector<Index> next(part.fOrder.CountPlaces() + 1);
    for (const Index cell : cells) ++next[part.fvPlaces[cell] + std::size_t{1}];
    std::partial_sum(next.begin(), next.end(), next.begin());
    std::vector<Index> sorted(cells.size());
    for (const Index cell : cells) sorted[next[part.fvPlaces[cell]]++] = cell;
    cells.swap(sorted);
}

void Axis::SetLines(const std::vector<Index>& sortedCells) {
    fvLines.resize(sortedCells.size());
    for (const Index cell : sortedCells) {
        const bool isNew = fvFirstCells.empty() || FindFirstDifference(cell, fvFirstCells.back()) < fvParts.size();
        if (isNew) fvFirstCells.push_back(cell);
        fvLines[cell] = static_cast<Index>(fvFirstCells.size() - 1);
    }
}

std::size_t Axis::FindFirstDifference(std::size_t cell, std::size_t other) const {
    const auto differs = [=](const Part& part) { return part.fvPlaces[cell] != part.fvPlaces[other]; };
    return static_cast<std::size_t>(std::find_if(fvParts.begin(), fvParts.end(), differs) - fvParts.begin());
}

std::vector<HeaderCell> Axis::MakeHeaders() const {
    Drawing drawing;
    drawing.fvOpen.resize(static_cast<std::size_t>(fLevels));
    std::size_t before = kNone;
    for (const std::size_t cell : fvFirstCells) {
        DrawLine(drawing, cell, before);
        before = cell;
        ++drawing.fLine;
    }
    return std::move(drawing.fvHeaders);
}

void Axis::DrawLine(Drawing& drawing, std::size_t cell, std::size_t before) const {
    const bool isFirst = before == kNone;
    const std::size_t changed = isFirst ? 0 : FindFirstDifference(cell, before);
    for (std::size_t index = 0; index < fvParts.size(); ++index) {
        const Part& part = fvParts[index];
        if (part.fLabelLevels == 0) continue;
        DrawName(drawing, part, isFirst || index > changed);
        if (index < changed) {
            drawing.Grow(part.fFirstLevel + part.fNameLevels, part.fLabelLevels);
            continue;
        }
        const Leaf& leaf = part.fOrder.At(part.fvPlaces[cell]);
        const bool isWithinGroups = !isFirst && index == changed;
        DrawLabels(drawing, part, leaf,
                   isWithinGroups ? CountSharedGroups(leaf, part.fOrder.At(part.fvPlaces[before])) : 0);
    }
}

void Axis::DrawName(Drawing& drawing, const Part& part, bool isNew) {
    if (part.fNameLevels == 0) return;
    if (!isNew) return drawing.Grow(part.fFirstLevel, 1);
    HeaderCell& header = drawing.Open(part.fFirstLevel, 1);
    header.fpLabel = &part.fpDimension->fName;
    header.fIsDimensionName = true;
}

void Axis::DrawLabels(Drawing& drawing, const Part& part, const Leaf& leaf, std::size_t sharedGroups) {
    int level = part.fFirstLevel + part.fNameLevels;
    const int end = level + part.fLabelLevels;
    drawing.Grow(level, static_cast<int>(sharedGroups));
    level += static_cast<int>(sharedGroups);
    for (std::size_t group = sharedGroups; group < leaf.fvGroups.size(); ++group) {
        HeaderCell& header = drawing.Open(level++, 1);
        header.fpLabel = &leaf.fvGroups[group]->fLabel;
        header.fIsGroup = true;
    }
    HeaderCell& header = drawing.Open(level, end - level);
    header.fpCategory = leaf.fpCategory;
    if (leaf.fpCategory) header.fpLabel = &leaf.fpCategory->fLabel;
}

std::vector<CornerCell> Axis::MakeCorner() const {
    std::vector<CornerCell> corner;
    for (const Part& part : fvParts) {
        if (part.fLabelLevels == 0) continue;
        const document::Text* name =
            part.fpDimension->fHideName && fShows != Shows::All ? nullptr : &part.fpDimension->fName;
        corner.push_back({part.fFirstLevel, part.fLabelLevels, name});
    }
    return corner;
}

}  // namespace hierfit::report
