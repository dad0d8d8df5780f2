#include "host/BpPivotTable.h"

#include <gtest/gtest.h>

#include "host/document/Document.h"
#include "report/layout/Grid.h"
#include "tests/pivot/PivotRun.h"
#include "tests/support/GridDrawing.h"

namespace hierfit {
namespace {

using document::Side;

class PivotTable : public test::PivotRun {
  protected:
    BpDimension AddDimension(const char* name, BpPlace place, int index) {
        BpDimension dimension = fTable->Dimension(Fixed(name), BpSort::AsIssued);
        dimension.Position(place, index, false, false);
        return dimension;
    }

    const document::Table& GetTable() {
        return std::get<document::Table>(fContext.GetDocument().fItems.front().fContent);
    }

    std::string Draw() { return test::DrawGrid(report::MakeGrid(GetTable())); }

    std::optional<BpPivotTable> fTable{BpProcedure().PivotTable(Fixed("Title"), Fixed("Kind"), true)};
};

TEST_F(PivotTable, FindsMembersByTheirText) {
    BpDimension rows = AddDimension("R", BpPlace::Rows, 1);
    for (const char* name : {"same", "other", "same"}) {
        rows.Category(Fixed(name)).Cell(Fixed(name));
        rows.Group(Fixed("same"), true, BpSort::Ascending).Category(Fixed(name)).Cell(Fixed("in"));
    }
    rows.Group(Fixed("same"), true, BpSort::AsIssued).Group(Fixed("same"), true, BpSort::AsIssued);
    EXPECT_EQ(Draw(), R"([R] | < |
same | < | same
(same) | other | in
^ | same | in
other | < | other
)");
    EXPECT_EQ(GetTable().fvCells.size(), 4u);
}

// Labels that look alike may be two categories, and one category may be asked for in two ways.
TEST_F(PivotTable, TellsLabelsApartByWhatTheyAreMadeFrom) {
    BpDimension rows = AddDimension("R", BpPlace::Rows, 1);
    std::size_t nCategories = 0;
    const auto check = [&](const BpCellText& label, bool isNew) {
        rows.Category(label);
        nCategories += isNew ? 1 : 0;
        EXPECT_EQ(GetTable().fvDimensions[0].fMembers.size(), nCategories) << label.GetText()->fWords;
    };
    const auto composite = [](const char* pattern, std::initializer_list<BpNumber> arguments, bool inSublist) {
        BpComposite text(pattern, false);
        if (inSublist) text.Sublist();
        for (const BpNumber& argument : arguments) text.Add(argument);
        text.Finish();
        return text;
    };
    const BpNumber one(1, BpProcedure::Count());
    const BpNumber two(2, BpProcedure::Count());
    check(BpString("1", false), true);
    check(BpString("1", true), false);
    check(one, true);
    check(BpNumber(1.0000001, BpProcedure::Count()), true);
    check(BpNumber(1, BpProcedure::SigDigit(1)), true);
    check(BpNumber(1, BpProcedure::SigDigit(2)), true);
    check(BpNumber(0.0, BpProcedure::Count()), true);
    check(BpNumber(-0.0, BpProcedure::Count()), false);
    check(BpDataValue(nullptr, 1.0, BpPreference::Plain), true);
    check(BpDataValue(nullptr, 1.0, BpPreference::AsHeader), false);
    check(composite("^1", {one}, false), true);
    check(composite("^1", {one, two}, false), true);
    check(composite("^1", {one}, true), true);
    check(composite("^1", {one}, false), false);
}

TEST_F(PivotTable, KeepsTheLastCellAtAPlace) {
    BpDimension rows = AddDimension("R", BpPlace::Rows, 1);
    BpCategory a = rows.Category(Fixed("a"));
    a.Cell(Fixed("first"));
    a.CellNote(Annotate("gone"));
    rows.Category(Fixed("b")).Cell(Fixed("b"));
    rows.Category(Fixed("a")).Cell(Fixed("last"));
    ASSERT_EQ(GetTable().fvCells.size(), 2u);
    EXPECT_EQ(GetTable().fvCells[0].fContent.fWords, "last");
    EXPECT_TRUE(GetTable().fvCells[0].fvNotes.empty());
    a.CellNote(Annotate("note"));
    EXPECT_EQ(GetTable().fvCells[0].fvNotes.size(), 1U);
    const auto& told = fContext.GetDocument().fvDiagnostics;
    ASSERT_EQ(told.size(), 1U);
    a.Cell(Fixed("last"));
    rows.Category(Fixed("b")).Cell(Fixed("another"));
    EXPECT_EQ(told.size(), 1U) << "the same again, and a second cell that is lost";
}

TEST_F(PivotTable, GivesANoteToTheCellJustWrittenOrElseToTheCategory) {
    BpDimension rows = AddDimension("R", BpPlace::Rows, 1);
    BpDimension columns = AddDimension("C", BpPlace::Columns, 1);
    BpCategory a = rows.Category(Fixed("a"));
    a.CellNote(Annotate("row, nothing written"));
    BpCategory x = columns.Category(Fixed("x"));
    x.Cell(Fixed("1"));
    a.CellNote(Annotate("cell, whichever category is asked"));
    x.Note(Annotate("column, always"));
    columns.Group(Fixed("g"), true, BpSort::AsIssued);
    x.CellNote(Annotate("cell, a group does not part"));
    columns.Category(Fixed("y"));
    x.CellNote(Annotate("column, since a category was chosen"));
    EXPECT_EQ(Draw(), R"( | [C]
[R] | x*a*b
a*c | 1*d*e
a: column, always
b: column, since a category was chosen
c: row, nothing written
d: cell, whichever category is asked
e: cell, a group does not part
)");
}

TEST_F(PivotTable, PlacesDimensionsThatWereNot) {
    AddDimension("outer", BpPlace::Rows, 3);
    fTable->Dimension(Fixed("first left"), BpSort::AsIssued);
    AddDimension("columns", BpPlace::Columns, 1);
    AddDimension("inner", BpPlace::Rows, 1);
    std::optional<BpDimension> last = fTable->Dimension(Fixed("second left"), BpSort::AsIssued);
    std::optional<BpCategory> category = last->Category(Fixed("a"));
    fTable.reset();
    last.reset();
    EXPECT_EQ(GetTable().fvDimensions[1].fIndex, 0) << "a category still holds the table";
    category.reset();
    std::string places;
    for (const document::Dimension& dimension : GetTable().fvDimensions) {
        places += dimension.fName.fWords + (dimension.fSide == Side::Rows ? " rows " : " columns ") +
                  std::to_string(dimension.fIndex) + (dimension.fPositioned ? "\n" : " by default\n");
    }
    EXPECT_EQ(places,
              "outer rows 3\nfirst left rows 2 by default\ncolumns columns 1\ninner rows 1\n"
              "second left rows 4 by default\n");
}

TEST_F(PivotTable, TakesDimensionsAfterCells) {
    BpDimension rows = AddDimension("R", BpPlace::Rows, 1);
    BpCategory a = rows.Category(Fixed("a"));
    a.Cell(Fixed("1"));
    for (const char* name : {"C", "D", "E", "F", "G"}) AddDimension(name, BpPlace::Columns, 1);
    a.Cell(Fixed("2"));
    ASSERT_EQ(GetTable().fvCells.size(), 1u);
    EXPECT_EQ(GetTable().fvCells[0].fContent.fWords, "2");
    EXPECT_EQ(GetTable().fvCells[0].fvAt, (document::CellPlace{0, -1, -1, -1, -1, -1}));
}

TEST_F(PivotTable, HoldsManyRows) {
    BpDimension rows = AddDimension("R", BpPlace::Rows, 1);
    BpDimension columns = AddDimension("C", BpPlace::Columns, 1);
    for (int row = 0; row < 50'000; ++row) {
        rows.Category(BpNumber(row, BpProcedure::Count()));
        for (const char* column : {"x", "y"}) {
            columns.Category(Fixed(column)).Cell(BpNumber(row, BpProcedure::Coefficient()));
        }
    }
    EXPECT_EQ(GetTable().fvCells.size(), 100'000u);
}

}  // namespace
}  // namespace hierfit
