#include <gtest/gtest.h>

#include "report/json/JsonDocument.h"
#include "tests/json/Samples.h"

namespace hierfit::report {
namespace {

/// How a failure reads: its place in the text if it has one, its path, what was expected. Empty when the text is read.
std::string DescribeFailure(const std::string& json) {
    const auto result = ReadJson(json);
    const auto* error = std::get_if<JsonError>(&result);
    if (!error) return {};
    const std::string place =
        error->fLine ? std::to_string(error->fLine) + ":" + std::to_string(error->fColumn) + " " : std::string();
    return place + error->fPath + ": " + error->fText;
}

struct Edit {
    std::string fFrom;  ///< stands once in the small document; its first place is taken
    std::string fTo;
    std::string fFailure;
};

void CheckEdits(const std::vector<Edit>& edits) {
    const std::string json = WriteJson(test::MakeSmallDocument());
    for (const auto& [from, to, failure] : edits) {
        const std::size_t at = json.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        EXPECT_EQ(DescribeFailure(std::string(json).replace(at, from.size(), to)), failure) << from << " -> " << to;
    }
}

TEST(JsonErrors, FormOfTheDocument) {
    CheckEdits({
        {"hierfit-output", "hierfit-input", "/format: \"hierfit-output\" expected"},
        {"\"version\": 1", "\"version\": 2", "/version: 1 expected"},
        {"\"version\": 1", "\"version\": \"1\"", "/version: 1 expected"},
        {"\"version\": 1,", "", ": key \"version\" expected"},
        {"\"version\": 1", "\"version\": 1, \"version\": 1", "/version: key expected once"},
        {"\"hierfit 0.1.0\"", "null", "/producer: text expected"},
        {"\"model.pmml\",", "7,", "/sources/0: text expected"},
        {"[\"model.pmml\", \"model.statxml\"]", "{}", "/sources: list expected"},
        {"\"kind\": \"heading\"", "\"kind\": \"head\"",
         "/items/0/kind: \"heading\", \"table\", \"chart\" or \"message\" expected"},
        {"\"kind\": \"heading\",", "", "/items/0/kind: \"heading\", \"table\", \"chart\" or \"message\" expected"},
        {"\"kind\": \"message\"", "\"kind\": null",
         "/items/1/kind: \"heading\", \"table\", \"chart\" or \"message\" expected"},
        {"\"kind\": \"message\"", "\"kind\": \"chart\"", "/items/1: key \"description\" expected"},
        {"\"level\": 2", "\"level\": 4", "/items/1/level: whole number from 1 to 3 expected"},
        {"\"show\": 2,", "\"show\": 2.5,", "/items/1/show: whole number from -2147483648 to 2147483647 expected"},
        {"\"show\": 2,", "\"show\": 2147483648,",
         "/items/1/show: whole number from -2147483648 to 2147483647 expected"},
        {"model.statxml:41", "model.xml:41",
         "/diagnostics/0/place: \"SOURCE:LINE:COLUMN\" with one of the sources expected"},
        {":41:7", ":41", "/diagnostics/0/place: \"SOURCE:LINE:COLUMN\" with one of the sources expected"},
        {":41:7", ":-4:7", "/diagnostics/0/place: \"SOURCE:LINE:COLUMN\" with one of the sources expected"},
        {":41:7", ":41:7 ", "/diagnostics/0/place: \"SOURCE:LINE:COLUMN\" with one of the sources expected"},
    });
}

TEST(JsonErrors, FormOfTables) {
    const std::string table = "/items/0/items/0";
    CheckEdits({
        {"\"flag\": true", "\"flag\": 1", table + "/flag: true or false expected"},
        {"\"minDataColumnWidth\": 150", "\"minDataColumnWidth\": \"150\"",
         table + "/minDataColumnWidth: whole number from -2147483648 to 2147483647 expected"},
        {"\"place\": 1", "\"place\": 2", table + "/dimensions/1/place: whole number from 0 to 1 expected"},
        {"[true, false]", "[true]", table + "/dimensions/0/flags: list of 2 expected"},
        {"[true, false]", "[true, false, false]", table + "/dimensions/0/flags: list of 2 expected"},
        {"\"kind\": \"group\"", "\"kind\": \"table\"",
         table + "/dimensions/0/members/1/kind: \"category\" or \"group\" expected"},
        {"\"id\": 1", "\"id\": 0", table + "/dimensions/0/members: ids from 0 to 1, each once, expected"},
        {"\"id\": 1", "\"id\": 2", table + "/dimensions/0/members: ids from 0 to 1, each once, expected"},
        {"\"id\": 1", "\"id\": -1",
         table + "/dimensions/0/members/1/members/0/id: whole number from 0 to 10000000 expected"},
        {"[1, null]", "[1]", table + "/cells/1/at: 2 numbers expected"},
        {"[1, null]", "[1, null, 0]", table + "/cells/1/at: 2 numbers expected"},
        {"[1, null]", "[2, null]", table + "/cells/1/at/0: id of a category of dimension 0 expected"},
        {"[1, null]", "[1, 1]", table + "/cells/1/at/1: id of a category of dimension 1 expected"},
        {"[1, null]", "[1, \"0\"]", table + "/cells/1/at/1: whole number from 0 to 10000000 expected"},
    });
}

TEST(JsonErrors, FormOfTexts) {
    const std::string from = "/items/0/items/0/cells/0/content/from";
    const std::string one = ": one key of \"string\", \"number\", \"variable\", \"value\" and \"pattern\" expected";
    CheckEdits({
        {"\"number\": 0.0312", "\"number\": true",
         from + "/number: number, \"NaN\", \"Infinity\" or \"-Infinity\" expected"},
        {"\"number\": 0.0312", "\"number\": \"nan\"",
         from + "/number: number, \"NaN\", \"Infinity\" or \"-Infinity\" expected"},
        {"\"number\": 0.0312", "\"number\": 1e309", from + "/number: number within the range of a double expected"},
        {"\"number\": 0.0312,", "", from + one},
        {"\"number\": 0.0312", "\"number\": 0.0312, \"string\": \"\"", from + one},
        {", \"format\": {\"name\": \"Significance\"}", "", from + ": key \"format\" expected"},
        {"\"Significance\"", "\"significance\"", from + "/format/name: name of a number format expected"},
        {"\"name\": \"Significance\"", "\"argument\": 3", from + "/format: key \"name\" expected"},
        {"\"Significance\"", "\"SigDigit\"", from + "/format: key \"argument\" expected"},
        {"\"value\": \"a\"", "\"value\": []",
         "/items/0/items/0/dimensions/0/members/1/members/0/label/from/value: number, text or null expected"},
        {"\"variable\": \"dose\", ", "",
         "/items/0/items/0/dimensions/0/members/1/members/0/label/from: key \"variable\" expected"},
        {"\"sublist\": []", "\"sub\": []", "/items/0/items/0/captions/0/from/arguments/1: key \"text\" expected"},
        {"{\"text\": \"Careful.\"", "[\"Careful.\"]; {", "/items/1/text: object expected"},
    });
}

TEST(JsonErrors, FormOfCharts) {
    const std::string chart = "/items/0/items/1";
    CheckEdits({
        {"[0.0, null, \"text\"]", "[0.0, null, false]",
         chart + "/data/0/variables/0/values/2: number, text or null expected"},
        {"{\"name\": \"X\"", "{\"name\": \"W\", \"values\": []}, {\"name\": \"X\"",
         chart + "/data/0/variables/1/values: 0 values expected, as in the variable before"},
        {"[\"setLabel\", \"Effect\"]", "[]", chart + "/variables/0/calls/0: name of a call expected"},
        {"[\"setLabel\", \"Effect\"]", "[true]", chart + "/variables/0/calls/0/0: text expected"},
        {"[\"setLabel\", \"Effect\"]", "[\"setLabel\", 1]",
         chart + "/variables/0/calls/0/1: text, true, false or list of 3 expected"},
        {"[40, 5, 2]", "[40, 5]", chart + "/variables/0/calls/1/1: list of 3 expected"},
        {"\"view\": {", "\"look\": {", chart + ": key \"view\" expected"},
    });
}

TEST(JsonErrors, FormOfViews) {
    const std::string view = "/items/0/items/1/view";
    const std::string expression = ": one of the expressions of views expected";
    CheckEdits({
        {"\"view\": {", "\"view\": 7, \"rest\": {", view + ": object expected"},
        {"isValid(datum.m)", "alert(1)", view + "/transform/0/filter" + expression},
        {"isValid(datum.m)", "isValid(datum.m) ", view + "/transform/0/filter" + expression},
        {"\"isValid(datum.m)\"", "[1, {\"expr\": \"now()\"}]", view + "/transform/0/filter/1/expr" + expression},
        {"{\"filter\":", "{\"calculate\":", view + "/transform/0/calculate: key of a view expected"},
        {"\"mark\":\"bar\"", "\"mark\":{\"href\":\"x\"}", view + "/mark/href: key of a view expected"},
        {"\"mark\":\"bar\"", "\"data\":{\"url\":\"x\"}", view + "/data/url: key of a view expected"},
        {"\"mark\":\"bar\"", "\"params\":[{\"bind\":\"scales\"}]", view + "/params/0/bind: key of a view expected"},
        {"\"mark\":\"bar\"", "\"x y\":1", view + "/x y: key of a view expected"},
        {"\"mark\":\"bar\"", "\"data\":{\"values\":[{\"url\":\"x\",\"expr\":\"now()\"}]}", ""},
        {"\"description\":\"Bars.\"", "\"description\":{}", view + "/description: text expected"},
        {"[\"X\",\"Y\"]", "[\"X\"]", view + "/usermeta/rows/0: 1 cells expected, one for each column"},
        {"\"keys\":0", "\"keys\":2", view + "/usermeta/keys: whole number from 0 to 1 expected"},
        {"\"keys\":0", "\"keys\":-1", view + "/usermeta/keys: whole number from 0 to 1 expected"},
        {"\"keys\":2", "\"keys\":3", view + "/usermeta/further/0/keys: whole number from 0 to 2 expected"},
        {"[\"a\",\"b\",\"1\"]", "[]", view + "/usermeta/further/0/rows/0: 3 cells expected, one for each column"},
        {"\"columns\":", "\"column\":", view + "/usermeta: key \"columns\" expected"},
        {"\"usermeta\":", "\"usermeta\":{\"columns\":[],\"rows\":[]},\"usermeta\":",
         view + "/usermeta: key expected once"},
    });
}

TEST(JsonErrors, Syntax) {
    const struct {
        std::string fJson;
        std::string fFailure;
    } kCases[] = {
        {"", "1:1 : value expected, but the text ends"},
        {" \n \t", "2:3 : value expected, but the text ends"},
        {"nul", ": object expected"},
        {"[]", ": object expected"},
        {"{\"a\" 1}", "1:6 : \":\" expected"},
        {"{a: 1}", "1:2 : key in quotes expected"},
        {"{\"a\": 1,}", "1:9 : key in quotes expected"},
        {"{\"a\": [1,]}", "1:10 : value expected"},
        {"{\"a\": [1 2]}", "1:10 : \",\" or \"]\" expected"},
        {"{\"a\": 1 \"b\"}", "1:9 : \",\" or \"}\" expected"},
        {"{\"a\": 01}", "1:8 : \",\" or \"}\" expected"},
        {"{\"a\": -}", "1:8 : digit expected"},
        {"{\"a\": 1.}", "1:9 : digit expected"},
        {"{\"a\": 1e+}", "1:10 : digit expected"},
        {"{\"a\": +1}", "1:7 : value expected"},
        {"{\"a\": NaN}", "1:7 : value expected"},
        {"{\"a\": tru}", "1:7 : value expected"},
        {"{\"a\": 'x'}", "1:7 : value expected"},
        {"{\n\"\u00E4\u00F6\": \"\t\"}", "2:8 : control character escaped in the string expected"},
        {std::string("{\"a\": \"\0\"}", 10), "1:8 : control character escaped in the string expected"},
        {std::string("{\"a\": \0}", 8), "1:7 : value expected"},
        {"{\"title\": \"\\x\"}", "1:13 /title: escape expected"},
        {"{\"title\": \"\\u12G4\"}", "1:13 /title: four hexadecimal digits expected"},
        {"{\"title\": \"\\u-123\"}", "1:13 /title: four hexadecimal digits expected"},
        {"{\"title\": \"\\ud800\"}", "1:12 /title: pair of surrogates expected"},
        {"{\"title\": \"\\ud800\\u0041\"}", "1:12 /title: pair of surrogates expected"},
        {"{\"title\": \"\\udc00\"}", "1:12 /title: pair of surrogates expected"},
        {"{\"title\": \"\xC3\x28\"}", "1:12 /title: UTF-8 expected"},
        {"{\"sources\": [\"a\", \"b", "1:21 /sources/1: closing quote expected, but the text ends"},
    };
    for (const auto& [json, failure] : kCases) EXPECT_EQ(DescribeFailure(json), failure) << json;
}

TEST(JsonErrors, NothingFollowsTheDocument) {
    const std::string json = WriteJson(document::Document{});
    EXPECT_EQ(DescribeFailure(json + " \n"), "");
    EXPECT_EQ(DescribeFailure(json + "{}"), "11:1 : end of the text expected");
    EXPECT_EQ(DescribeFailure(json + '\0'), "11:1 : end of the text expected");
}

TEST(JsonErrors, EveryPartOfADocumentIsMissed) {
    const std::string json = WriteJson(test::MakeSmallDocument());
    const std::size_t complete = json.size() - 1;  // all but the line feed
    for (std::size_t size = 0; size < complete; ++size) {
        const std::string failure = DescribeFailure(json.substr(0, size));
        EXPECT_NE(failure.find_first_of("123456789"), std::string::npos) << size << ' ' << failure;
    }
    EXPECT_EQ(DescribeFailure(json.substr(0, complete)), "");
}

}  // namespace
}  // namespace hierfit::report
