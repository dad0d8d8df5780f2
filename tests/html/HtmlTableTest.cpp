#include "report/html/table/HtmlTable.h"

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
        AppendTable(html, table, "T", "A-1", 1, FullValues::No);
        for (const std::string& part : parts) EXPECT_NE(html.find(part), std::string::npos) << part;
    }
}

}  // namespace

}  // namespace hierfit::report::html
