#include "report/html/table/HtmlTable.h"

#include <gtest/gtest.h>

#include "Documents.h"
#include "report/html/table/NumberColumns.h"

namespace hierfit::report::html {

namespace {

using document::Side;
using document::Table;
using test::MakeDimension;
using test::MakeTable;
using test::Words;

std::string Render(const Table& table) {
    std::string out;
    AppendTable(out, table, table.fTitle.fWords, "A-1", 1);
    return out;
}

void ExpectPart(const std::string& html, const std::string& part) {
    EXPECT_NE(html.find(part), std::string::npos) << part << "\nis not in\n" << html.substr(0, 4000);
}

TEST(HtmlTable, TiesDataToTheirHeadersWhereLevelsNest) {
    Table table = MakeTable(
        "T",
        {MakeDimension("Observed", Side::Rows, 2, {"No", "Yes"}), MakeDimension("", Side::Rows, 1, {"Count", "Share"}),
         MakeDimension("Predicted", Side::Columns, 1, {"No", "Yes"})},
        {"12", "3.5", "", "a", "1", "2", "3", "4"});
    table.fvCells[1].fvNotes.push_back(Words("A note."));
    EXPECT_EQ(Render(table), R"(<figure class="table" id="A-1">
<section class="scroll" tabindex="0" aria-label="T, table 1">
<table>
<caption><span>T</span></caption>
<colgroup span="2"></colgroup><colgroup span="2"></colgroup>
<thead>
<tr><td colspan="2"></td><th scope="colgroup" id="t1c0" colspan="2">Predicted</th></tr>
<tr><th scope="col" class="t"><span>Observed</span></th><td class="t k"></td><th scope="col" id="t1c1"><span>No</span></th><th scope="col" id="t1c2"><span>Yes</span></th></tr>
</thead>
<tbody>
<tr><th scope="rowgroup" id="t1r0" rowspan="2">No</th><th scope="row" id="t1r1">Count</th><td headers="t1r0 t1r1 t1c0 t1c1">12</td><td headers="t1r0 t1r1 t1c0 t1c2">3.5<sup><a href="#t1na" id="t1ma" role="doc-noteref">a</a></sup></td></tr>
<tr><th scope="row" id="t1r2">Share</th><td headers="t1r0 t1r2 t1c0 t1c1"></td><td headers="t1r0 t1r2 t1c0 t1c2" class="t">a</td></tr>
</tbody>
<tbody>
<tr><th scope="rowgroup" id="t1r3" rowspan="2">Yes</th><th scope="row" id="t1r4">Count</th><td headers="t1r3 t1r4 t1c0 t1c1">1</td><td headers="t1r3 t1r4 t1c0 t1c2" data-pad=".0">2</td></tr>
<tr><th scope="row" id="t1r5">Share</th><td headers="t1r3 t1r5 t1c0 t1c1">3</td><td headers="t1r3 t1r5 t1c0 t1c2" data-pad=".0">4</td></tr>
</tbody>
</table>
</section>
<figcaption>
<p class="note" id="t1na"><sup><a href="#t1ma" role="doc-backlink">a</a></sup> A note.</p>
</figcaption>
</figure>
)");
}

TEST(HtmlTable, LeavesOneLevelToScopes) {
    const std::string html = Render(MakeTable(
        "T", {MakeDimension("R", Side::Rows, 1, {"A"}), MakeDimension("", Side::Columns, 1, {"X", "Y"})}, {"1", "?"}));
    ExpectPart(
        html,
        R"(<tr><th scope="col" class="t k"><span>R</span></th><th scope="col"><span>X</span></th><th scope="col" class="t"><span>Y</span></th></tr>)");
    ExpectPart(html, R"(<tr><th scope="row">A</th><td>1</td><td class="t">?</td></tr>)");
}

TEST(HtmlTable, GoesOnWhereSpansEnd) {
    std::vector<std::string> labels;
    for (int number = 0; number < 70000; ++number) labels.push_back("All|" + std::to_string(number));

    const std::string rows =
        Render(MakeTable("T", {MakeDimension("", Side::Rows, 1, labels)}, std::vector<std::string>(70000, "1")));
    ExpectPart(rows, R"(<th scope="rowgroup" id="t1r0" rowspan="65534">All</th>)");
    EXPECT_NE(rows.find(R"(<tr><td rowspan="4466"></td><th scope="row" id="t1r65535">65534</th>)"), std::string::npos);

    labels.resize(2500);
    const std::string columns =
        Render(MakeTable("T", {MakeDimension("", Side::Columns, 1, labels)}, std::vector<std::string>(2500, "1")));
    ExpectPart(columns, R"(id="t1c0" colspan="1000">All</th><td colspan="1000"></td><td colspan="500"></td></tr>)");
}

struct PaddingCase {
    std::vector<std::string> fvNumbers;
    std::vector<std::string> fvPaddings;
};

TEST(NumberColumns, AlignAtTheDecimalSign) {
    const PaddingCase cases[] = {
        {{"1", "2.5", "3.25", "."}, {".00", "0", "", "00"}}, {{"12", "3"}, {"", ""}},
        {{".012", "<.001", "1.000"}, {"", "", ""}},          {{"0.5", "-3.21E-05"}, {"0E-05", ""}},
        {{"0.000468", "4E-05"}, {"E-05", ".000000"}},        {{"45", "83.3%"}, {".0%", ""}},
        {{"1", "0." + std::string(100, '0')}, {"", ""}},
    };
    for (const PaddingCase& each : cases) {
        std::vector<std::string> rows;
        for (std::size_t row = 0; row < each.fvNumbers.size(); ++row) rows.push_back(std::to_string(row));
        const Table table = MakeTable("T", {MakeDimension("", Side::Rows, 1, rows)}, each.fvNumbers);
        const NumberColumns columns(MakeGrid(table));
        std::vector<std::string> paddings;
        for (const std::string& number : each.fvNumbers) paddings.emplace_back(columns.PaddingOf(0, number));
        EXPECT_EQ(paddings, each.fvPaddings);
    }
}

}  // namespace

}  // namespace hierfit::report::html
