#include "report/html/table/HtmlTable.h"

#include "report/html/table/NumberColumns.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report::html {

namespace {

using test::Repeated;
using test::SketchTable;

// The browsers' limits: 65534 rows, 1000 columns.
TEST(HtmlTable, GoesOnWhereSpansEnd) {
    const struct {
        std::string fSide;
        std::size_t fSpan;
        std::vector<std::string> fvParts;
    } cases[] = {
        {"rows",
         70000,
         {R"(<th scope="rowgroup" id="t1r0" rowspan="65534">All</th>)",
          R"(<tr><td rowspan="4466"></td><th scope="row" id="t1r65535">x</th>)"}},
        {"columns", 2500, {R"(id="t1c0" colspan="1000">All</th><td colspan="1000"></td><td colspan="500"></td></tr>)"}},
    };
    for (const auto& [side, span, parts] : cases) {
        const document::Table table =
            SketchTable(side + " 1 -name D :" + Repeated(" All::x", span) + "\ncells" + Repeated(" 1", span));
        std::string html;
        AppendTable(html, table, "T", "A-1", 1);
        for (const std::string& part : parts) EXPECT_NE(html.find(part), std::string::npos) << part;
    }
}

TEST(NumberColumns, AlignAtTheDecimalSign) {
    const std::pair<std::vector<std::string>, std::vector<std::string>> cases[] = {
        {{"1", "2.5", "3.25", "."}, {".00", "0", "", "00"}}, {{"12", "3"}, {"", ""}},
        {{".012", "<.001", "1.000"}, {"", "", ""}},          {{"0.5", "-3.21E-05"}, {"0E-05", ""}},
        {{"0.000468", "4E-05"}, {"E-05", ".000000"}},        {{"45", "83.3%", "7%", "1.5"}, {".0", "", ".0", ""}},
        {{"1", "0." + std::string(100, '0')}, {"", ""}},
    };
    for (const auto& [numbers, expected] : cases) {
        std::string sketch = "rows 1 R :" + Repeated(" r", numbers.size()) + "\ncells";
        for (const std::string& number : numbers) sketch += ' ' + number;
        const document::Table table = SketchTable(sketch);
        const NumberColumns columns(MakeGrid(table));
        std::vector<std::string> paddings;
        for (const std::string& number : numbers) paddings.emplace_back(columns.PaddingOf(0, number));
        EXPECT_EQ(paddings, expected);
    }
}

}  // namespace

}  // namespace hierfit::report::html
