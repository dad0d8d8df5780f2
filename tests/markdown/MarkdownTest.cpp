#include "report/markdown/MarkdownReport.h"

#include "report/markdown/MarkdownTable.h"
#include "report/markdown/MarkdownText.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report::markdown {

namespace {

TEST(MarkdownText, IsNoMarkup) {
    const struct {
        const char* fText;
        const char* fWithin;
        const char* fAtBegin;
    } cases[] = {
        {"a|b *c* _d_ [e](f)", "a\\|b \\*c\\* \\_d\\_ \\[e\\](f)", "a\\|b \\*c\\* \\_d\\_ \\[e\\](f)"},
        {"<b> &amp; `x` \\ ~~y~~ $z$", "\\<b\\> \\&amp; \\`x\\` \\\\ \\~\\~y\\~\\~ \\$z\\$",
         "\\<b\\> \\&amp; \\`x\\` \\\\ \\~\\~y\\~\\~ \\$z\\$"},
        {"two\nlines", "two<br>lines", "two<br>lines"},
        {"# 1", "# 1", "\\# 1"},
        {"- item", "- item", "\\- item"},
        {"12. item", "12. item", "12\\. item"},
        {"12 items", "12 items", "12 items"},
        {"123", "123", "123"},
        {"\u202Eabc", "\\\\u{202E}abc", "\\\\u{202E}abc"},
    };
    for (const auto& test : cases) {
        std::string within;
        AppendText(within, test.fText);
        EXPECT_EQ(within, test.fWithin);
        std::string begin;
        AppendParagraph(begin, test.fText);
        EXPECT_EQ(begin, test.fAtBegin);
    }
}

TEST(MarkdownTable, SpellsSpansOutAndMarksNotes) {
    std::string out;
    AppendTable(out, test::SketchTable(R"(
caption A_caption
note A_note
rows 1 Term : plain g::c*one g::d
columns 1 -name S : Est ci::Low*two ci::Kind
cells plain,Est=1 g::c,Est=2*one g::d,ci::Low=3 g::d,ci::Kind=word)"));
    EXPECT_EQ(out, R"(| Term | Term 2 | Est | ci, Low<sup>a</sup> | ci, Kind |
|:---|:---|---:|---:|:---|
| plain |  | 1 |  |  |
| g | c<sup>b</sup> | 2<sup>b</sup> |  |  |
| g | d |  | 3 | word |

A caption

A note

<sup>a</sup> two

<sup>b</sup> one
)");
}

TEST(MarkdownReport, WritesItemsOfEachKind) {
    document::Heading heading{test::MakeText("Means"), {}};
    heading.fItems.push_back({test::SketchTable("title No_cells")});
    document::Chart chart;
    chart.fTemplate = "Chart.xml";
    chart.fDescription = "A [chart]";
    chart.fPicture.fSentence = "Points: 3.";
    heading.fItems.push_back({chart});
    document::Document document;
    document.fTitle = "Models";
    document.fItems.push_back({std::move(heading)});
    document.fItems.push_back({document::Message{test::MakeText("Careful"), 2, 2}});
    const std::string begin = "# Models\n\n## Means\n\n**No cells**\n\nThis table has no cells.\n";
    const std::string end = "\n> **Warning:** Careful\n";
    EXPECT_EQ(MakeMarkdownReport(document, {}), begin + end);
    EXPECT_EQ(MakeMarkdownReport(document, {{}, {}, "my <charts>"}),
              begin + "\n**A \\[chart\\]**\n\n![Points: 3.](<my \\<charts\\>/Chart-1.svg>)\n" + end);
    EXPECT_EQ(MakeMarkdownReport(document, {"Mine", "1. Me", {}}).substr(0, 17), "# Mine\n\n1\\. Me\n\n#");
    document.fvDiagnostics = {{2, "*Two*\nlines", {}}, {3, "Bad", {}}};
    EXPECT_EQ(MakeMarkdownReport(document, {}),
              begin + end + "\n## Diagnostics\n\n- **Warning:** \\*Two\\*<br>lines\n- **Error:** Bad\n");
}

}  // namespace

}  // namespace hierfit::report::markdown
