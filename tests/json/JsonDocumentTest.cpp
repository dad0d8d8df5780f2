#include "report/json/JsonDocument.h"

#include "tests/support/ExampleFile.h"

namespace hierfit::report {
namespace {

using document::Document;

Document ReadText(const std::string& json) { return std::get<Document>(ReadJson(json)); }

/// What JSON a title becomes, without its quotes.
std::string WriteTitle(const std::string& title) {
    const std::string json = WriteJson(Document{.fTitle = title});
    const std::size_t begin = json.find("\"title\": \"") + 10;
    return json.substr(begin, json.find("\",\n", begin) - begin);
}

// That the form is right is the schema's business and that of the examples' outputs.
TEST(JsonDocument, EveryFormComesBackAsItWas) {
    for (const std::string& json : {test::ReadFile(HIERFIT_SMALL_DOCUMENT), WriteJson(Document{})}) {
        EXPECT_EQ(WriteJson(ReadText(json)), json);
    }
}

TEST(JsonDocument, TextsAreEscaped) {
    const std::pair<std::string, std::string> cases[] = {
        {"a\"b\\c/d", R"(a\"b\\c/d)"},          {"\U0001F600", "\U0001F600"}, {"a\xFFz", "a\uFFFDz"},
        {"\xC0\xAF", "\uFFFD\uFFFD"},            // too long a form
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},  // half of a pair
        {"cut \xE2\x82", "cut \uFFFD\uFFFD"},
    };
    for (const auto& [text, json] : cases) EXPECT_EQ(WriteTitle(text), json);
}

TEST(JsonDocument, PlacesAreInTheFirstSourceOfTheirName) {
    Document document{.fvSources = {"a", "a", "b"}};
    document.fvDiagnostics = {
        {1, "x", {{1, 2, 3}}}, {1, "y", {{2, 2, 3}}}, {1, "z", {{3, 2, 3}}}, {1, "", {{-1, 2, 3}}}};
    const Document read = ReadText(WriteJson(document));
    EXPECT_EQ(read.fvDiagnostics.at(0).fPlace.value().fSource, 0);
    EXPECT_EQ(read.fvDiagnostics.at(1).fPlace.value().fSource, 2);
    EXPECT_FALSE(read.fvDiagnostics.at(2).fPlace);
    EXPECT_FALSE(read.fvDiagnostics.at(3).fPlace);
}

TEST(JsonDocument, OtherSpellingsAreRead) {
    const std::string kJson =
        "\xEF\xBB\xBF"
        R"({"title":"\u0041\/\ud83d\uDE00","sources":[],"extra":[{"a":[]},-1.5E+2,"\n"],
        "diagnostics":[{"place":null,"text":"","level":1.0}],"version":2e0,"format":"hierfit-output","language":"","producer":"",
        "items":[{"level":3,"text":{"from":{"preference":0,"variable":"v","value":1e2},"text":""},"show":2,"kind":"message"}]})";
    const Document document = ReadText(kJson);
    EXPECT_EQ(document.fTitle, "A/\U0001F600");
    const auto& text = std::get<document::Message>(document.fItems.front().fContent).fText;
    EXPECT_EQ(std::get<double>(std::get<document::ValueSource>(text.fFrom).fValue), 100);
}

}  // namespace
}  // namespace hierfit::report
