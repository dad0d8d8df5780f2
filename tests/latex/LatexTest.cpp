#include "report/latex/LatexReport.h"

#include <algorithm>
#include <string_view>

#include "report/latex/Figure.h"
#include "report/latex/LatexTable.h"
#include "report/latex/LatexText.h"
#include "tests/support/ExampleFile.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report::latex {

namespace {

std::size_t Count(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
    return count;
}

std::string WriteTable(std::string_view sketch, Page page = Page::Own, std::string_view word = "@") {
    std::string out;
    Needs needs;
    needs.fPage = page;
    AppendTable(out, test::SketchTable(sketch, word), "A & B", "T-1", needs);
    return out;
}

/// The lines from one to another, the latter left out.
std::string Between(const std::string& text, const std::string& first, const std::string& end) {
    const std::size_t at = text.find(first);
    return at == text.npos ? "" : text.substr(at, text.find(end, at) - at);
}

TEST(LatexText, IsNoMarkup) {
    const struct {
        const char* fText;
        const char* fMarkup;
    } cases[] = {
        {"a & b % c $ d # e_f", "a \\& b \\% c \\$ d \\# e\\_f"},
        {"{x} ~ ^ \\", "\\{x\\} \\textasciitilde{} \\textasciicircum{} \\textbackslash{}"},
        {"\"it's\" `so`",
         "\\textquotedbl{}it\\textquotesingle{}s\\textquotedbl{} \\textasciigrave{}so\\textasciigrave{}"},
        {"[a] *b <c> |", "{[}a] {*}b \\textless{}c\\textgreater{} \\textbar{}"},
        {"a--b---c ,, -", "a-{}-b-{}-{}-c ,{}, -"},
        {"\u22121.5 \u2265 2 \u00B1 \u03C3\u00B2 \u2013",
         "\\textminus{}1.5 \\ensuremath{\\geq} 2 \u00B1 \u03C3\u00B2 \u2013"},
        {"a\u00A0b\tc\rd", "a~b c d"},
        {"\x1B[0m \u202E \x7F",
         "\\textbackslash{}u\\{1B\\}{[}0m \\textbackslash{}u\\{202E\\} \\textbackslash{}u\\{7F\\}"},
        {"\xFF", "\uFFFD"},
        {"two\nlines", "two\\newline{}lines"},
        {"heteroscedasticity a", "heterosced\\allowbreak{}asticity a"},
        {"[nitro=0.2]*[Variety=x]", "{[}nitro=\\allowbreak{}0.2]\\allowbreak{}{*}{[}Variety=\\allowbreak{}x]"},
    };
    for (const auto& test : cases) {
        std::string out;
        Scripts scripts;
        AppendText(out, test.fText, kCell, scripts);
        EXPECT_EQ(out, test.fMarkup);
    }
}

/// The scripts by their first letters.
std::string Spell(const Scripts& scripts) {
    return std::string(scripts.fHasGreek ? "g" : "") + (scripts.fHasHebrew ? "h" : "") +
           (scripts.fHasArabic ? "a" : "") + (scripts.fHasOthers ? "o" : "");
}

TEST(LatexText, TellsScriptsAndTurnsParagraphsThatBeginSo) {
    const struct {
        const char* fText;
        const char* fMarkup;
        const char* fScripts;
    } cases[] = {
        {"caf\u00E9 \u2013 \u20AC", "caf\u00E9 \u2013 \u20AC", ""},
        {"\u03C3", "\u03C3", "g"},
        {"\u6F22", "\u6F22", "o"},
        {"\u05D0 (12), a", "\\foreignlanguage{hebrew}{\u05D0 (12), a}", "h"},
        {"1 \u0627", "\\foreignlanguage{arabic}{1 \u0627}", "a"},
        {"a \u05D0", "a \u05D0", "h"},
        {"\u200Fa - b", "\u200Fa - b", ""},
    };
    for (const auto& [text, markup, spelt] : cases) {
        std::string out;
        Scripts scripts;
        AppendText(out, text, kProse, scripts);
        EXPECT_EQ(out, markup);
        EXPECT_EQ(Spell(scripts), spelt) << text;
    }
}

TEST(LatexText, BoxesWhatIsWrittenFromRightToLeft) {
    for (const bool isParagraph : {true, false}) {
        std::string out = "| ";
        Scripts scripts;
        AppendText(out, "a \u05D0", isParagraph ? kCell : kLine, scripts);
        AppendText(out, "b", kLine, scripts);
        EXPECT_EQ(out, isParagraph ? "| a \u05D0b" : "| a \\mbox{\u05D0}b");
    }
}

TEST(LatexText, NamesFolders) {
    std::string out;
    AppendPath(out, "my_100%#1 \\charts}");
    EXPECT_EQ(out,
              "\\detokenize{my_100}\\csname c_percent_str\\endcsname\\csname c_hash_str\\endcsname"
              "\\detokenize{1 }\\csname c_backslash_str\\endcsname\\detokenize{charts}"
              "\\csname c_right_brace_str\\endcsname");
    for (const char* told : {"", "a b", "\u05D0~$&_^"}) EXPECT_TRUE(IsPath(told)) << told;
    for (const char* none : {" a", "a  b", "a\tb", "a\n", "\"a\"", "a\xFF", "\x7F"}) EXPECT_FALSE(IsPath(none)) << none;
}

TEST(LatexFigure, TakesFormatFromColumn) {
    const struct {
        std::vector<const char*> fvWords;
        const char* fColumn;
        const char* fCells;  ///< parted by blanks
    } cases[] = {
        {{"12.50", "\u2212103.1", "-0.5"}, "S[table-format=-3.2]", "12.50 -103.1 -0.5"},
        {{"<.001", ".254", "> .999", "1.000"},
         "S[table-format=<1.3,print-zero-integer=false]",
         "<.001 .254 >.999 1.000"},
        {{".51", "0.49"},
         "S[table-format=1.2]",
         "\\multicolumn{1}{S[table-format=1.2,print-zero-integer=false]@{}}{.51} 0.49"},
        {{"1.5e-05", "2E+3"}, "S[table-format=1.1e-1]", "1.5e-5 2e3"},
        {{"743", "47.4%"},
         "S[table-format=3.1,table-align-text-after=false,table-space-text-post={\\%}]",
         "743 47.4{\\%}"},
    };
    for (const auto& test : cases) {
        FigureColumn column;
        for (const char* words : test.fvWords) column.Add(ReadFigure(words).value());
        EXPECT_EQ(column.Spell(), test.fColumn);
        std::string cells;
        for (const char* words : test.fvWords) {
            if (!cells.empty()) cells += ' ';
            column.AppendCell(cells, ReadFigure(words).value(), {}, "@{}");
        }
        EXPECT_EQ(cells, test.fCells);
    }
    for (const char* words : {"", ".", "-", "NaN", "1.5.2", "12 a", "1e", "5%%"})
        EXPECT_FALSE(ReadFigure(words)) << words;
}

TEST(LatexTable, SpansAndMarksAndAligns) {
    const std::string table = WriteTable(R"(
title T
caption A_caption
note A_note
rows 1 Term : plain g::c*one g::d
columns 1 -name S : Est ci::Low*two ci::High Kind
cells plain,Est=-1.25*one*three plain,ci::Low=. g::c,Est=12 g::d,ci::Low=3 g::d,ci::High=4 g::d,Kind=word)");
    EXPECT_EQ(Between(table, "\\begin{threeparttable}", "\\end{table}"), R"(\begin{threeparttable}
\caption{A \& B}\label{tab:T-1}
\sisetup{group-digits=none}
\begin{tabular*}{0.6\linewidth}{@{\extracolsep{\fill}}llS[table-format=-2.2,table-align-text-after=false,table-space-text-post={\tnote{b,c}}]S[table-format=1]S[table-format=1]l@{}}
\toprule
 &  &  & \multicolumn{2}{c}{ci} &  \\
\cmidrule(lr){4-5}
\multicolumn{2}{@{}l}{Term} & {Est} & {Low\tnote{a}} & {High} & Kind \\
\midrule
\multicolumn{2}{@{}l}{plain} & -1.25{\tnote{b,c}} & {.} &  &  \\
\addlinespace
g & c\tnote{b} & 12 &  &  &  \\
 & d &  & 3 & 4 & word \\
\bottomrule
\end{tabular*}
\begin{tablenotes}[flushleft]
\footnotesize\raggedright\labelsep=0pt
\item[] A caption
\item[] A note
\item[a]\,two
\item[b]\,one
\item[c]\,three
\end{tablenotes}
\end{threeparttable}
)");
}

TEST(LatexTable, FitsThePage) {
    const auto makeSketch = [](int columns, int rows) {
        std::string sketch = "title T\nrows 1 R :";
        for (int row = 0; row < rows; ++row) sketch += " Row_" + std::to_string(row);
        sketch += "\ncolumns 1 -name C :";
        for (int column = 0; column < columns; ++column) {
            sketch += " g" + std::to_string(column / 3) + "::Column" + std::to_string(column);
        }
        sketch += "\ncells";
        for (int cell = 0; cell < rows * columns; ++cell) sketch += " 1000.125";
        return sketch;
    };
    const struct {
        int fColumns;
        int fRows;
        std::size_t fFloats, fSmall, fSideways, fLong, fLandscapes, fContinued;
    } cases[] = {
        {3, 5, 1, 0, 0, 0, 0, 0},  {7, 5, 1, 1, 0, 0, 0, 0},   {11, 5, 0, 1, 1, 0, 0, 0},
        {30, 5, 5, 5, 0, 0, 0, 4}, {3, 100, 0, 0, 0, 1, 0, 1}, {11, 100, 0, 1, 0, 1, 1, 1},
    };
    for (const auto& test : cases) {
        const std::string table = WriteTable(makeSketch(test.fColumns, test.fRows));
        SCOPED_TRACE(std::to_string(test.fColumns) + " times " + std::to_string(test.fRows));
        EXPECT_EQ(Count(table, "\\begin{table}"), test.fFloats);
        EXPECT_EQ(Count(table, "\\footnotesize\\setlength"), test.fSmall);
        EXPECT_EQ(Count(table, "\\begin{sidewaystable}"), test.fSideways);
        EXPECT_EQ(Count(table, "\\begin{longtable}"), test.fLong);
        EXPECT_EQ(Count(table, "\\begin{landscape}"), test.fLandscapes);
        EXPECT_EQ(Count(table, "(continued)"), test.fContinued);
        EXPECT_EQ(Count(table, "\\addtocounter{table}{-1}"), test.fContinued - test.fLong);
        EXPECT_EQ(Count(table, "\\label{tab:T-1}"), 1U);
        EXPECT_EQ(Count(table, "1000.125"), static_cast<std::size_t>(test.fColumns * test.fRows));
        EXPECT_EQ(Count(table, "Column"), static_cast<std::size_t>(test.fColumns) * (test.fLong + 1));
    }
    // Parts keep groups together.
    const std::string parts = WriteTable(makeSketch(30, 1));
    for (int group = 0; group < 10; ++group) EXPECT_EQ(Count(parts, "{g" + std::to_string(group) + "}"), 1U);
}

TEST(LatexTable, PartsHoldTheirOwnColumns) {
    constexpr int kColumns = 30;
    std::string sketch = "title T\nrows 1 R : A B\ncolumns 1 -name C :";
    for (int column = 0; column < kColumns; ++column) sketch += " Column" + std::to_string(10 + column);
    sketch += "\ncells";
    for (int cell = 0; cell < 2 * kColumns; ++cell) sketch += " " + std::to_string(1000 + cell) + ".125";
    std::string rest = WriteTable(sketch);
    int column = 0;
    while (rest.find("\\midrule\n") != rest.npos) {
        const std::string head = rest.substr(0, rest.find("\\midrule\n"));
        rest.erase(0, head.size() + 1);
        std::string first = "A", second = "B";
        const int end = column + static_cast<int>(Count(head, "Column"));
        for (; column < end; ++column) {
            EXPECT_EQ(Count(head, "{Column" + std::to_string(10 + column) + "}"), 1U);
            first += " & " + std::to_string(1000 + column) + ".125";
            second += " & " + std::to_string(1000 + kColumns + column) + ".125";
        }
        EXPECT_EQ(Between(rest, "A &", "\\bottomrule"), first + " \\\\\n" + second + " \\\\\n");
    }
    EXPECT_EQ(column, kColumns);
}

TEST(LatexTable, WrapsLabelsToTheLine) {
    const std::string table = WriteTable("title T\nrows 1 R : @ b\ncolumns 1 -name C : x y\ncells 1 2 3 4", Page::Own,
                                         test::Repeated("word ", 40));
    EXPECT_EQ(Count(table, "\\arraybackslash}p{"), 1U);
    EXPECT_GE(Count(WriteTable("title T\nrows 1 R : @\ncells 1", Page::Own, std::string(80, 'x')), "\\allowbreak{}"),
              6U);
}

TEST(LatexTable, MovesLongTextsBehindIt) {
    const std::string label = test::Repeated("0123456789", 1000);
    const std::string table =
        WriteTable("title T\ncaption @\nrows 1 R : @ b\ncolumns 1 -name C : @ y\ncells 1 2 3 4", Page::Own, label);
    const std::size_t end = table.find("\\end{table}");
    ASSERT_NE(end, table.npos);
    EXPECT_LT(end, 3000U);
    EXPECT_EQ(Count(table.substr(0, end), "\\textsuperscript{"), 2U);  // the caption and the row; headers are cut
    std::string rest = table.substr(end);
    for (std::size_t at; (at = rest.find(kShortLine)) != rest.npos;) rest.erase(at, kShortLine.size());
    EXPECT_GE(Count(rest, label), 2U);

    std::string parted = "title T\nrows 1 R : @\ncolumns 1 -name C :";
    for (int column = 0; column < 30; ++column) parted += " Column" + std::to_string(column);
    const std::string parts = WriteTable(parted + "\ncells" + test::Repeated(" 1000.125", 30), Page::Own, label);
    EXPECT_EQ(Count(parts, "\\textsuperscript{1}"), Count(parts, "\\begin{table}") + 1);
    EXPECT_EQ(Count(parts, "\\textsuperscript{2}"), 0U) << "a part marks the same text by another number";
}

TEST(LatexReport, WritesItemsOfEachKind) {
    document::Heading heading{test::MakeText("Means [1]"), {}};
    heading.fItems.push_back({test::SketchTable("title No_cells\nnote A_note")});
    document::Chart chart;
    chart.fTemplate = "Chart.xml";
    chart.fDescription = "A chart";
    heading.fItems.push_back({chart});
    document::Document document;
    document.fProducer = "hierfit 1";
    document.fTitle = "Models";
    document.fItems.push_back({std::move(heading)});
    document.fItems.push_back({document::Message{test::MakeText("Careful \u03C3"), 2, 2}});
    const std::string figure =
        "\n\\begin{figure}[!htp]\n\\centering\n"
        "\\includegraphics[max width=\\linewidth,max height=0.8\\textheight]{\\detokenize{m-charts}/Chart-1.pdf}\n"
        "\\caption{A chart}\\label{fig:Chart-1}\n\\end{figure}\n";
    const auto make = [&](const std::string& charts, const std::string& graphics) {
        return "% hierfit 1\n"
               "% For a line of 345 pt at 10 pt or a wider one. The document that takes this in needs:\n"
               "%   \\usepackage{array,booktabs,makecell,siunitx,threeparttable}\n"
               "%   \\usepackage{placeins}\n" +
               graphics +
               "% and with pdflatex:\n%   \\usepackage[LGR,T1]{fontenc}\n%   \\usepackage{textalpha}\n"
               "\n\\FloatBarrier\n\\section[{Means {[}1]}]{\\raggedright Means {[}1]}\\label{sec:Means-1-1}\n"
               "\n\\begin{table}[!htp]\n\\centering\n\\begin{threeparttable}\n\\caption{No "
               "cells}\\label{tab:Nocells-1}\n"
               "This table has no cells.\n\\begin{tablenotes}[flushleft]\n\\footnotesize\\raggedright\\labelsep=0pt\n"
               "\\item[] A note\n"
               "\\end{tablenotes}\n\\end{threeparttable}\n\\end{table}\n" +
               charts + "\n\\noindent\\textbf{Warning:} Careful \u03C3\n";
    };
    EXPECT_EQ(MakeLatexReport(document, {}), make("", ""));
    EXPECT_EQ(MakeLatexReport(document, {{}, {}, "m-charts", false}),
              make(figure, "%   \\usepackage{graphicx}\n%   \\usepackage[export]{adjustbox}\n"));
    const std::string whole = MakeLatexReport(document, {"A_B", "C&D", {}, true});
    EXPECT_NE(whole.find("\\title{A\\_B}\n\\author{C\\&D}\n"), whole.npos);
    EXPECT_NE(whole.find("\\pdfextension info{ /Title <FEFF0041005F0042> /Author <FEFF004300260044> }\n"), whole.npos);
    EXPECT_TRUE(whole.ends_with("\n\\end{document}\n"));
    EXPECT_NE(MakeLatexReport(document, {"\U0001D4B3", {}, {}, true}).find(" /Title <FEFFD835DCB3> }\n"), whole.npos);
}

TEST(LatexReport, AsksForAsManyFloatsAsItHasStepByStep) {
    document::Document document;
    for (int chart = 0; chart < 1100; ++chart) document.fItems.push_back({document::Chart{}});
    EXPECT_NE(MakeLatexReport(document, {{}, {}, "c", true})
                  .find("\\extrafloats{500}\n\\extrafloats{500}\n\\extrafloats{100}\n\\maxdeadcycles=1100\n"),
              std::string::npos);
}

TEST(LatexReport, TellsDiagnosticsInPrintOrInComments) {
    document::Document document;
    document.fvDiagnostics = {{2, "50 % & more\n\\input{x}", {}}, {3, "Bad", {}}};
    EXPECT_TRUE(MakeLatexReport(document, {})
                    .ends_with("\n% Diagnostics:\n% Warning: 50 % & more\n% \\input{x}\n% Error: Bad\n"));
    EXPECT_TRUE(MakeLatexReport(document, {{}, {}, {}, true})
                    .ends_with("\n\\section*{Diagnostics}\n\n\\noindent\\textbf{Warning:} 50 \\% \\& more\\newline{}"
                               "\\textbackslash{}input\\{x\\}\n\n\\noindent\\textbf{Error:} Bad\n\n\\end{document}\n"));
    document.fvDiagnostics.clear();
    document.fItems.push_back({document::Chart{}});
    const std::string without = MakeLatexReport(document, {{}, {}, "a\n b", false});
    EXPECT_EQ(without.find("figure"), without.npos);
    EXPECT_TRUE(
        without.ends_with("\n% Diagnostics:\n% Warning: Charts are left out, since TeX cannot be told the name of "
                          "their folder: a\n%  b\n"));
}

TEST(LatexReport, ShowsHighPicturesSmaller) {
    const struct {
        int fLines;
        std::string fHeight;
    } cases[] = {{1, "max height=0.8\\textheight"}, {22, "max height=341pt"}};
    for (const auto& [lines, height] : cases) {
        document::Chart chart;
        chart.fPicture.fTitle = test::Repeated("A line\n", lines);
        document::Document document;
        document.fItems.push_back({chart});
        EXPECT_EQ(Between(MakeLatexReport(document, {{}, {}, "c", false}), "max height", "]"), height);
    }
}

}  // namespace

}  // namespace hierfit::report::latex
