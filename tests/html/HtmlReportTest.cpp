#include "report/html/HtmlReport.h"

#include <regex>

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
        const std::string page = MakeHtmlReport(MakeDocument({}), {scripts, "", ""});
        EXPECT_TRUE(Holds(page, policy + "'; img-src data:; base-uri 'none'; form-action 'none'\">"));
        EXPECT_EQ(Holds(page, "<script"), hasScript);
    }
}

constexpr const char* kSummary = "title ModelSummary\nrows 1 -name C : Target Link\ncells Yield Logit";
constexpr const char* kTrialsSummary =
    "title ModelSummary\nrows 1 -name C : Target::Events Target::Trials Link\ncells Cases Herd Logit";
constexpr const char* kClassification =
    "title Classification\nrows 1 S : E60868 Percent\ncolumns 1 P : No Yes\ncells 12 31 27.9 72.1";

document::Table MakeClassification() {
    document::Table table = test::SketchTable(kClassification);
    for (document::Cell& cell : table.fvCells) {
        std::get<document::NumberSource>(cell.fContent.fFrom).fNumber = std::stod(cell.fContent.fWords);
    }
    return table;
}

Chart MakeScatter(std::vector<document::ChartValue> frequencies) {
    Chart chart{};
    chart.fTemplate = "GLMMPredictedByObserved";
    chart.fvData = {{"source0", 0, {{"X", {}}, {"Frequency", std::move(frequencies)}}}};
    return chart;
}

TEST(HtmlReport, BeginsWithWhatItIsAbout) {
    using document::Item;
    const Item summary{test::SketchTable(kSummary)};
    const Item trials{test::SketchTable(kTrialsSummary)};
    const Item classes{MakeClassification()};
    const struct {
        std::list<Item> fItems;
        HtmlSettings fSettings;
        std::string fTitle;
        std::string fFacts;  ///< as they are shown, without tags
    } cases[] = {
        {{}, {}, "GLMM – m.pmml", "Documents m.pmml"},
        {{summary, classes}, {}, "Yield – GLMM", "Target Yield Records 43 Documents m.pmml"},
        {{trials, classes}, {}, "Cases – GLMM", "Target Cases out of Herd Documents m.pmml"},
        {{classes, {MakeScatter({6.0, {}, 2.0})}}, {}, "GLMM – m.pmml", "Records 8 Documents m.pmml"},
        {{{MakeScatter({0.5})}}, {}, "GLMM – m.pmml", "Documents m.pmml"},
        {{summary},
         {Scripts::No, "My <title>", "A & B"},
         "My &lt;title&gt; – Yield – GLMM",
         "Target Yield Documents m.pmml"},
    };
    for (const auto& [items, settings, title, facts] : cases) {
        const std::string page = MakeHtmlReport({"", "en", "GLMM", {"m.pmml"}, items, {}}, settings);
        EXPECT_TRUE(Holds(page, "<title>" + title + "</title>")) << title;
        const std::size_t begin = page.find("<dl");
        std::string shown = page.substr(begin, page.find("</dl>") - begin);
        shown = std::regex_replace(std::regex_replace(shown, std::regex("<[^>]*>|\n"), " "), std::regex(" +"), " ");
        EXPECT_EQ(shown, " " + facts + " ") << title;
        EXPECT_EQ(Holds(page, "<meta name=\"author\" content=\"A &amp; B\">"), !settings.fAuthor.empty());
    }
}

TEST(HtmlReport, LeadsToWhatWentWrong) {
    document::Document document{"", "en", "", {}, {{document::Message{test::MakeText("No <fit>"), 2, 2}}}, {}};
    for (int count = 0; count < 20; ++count) document.fvDiagnostics.push_back({1, "Left out", {}});
    const std::string page = MakeHtmlReport(document);
    for (const char* part : {"<strong>Warning</strong> <a href=\"#Message-1\">No &lt;fit&gt;</a>",
                             "<strong>Information</strong> <a href=\"#Diagnostics\">Left out</a>", "<li>9 more</li>"}) {
        EXPECT_TRUE(Holds(page, part)) << part;
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
        EXPECT_TRUE(Holds(MakeHtmlReport(document), "<html lang=\"" + tag + "\" ")) << language;
    }
}

}  // namespace

}  // namespace hierfit::report
