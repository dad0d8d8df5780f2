// Writes the hand-made pages that the browser judges.

#include <filesystem>
#include <fstream>

#include "report/html/HtmlReport.h"
#include "report/index/IndexPage.h"
#include "report/markdown/MarkdownReport.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report {

namespace {

using document::Heading;
using document::Item;
using test::MakeText;
using test::SketchTable;

document::Document MakeDocument(const std::string& title, std::list<Item> items) {
    return {"hierfit 0.1.0", "en", title, {"model.pmml", "model.statxml"}, std::move(items), {}};
}

Item MakeMessage(int level, const std::string& words) { return {document::Message{MakeText(words), 2, level}}; }

document::Chart MakeChart(const std::string& description, document::Picture picture) {
    document::Chart chart{};
    chart.fDescription = description;
    chart.fTemplate = "Chart";
    chart.fPicture = std::move(picture);
    return chart;
}

/// Means of so many levels in two series, each word of it the label.
document::Picture MakeMeans(const std::string& label, int count) {
    document::Picture picture{label, label, label, label, {label}, {}, label, {}};
    picture.fvTables = {{{label, "Mean"}, 1, {{label, "1.50"}, {"", "."}}}};
    document::LevelsPicture means;
    means.fValues.fTitle = means.fPredictor.fTitle = means.fSeries.fTitle = label;
    means.fSeries.fvWords = {"Left " + label, "Right " + label};
    means.fSeries.fHasLegend = true;
    means.fvLevels.assign(static_cast<std::size_t>(count), label);
    for (int mark = 0; mark < 2 * count; ++mark) {
        const double value = 7 * mark % 11;
        const std::string tip = label + "\nMean: " + std::to_string(value) + "\nMark: " + std::to_string(mark);
        means.fvMarks.push_back({{}, mark / 2, mark % 2, value, {}, value - 1, value + 1, false, tip});
    }
    picture.fContent = std::move(means);
    return picture;
}

Item MakeChart(const std::string& label) { return {MakeChart(label, MakeMeans(label, 3))}; }

document::Document MakeCharts() {
    std::list<Item> items{{MakeChart("Means", MakeMeans("Means of dose", 8))},
                          {MakeChart("Few means", MakeMeans("Few", 1))},
                          {MakeChart("Crowd", MakeMeans(std::string(100, 'x'), 1'500))},
                          {MakeChart("Hebrew", MakeMeans("\u05E9\u05DC\u05D5\u05DD (1)", 4))}};
    return MakeDocument("Charts", std::move(items));
}

std::string CountUp(const std::string& word, int count) {
    std::string labels;
    for (int number = 1; number <= count; ++number) labels += ' ' + word + std::to_string(number);
    return labels;
}

std::string MakeFigures(int count) {
    constexpr const char* kTails[] = {"", ".5", ".25", ".125"};
    std::string figures;
    for (int index = 0; index < count; ++index) {
        figures += ' ' + std::to_string(index * 37 % 1001) + kTails[index / 3 % 4];
    }
    return figures;
}

/// A page from right to left, whose labels are of both directions.
document::Document MakeMirrored() {
    const std::string mean = "\u05DE\u05DE\u05D5\u05E6\u05E2";
    document::Table table = SketchTable("title Estimates\nrows 1 @ : 0.2_-_0.4 a+b=1 p_<_.001 " + CountUp("level_", 9) +
                                            "\ncolumns 1 -name S :" + CountUp("@_", 24) + "\ncells" + MakeFigures(288),
                                        mean);
    table.fvCells.front().fContent.fWords = "\u22121.23";
    document::Picture means = MakeMeans(mean, 3);
    std::get<document::LevelsPicture>(means.fContent).fvMarks.front().fTip = mean + " = -2.978";
    document::Document document = MakeDocument(
        mean, {{Heading{MakeText(mean), {{table}, {MakeChart(mean, means)}}}}, MakeMessage(2, "Means are not shown.")});
    document.fLanguage = "he";
    return document;
}

document::Document MakeReport() {
    const document::Table classification = SketchTable(R"(
title Classification
rows 2 Observed : No Yes
rows 1 -name S : Count %_within_Observed
columns 1 Predicted : No Yes
cells 12 31 27.9% 72.1% 9 168 5.1% 94.9%
)");
    document::Table coefficients = SketchTable(R"(
title Fixed_Coefficients
note Target:_Number_of_new_serological_cases/Herd_size
rows 1 Model_Term : Intercept period=1 period=2 period=3 [period=4]*Redundant.*Reference_category.|The_last_one.
columns 1 -name S : Coefficient Std._Error t Sig. 95%_Confidence_Interval::Lower 95%_Confidence_Interval::Upper
cells -2.978 0.5123 -5.812 <.001 -4.006 -1.950 1.580 0.4321 3.656 .001 0.713 2.447
cells 0.588 0.4511 1.304 .198 -0.317 1.493 3.21E-05 0.4701 0.000 .999 -0.943 0.943
cells 0.000*Redundant. .*Redundant. . . . .
)");
    for (document::Cell& cell : coefficients.fvCells) {
        if (cell.fContent.fWords == "<.001") std::get<document::NumberSource>(cell.fContent.fFrom).fNumber = 4.21e-5;
        if (cell.fContent.fWords.front() == '-') cell.fContent.fWords.replace(0, 1, "\u2212");
        for (document::Text& note : cell.fvNotes)
            note.fFrom = document::StringSource{"Redundant coefficient, zero ...", true};
    }
    std::list<Item> items{{classification}, {Heading{MakeText("Fixed Effects"), {{coefficients}}}}};
    items.push_back({Heading{MakeText("Random"), {{Heading{MakeText("Block 1"), {MakeChart("Covariances")}}}}}});
    for (const int level : {1, 2, 3}) items.push_back(MakeMessage(level, "The means of herd are not shown."));
    document::Document document = MakeDocument("Generalized Linear Mixed Models", std::move(items));
    document.fvDiagnostics = {{2, "A covariance block was left out.", document::Place{1, 41, 7}}, {1, "No label.", {}}};
    return document;
}

// A label wherever a document has room for one.
Item MakeHostileSection(const std::string& label) {
    constexpr std::string_view kSketch = R"(
title @
caption @
note @
rows 1 @ : @
columns 2 @ : @::@ @::other
columns 1 @ : @
cells @*@ @
)";
    document::Table table = SketchTable(kSketch, label);
    table.fvCells.back().fContent.fFrom = document::NumberSource{};
    return {Heading{MakeText(label), {{std::move(table)}, MakeMessage(2, label), MakeChart(label)}}};
}

std::vector<std::string> HostileLabels() {
    return {
        "<img src=x onerror=alert(1)>",
        "</script><script>alert(2)</script>",
        "\" onmouseover=\"alert(3)\" x='",
        "&lt;b&gt; &amp; &#60;i&#62;",
        "</td></table><h1>out</h1>",
        "javascript:alert(4)",
        "{{constructor.constructor('alert(5)')()}}",
        "=HYPERLINK(\"x\";\"y\")",
        "\u202Egpj.exe\u202C \u2066isolate",
        "\u05E9\u05DC\u05D5\u05DD (1)",
        std::string("nul\0bell\a\x1B[31mred", 17),
        "two\nlines\ttab  two blanks",
        "broken \xC3( \xF0\x9F UTF-8",
        std::string(10000, 'W'),
        "",
    };
}

document::Document MakeHostile() {
    const std::vector<std::string> labels = HostileLabels();
    document::Document document = MakeDocument(labels[1], {});
    document.fLanguage = "\"><script>";
    document.fProducer = labels[2];
    document.fvSources = labels;
    for (const std::string& label : labels) {
        document.fItems.push_back(MakeHostileSection(label));
        document.fvDiagnostics.push_back({9, label, document::Place{0, 1, 1}});
    }
    document.fvDiagnostics.push_back({-1, "No such source", document::Place{99, 1, 1}});
    return document;
}

document::Document MakeLarge() {
    const std::string sketch = "title Large\nrows 1 Cask :" + CountUp("batch_", 60) +
                               "\ncolumns 1 -name S :" + CountUp("UN_", 30) + "\ncells" + MakeFigures(1800);
    return MakeDocument("Large table", {{SketchTable(sketch)}});
}

document::Document MakeNested() {
    const std::string labels = "Deep::Deeper::First Deep::Deeper::Second Deep::Third Shallow Other::Last";
    const std::string sketch = "title Nested\nrows 2 Outer_rows : " + labels + "\nrows 1 Inner_rows : A B" +
                               "\ncolumns 2 Outer_columns : " + labels + "\ncolumns 1 Inner_columns : X Y\ncells" +
                               MakeFigures(100);
    std::list<Item> items{{SketchTable(sketch)}};
    for (int depth = 0; depth < 8; ++depth) {
        std::list<Item> outer{{Heading{MakeText("Nested heading"), std::move(items)}}};
        items = std::move(outer);
    }
    return MakeDocument("Nested headers", std::move(items));
}

document::Document MakeBare() {
    return MakeDocument("", {{SketchTable("title No_cells\nrows 1 Rows : A\nnote A_note_all_the_same.")},
                             {SketchTable("title One_cell\ncells 1")},
                             {Heading{MakeText(""), {}}}});
}

/// An index of pages that lie beside it.
Index MakeIndex() {
    Index index{"hierfit 0.1.0", {}, {}};
    for (const std::string& label : HostileLabels()) {
        index.fvModels.push_back({"models/" + label, label, "report.html", label, 180, -1756.114, 1774.786, 1});
        index.fvFailures.push_back({label.empty() ? "none" : label, label});
    }
    for (int number = 1; number <= 60; ++number) {
        const std::string name = "models/sleep-" + std::to_string(number);
        index.fvModels.push_back({name, name, "large.html", "Average reaction time (ms)", {}, {}, {}, 0});
    }
    return index;
}

void WriteFile(const std::string& name, const std::string& text) {
    std::ofstream file(HIERFIT_PAGES "/" + name, std::ios::binary);
    file << text;
    EXPECT_TRUE(file.flush()) << name;
}

TEST(Pages, AreWritten) {
    const std::pair<std::string, document::Document> pages[] = {
        {"report", MakeReport()}, {"hostile", MakeHostile()}, {"large", MakeLarge()},   {"nested", MakeNested()},
        {"bare", MakeBare()},     {"charts", MakeCharts()},   {"static", MakeReport()}, {"mirrored", MakeMirrored()}};
    std::filesystem::create_directories(HIERFIT_PAGES);
    for (const auto& [name, document] : pages) {
        WriteFile(name + ".html", MakeHtmlReport(document, {name == "static" ? Scripts::No : Scripts::Yes, "", ""}));
        WriteFile(name + ".md", MakeMarkdownReport(document, {}));
    }
    WriteFile("index.html", MakeIndexPage(MakeIndex(), {}));
    WriteFile("index-empty.html",
              MakeIndexPage({"hierfit 0.1.0", {}, {}}, {Scripts::No, HostileLabels()[1], "A. Author"}));
}

}  // namespace

}  // namespace hierfit::report
