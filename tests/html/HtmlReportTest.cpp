#include "report/html/HtmlReport.h"

#include <gtest/gtest.h>

#include "Documents.h"
#include "report/html/Assets.h"

namespace hierfit::report {

namespace {

using document::Heading;
using document::Item;
using document::Message;
using test::MakeDocument;
using test::Words;

std::string Replace(std::string text, std::string_view part, std::string_view by) {
    const std::size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return at == std::string::npos ? text : text.replace(at, part.size(), by);
}

// The page with names in place of what the library carries along.
std::string RenderWithoutAssets(const document::Document& document) {
    std::string page = MakeHtmlReport(document);
    page = Replace(page, html::StyleSheet().fText, "STYLE");
    page = Replace(page, html::StyleSheet().fHash, "STYLE-HASH");
    page = Replace(page, html::Script().fText, "SCRIPT");
    return Replace(page, html::Script().fHash, "SCRIPT-HASH");
}

document::Document MakeSmall() {
    const Item chart{document::Chart{"Means", {}, 2, "GLMMEmMeans", "", {}, {}, "", {}}};
    std::list<Item> items{{Heading{Words("Fixed & Random"), {{Message{Words("Is 1 < 2?"), 2, 2}}, chart}}}};
    items.push_back({test::MakeTable("Grand Mean", {}, {"2.5"})});
    document::Document document = MakeDocument("Models", std::move(items));
    document.fLanguage = "C";
    document.fvDiagnostics = {{1, "Noticed.", document::Place{1, 41, 7}}};
    return document;
}

TEST(HtmlReport, IsOnePage) {
    EXPECT_EQ(RenderWithoutAssets(MakeSmall()), R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'STYLE-HASH'; script-src 'SCRIPT-HASH'; img-src data:; base-uri 'none'; form-action 'none'">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<meta name="generator" content="hierfit 0.1.0">
<title>Models – model.pmml, model.statxml</title>
<link rel="icon" href="data:,">
<style>STYLE</style>
</head>
<body data-copy="Copy" data-copied="Copied" data-not-copied="Not copied" data-save="Save picture" data-not-drawn="This chart could not be drawn.">
<a class="skip" href="#main">Skip to the output</a>
<header>
<h1>Models</h1>
<ul class="sources">
<li>model.pmml</li>
<li>model.statxml</li>
</ul>
</header>
<nav aria-label="Contents">
<details open>
<summary>Contents</summary>
<ol>
<li><a href="#Fixed-Random-1">Fixed &amp; Random</a>
<ol>
<li><a href="#Message-1">Warning: Is 1 &lt; 2?</a></li>
<li><a href="#GLMMEmMeans-1">Means (chart)</a></li>
</ol>
</li>
<li><a href="#GrandMean-1">Grand Mean</a></li>
<li><a href="#Diagnostics">Diagnostics</a></li>
</ol>
</details>
</nav>
<main id="main">
<section id="Fixed-Random-1">
<h2>Fixed &amp; Random</h2>
<p class="message warning" id="Message-1"><strong>Warning</strong> Is 1 &lt; 2?</p>
<figure class="chart" id="GLMMEmMeans-1" role="group" aria-labelledby="GLMMEmMeans-1-title">
<p class="title" id="GLMMEmMeans-1-title">Means</p>
<p>There is no picture of this chart.</p>
</figure>
</section>
<figure class="table" id="GrandMean-1">
<section class="scroll" tabindex="0" aria-label="Grand Mean, table 1">
<table>
<caption><span>Grand Mean</span></caption>
<tbody>
<tr><td>2.5</td></tr>
</tbody>
</table>
</section>
</figure>
<section class="diagnostics" id="Diagnostics">
<h2>Diagnostics</h2>
<ul>
<li class="information"><strong>Information</strong> Noticed. <span class="place">model.statxml:41:7</span></li>
</ul>
</section>
</main>
<footer>hierfit 0.1.0</footer>
<script>SCRIPT</script>
</body>
</html>
)");
}

TEST(HtmlReport, HeadsTheRowsOfAChartsTablesWithTheirKeys) {
    document::Chart chart{};
    chart.fDescription = "Effects";
    chart.fShown.fvTables = {{{"Arm", "Sex", "Mean"}, 2, {{"a", "f", "1.5"}, {"a", "f", "2"}}},
                             {{"Empty", "N"}, 1, {}},
                             {{"Bin", "N"}, 1, {{"0 to 9", "7"}}},
                             {{"X", "Y"}, 0, {{"3", "4"}}}};
    const std::string page = MakeHtmlReport(MakeDocument("", {{chart}, {test::MakeTable("", {}, {"1"})}}));
    for (
        const char* part : {
            R"(<tr><th scope="row" id="t1r0">a</th><th scope="row" id="t1r1">f</th><td headers="t1r0 t1r1 t1c0">1.5</td></tr>)",
            R"(<tr><th scope="row" id="t1r2">a</th><th scope="row" id="t1r3">f</th><td headers="t1r2 t1r3 t1c0" data-pad=".0">2</td></tr>)",
            R"(aria-label="Effects, table 2")",
            R"(<tr><th scope="row">0 to 9</th><td>7</td></tr>)",
            R"(<tr><td>3</td><td>4</td></tr>)",
            R"(table 4">)",
        }) {
        EXPECT_NE(page.find(part), std::string::npos) << part;
    }
    EXPECT_EQ(page.find("Empty"), std::string::npos);
}

TEST(HtmlReport, LeavesTheTitleToAChartThatBringsOne) {
    const std::pair<std::string, bool> cases[] = {{R"({"title":"a"})", true},
                                                  {R"({"x":["]}\\\"",{"y":1}],"title":{"text":"a"}})", true},
                                                  {R"({"axis":{"title":"a"},"layer":[{"title":"b"}]})", false},
                                                  {R"({"x":"title","y":"\"title\":"})", false},
                                                  {R"({"x":")", false},
                                                  {"", false}};
    for (const auto& [view, isTitled] : cases) {
        const Item chart{document::Chart{"Means", {}, 2, "GLMMEmMeans", "", {}, {}, view, {}}};
        const std::string page = MakeHtmlReport(MakeDocument("", {chart}));
        EXPECT_EQ(page.find("<figure class=\"chart titled\"") != std::string::npos, isTitled) << view;
    }
}

TEST(HtmlReport, NamesItsLanguage) {
    const std::pair<std::string, std::string> cases[] = {{"C", "en"},    {"de", "de"}, {"pt_BR", "pt-BR"}, {"", "en"},
                                                         {"\" x", "en"}, {"x", "en"},  {"de-", "en"}};
    for (const auto& [language, tag] : cases) {
        document::Document document = MakeSmall();
        document.fLanguage = language;
        EXPECT_NE(MakeHtmlReport(document).find("<html lang=\"" + tag + "\">"), std::string::npos) << language;
    }
}

}  // namespace

}  // namespace hierfit::report
