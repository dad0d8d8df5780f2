#include "report/layout/Grid.h"

#include "tests/support/GridDrawing.h"
#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

struct GridCase {
    const char* fName;
    const char* fTable;
    const char* fGrid;
};

const GridCase kCases[] = {
    {"one row dimension and one column dimension", R"(
rows 1 Source : Model A B
columns 1 -name Statistics : F Sig.
cells Model,F=1 Model,Sig.=2 A,F=3 A,Sig.=4 B,F=5 B,Sig.=6
)",
     R"(
[Source] | F | Sig.
Model | 1 | 2
A | 3 | 4
B | 5 | 6
)"},
    {"the highest index of each side is outermost, whatever the order of the dimensions", R"(
rows 1 Inner : i k
rows 2 Outer : A B
columns 1 In : x y
columns 2 Out : P Q
cells i,A,x,P=1 k,A,x,P=2 i,B,x,P=3 i,A,y,P=4 i,A,x,Q=5
)",
     R"(
 | | [Out] | < | <
 | | P | < | Q
 | | [In] | < | [In]
[Outer] | [Inner] | x | y | x
A | i | 1 | 4 | 5
^ | k | 2 | |
B | i | 3 | |
)"},
    {"equal indices keep the order of the dimensions", R"(
rows 1 First : a
rows 1 Second : b
cells a,b=1
)",
     R"(
[First] | [Second] |
a | b | 1
)"},
    {"groups of uneven depth", R"(
rows 1 Term : plain g(c+h(d+e)) last
columns 1 -name S : v
cells plain,v=1 c,v=2 d,v=3 e,v=4 last,v=5
)",
     R"(
[Term] | < | < | v
plain | < | < | 1
(g) | c | < | 2
^ | (h) | d | 3
^ | ^ | e | 4
last | < | < | 5
)"},
    {"groups on the columns", R"(
rows 1 Source : a
columns 1 -name S : Est ci(Lower+Upper) Exp
cells a,Est=1 a,Lower=2 a,Upper=3 a,Exp=4
)",
     R"(
 | Est | (ci) | < | Exp
[Source] | ^ | Lower | Upper | ^
a | 1 | 2 | 3 | 4
)"},
    {"a visible name of a column dimension stands above its labels", R"(
rows 1 Observed : yes no
columns 1 Predicted : yes no
cells yes,yes=1 yes,no=2 no,yes=3 no,no=4
)",
     R"(
 | [Predicted] | <
[Observed] | yes | no
yes | 1 | 2
no | 3 | 4
)"},
    {"a hidden name of rows leaves an empty corner", R"(
rows 2 -name Outer : A
rows 1 Inner : i
columns 1 -name S : v
cells A,i,v=1
)",
     R"(
 | [Inner] | v
A | i | 1
)"},
    {"hidden labels part the rows but have no level, not even for a name", R"(
rows 1 -labels Record : 0 1
rows 2 -name Data : first
columns 1 -name Variables : v
columns 2 -labels Shown : x y
cells 0,first,v,x=1 1,first,v,x=2 1,first,v,y=3
)",
     R"(
 | v | v
first | 1 |
^ | 2 | 3
)"},
    {"equal neighbours under different outer headers do not merge", R"(
rows 2 Outer : A B
rows 1 Inner : i
columns 2 -name Q : P R
columns 1 -name T : x
cells A,i,P,x=1 B,i,R,x=2
)",
     R"(
 | | P | R
[Outer] | [Inner] | x | x
A | i | 1 |
B | i | | 2
)"},
    {"two categories of the same words do not merge", R"(
rows 1 R : g(same) h(same)
columns 1 -name S : v
cells g/same,v=1 h/same,v=2
)",
     R"(
[R] | < | v
(g) | same | 1
(h) | same | 2
)"},
    {"no row dimension: one row without a label", R"(
columns 1 -name Statistics : Mean ci(Lower)
cells Mean=1 Lower=2
)",
     R"(
Mean | (ci)
^ | Lower
1 | 2
)"},
    {"no column dimension: one column without a label", R"(
rows 1 -name Content : Target g(AIC)
cells Target=y AIC=3
)",
     R"(
 | < |
Target | < | y
(g) | AIC | 3
)"},
    {"no dimension at all", "cells =7", "\n7\n"},
    {"a dimension without members is not laid out, nor is one of empty groups", R"(
rows 2 Empty :
rows 1 R : a
columns 2 Hollow : g()
columns 1 -name S : v
cells -,a,-,v=1
)",
     R"(
[R] | v
a | 1
)"},
    {"categories, groups and combinations without cells are not laid out, nor do they make levels", R"(
rows 1 R : a unused g(deep(unused2)) b
columns 1 -name S : v w
cells a,v=1 b,v=2
)",
     R"(
[R] | v
a | 1
b | 2
)"},
    {"cells without a category stand under one blank header behind the others", R"(
rows 1 R : a g(b)
columns 1 S : v
cells -,v=1 a,v=2 b,v=3 a,-=4
)",
     R"(
 | | [S] | <
[R] | < | v | ~
a | < | 2 | 4
(g) | b | 3 |
~ | < | 1 |
)"},
    {"sorted up, down and as issued, each group in its own way, by the bytes of the words", R"(
rows 1 < R : b a2 B g>(x+z+y) a10 same*one same*two
columns 1 > S : v w
cells b,v=1 a2,v=2 B,v=3 x,w=4 z,w=5 y,w=6 a10,v=7 #8,v=8 #7,v=9
)",
     R"(
 | | [S] | <
[R] | < | w | v
B | < | | 3
a10 | < | | 7
a2 | < | | 2
b | < | | 1
(g) | z | 5 |
^ | y | 6 |
^ | x | 4 |
same*a | < | | 9
same*b | < | | 8
a: one
b: two
)"},
    {"notes are lettered in reading order, the same words one letter", R"(
rows 1 R : a*row b
columns 1 -name S : v*column g(w)
cells a,v=1 a,w=2*cell*row b,v=3*late*column b,w=4*cell*cell
)",
     R"(
 | v*a | (g)
[R] | ^ | w
a*b | 1 | 2*c*b
b | 3*d*a | 4*c
a: column
b: row
c: cell
d: late
)"},
    {"a category's note marks each of its header cells", R"(
rows 2 O : A B
rows 1 I : i*n
columns 1 -name S : v
cells A,i,v=1 B,i,v=2
)",
     R"(
[O] | [I] | v
A | i*a | 1
B | i*a | 2
a: n
)"},
    {"dimensions but no cells", R"(
rows 1 R : a
columns 1 -name S : v
)",
     "\n[R]\n"},
};

TEST(Grid, LaysOut) {
    for (const GridCase& test : kCases) {
        const document::Table table = test::SketchTable(test.fTable);
        EXPECT_EQ(test::DrawGrid(report::MakeGrid(table)), std::string_view(test.fGrid).substr(1)) << test.fName;
    }
}

TEST(Grid, LettersGoOnBehindZ) {
    document::Table table = test::SketchTable("cells =1");
    for (int note = 0; note < 703; ++note) table.fvCells[0].fvNotes.push_back(test::MakeText(std::to_string(note)));
    const report::Grid grid = report::MakeGrid(table);
    std::string letters;
    for (const std::size_t note : {0u, 25u, 26u, 51u, 52u, 701u, 702u}) letters += grid.fvNotes[note].fLetter + " ";
    EXPECT_EQ(letters, "a z aa az ba zz aaa ");
}

// A document read from a file may hold what no procedure issues.
TEST(Grid, TakesWhateverADocumentHolds) {
    document::Table table = test::SketchTable(R"(
rows 1 R : a b
columns 1 -name S : v
cells a,v=1 a,v=2 b,v=3
)");
    table.fvCells[0].fvAt = {0, 0, 5};
    table.fvCells[2].fvAt = {99};
    EXPECT_EQ(test::DrawGrid(report::MakeGrid(table)), "[R] | v | ~\na | 2 |\n~ | | 3\n");
}

document::Dimension MakeDimension(document::Side side, int count) {
    document::Dimension dimension{test::MakeText("D"), 2, true, side, 1, false, false, {}};
    for (int id = 0; id < count; ++id) {
        dimension.fMembers.push_back({document::Category{id, test::MakeText(std::to_string(id)), {}}});
    }
    return dimension;
}

TEST(Grid, LaysATableOfADiagonalOutAsAList) {
    constexpr int kSize = 50'000;
    document::Table table{};
    table.fvDimensions = {MakeDimension(document::Side::Columns, kSize), MakeDimension(document::Side::Rows, kSize)};
    for (int id = 0; id < kSize; ++id) table.fvCells.push_back({{id, id}, test::MakeText("x"), {}});
    const report::Grid grid = report::MakeGrid(table);
    EXPECT_EQ(grid.fRows, kSize);
    EXPECT_EQ(grid.fColumns, 1);
    EXPECT_EQ(grid.fRowLevels, 2);
}

}  // namespace
}  // namespace hierfit
