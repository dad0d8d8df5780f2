#include "report/layout/FlatNames.h"

#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

/// The table with a name for each column and every row's labels, "|" between fields.
std::string Flatten(const Grid& grid) {
    std::vector<std::string> names = NameRowLevels(grid);
    for (std::string& name : JoinColumnNames(grid)) names.push_back(std::move(name));
    MakeUnique(names);
    std::string out;
    for (const std::string& name : names) out += name + "|";
    RowLabels labels(grid);
    for (int row = 0; row < grid.fRows; ++row) {
        out += "\n";
        for (const HeaderCell* label : labels.Next()) {
            out += (label && label->fpLabel ? label->fpLabel->fWords : std::string()) + "|";
        }
        for (int column = 0; column < grid.fColumns; ++column) {
            const document::Cell* cell = grid.At(row, column).fpCell;
            out += (cell ? cell->fContent.fWords : std::string()) + "|";
        }
    }
    return out;
}

struct Case {
    const char* fAbout;
    const char* fSketch;
    const char* fShown;
    const char* fFull;  ///< where it differs
};

const Case kCases[] = {
    {"levels of groups have names by their dimension, and less deep rows no label", R"(
rows 1 Term : plain g::c g::h::d
columns 1 -name S : Est ci::Lower ci::Upper
cells 1 ~ 2 3 ~ ~ 4 5 ~)",
     "Term|Term 2|Term 3|Est|ci, Lower|ci, Upper|\nplain|||1||2|\ng|c||3|||\ng|h|d|4|5||", nullptr},
    {"names of columns stand in what is shown; what is hidden stands in the full grid", R"(
rows 1 -labels Record : 0 1
rows 2 -name Data : first
columns 1 -name Variable : v
columns 2 Shown : x y
cells 0,first,v,x=1 1,first,v,x=2 1,first,v,y=3)",
     "|Shown, x, v|Shown, y, v|\nfirst|1||\nfirst|2|3|", "Data|Record|x, v|y, v|\nfirst|0|1||\nfirst|1|2|3|"},
    {"equal names are told apart from each other and from those that look so already", R"(
rows 1 A : r
rows 2 A : s
columns 1 -name S : A A_(2)
cells r,s,A=1 r,s,A_(2)=2)",
     "A|A (3)|A (4)|A (2)|\ns|r|1|2|", nullptr},
    {"no rows", "columns 1 A : x y\ncells x=1 y=2", "A, x|A, y|\n1|2|", "x|y|\n1|2|"},
};

TEST(FlatNames, SpellEveryRowAndColumnOut) {
    for (const auto& [about, sketch, shown, full] : kCases) {
        const document::Table table = test::SketchTable(sketch);
        EXPECT_EQ(Flatten(MakeGrid(table)), shown) << about;
        EXPECT_EQ(Flatten(MakeFullGrid(table)), full == nullptr ? shown : full) << about;
    }
}

}  // namespace

}  // namespace hierfit::report
