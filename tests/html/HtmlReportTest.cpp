#include "report/html/HtmlReport.h"

#include "report/html/Assets.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

using document::Chart;

document::Document MakeDocument(Chart chart) {
    chart.fDescription = "Means";
    return {"", "en", "", {}, {{std::move(chart)}, {test::SketchTable("cells 1")}}, {}};
}

bool Holds(const std::string& page, const std::string& part) { return page.find(part) != std::string::npos; }

TEST(HtmlReport, AllowsItsOwnStyleAndScriptsAlone) {
    Chart chart{};
    for (const std::string_view view : {"", R"({"mark":"bar"})"}) {
        chart.fView = view;
        std::string policy = "content=\"default-src 'none'; style-src '" + std::string(html::StyleSheet().fHash) +
                             "'; script-src '" + std::string(html::Script().fHash);
        if (!view.empty()) policy += "' '" + std::string(html::ChartScript().fHash);
        const std::string page = MakeHtmlReport(MakeDocument(chart));
        EXPECT_TRUE(Holds(page, policy + "'; img-src data:; base-uri 'none'; form-action 'none'\">")) << view;
        EXPECT_EQ(Holds(page, "<p>There is no picture of this chart.</p>"), view.empty());
    }
}

TEST(HtmlReport, ShowsTheTablesOfAChartThatHaveRows) {
    Chart chart{};
    chart.fShown.fvTables = {{{"A", "B"}, 0, {{"3", "4"}}}, {{"Empty", "N"}, 1, {}}, {{"X", "Y"}, 1, {{"a", "2"}}}};
    const std::string page = MakeHtmlReport(MakeDocument(chart));
    for (const char* part :
         {"<tr><td>3</td><td>4</td></tr>", R"(aria-label="Means, table 2")", R"(aria-label="Untitled, table 3")"}) {
        EXPECT_TRUE(Holds(page, part)) << part;
    }
}

TEST(HtmlReport, LeavesTheTitleToAChartThatBringsOne) {
    const std::pair<std::string, bool> cases[] = {{R"({"title":"a"})", true},
                                                  {R"({"x":["]}\\\"",{"y":1}],"title":{"text":"a"}})", true},
                                                  {R"({"axis":{"title":"a"},"layer":[{"title":"b"}]})", false},
                                                  {R"({"x":"title","y":"\"title\":"})", false},
                                                  {R"({"x":")", false},
                                                  {"", false}};
    for (const auto& [view, isTitled] : cases) {
        Chart chart{};
        chart.fView = view;
        EXPECT_EQ(Holds(MakeHtmlReport(MakeDocument(chart)), "<figure class=\"chart titled\""), isTitled) << view;
    }
}

TEST(HtmlReport, NamesItsLanguage) {
    const std::pair<std::string, std::string> cases[] = {{"C", "en"},    {"de", "de"}, {"pt_BR", "pt-BR"}, {"", "en"},
                                                         {"\" x", "en"}, {"x", "en"},  {"de-", "en"}};
    for (const auto& [language, tag] : cases) {
        document::Document document;
        document.fLanguage = language;
        EXPECT_TRUE(Holds(MakeHtmlReport(document), "<html lang=\"" + tag + "\">")) << language;
    }
}

}  // namespace

}  // namespace hierfit::report
