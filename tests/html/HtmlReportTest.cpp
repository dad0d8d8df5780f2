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

Chart MakeScatter(std::vector<document::ChartValue> frequencies) {
    Chart chart{};
    chart.fTemplate = "GLMMPredictedByObserved";
    chart.fvData = {{"source0", 0, {{"X", {}}, {"Frequency", std::move(frequencies)}}}};
    return chart;
}

// The examples have targets without trials, and their records from a classification.
TEST(HtmlReport, BeginsWithWhatItIsAbout) {
    const char* trials =
        "title ModelSummary\nrows 1 -name C : Target::Events Target::Trials Link\ncells Cases Herd Logit";
    const document::Table summary = test::SketchTable(trials);
    const struct {
        std::list<document::Item> fItems;
        HtmlSettings fSettings;
        std::string fTitle;
        std::string fFacts;  ///< as they are shown, without tags
    } cases[] = {
        {{}, {}, "GLMM – m.pmml", "Documents m.pmml"},
        {{{summary}}, {}, "Cases – GLMM", "Target Cases out of Herd Documents m.pmml"},
        {{{MakeScatter({6.0, {}, 2.0})}}, {}, "GLMM – m.pmml", "Records 8 Documents m.pmml"},
        {{{MakeScatter({0.5})}}, {}, "GLMM – m.pmml", "Documents m.pmml"},
        {{}, {Scripts::No, "My <title>", "A & B"}, "My &lt;title&gt; – GLMM", "Documents m.pmml"},
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

TEST(HtmlReport, IsShort) { EXPECT_LT(html::Script().fText.size() + html::StyleSheet().fText.size(), 45'000u); }

TEST(HtmlReport, GivesEveryInkThatIsNotSeenInTheDarkAnotherColour) {
    const std::string style(html::StyleSheet().fText);
    for (int ink = 1; ink < charts::kInks; ++ink) {
        if (ink == static_cast<int>(charts::Ink::Quiet) || ink == static_cast<int>(charts::Ink::Link)) continue;
        const std::string number = std::to_string(ink);
        EXPECT_TRUE(Holds(style, ".f" + number + " { fill: ") && Holds(style, ".s" + number + " { stroke: ")) << ink;
    }
}

}  // namespace

}  // namespace hierfit::report
