#include "report/index/IndexPage.h"

#include "report/index/UrlPath.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

bool Holds(const std::string& page, const std::string& part) { return page.find(part) != std::string::npos; }

IndexedModel MakeModel(const std::string& text) { return {text, text, text, text, 180, -12.25, 1e300, 3}; }

TEST(UrlPath, IsReadAsItWasWritten) {
    const std::pair<std::string, std::string> cases[] = {
        {"../models/oats-1_a~.html", "../models/oats-1_a~.html"},
        {"a b%20:c?#\"<>&'", "a%20b%2520%3Ac%3F%23%22%3C%3E%26%27"},
        {"\xC3\xA4\xFF\n", "%C3%A4%FF%0A"},
    };
    for (const auto& [path, url] : cases) {
        std::string written;
        AppendUrl(written, path);
        EXPECT_EQ(written, url);
        EXPECT_EQ(ReadUrl(url), path);
    }
    for (const char* broken : {"%", "%4", "%zz", "a%-1", "%+1"}) EXPECT_EQ(ReadUrl(broken), broken);
}

// Whatever names and targets hold, a second index made from the first is the same page.
TEST(IndexPage, IsReadAsItWasWritten) {
    Index index{"hierfit", {}, {{"none", "\"><script>"}}};
    for (const char* text : {"oats", "a b/c%41", "\"><script>alert(1)</script>", "&quot;&amp;lt;'", "two\nlines\xFF",
                             "", " data-warnings=\"9\"", "><th scope=\"row\">"}) {
        index.fvModels.push_back(MakeModel(text));
    }
    index.fvModels.push_back({"bare", "bare", "bare.html", "", {}, {}, {}, 0});
    const std::string page = MakeIndexPage(index, {});
    EXPECT_FALSE(Holds(page, "<script"));
    std::vector<IndexedModel> read = ReadIndexPage(page);
    ASSERT_EQ(read.size(), index.fvModels.size());
    for (std::size_t at = 0; at < read.size(); ++at) {
        EXPECT_EQ(read[at].fFolder, index.fvModels[at].fFolder);
        EXPECT_EQ(read[at].fReport, index.fvModels[at].fReport);
        EXPECT_EQ(read[at].fRecords, index.fvModels[at].fRecords);
        read[at].fPath = index.fvModels[at].fPath;
    }
    EXPECT_EQ(MakeIndexPage({"hierfit", read, index.fvFailures}, {}), page);
}

TEST(IndexPage, LeavesOutRowsOfOthers) {
    const std::string folder = "<tr data-folder=\"a\" data-report=\"a.html\"", header = "><th scope=\"row\">";
    const std::string rest = " data-target=\"\" data-warnings=\"0\"";
    const std::pair<std::string, std::size_t> cases[] = {
        {folder + rest + header, 1},
        {folder + rest + header + "\n\n" + folder + rest + header, 2},
        {folder + " data-target=\"\" data-warnings=\"-1\"" + header, 0},
        {folder + " data-target=\"\" data-warnings=\"1x\"" + header, 0},
        {folder + rest + " data-akaike=\"\"" + header, 0},
        {folder + rest + " data-records=\"inf\"" + header, 0},
        {"", 0},
    };
    for (const auto& [page, count] : cases) EXPECT_EQ(ReadIndexPage(page).size(), count) << page;
}

TEST(IndexPage, ShowsFiguresAsReportsDo) {
    Index index{"", {{"oats", "oats", "oats.html", "Yield", 1234, -567.5999, {}, 2}}, {}};
    const std::string row =
        "<a href=\"oats.html\">oats</a></th><td class=\"t\">Yield</td><td>1234</td><td>\u2212567.600</td>"
        "<td></td><td>2</td></tr>\n";
    EXPECT_TRUE(Holds(MakeIndexPage(index, {}), row));
    const std::string page = MakeIndexPage(index, {Scripts::Yes, "A & B", "C"});
    for (const char* part : {"<title>A &amp; B</title>", "<h1>A &amp; B</h1>", "<p class=\"author\">C</p>"}) {
        EXPECT_TRUE(Holds(page, part)) << part;
    }
}

TEST(IndexedModel, IsWhatTheDocumentTells) {
    document::Table summary = test::SketchTable(
        "title ModelSummary\nrows 1 -name C : Target Criterion::Akaike_Corrected Criterion::Bayesian\ncells Yield a b");
    summary.fSubtype = {"ModelSummary", document::StringSource{"ModelSummary", true}};
    summary.fvCells[1].fContent.fFrom = document::NumberSource{567.6, {document::FormatName::GeneralStat}};
    summary.fvCells[2].fContent.fFrom =
        document::NumberSource{-1.7976931348623157e308, {document::FormatName::GeneralStat}};
    document::Document document{"", "en", "", {}, {{summary}}, {{1, "", {}}, {2, "", {}}, {3, "", {}}}};
    for (const int level : {1, 2}) document.fItems.push_back({document::Message{test::MakeText("m"), 2, level}});
    IndexedModel model{"a", "b", "c", "", {}, {}, 4.0, 0};
    Describe(model, document);
    EXPECT_EQ(model.fTarget, "Yield");
    EXPECT_EQ(model.fAkaike, 567.6);
    EXPECT_EQ(model.fBayesian, std::nullopt);
    EXPECT_EQ(model.fRecords, std::nullopt);
    EXPECT_EQ(model.fWarnings, 3);
    EXPECT_EQ(model.fPath + model.fFolder + model.fReport, "abc");
}

}  // namespace

}  // namespace hierfit::report
