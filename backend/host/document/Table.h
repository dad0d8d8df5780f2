#pragma once

#include <deque>
#include <list>
#include <optional>
#include <variant>
#include <vector>

#include "host/document/CellPlace.h"
#include "host/document/RareList.h"
#include "host/document/Text.h"

namespace hierfit::document {

/// One category of a dimension. Ids count from 0 in the order of creation and are unique in the dimension.
struct Category {
    int fId;
    Text fLabel;
    std::vector<Text> fvNotes;

    bool operator==(const Category&) const = default;
};

struct Member;

struct Group {
    Text fLabel;
    bool fFlag;
    int fSort;                   ///< 0 ascending by label, 1 descending, 2 as issued
    std::list<Member> fMembers;  ///< a list, since builders keep hold of members

    bool operator==(const Group& other) const;
};

struct Member {
    std::variant<Category, Group> fContent;

    bool operator==(const Member&) const = default;
};

inline bool Group::operator==(const Group& other) const {
    return fLabel == other.fLabel && fFlag == other.fFlag && fSort == other.fSort && fMembers == other.fMembers;
}

enum class Side { Rows = 0, Columns = 1 };

struct Dimension {
    Text fName;
    int fSort;
    bool fPositioned = false;  ///< whether the procedure chose side and index
    Side fSide = Side::Rows;
    int fIndex = 0;  ///< the highest index of a side is outermost, 1 innermost
    bool fHideName = false;
    bool fHideLabels = false;
    std::list<Member> fMembers;

    bool operator==(const Dimension&) const = default;
};

/// Place of a cell in a dimension that has no current category.
inline constexpr int kNoCategory = -1;

struct Cell {
    CellPlace fvAt;
    Text fContent;
    RareList<Text> fvNotes;

    bool operator==(const Cell&) const = default;
};

struct Table {
    Text fSubtype;
    Text fTitle;
    bool fFlag;
    std::optional<int> fMinDataColumnWidth;  ///< pixels of 1/96 inch
    std::vector<Text> fvCaptions;
    std::vector<Text> fvNotes;
    std::vector<Dimension> fvDimensions;
    std::deque<Cell> fvCells;  ///< in the order in which their places were first written; never copied to grow

    bool operator==(const Table&) const = default;
};

}  // namespace hierfit::document
