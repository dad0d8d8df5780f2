#include "report/layout/Redundant.h"

#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

/// The note "0" tells of redundant coefficients.
document::Table Sketch(const std::string& sketch) {
    document::Table table = test::SketchTable(sketch);
    for (document::Cell& cell : table.fvCells) {
        for (document::Text& note : cell.fvNotes) {
            if (note.fWords == "0") note.fFrom = document::StringSource{"Redundant coefficient, zero ...", true};
        }
    }
    return table;
}

TEST(Redundant, RowsAreThoseWhoseNotesSaySo) {
    // Rows that can be left out, letters of the notes that go with them, and levels that they stand for.
    const std::pair<const char*, const char*> cases[] = {
        {"rows 1 T : a b\ncells 0*other 1", ""},
        {"rows 1 T : Intercept [d=1] [d=2]*label [e=x]\ncells 1 1 0*0 0*0", "2 3 a b d=2 e=x "},
        // Interactions name no level of their own, nor do labels without brackets; a level is named once.
        {"rows 1 T : [d=2]x[e=1] x [d=2] [a[1]=]]\ncells 0*0 0*0 0*0 0*0", "0 1 2 3 a d=2 "},
        // A note that another row or a column has stays.
        {"rows 1 T : a b*0 c*n\ncells 0*0 1 0*0", "0 2 b "},
        {"rows 1 T : a b\ncolumns 1 S : x*n y\ncells 0*0*n . 1 1", "0 b "},
        // The row that bears the header of others stays; below an inner header all do.
        {"rows 1 T : g::[d=1] g::[d=2] [e=1]\ncells 0*0 0*0 0*0", "1 2 d=1 d=2 e=1 "},
        {"rows 2 A : a\nrows 1 T : g::x g::y z\ncells 1 0*0 0*0", "2 "},
    };
    for (const auto& [sketch, expected] : cases) {
        const document::Table table = Sketch(sketch);
        const report::Grid grid = report::MakeGrid(table);
        const report::Redundant redundant = report::FindRedundant(grid);
        std::string found;
        for (std::size_t row = 0; row < redundant.fvRows.size(); ++row) {
            if (redundant.fvRows[row]) found += std::to_string(row) + ' ';
        }
        for (std::size_t note = 0; note < redundant.fvNotes.size(); ++note) {
            if (redundant.fvNotes[note]) found += grid.fvNotes[note].fLetter + ' ';
        }
        for (const std::string& level : redundant.fvReferences) found += level + ' ';
        EXPECT_EQ(found, expected) << sketch;
    }
}

}  // namespace
}  // namespace hierfit
