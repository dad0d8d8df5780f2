#include "report/text/TextReport.h"

#include "report/text/VisibleText.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

// Of each case the sketch of a table, an empty line, and what is printed.
struct TableCase {
    const char* fName;
    int fWidth;
    std::string fText;

    document::Table MakeTable() const { return test::SketchTable(fText.substr(0, fText.find("\n\n"))); }
};

// What the examples hold is in their outputs; here are limits and what is rare.
const TableCase kTables[] = {
    {"columns in blocks, parted between groups", 29, R"(
title Wide
caption A_caption_that_needs_more_than_one_line_of_such_a_width.
rows 1 Term : Intercept age
columns 1 -name S : Estimate Interval::Lower Interval::Upper Sig.
cells 1.000*A_note_of_more_than_one_line,_too,_behind_its_letter. 2.0 3.0 ~ ~ ~ ~ .031

Wide
───────────────────
Term       Estimate
───────────────────
Intercept  1.000[a]
age
───────────────────

─────────────────────────────
             Interval
           ────────────
Term       Lower  Upper  Sig.
─────────────────────────────
Intercept    2.0    3.0
age                      .031
─────────────────────────────
A caption that needs more
than one line of such a
width.
a. A note of more than one
   line, too, behind its
   letter.
)"},
    {"then a narrow gap, then row labels wrapped, beside the rows that they cover", 46, R"(
title Closer
rows 1 Term : Threshold_of_all_=::low Threshold_of_all_=::high Infl=Low/Type=Apartment
columns 1 -name S : Coefficient Sig. Interval::Lower Interval::Upper
cells 1.5 .001 0.5 2.5 2.5 .010 1.5 3.5 3.5 ~ 2.5 4.5

Closer
──────────────────────────────────────────────
                                    Interval
                                   ───────────
Term              Coefficient Sig. Lower Upper
──────────────────────────────────────────────
Threshold of low          1.5 .001   0.5   2.5
all =        high         2.5 .010   1.5   3.5
Infl=Low/                 3.5        2.5   4.5
Type=Apartment
──────────────────────────────────────────────
)"},
    {"no cells", 0, R"(
title Nothing
note Target
rows 1 R : a

Nothing
Target
)"},
    {"a group parted all the same, since it is wider than the room", 24, R"(
title Wide
rows 1 Term : a
columns 1 -name S : x Confidence_Interval::Lower-bound Confidence_Interval::Upper-bound
cells 1 2 3

Wide
───────
Term  x
───────
a     1
───────

─────────────────
      Confidence
       Interval
      ───────────
Term  Lower-bound
─────────────────
a               2
─────────────────

─────────────────
      Confidence
       Interval
      ───────────
Term  Upper-bound
─────────────────
a               3
─────────────────
)"},
};

std::string Print(const document::Table& table, int width) {
    document::Document document;
    document.fItems.push_back({table});
    return report::MakeTextReport(document, {width, false});
}

TEST(TextReport, PrintsTables) {
    for (const TableCase& test : kTables) {
        const std::string expected = test.fText.substr(test.fText.find("\n\n") + 2);
        EXPECT_EQ(Print(test.MakeTable(), test.fWidth), expected) << test.fName;
    }
}

document::Item MakeMessage(const char* words, int level) {
    return {document::Message{test::MakeText(words), 2, level}};
}

document::Document MakeDocument() {
    document::Document document;
    document.fTitle = "Mixed Models";
    document.fvSources = {"model.pmml", "model.statxml"};
    document::Heading inner{test::MakeText("Inner"), {MakeMessage("Not\nestimated.", 2)}};
    document::Heading outer{test::MakeText("Outer"), {{test::SketchTable("title T\ncells 1.5")}, {inner}}};
    document.fItems = {MakeMessage("First.", 1), {outer}, MakeMessage("Last.", 3)};
    document.fvDiagnostics = {
        {1, "noted", {}}, {2, "left out", document::Place{1, 41, 7}}, {3, "lost", document::Place{9, 1, 1}}};
    return document;
}

TEST(TextReport, PrintsDocuments) {
    EXPECT_EQ(report::MakeTextReport(MakeDocument(), {}), R"(Mixed Models
════════════

Information: First.

Outer
━━━━━

T
───
1.5
───

Inner
━━━━━

Warning: Not
         estimated.

Error: Last.

Diagnostics
━━━━━━━━━━━
Information: noted
Warning: left out (model.statxml:41:7)
Error: lost (?:1:1)
)");
    EXPECT_EQ(report::MakeTextReport({}, {}), "");
}

struct ChartCase {
    std::vector<document::ChartTable> fvTables;
    int fWidth;
    std::string fText;
};

std::vector<std::vector<std::string>> RepeatRow(std::size_t rows) { return {rows, {"1"}}; }

const std::string kTwentyRows = "\n─\nX\n─\n" + test::Repeated("1\n", 20) + "─\n";

TEST(TextReport, PrintsTheTablesOfCharts) {
    const ChartCase cases[] = {
        {{{{"X"}, 0, RepeatRow(21)}}, 0, kTwentyRows + "... and 1 more row\n"},
        {{{{"X"}, 0, RepeatRow(50)}}, 0, kTwentyRows + "... and 30 more rows\n"},
        // Each block repeats the keys. Rows of equal keys stay two, in their order.
        {{{{"K", "L", "Mean", "Text"},
           2,
           {{"b", "10", "1.5", "long words"}, {"a", "9", "2", "words"}, {"b", "10", ".", ""}}}},
         16,
         R"(
───────────
K  L   Mean
───────────
b  10   1.5
a  9    2
b  10    .
───────────

────────────
K  L   Text
────────────
b  10  long
       words
a  9   words
b  10
────────────
)"},
        {{{{"Node", "Sign"}, 1, {{"\x1B", "+"}}}, {{"No rows", "N"}, 1, {}}, {{"", "N"}, 1, {{"0 to 9", "7"}}}}, 0, R"(
──────────
Node  Sign
──────────
␛     +
──────────

─────────
        N
─────────
0 to 9  7
─────────
)"},
    };
    for (const ChartCase& test : cases) {
        document::Document document;
        document::Chart chart{};
        chart.fPicture.fvTables = test.fvTables;
        document.fItems = {{chart}};
        EXPECT_EQ(report::MakeTextReport(document, {test.fWidth, false, true}), "Chart: \n" + test.fText);
        EXPECT_EQ(report::MakeTextReport(document, {test.fWidth, false}), "Chart: \n");
    }
}

TEST(TextReport, ColoursChangeNothingElse) {
    std::string text = report::MakeTextReport(MakeDocument(), {0, true});
    EXPECT_NE(text.find("\x1B[33mWarning: \x1B[0m"), std::string::npos);
    for (std::size_t at = 0; (at = text.find('\x1B', at)) != std::string::npos;)
        text.erase(at, text.find('m', at) + 1 - at);
    EXPECT_EQ(text, report::MakeTextReport(MakeDocument(), {}));
}

TEST(TextReport, ShowsWhatATerminalWouldObey) {
    EXPECT_EQ(
        Print(test::SketchTable("title T\x1B[2J\nrows 1 -name R : \u202Ea\ncolumns 1 -name S : 身長\ncells é\a"), 0),
        R"(T␛[2J
───────────────
           身長
───────────────
\u{202E}a  é␇
───────────────
)");
}

// Every line fits, as long as one column and its row labels can.
TEST(TextReport, KeepsToTheWidth) {
    const document::Table table = kTables[0].MakeTable();
    for (int width = 24; width < 60; ++width) {
        for (const std::string& line : report::SplitLines(Print(table, width))) {
            EXPECT_LE(report::MeasureWidth(line), width) << line;
        }
    }
}

}  // namespace
}  // namespace hierfit
