#include "report/layout/Grid.h"

#include "tests/support/GridDrawing.h"
#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

// What a case is about, then the sketch of a table, an empty line, and its grid.
const std::pair<const char*, std::string> kCases[] = {
    {"the highest index of each side is outermost, whatever the order of the dimensions", R"(
rows 1 Inner : i k
rows 2 Outer : A
columns 1 In : x
columns 2 Out : P Q
cells i,A,x,P=1 k,A,x,P=2 i,A,x,Q=3

 | | [Out] | <
 | | P | Q
 | | [In] | [In]
[Outer] | [Inner] | x | x
A | i | 1 | 3
^ | k | 2 |
)"},
    {"groups of uneven depth", R"(
rows 1 Term : plain g::c g::h::d g::h::e last
columns 1 -name S : Est ci::Lower ci::Upper
cells 1 ~ 2 3 ~ ~ 4 5 ~ 6 ~ ~ 7

 | | | Est | (ci) | <
[Term] | < | < | ^ | Lower | Upper
plain | < | < | 1 | | 2
(g) | c | < | 3 | |
^ | (h) | d | 4 | 5 |
^ | ^ | e | 6 | |
last | < | < | 7 | |
)"},
    {"equal neighbours under different outer headers do not merge, and a note marks each of them", R"(
rows 2 Outer : A B
rows 1 Inner : i*n
columns 2 -name Q : P R
columns 1 -name T : x
cells 1 ~ ~ 2

 | | P | R
[Outer] | [Inner] | x | x
A | i*a | 1 |
B | i*a | | 2
a: n
)"},
    {"equal indices keep the order of the dimensions, and two categories of the same words do not merge", R"(
rows 1 First : g::same h::same
rows 1 Second : b
columns 1 -name S : v
cells 1 2

[First] | < | [Second] | v
(g) | same | b | 1
(h) | same | b | 2
)"},
    {"no column dimension: one column without a label", R"(
rows 1 -name Content : Target g::AIC
cells y 3

 | < |
Target | < | y
(g) | AIC | 3
)"},
    {"what has no members or no cells is not laid out, nor does it make levels", R"(
rows 2 Empty :
rows 1 R : a unused g::deep::unused2 b
columns 2 Hollow : g::
columns 1 -name S : v w
cells -,a,-,v=1 -,b,-,v=2

[R] | v
a | 1
b | 2
)"},
    {"cells without a category stand under one blank header behind the others", R"(
rows 1 R : a g::b
columns 1 S : v
cells -,v=1 a,v=2 b,v=3 a,-=4

 | | [S] | <
[R] | < | v | ~
a | < | 2 | 4
(g) | b | 3 |
~ | < | 1 |
)"},
    {"sorted up, down and as issued, each group in its own way, by the bytes of the words", R"(
rows 1 < R : b a2 B g>::x g>::z g>::y a10 same*one same*two
columns 1 > S : v w
cells 1 ~ 2 ~ 3 ~ ~ 4 ~ 5 ~ 6 7 ~ 8 ~ 9

 | | [S] | <
[R] | < | w | v
B | < | | 3
a10 | < | | 7
a2 | < | | 2
b | < | | 1
(g) | z | 5 |
^ | y | 6 |
^ | x | 4 |
same*a | < | | 8
same*b | < | | 9
a: one
b: two
)"},
    {"notes are lettered in reading order, the same words one letter", R"(
rows 1 R : a*row b
columns 1 -name S : v*column g::w
cells 1 2*cell*row 3*late*column 4*cell*cell

 | v*a | (g)
[R] | ^ | w
a*b | 1 | 2*c*b
b | 3*d*a | 4*c
a: column
b: row
c: cell
d: late
)"},
    {"dimensions but no cells", R"(
rows 1 R : a
columns 1 -name S : v

[R]
)"},
};

TEST(Grid, LaysOut) {
    for (const auto& [name, text] : kCases) {
        const std::size_t end = text.find("\n\n");
        const document::Table table = test::SketchTable(text.substr(0, end));
        EXPECT_EQ(test::DrawGrid(report::MakeGrid(table)), text.substr(end + 2)) << name;
    }
}

TEST(Grid, LettersGoOnBehindZ) {
    document::Table table = test::SketchTable("cells 1");
    for (int note = 0; note < 703; ++note) table.fvCells[0].fvNotes.push_back(test::MakeText(std::to_string(note)));
    const report::Grid grid = report::MakeGrid(table);
    std::string letters;
    for (const std::size_t note : {0u, 25u, 26u, 51u, 52u, 701u, 702u}) letters += grid.fvNotes[note].fLetter + " ";
    EXPECT_EQ(letters, "a z aa az ba zz aaa ");
}

// A document read from a file may hold what no procedure issues.
TEST(Grid, TakesWhateverADocumentHolds) {
    document::Table table = test::SketchTable("rows 1 R : a b\ncolumns 1 -name S : v\ncells a,v=1 a,v=2 b,v=3");
    table.fvCells[0].fvAt = {0, 0, 5};
    table.fvCells[2].fvAt = {99};
    EXPECT_EQ(test::DrawGrid(report::MakeGrid(table)), "[R] | v | ~\na | 2 |\n~ | | 3\n");
}

TEST(Grid, LaysATableOfADiagonalOutAsAList) {
    constexpr int kSize = 50'000;
    std::string labels;
    std::string cells;
    for (int id = 0; id < kSize; ++id) {
        const std::string label = std::to_string(id);
        labels += ' ' + label;
        cells += ' ' + label + ',' + label + "=x";
    }
    const document::Table table =
        test::SketchTable("columns 1 C :" + labels + "\nrows 1 R :" + labels + "\ncells" + cells);
    const report::Grid grid = report::MakeGrid(table);
    EXPECT_EQ(grid.fRows, kSize);
    EXPECT_EQ(grid.fColumns, 1);
    EXPECT_EQ(grid.fRowLevels, 2);
}

}  // namespace
}  // namespace hierfit
