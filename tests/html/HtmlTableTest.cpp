#include "report/html/table/HtmlTable.h"

#include <regex>

#include "host/SystemMissing.h"
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

TEST(HtmlTable, CarriesNumbersOfWhichItShowsLess) {
    using document::FormatName;
    using document::Text;
    const std::pair<Text, const char*> cases[] = {
        {{"\u22121.2", document::NumberSource{-1.25, {FormatName::Coefficient}}},
         "<td data-value=\"-1.25\">\u22121.2<"},
        {{"<.001", document::NumberSource{1e-300, {FormatName::Significance}}}, "<td data-value=\"1e-300\">&lt;.001<"},
        {{".", document::NumberSource{kSystemMissing, {FormatName::Count}}}, "<td data-value=\"\">.<"},
        {{"2.5", document::NumberSource{2.5, {FormatName::Coefficient}}}, "<td>2.5<"},
        {{"2.0", document::ValueSource{2.04, "dose", 2}}, "<td data-value=\"2.04\">2.0<"},
        {{"low", document::ValueSource{1.0, "dose", 2}}, "<td class=\"t\">low<"},
    };
    for (const auto& [text, cell] : cases) {
        document::Table table = SketchTable("cells 0");
        table.fvCells.front().fContent = text;
        std::string html;
        AppendTable(html, table, "T", "A-1", 1, FullValues::Yes);
        EXPECT_NE(html.find(cell), std::string::npos) << html;
        html.clear();
        AppendTable(html, table, "T", "A-1", 1, FullValues::No);
        EXPECT_EQ(html.find("data-value"), std::string::npos);
    }
}

TEST(HtmlTable, CarriesFieldsOfCsvThatCellsDoNotTell) {
    const std::pair<std::string, std::string> cases[] = {
        {"rows 1 R : a b\ncolumns 1 -name C : x\ncells 1 2", ""},
        {"rows 1 -name Term : a b\ncolumns 1 -name C : x\ncells 1 2", "Term,x;"},
        {"rows 1 R : a b\ncells 1 2", "R,Value;"},
        {"rows 1 R : a\ncolumns 1 -name C : x x R\ncells 1 2 3", "R,x,x (2),R (2);"},
        {"rows 1 -labels Record : \"2\"\ncolumns 1 -name C : x\ncells 1",
         "Record,x;&quot;&quot;&quot;2&quot;&quot;&quot;;"},
    };
    const std::regex attribute("data-fields=\"([^\"]*)\"");
    for (const auto& [sketch, fields] : cases) {
        std::string html;
        AppendTable(html, SketchTable(sketch), "T", "A-1", 1, FullValues::No);
        std::string found;
        for (std::sregex_iterator at(html.begin(), html.end(), attribute), end; at != end; ++at)
            found += (*at)[1].str() + ";";
        EXPECT_EQ(found, fields) << sketch;
    }
}

}  // namespace

}  // namespace hierfit::report::html
