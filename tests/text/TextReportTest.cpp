#include "report/text/TextReport.h"

#include "report/text/VisibleText.h"
#include "tests/support/TableSketch.h"

namespace hierfit {
namespace {

struct TableCase {
    const char* fName;
    int fWidth;
    const char* fTable;
    const char* fText;
};

const TableCase kTables[] = {
    {"numbers by their decimal signs, groups above their columns", 0, R"(
title Fixed_Coefficients
caption Probability_distribution:_Normal
note Target:_distance
rows 1 Model_Term : Intercept age Sex:F
columns 1 -name Statistics : Coefficient Std._Error Sig. 95%_Confidence_Interval(Lower+Upper)
cells Intercept,Coefficient=#16.341 Intercept,Std._Error=#.9813 Intercept,Sig.=#<.001 Intercept,Lower=#14.395
cells Intercept,Upper=#18.287 age,Coefficient=#-0.784 age,Std._Error=#1.23e-05 age,Sig.=#.025 age,Lower=#0.630
cells age,Upper=#0.938 Sex:F,Coefficient=#0*Set_to_zero. Sex:F,Std._Error=#. Sex:F,Sig.=#. Sex:F,Lower=#.
)",
     R"(
Fixed Coefficients
───────────────────────────────────────────────────────────────────
                                            95% Confidence Interval
                                            ───────────────────────
Model Term  Coefficient  Std. Error   Sig.       Lower        Upper
───────────────────────────────────────────────────────────────────
Intercept        16.341     .9813    <.001      14.395       18.287
age              -0.784    1.23e-05   .025       0.630        0.938
Sex:F             0[a]      .         .           .
───────────────────────────────────────────────────────────────────
Probability distribution: Normal
Target: distance
a. Set to zero.
)"},
    {"texts and numbers in one column, row groups, a label over two levels, lines in a cell", 0, R"(
title Model_Summary
rows 1 -name Content : Target Information_Criterion(Akaike+Bayesian)
cells Target=Reaction_time|(ms) Akaike=#1756.114 Bayesian=#98.5
)",
     R"(
Model Summary
──────────────────────────────────────────────
Target                           Reaction time
                                 (ms)
Information Criterion  Akaike    1756.114
                       Bayesian    98.5
──────────────────────────────────────────────
)"},
    {"names of dimensions, whole numbers and percentages", 0, R"(
title Classification
rows 2 Observed : low high
rows 1 -name Statistics : Count %
columns 1 Predicted : low high
cells low,Count,low=#273 low,%,low=#48.1% low,Count,high=#20 low,%,high=#3.5% high,Count,low=#. high,Count,high=#1234
)",
     R"(
Classification
────────────────────────────────
                    Predicted
                 ───────────────
Observed            low     high
────────────────────────────────
low       Count  273       20
          %       48.1%     3.5%
high      Count     .    1234
────────────────────────────────
)"},
    {"a missing number stands below the units", 0, R"(
rows 1 -name R : a b
columns 1 -name S : df Value
cells a,df=#12 b,df=#. a,Value=#1.5 b,Value=#.
)",
     R"(

────────────
   df  Value
────────────
a  12    1.5
b   .     .
────────────
)"},
    {"no row labels, and a header that would be wider than its numbers", 0, R"(
title Grand_Mean
columns 1 -name S : Mean Adjusted_significance_level Interval_of_the_estimated_marginal_mean(Lower)
cells Mean=#23.780 Adjusted_significance_level=#.002 Lower=#1
)",
     R"(
Grand Mean
─────────────────────────────────────
                      Interval of the
                         estimated
                       marginal mean
                      ───────────────
            Adjusted
        significance
  Mean         level            Lower
─────────────────────────────────────
23.780          .002                1
─────────────────────────────────────
)"},
    {"no cells", 0, R"(
title Nothing
note Target
rows 1 R : a
)",
     R"(
Nothing
Target
)"},
    {"one column without headers", 0, R"(
title One
rows 1 Name : a
cells a=x
)",
     R"(
One
───────
Name
───────
a     x
───────
)"},
    {"columns in blocks, parted between groups", 30, R"(
title Wide
caption A_caption_that_needs_more_than_one_line_of_such_a_width.
rows 1 Term : Intercept age
columns 1 -name S : Estimate Interval(Lower+Upper) Sig.
cells Intercept,Estimate=#1.000*A_note_of_more_than_one_line,_too,_behind_its_letter. Intercept,Lower=#2.0
cells Intercept,Upper=#3.0 age,Sig.=#.031
)",
     R"(
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
A caption that needs more than
one line of such a width.
a. A note of more than one
   line, too, behind its
   letter.
)"},
    {"a group parted all the same, since it is wider than the room", 24, R"(
title Wide
rows 1 Term : a
columns 1 -name S : x Confidence_Interval(Lower_bound+Upper_bound+Middle)
cells a,x=#1 a,Lower_bound=#2 a,Upper_bound=#3 a,Middle=#4
)",
     R"(
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
Term  Lower bound
─────────────────
a               2
─────────────────

─────────────────
      Confidence
       Interval
      ───────────
Term  Upper bound
─────────────────
a               3
─────────────────

────────────
      Confidence
      Interval
      ──────
Term  Middle
────────────
a          4
────────────
)"},
    {"labels and texts in a narrow room", 40, R"(
title Narrow
rows 1 -name R : Infl=Low/Type=Apartment a_label_of_many_words
columns 1 -name S : v
cells #0,v=a_text_that_is_longer_than_the_room_for_it #1,v=x
)",
     R"(
Narrow
──────────────────────────────────────
                       v
──────────────────────────────────────
Infl=Low/              a text that is
Type=Apartment         longer than the
                       room for it
a label of many words  x
──────────────────────────────────────
)"},
};

std::string Print(const document::Table& table, int width) {
    document::Document document;
    document.fItems.push_back({table});
    return report::MakeTextReport(document, {width, false});
}

TEST(TextReport, PrintsTables) {
    for (const TableCase& test : kTables) {
        EXPECT_EQ(Print(test::SketchTable(test.fTable), test.fWidth), std::string_view(test.fText).substr(1))
            << test.fName;
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
    document::Heading outer{test::MakeText("Outer"), {{test::SketchTable("title T\ncells =#1.5")}, {inner}}};
    document::Chart chart{};
    chart.fDescription = "Fixed Effects";
    chart.fShown = {"Two\nlines.", {{{"X", "Y"}, 0, {{"a", "1.5"}, {"\x1B", "-10"}}}}};
    document.fItems = {MakeMessage("First.", 1), {outer}, {chart}, MakeMessage("Last.", 3)};
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

Chart: Fixed Effects
Two
lines.

────────
X      Y
────────
a    1.5
␛  -10
────────

Error: Last.

Diagnostics
━━━━━━━━━━━
Information: noted
Warning: left out (model.statxml:41:7)
Error: lost (?:1:1)
)");
    EXPECT_EQ(report::MakeTextReport({}, {}), "");
}

TEST(TextReport, CutsTheValuesOfAChart) {
    const std::pair<std::size_t, std::string> cases[] = {
        {20, ""}, {21, "... and 1 more row\n"}, {50, "... and 30 more rows\n"}};
    for (const auto& [rows, rest] : cases) {
        document::Document document;
        document.fItems = {{document::Chart{}}};
        auto& shown = std::get<document::Chart>(document.fItems.front().fContent).fShown;
        shown = {"", {{{"X"}, 0, std::vector<std::vector<std::string>>(rows, {"1"})}}};
        std::string expected = "Chart: \n\n─\nX\n─\n";
        for (int row = 0; row < 20; ++row) expected += "1\n";
        EXPECT_EQ(report::MakeTextReport(document, {}), expected + "─\n" + rest);
    }
}

std::string PrintShown(std::vector<document::ChartTable> tables, int width) {
    document::Document document;
    document::Chart chart{};
    chart.fDescription = "C";
    chart.fShown.fvTables = std::move(tables);
    document.fItems = {{chart}};
    return report::MakeTextReport(document, {width, false});
}

// Rows of equal keys stay two, in their order.
TEST(TextReport, RepeatsTheKeysOfAChartInEachBlock) {
    const std::vector<std::vector<std::string>> rows = {
        {"b", "10", "1.5", "long words"}, {"a", "9", "2", "words"}, {"b", "10", ".", ""}};
    EXPECT_EQ(PrintShown({{{"K", "L", "Mean", "Text"}, 2, rows}}, 16), R"(Chart: C

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
)");
}

TEST(TextReport, PrintsTheTablesOfAChartBelowOneAnother) {
    EXPECT_EQ(
        PrintShown({{{"Node", "Sign"}, 1, {{"a", "+"}}}, {{"No rows", "N"}, 1, {}}, {{"", "N"}, 1, {{"0 to 9", "7"}}}},
                   0),
        R"(Chart: C

──────────
Node  Sign
──────────
a     +
──────────

─────────
        N
─────────
0 to 9  7
─────────
)");
}

TEST(TextReport, ColoursChangeNothingElse) {
    std::string text = report::MakeTextReport(MakeDocument(), {0, true});
    EXPECT_NE(text.find("\x1B[33mWarning: \x1B[0m"), std::string::npos);
    for (std::size_t at = 0; (at = text.find('\x1B', at)) != std::string::npos;)
        text.erase(at, text.find('m', at) + 1 - at);
    EXPECT_EQ(text, report::MakeTextReport(MakeDocument(), {}));
}

TEST(TextReport, ShowsWhatATerminalWouldObey) {
    EXPECT_EQ(Print(test::SketchTable(
                        "title T\x1B[2J\nrows 1 -name R : \u202Ea\ncolumns 1 -name S : 身長\ncells #0,身長=é\a"),
                    0),
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
    const document::Table table = test::SketchTable(kTables[0].fTable);
    for (int width = 24; width < 90; ++width) {
        for (const std::string& line : report::SplitLines(Print(table, width))) {
            EXPECT_LE(report::MeasureWidth(line), width) << line;
        }
    }
}

}  // namespace
}  // namespace hierfit
