#include <array>

#include "Documents.h"

namespace hierfit::test {

namespace {

using document::Item;
using document::Side;
using document::Table;

Table MakeFixedCoefficients() {
    Table table = MakeTable(
        "Fixed Coefficients",
        {MakeDimension("Model Term", Side::Rows, 1, {"Intercept", "period=1", "period=2", "period=3", "period=4"}),
         MakeDimension("", Side::Columns, 1,
                       {"Coefficient", "Std. Error", "t", "Sig.", "95% Confidence Interval|Lower",
                        "95% Confidence Interval|Upper"})},
        {"-2.978", "0.5123", "-5.812", "<.001",  "-4.006", "-1.950", "1.580",  "0.4321", "3.656",    ".001",
         "0.713",  "2.447",  "0.588",  "0.4511", "1.304",  ".198",   "-0.317", "1.493",  "3.21E-05", "0.4701",
         "0.000",  ".999",   "-0.943", "0.943",  "0.000",  ".",      ".",      ".",      ".",        "."});
    table.fvNotes.push_back(Words("Target: Number of new serological cases/Herd size"));
    const auto redundant = Words("This coefficient is set to zero because it is redundant.");
    table.fvCells[24].fvNotes.push_back(redundant);
    table.fvCells[25].fvNotes.push_back(redundant);
    auto& last = std::get<document::Category>(table.fvDimensions[0].fMembers.back().fContent);
    last.fvNotes = {redundant, Words("Reference category.\nThe last one in ascending order.")};
    return table;
}

Table MakeClassification() {
    Table table = MakeTable("Classification",
                            {MakeDimension("Observed", Side::Rows, 2, {"No", "Yes"}),
                             MakeDimension("", Side::Rows, 1, {"Count", "% within Observed"}),
                             MakeDimension("Predicted", Side::Columns, 1, {"No", "Yes"})},
                            {"12", "31", "27.9%", "72.1%", "9", "168", "5.1%", "94.9%"});
    table.fTitle = Words("Classification (overall percent correct = 81.8%)");
    return table;
}

Item MakeMessage(int level, const std::string& words) { return {document::Message{Words(words), 2, level}}; }

Item MakeChart(const std::string& description, const std::string& file) {
    document::ChartShown shown{description, {{{description, "Mean"}, 1, {{description, "1.50"}, {"", "."}}}}};
    return {document::Chart{description, {}, 2, file, description, {}, {}, "", std::move(shown)}};
}

document::Document MakeReport() {
    const Item chart = MakeChart("Random Effect Covariances", "GLMMCovariances.viztemplate");
    std::list<Item> items{{MakeClassification()}};
    items.push_back({document::Heading{Words("Fixed Effects"), {{MakeFixedCoefficients()}}}});
    items.push_back({document::Heading{Words("Random Effects"), {{document::Heading{Words("Block 1"), {chart}}}}}});
    for (const int level : {1, 2, 3}) items.push_back(MakeMessage(level, "The estimated means of herd are not shown."));
    document::Document document = MakeDocument("Generalized Linear Mixed Models", std::move(items));
    document.fvDiagnostics = {{2, "A covariance block without groups was left out.", document::Place{1, 41, 7}},
                              {1, "The field \"herd\" has no label.", {}}};
    return document;
}

std::vector<std::string> MakeHostileLabels() {
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

// A label wherever a document has room for one.
Item MakeHostileSection(const std::string& label) {
    Table table = MakeTable(label,
                            {MakeDimension(label, Side::Rows, 1, {label}),
                             MakeDimension(label, Side::Columns, 2, {label + "|" + label, label + "|other"}),
                             MakeDimension(label, Side::Columns, 1, {label})},
                            {"?", "?"});
    table.fvCaptions.push_back(Words(label));
    table.fvNotes.push_back(Words(label));
    table.fvCells.front().fContent = Words(label);
    table.fvCells.front().fvNotes.push_back(Words(label));
    table.fvCells.back().fContent = Number(label);
    return {document::Heading{Words(label), {{std::move(table)}, MakeMessage(2, label), MakeChart(label, label)}}};
}

document::Document MakeHostile() {
    const std::vector<std::string> labels = MakeHostileLabels();
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

std::vector<std::string> CountUp(const std::string& word, int count) {
    std::vector<std::string> labels;
    for (int number = 1; number <= count; ++number) labels.push_back(word + std::to_string(number));
    return labels;
}

std::vector<std::string> MakeFigures(int count) {
    static constexpr std::array kTails{"", ".5", ".25", ".125"};
    std::vector<std::string> figures;
    for (int index = 0; index < count; ++index) {
        figures.push_back(std::to_string(index * 37 % 1001) + kTails[static_cast<std::size_t>(index / 3) % 4]);
    }
    return figures;
}

document::Document MakeWide() {
    const Table table = MakeTable("Covariance Parameter Estimates Covariances",
                                  {MakeDimension("Parameter", Side::Rows, 1, CountUp("UN ", 30)),
                                   MakeDimension("", Side::Columns, 1, CountUp("UN ", 30))},
                                  MakeFigures(900));
    return MakeDocument("Wide table", {{table}});
}

document::Document MakeLong() {
    const Table table =
        MakeTable("Estimated Means",
                  {MakeDimension("Cask", Side::Rows, 1, CountUp("batch ", 300)),
                   MakeDimension("", Side::Columns, 1, {"Mean", "Std. Error", "Interval|Lower", "Interval|Upper"})},
                  MakeFigures(1200));
    return MakeDocument("Long table", {{table}});
}

document::Document MakeNested() {
    const std::vector<std::string> labels{"Deep|Deeper|First", "Deep|Deeper|Second", "Deep|Third", "Shallow",
                                          "Other|Last"};
    const Table table = MakeTable(
        "Nested",
        {MakeDimension("Outer rows", Side::Rows, 2, labels), MakeDimension("Inner rows", Side::Rows, 1, {"A", "B"}),
         MakeDimension("Outer columns", Side::Columns, 2, labels),
         MakeDimension("Inner columns", Side::Columns, 1, {"X", "Y"})},
        MakeFigures(100));
    std::list<Item> items{{table}};
    for (int depth = 0; depth < 8; ++depth) {
        std::list<Item> outer{{document::Heading{Words("Nested heading"), std::move(items)}}};
        items = std::move(outer);
    }
    return MakeDocument("Nested headers", std::move(items));
}

document::Document MakeBare() {
    Table table = MakeTable("No cells", {MakeDimension("Rows", Side::Rows, 1, {"A"})}, {});
    table.fvNotes.push_back(Words("A note all the same."));
    return MakeDocument("", {{table}, {MakeTable("One cell", {}, {"1"})}, {document::Heading{Words(""), {}}}});
}

}  // namespace

std::vector<Sample> MakeSamples() {
    return {{"report", MakeReport()}, {"hostile", MakeHostile()}, {"wide", MakeWide()},
            {"long", MakeLong()},     {"nested", MakeNested()},   {"bare", MakeBare()}};
}

}  // namespace hierfit::test
