#include "report/json/JsonDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>

#include "tests/json/Samples.h"

namespace hierfit::report {
namespace {

using document::Chart;
using document::ChartValue;
using document::Document;
using document::Message;

/// The document that a text holds; a failure and an empty one where it holds none.
Document ReadOrFail(const std::string& json) {
    auto result = ReadJson(json);
    if (const auto* error = std::get_if<JsonError>(&result)) {
        ADD_FAILURE() << error->fLine << ':' << error->fColumn << ": " << error->fPath << ": " << error->fText << '\n'
                      << json;
        return {};
    }
    return std::get<Document>(std::move(result));
}

/// What JSON a title becomes, without its quotes.
std::string WriteTitle(const std::string& title) {
    const std::string json = WriteJson(Document{.fTitle = title});
    const std::size_t begin = json.find("\"title\": \"") + 10;
    return json.substr(begin, json.find("\",\n", begin) - begin);
}

TEST(JsonDocument, EveryFormComesBackAsItWas) {
    for (const test::Sample& sample : test::MakeSamples()) {
        SCOPED_TRACE(sample.fName);
        const std::string json = WriteJson(sample.fDocument);
        const Document read = ReadOrFail(json);
        EXPECT_TRUE(read == sample.fDocument);
        EXPECT_EQ(WriteJson(read), json);
    }
}

TEST(JsonDocument, NaNStaysApartFromItsSpelling) {
    Chart chart{.fvData = {{"s", 0, {{"v", {std::numeric_limits<double>::quiet_NaN(), "NaN"}}}}}};
    const Document read = ReadOrFail(WriteJson(Document{.fItems = {{chart}}}));
    const auto& values = std::get<Chart>(read.fItems.front().fContent).fvData.front().fvVariables.front().fvValues;
    EXPECT_TRUE(std::isnan(std::get<double>(values.at(0))));
    EXPECT_EQ(std::get<std::string>(values.at(1)), "NaN");
}

TEST(JsonDocument, WritesTheSmallDocument) {
    std::ifstream file(HIERFIT_SMALL_DOCUMENT, std::ios::binary);
    EXPECT_EQ(WriteJson(test::MakeSmallDocument()), std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(JsonDocument, TextsAreEscaped) {
    const struct {
        std::string fText;
        std::string fJson;
    } kCases[] = {
        {"a\"b\\c/d", R"(a\"b\\c/d)"},
        {"\b\f\n\r\t", R"(\b\f\n\r\t)"},
        {std::string("\0\x01\x1B\x7F", 4), R"(\u0000\u0001\u001b\u007f)"},
        {"\u0080\u009F\u00A0", "\\u0080\\u009f\u00A0"},
        {"\U0001F600", "\U0001F600"},
        {"a\xFFz", "a\uFFFDz"},
        {"\xC0\xAF", "\uFFFD\uFFFD"},            // too long a form
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},  // half of a pair
        {"cut \xE2\x82", "cut \uFFFD\uFFFD"},
    };
    for (const auto& [text, json] : kCases) EXPECT_EQ(WriteTitle(text), json);
}

TEST(JsonDocument, ViewsAreReadAsCompactObjects) {
    const std::string empty = R"("usermeta":{"columns":[],"keys":0,"rows":[]})";
    const struct {
        std::string fJson;
        std::string fView;
    } kCases[] = {
        {"{}", ""},
        {"{" + empty + "}", ""},
        {" { \"text\" : [ 1.0 , true, null ] ,\n\"mark\" : { } }", R"({"text":[1.0,true,null],"mark":{}})"},
        {R"({"text":"\u00e9\/"})", "{\"text\":\"\u00E9/\"}"},
    };
    const std::string written = WriteJson(Document{.fItems = {{Chart{.fView = R"({"mark":"bar"})"}}}});
    for (const auto& [view, expected] : kCases) {
        std::string json = written;
        const std::string bar = R"({"mark":"bar",)" + empty + "}";
        json.replace(json.find(bar), bar.size(), view);
        const Document document = ReadOrFail(json);
        EXPECT_EQ(std::get<Chart>(document.fItems.front().fContent).fView, expected) << view;
    }
}

// Documents once had one table, and did not say which of its columns are keys.
TEST(JsonDocument, TablesOfChartsWithoutKeysAreRead) {
    using Tables = std::vector<document::ChartTable>;
    const struct {
        std::string fTables;
        Tables fRead;
    } kCases[] = {
        {R"("columns":["A","B","C"],"rows":[["a","b","c"]])", {{{"A", "B", "C"}, 1, {{"a", "b", "c"}}}}},
        {R"("columns":["A"],"rows":[["a"]])", {{{"A"}, 0, {{"a"}}}}},
        {R"("columns":[],"rows":[])", {}},
        {R"("columns":[],"rows":[[]],"further":[{"rows":[],"columns":["A","B"]}])", {{{"A", "B"}, 1, {}}}},
    };
    const std::string written = WriteJson(Document{.fItems = {{Chart{.fView = R"({"mark":"bar"})"}}}});
    for (const auto& [tables, read] : kCases) {
        std::string json = written;
        const std::string_view none = R"("columns":[],"keys":0,"rows":[])";
        json.replace(json.find(none), none.size(), tables);
        const Document document = ReadOrFail(json);
        EXPECT_EQ(std::get<Chart>(document.fItems.front().fContent).fShown.fvTables, read) << tables;
    }
}

TEST(JsonDocument, APlaceWithoutItsSourceIsNull) {
    Document document{.fvSources = {"a.pmml"}};
    document.fvDiagnostics = {{1, "x", {{1, 2, 3}}}, {1, "y", {{-1, 2, 3}}}};
    for (const auto& diagnostic : ReadOrFail(WriteJson(document)).fvDiagnostics) EXPECT_FALSE(diagnostic.fPlace);
}

TEST(JsonDocument, OtherSpellingsAreRead) {
    const std::string kJson =
        "\xEF\xBB\xBF"
        R"({"title":"\u0041\/\ud83d\uDE00","sources":[],"extra":[{"a":[]},-1.5E+2,"\n"],
        "diagnostics":[{"place":null,"text":"","level":1.0}],"version":1e0,"format":"hierfit-output","language":"","producer":"",
        "items":[{"level":3,"text":{"from":{"preference":0,"variable":"v","value":1e2},"text":""},"show":2,"kind":"message"}]})";
    const Document document = ReadOrFail(kJson);
    EXPECT_EQ(document.fTitle, "A/\U0001F600");
    const auto& text = std::get<Message>(document.fItems.front().fContent).fText;
    EXPECT_EQ(std::get<double>(std::get<document::ValueSource>(text.fFrom).fValue), 100);
}

}  // namespace
}  // namespace hierfit::report
