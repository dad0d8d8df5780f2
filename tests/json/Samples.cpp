#include "tests/json/Samples.h"

#include <limits>
#include <utility>

#include "host/SystemMissing.h"

namespace hierfit::test {

using document::Argument;
using document::Category;
using document::Cell;
using document::Chart;
using document::ChartVariable;
using document::Dimension;
using document::Document;
using document::Format;
using document::FormatName;
using document::Group;
using document::Heading;
using document::Item;
using document::kNoCategory;
using document::Member;
using document::Message;
using document::NumberSource;
using document::PatternSource;
using document::Side;
using document::StringSource;
using document::Table;
using document::Text;
using document::ValueSource;
using document::VariableSource;

namespace {

using Limits = std::numeric_limits<double>;

Document MakeEmpty() { return {.fProducer = "hierfit 0.1.0", .fLanguage = "C", .fTitle = "Title"}; }

Text Number(std::string words, double number, Format format) {
    return {std::move(words), NumberSource{number, format}};
}

Text Value(std::string words, std::variant<double, std::string> value, int preference) {
    return {std::move(words), ValueSource{std::move(value), "dose", preference}};
}

Text Pattern(std::string words, std::string pattern, std::vector<Argument> arguments) {
    return {std::move(words), PatternSource{std::move(pattern), true, std::move(arguments)}};
}

/// A table of one row dimension of flat categories, a cell for each text.
Table MakeColumn(std::vector<Text> texts) {
    Dimension dimension{.fName = Plain("Rows"), .fSort = 2};
    Table table{.fSubtype = Plain("Column"), .fTitle = Plain("Column"), .fFlag = false};
    for (int id = 0; Text & text : texts) {
        dimension.fMembers.push_back({Category{id, text, {}}});
        table.fvCells.push_back({{id++}, std::move(text), {}});
    }
    table.fvDimensions.push_back(std::move(dimension));
    return table;
}

Document MakeTexts() {
    std::string ascii;
    for (char character = 1; character < 127; ++character) ascii += character;
    Document document = MakeEmpty();
    document.fTitle = std::string("nul \0 within", 12);
    document.fvSources = {"", "a:b:1", "\u00E4\U0001F600.xml"};
    document.fvDiagnostics = {{1, ascii, std::nullopt},
                              {3, "\u007F\u0080\u009B\u00A0\u2028\uFEFF\uFFFF\U0010FFFF", {{1, 2, 3}}}};
    document.fItems.push_back({MakeColumn({Plain("</script>"),
                                           Value("NaN", "NaN", 0),
                                           Value("i", "Infinity", 1),
                                           Value("-i", "-Infinity", 2),
                                           Value("null", "null", 0),
                                           Value("", "", 0),
                                           {"week", VariableSource{"week", 2}},
                                           {"", VariableSource{"", 0}}})});
    return document;
}

Document MakeNumbers() {
    constexpr double kNumbers[] = {0.0,
                                   -0.0,
                                   1.0,
                                   95.0,
                                   0.1,
                                   1e21,
                                   1e22,
                                   -1e-7,
                                   123456789012345680.0,
                                   5e-324,
                                   Limits::min(),
                                   Limits::max(),
                                   Limits::infinity(),
                                   -Limits::infinity(),
                                   2.0 / 3.0,
                                   9007199254740993.0,
                                   kSystemMissing};
    std::vector<Text> texts;
    for (const double number : kNumbers) {
        texts.push_back(Number("n", number, {FormatName::SigDigit, number}));
        texts.push_back(Value("v", number, 2));
    }
    for (int name = 0; name < static_cast<int>(FormatName::SigDigit); ++name) {
        texts.push_back(Number("f", 0.5, {static_cast<FormatName>(name)}));
    }
    Document document = MakeEmpty();
    document.fItems.push_back({MakeColumn(std::move(texts))});
    return document;
}

Document MakePatterns() {
    Document document = MakeEmpty();
    Text inner = Pattern("1 - 2", "^1 - ^2", {{false, {Plain("1")}}, {false, {Plain("2")}}});
    Text outer = Pattern("outer", "^1 [%1:, ^1:]2", {{false, {inner}}, {true, {inner, Plain("b")}}, {true, {}}});
    document.fItems.push_back({Message{Pattern("", "", {}), 2, 1}});
    document.fItems.push_back({Message{Pattern("deep", "^1", {{false, {outer}}}), 2, 3}});
    return document;
}

Document MakeNestedTable() {
    Group inner{Plain("inner"), false, 0, {{Category{2, Plain("c"), {Plain("note")}}}, {Category{0, Plain("a"), {}}}}};
    Group outer{Plain("outer"), true, 1, {{std::move(inner)}, {Group{Plain("none"), true, 2, {}}}}};
    Dimension rows{.fName = Plain("rows"), .fSort = 0, .fPositioned = true, .fSide = Side::Rows, .fIndex = 2};
    rows.fHideLabels = true;
    rows.fMembers = {{std::move(outer)}, {Category{1, Plain("b"), {}}}};
    Dimension columns{.fName = Plain(""), .fSort = 1, .fPositioned = true, .fSide = Side::Columns, .fIndex = -3};
    columns.fHideName = true;
    Table table{.fSubtype = Plain("S"), .fTitle = Plain("T"), .fFlag = true, .fMinDataColumnWidth = 0};
    table.fvDimensions = {std::move(rows), std::move(columns)};
    table.fvCells = {{{2, kNoCategory}, Plain("x"), {Plain("n1"), Plain("n2")}},
                     {{kNoCategory, kNoCategory}, Plain("y"), {}}};
    Document document = MakeEmpty();
    document.fItems.push_back({Heading{Plain("H"), {{Heading{Plain("H2"), {}}}, {std::move(table)}}}});
    document.fItems.push_back(
        {Table{.fSubtype = Plain(""), .fTitle = Plain(""), .fFlag = false, .fvCells = {{{}, Plain("only"), {}}}}});
    return document;
}

Document MakeCharts() {
    Document document = MakeEmpty();
    document.fItems.push_back(
        {Chart{.fXml = "<a b='\n'/>",
               .fView = R"({"text":[1.50,-0,1e400,"\u0000é\"",{}],"data":{"values":[{"url":null,"":[]}]}})"}});
    Chart chart{.fDescription = "D", .fSendArguments = {true, false, true}, .fEditor = -1, .fTemplate = "T"};
    const std::vector<document::ChartValue> values = {
        {}, 0.0, kSystemMissing, Limits::infinity(), -Limits::infinity(), "NaN", "Infinity", "-Infinity", "", "text"};
    chart.fvData = {{"points", 0, {{"X", values}, {"Y", values}}}, {"none", 5, {}}, {"empty", 0, {{"Z", {}}}}};
    chart.fvSettings = {{"effect", 0, {}},
                        {"effect",
                         1,
                         {{"addRelabels", {}},
                          {"addRelabel", {"1", "NaN"}},
                          {"setCategorical", {true}},
                          {"setFormat", {std::array{40, 5, 2}}},
                          {"SetFormatPrefix", {""}}}}};
    document.fItems.push_back({std::move(chart)});
    return document;
}

}  // namespace

Text Plain(std::string words) { return {words, StringSource{words, false}}; }

Document MakeSmallDocument() {
    Dimension rows{.fName = Plain("Source"), .fSort = 2, .fPositioned = true, .fIndex = 1, .fHideName = true};
    rows.fMembers = {{Category{0, {"week", VariableSource{"week", 1}}, {}}}, {Group{Plain("Dose"), true, 2, {}}}};
    std::get<Group>(rows.fMembers.back().fContent)
        .fMembers.push_back({Category{1, Value("placebo", "a", 2), {Plain("baseline")}}});
    Dimension columns{.fName = Plain("Statistics"), .fSort = 2, .fSide = Side::Columns, .fIndex = 1};
    columns.fMembers.push_back({Category{0, {"Sig.", StringSource{"Sig.", true}}, {}}});
    Text caption = Pattern("95%", "^1%", {{false, {Number("95", 95, {FormatName::SigDigit, 95})}}, {true, {}}});
    Table table{
        .fSubtype = Plain("Effects"), .fTitle = Plain("Fixed Effects"), .fFlag = true, .fMinDataColumnWidth = 150};
    table.fvCaptions.push_back(std::move(caption));
    table.fvDimensions = {std::move(rows), std::move(columns)};
    table.fvCells = {{{0, 0}, Number(".031", 0.0312, {FormatName::Significance}), {}},
                     {{1, kNoCategory}, Number(".", kSystemMissing, {FormatName::Count}), {Plain("set to zero")}}};
    Chart chart{
        .fDescription = "Bars", .fSendArguments = {true, false, false}, .fEditor = 2, .fTemplate = "T.viztemplate"};
    chart.fXml = "<c/>\n";
    chart.fvData = {{"points", 0, {{"X", {0.0, {}, "text"}}}}};
    chart.fvSettings = {{"effect1", 0, {{"setLabel", {"Effect"}}, {"setFormat", {std::array{40, 5, 2}}}}}};
    chart.fView = R"-({"description":"Bars.","mark":"bar","transform":[{"filter":"isValid(datum.m)"}]})-";
    chart.fShown = {"Bars.", {{{"X", "Y"}, 0, {{"1", "<b>"}, {"", "\n"}}}, {{"Z", "Z", "N"}, 2, {{"a", "b", "1"}}}}};
    Document document = MakeEmpty();
    document.fvSources = {"model.pmml", "model.statxml"};
    document.fItems.push_back({Heading{Plain("Model"), {{std::move(table)}, {std::move(chart)}}}});
    document.fItems.push_back({Message{Plain("Careful."), 2, 2}});
    document.fvDiagnostics = {{2, "left out", {{1, 41, 7}}}, {1, "read", std::nullopt}};
    return document;
}

std::vector<Sample> MakeSamples() {
    return {{"empty", Document{}},      {"small", MakeSmallDocument()}, {"texts", MakeTexts()},
            {"numbers", MakeNumbers()}, {"patterns", MakePatterns()},   {"nested", MakeNestedTable()},
            {"charts", MakeCharts()}};
}

}  // namespace hierfit::test
