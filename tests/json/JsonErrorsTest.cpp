#include "JsonEdits.h"

namespace hierfit::report {
namespace {

TEST(JsonErrors, Form) {
    const std::string table = "/items/0/items/0";
    const std::string cell = table + "/cells/1/at";
    const std::string label = table + "/dimensions/0/members/1/members/1/label/from";
    const std::string number = table + "/cells/0/content/from";
    const std::string chart = "/items/0/items/1";
    const std::string integer = ": whole number from -2147483648 to 2147483647 expected";
    const std::string place = "/diagnostics/0/place: \"SOURCE:LINE:COLUMN\" with one of the sources expected";
    const std::string kind = "/items/0/kind: \"heading\", \"table\", \"chart\" or \"message\" expected";
    const std::string oneKey =
        number + ": one key of \"string\", \"number\", \"variable\", \"value\" and \"pattern\" expected";
    const std::string special = number + "/number: number, \"NaN\", \"Infinity\" or \"-Infinity\" expected";
    const Edit edits[] = {
        {"hierfit-output", "hierfit-input", "/format: \"hierfit-output\" expected"},
        {R"("version": 2)", R"("version": 1)",
         "/version: the document was saved by an earlier version of hierfit; write it anew from the model's two "
         "documents "
         "with \"hierfit report -f json\""},
        {R"("version": 2,)", "", ": key \"version\" expected"},
        {R"("version": 2)", R"("version": 2, "version": 2)", "/version: key expected once"},
        {R"("kind": "heading")", R"("kind": "head")", kind},
        {R"("level": 2)", R"("level": 4)", "/items/1/level: whole number from 1 to 3 expected"},
        {R"("show": 2,)", R"("show": 2.5,)", "/items/1/show" + integer},
        {"model.statxml:41", "model.xml:41", place},
        {":41:7", ":41:7 ", place},
        {"[true,false]", "[true, false, false]", table + "/dimensions/0/flags: list of 2 expected"},
        {R"("id":1)", R"("id": 0)", table + "/dimensions/0/members: ids from 0 to 1, each once, expected"},
        {R"("id":1)", R"("id": -1)",
         table + "/dimensions/0/members/1/members/1/id: whole number from 0 to 10000000 expected"},
        {"[1,null]", "[1, null, 0]", cell + ": 2 numbers expected"},
        {"[1,null]", "[1, 1]", cell + "/1: id of a category of dimension 1 expected"},
        {R"("number":0.0312)", R"("number": "nan")", special},
        {R"("number":0.0312)", R"("number": 1e309)", number + "/number: number within the range of a double expected"},
        {R"("number":0.0312)", R"("number": 0.0312, "string": "")", oneKey},
        {R"("Significance")", R"("SigDigit")", number + "/format: key \"argument\" expected"},
        {R"("value":"a")", R"("value": [])", label + "/value: number, text or null expected"},
        {R"("sublist":[])", R"("sub": [])", table + "/captions/0/from/arguments/1: key \"text\" expected"},
        {R"([0.0,null,"text"])", "[0.0, null, false]",
         chart + "/data/0/variables/0/values/2: number, text or null expected"},
        {R"({"name":"X")", R"({"name": "W", "values": []}, {"name": "X")",
         chart + "/data/0/variables/1/values: 0 values expected, as in the variable before"},
        {R"(["setLabel","Effect"])", "[]", chart + "/variables/0/calls/0: name of a call expected"},
        {R"(["setLabel","Effect"])", R"(["setLabel", 1])",
         chart + "/variables/0/calls/0/1: text, true, false or list of 3 expected"},
        {"[40,5,2]", "[40, 5]", chart + "/variables/0/calls/1/1: list of 3 expected"},
    };
    ExpectFailures(edits);
}

TEST(JsonErrors, Syntax) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "1:1 : value expected, but the text ends"},
        {R"({"a" 1})", R"(1:6 : ":" expected)"},
        {"{a: 1}", "1:2 : key in quotes expected"},
        {R"({"a": 1,})", "1:9 : key in quotes expected"},
        {R"({"a": [1 2]})", R"(1:10 : "," or "]" expected)"},
        {R"({"a": 01})", R"(1:8 : "," or "}" expected)"},
        {R"({"a": 1e+})", "1:10 : digit expected"},
        {"{\n\"\u00E4\u00F6\": \"\t\"}", "2:8 : control character escaped in the string expected"},
        {std::string("{\"a\": \"\0\"}", 10), "1:8 : control character escaped in the string expected"},
        {"{\"title\": \"\\x\"}", "1:13 /title: escape expected"},
        {"{\"title\": \"\\u12G4\"}", "1:13 /title: four hexadecimal digits expected"},
        {"{\"title\": \"\\ud800\\u0041\"}", "1:12 /title: pair of surrogates expected"},
        {"{\"title\": \"\xC3\x28\"}", "1:12 /title: UTF-8 expected"},
        {R"({"sources": ["a", "b)", "1:21 /sources/1: closing quote expected, but the text ends"},
    };
    for (const auto& [json, failure] : cases) EXPECT_EQ(DescribeFailure(json), failure) << json;
}

TEST(JsonErrors, NothingFollowsTheDocument) {
    const std::string json = WriteJson(document::Document{});
    EXPECT_EQ(DescribeFailure(json + " \n"), "");
    EXPECT_EQ(DescribeFailure(json + "{}"), "11:1 : end of the text expected");
    EXPECT_EQ(DescribeFailure(json + '\0'), "11:1 : end of the text expected");
}

TEST(JsonErrors, EveryPartOfADocumentIsMissed) {
    const std::string json = test::ReadFile(HIERFIT_SMALL_DOCUMENT);
    const std::size_t complete = json.size() - 1;  // all but the line feed
    for (std::size_t size = 0; size < complete; ++size) {
        const std::string failure = DescribeFailure(json.substr(0, size));
        EXPECT_NE(failure.find_first_of("123456789"), std::string::npos) << size << ' ' << failure;
    }
    EXPECT_EQ(DescribeFailure(json.substr(0, complete)), "");
}

}  // namespace
}  // namespace hierfit::report
