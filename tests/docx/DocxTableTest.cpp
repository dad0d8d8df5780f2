#include <algorithm>
#include <set>

#include "tests/docx/DocxText.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

using test::DrawnTable;
using test::DrawTables;
using test::Repeated;
using test::SketchTable;

constexpr int kMostColumns = 63;
constexpr long kTurnedWidth = 16838 - 2 * 1440;

std::string TextOf(const std::string& sketch, std::string_view word = "@") {
    return test::MakeText({{SketchTable(sketch, word)}});
}

TEST(DocxTable, SpansAsItsHeadersDo) {
    const struct {
        std::string fSketch;
        std::vector<std::string> fvRows;
    } cases[] = {
        {"rows 1 R : a b\ncolumns 1 -name C : x y\ncells 1 2 3 4", {"# R | x | y", "a | 1 | 2", "b | 3 | 4"}},
        {"rows 1 -name R : a b\ncells 1 2", {"a | 1", "b | 2"}},
        {"rows 1 -name R : g::a*note g::b c\ncolumns 1 C : x h::y h::z\ncells 1 2*note 3 4 5 6 7 8 ~",
         {"# >2 | C>3", "# >2 | x | h>2", "# >2 | ^ | y | z", "g | a{a} | 1 | 2{a} | 3", "^ | b | 4 | 5 | 6",
          "c>2 | 7 | 8 | "}},
        {"columns 1 -name C : x y\ncells 1 2", {"# x | y", "1 | 2"}},
        {"rows 1 R : a\ncells text", {"# R | ", "a | text"}},
        {"rows 1 R : a_=::b a_=c\ncells 1 2", {"# R>2 | ", "a\u00A0= | b | 1", "a =c>2 | 2"}},
    };
    for (const auto& [sketch, rows] : cases) {
        const std::vector<DrawnTable> tables = DrawTables(TextOf(sketch));
        ASSERT_EQ(tables.size(), 1U) << sketch;
        EXPECT_EQ(tables[0].fvRows, rows) << sketch;
    }
}

std::string Columns(int count, const std::string& cell) {
    std::string sketch = "rows 1 -name R : a b\ncolumns 1 -name C :";
    std::string cells = "\ncells";
    for (int column = 0; column < count; ++column) {
        sketch += (column < count / 2 ? " g::c" : " h::c") + std::to_string(column);
        cells += " " + cell + " " + cell;
    }
    return sketch + cells;
}

/// Cells of a drawn row, where one that spans counts once for each column.
std::vector<std::string> CellsOf(const std::string& row) {
    std::vector<std::string> cells;
    for (std::size_t at = row.starts_with("# ") ? 2 : 0; at <= row.size();) {
        const std::size_t end = std::min(row.find(" | ", at), row.size());
        const std::string cell = row.substr(at, end - at);
        const std::size_t span = cell.rfind('>');
        const int count = span == std::string::npos ? 1 : std::stoi(cell.substr(span + 1));
        cells.insert(cells.end(), static_cast<std::size_t>(count), cell.substr(0, span));
        at = end + 3;
    }
    return cells;
}

TEST(DocxTable, PartsWhatIsTooWideAndLosesNothing) {
    const struct {
        int fColumns;
        std::string fCell;
        std::string fPage;
        std::string fTableStyle;
        std::size_t fLeastParts;
    } cases[] = {{3, "1.5", "upright", "ReportTable", 1},  {18, "1.25", "upright", "ReportTableSmall", 1},
                 {25, "1.25", "turned", "ReportTable", 1}, {29, "1.25", "turned", "ReportTableSmall", 1},
                 {70, "1", "turned", "ReportTable", 2},    {200, "-1234.567", "turned", "ReportTable", 5}};
    for (const auto& [columns, cell, page, style, leastParts] : cases) {
        const std::string text = TextOf(Columns(columns, cell));
        const std::vector<DrawnTable> tables = DrawTables(text);
        EXPECT_GE(tables.size(), leastParts) << columns;
        EXPECT_EQ(leastParts == 1, tables.size() == 1) << columns;
        EXPECT_EQ(test::DrawSections(text), std::vector<std::string>{page}) << columns;
        EXPECT_NE(text.find("<w:tblStyle w:val=\"" + style + "\"/>"), std::string::npos) << columns;
        std::vector<std::string> names;
        std::vector<std::string> groups;
        for (const DrawnTable& table : tables) {
            EXPECT_LE(table.fColumns, kMostColumns);
            EXPECT_LE(table.fWidth, kTurnedWidth);
            ASSERT_EQ(table.fvRows.size(), 4U);
            const std::vector<std::string> over = CellsOf(table.fvRows[0]);
            const std::vector<std::string> header = CellsOf(table.fvRows[1]);
            groups.insert(groups.end(), over.begin() + 1, over.end());
            names.insert(names.end(), header.begin() + 1, header.end());
            EXPECT_EQ(CellsOf(table.fvRows[3]).front(), "b");
            EXPECT_EQ(CellsOf(table.fvRows[2]).size(), header.size());
        }
        ASSERT_EQ(names.size(), static_cast<std::size_t>(columns));
        for (int column = 0; column < columns; ++column) {
            EXPECT_EQ(names[static_cast<std::size_t>(column)], "c" + std::to_string(column));
            EXPECT_EQ(groups[static_cast<std::size_t>(column)], column < columns / 2 ? "g" : "h") << column;
        }
    }
}

TEST(DocxTable, NamesItsPartsByItsNumber) {
    const std::string text = TextOf("title Wide\n" + Columns(200, "1"));
    const std::vector<std::string> paragraphs = test::DrawParagraphs(text);
    const auto count = [&](const std::string& words) { return std::ranges::count(paragraphs, words); };
    EXPECT_EQ(count("Caption: Table 1. Wide"), 1);
    EXPECT_GE(count("CaptionContinued: Table 1 (continued)"), 2);
    EXPECT_NE(text.find("<w:bookmarkStart w:id=\"1\" w:name=\"_RefTable1\"/>"), std::string::npos);
}

TEST(DocxTable, HoldsLongAndDeepOnes) {
    const std::string rows =
        TextOf("rows 1 -name -labels R :" + Repeated(" x", 100'000) + "\ncells" + Repeated(" 1", 100'000));
    std::size_t count = 0;
    for (std::size_t at = rows.find("<w:tr>"); at != std::string::npos; at = rows.find("<w:tr>", at + 1)) ++count;
    EXPECT_EQ(count, 100'000U);

    const std::vector<DrawnTable> deep =
        DrawTables(TextOf("rows 1 -name R : " + Repeated("g::", 80) + "a*note b\ncells 1 2"));
    ASSERT_EQ(deep.size(), 1U);
    EXPECT_EQ(deep[0].fvRows, (std::vector<std::string>{Repeated("g, ", 80) + "a{a} | 1", "b | 2"}));
}

TEST(DocxTable, BreaksLongLabelsOverLinesAndPages) {
    const struct {
        std::string fSketch;
        bool fRepeatsHeader;
        bool fPartsRows;
    } cases[] = {
        {"rows 1 @ : a\ncells 1", false, false},         {"columns 1 -name C : @ b\ncells 1 2", false, false},
        {"rows 1 R : @\ncells 1", true, true},           {"rows 1 R : a\ncells @", true, true},
        {"title @\nrows 1 R : a\ncells 1", true, false},
    };
    for (const auto& [sketch, repeatsHeader, partsRows] : cases) {
        for (const std::string& label : {std::string(10'000, 'x'), Repeated("word ", 2'000) + "."}) {
            const std::string text = TextOf(sketch, label);
            const std::vector<DrawnTable> tables = DrawTables(text);
            ASSERT_EQ(tables.size(), 1U) << sketch;
            EXPECT_LE(tables[0].fWidth, kTurnedWidth) << sketch;
            EXPECT_NE(text.find(label), std::string::npos) << sketch;
            EXPECT_EQ(text.find("<w:tblHeader/>") != std::string::npos, repeatsHeader) << sketch;
            EXPECT_EQ(text.find("<w:tr><w:trPr><w:cantSplit/></w:trPr>") == std::string::npos, partsRows) << sketch;
        }
    }
}

}  // namespace

}  // namespace hierfit::report
