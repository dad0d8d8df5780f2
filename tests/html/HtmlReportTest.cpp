#include "report/html/HtmlReport.h"

#include "report/charts/layout/Scene.h"
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
    for (const Scripts scripts : {Scripts::Yes, Scripts::No}) {
        const bool hasScript = scripts == Scripts::Yes;
        std::string policy = "content=\"default-src 'none'; style-src '" + std::string(html::StyleSheet().fHash);
        if (hasScript) policy += "'; script-src '" + std::string(html::Script().fHash);
        const std::string page = MakeHtmlReport(MakeDocument({}), scripts);
        EXPECT_TRUE(Holds(page, policy + "'; img-src data:; base-uri 'none'; form-action 'none'\">"));
        EXPECT_EQ(Holds(page, "<script"), hasScript);
    }
}

TEST(HtmlReport, ShowsTheTablesOfAChartThatHaveRows) {
    Chart chart{};
    chart.fPicture.fvTables = {{{"A", "B"}, 0, {{"3", "4"}}}, {{"Empty", "N"}, 1, {}}, {{"X", "Y"}, 1, {{"a", "2"}}}};
    const std::string page = MakeHtmlReport(MakeDocument(chart));
    for (const char* part :
         {"<tr><td>3</td><td>4</td></tr>", R"(aria-label="Means, table 2")", R"(aria-label="Untitled, table 3")"}) {
        EXPECT_TRUE(Holds(page, part)) << part;
    }
}

TEST(HtmlReport, LeavesTheTitleToAPictureThatHasOne) {
    Chart chart{};
    EXPECT_TRUE(Holds(MakeHtmlReport(MakeDocument(chart)), "<figure class=\"chart\""));
    chart.fPicture.fTitle = "Means of dose";
    EXPECT_TRUE(Holds(MakeHtmlReport(MakeDocument(chart)), "<figure class=\"chart titled\""));
}

TEST(HtmlReport, IsShort) {
    EXPECT_LT(html::Script().fText.size(), 15'000u);
    EXPECT_LT(html::Script().fText.size() + html::StyleSheet().fText.size(), 45'000u);
}

TEST(HtmlReport, GivesEveryInkThatIsNotSeenInTheDarkAnotherColour) {
    const std::string style(html::StyleSheet().fText);
    for (int ink = 1; ink < charts::kInks; ++ink) {
        if (ink == static_cast<int>(charts::Ink::Quiet) || ink == static_cast<int>(charts::Ink::Link)) continue;
        const std::string number = std::to_string(ink);
        EXPECT_TRUE(Holds(style, ".f" + number + " { fill: ") && Holds(style, ".s" + number + " { stroke: ")) << ink;
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
