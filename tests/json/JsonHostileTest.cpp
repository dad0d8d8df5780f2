#include "report/json/JsonDocument.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::report {
namespace {

using test::Repeated;

std::string FindFailure(const std::string& json) {
    const auto result = ReadJson(json);
    const auto* error = std::get_if<JsonError>(&result);
    return error ? error->fText : std::string();
}

/// A document of headings in each other, whose kind stands last, about one more item.
std::string MakeHeadings(int depth, const std::string& innermost) {
    const std::string open = R"({"title": {"text": "", "from": {"string": "", "translate": false}}, "items": [)";
    const std::string items = Repeated(open, depth) + innermost + Repeated(R"(], "kind": "heading"})", depth);
    return test::Replaced(WriteJson({}), "\"items\": []", "\"items\": [" + items + "]");
}

TEST(JsonHostile, NestingIsLimited) {
    constexpr int kDeep = 200'000;
    for (const std::string open : {"[", "{\"a\":", "[[{\"kind\":"}) {
        EXPECT_EQ(FindFailure(std::string("{\"extra\": ") + Repeated(open, kDeep)),
                  "at most 100 levels of nesting expected");
    }
    EXPECT_EQ(FindFailure(std::string("{\"extra\": ") + Repeated("[", 99) + Repeated("]", 99) + "}"),
              "key \"format\" expected");
    EXPECT_EQ(FindFailure(MakeHeadings(48, "")), "");
    EXPECT_EQ(FindFailure(MakeHeadings(49, "")), "at most 100 levels of nesting expected");
}

TEST(JsonHostile, LookingForKindsIsLimited) {
    const std::string extra = std::string("{\"extra\": [") + Repeated("0, ", 300'000) + "0], \"kind\": \"\"}";
    EXPECT_EQ(FindFailure(MakeHeadings(40, extra)), "\"kind\" as the first key expected");
    EXPECT_EQ(FindFailure(MakeHeadings(5, extra)), "\"heading\", \"table\", \"chart\" or \"message\" expected");
}

TEST(JsonHostile, ListsAreLimited) {
    const std::string many = std::string("[") + Repeated("0,", 10'000'000);
    EXPECT_EQ(FindFailure(std::string(R"({"items": [{"kind": "table", "cells": [{"at": )") + many),
              "at most 10000000 elements in all lists expected");
}

/// Every byte of the small document changed: what comes of it is a failure, or a document that is written and read like
/// any.
TEST(JsonHostile, ChangedBytesDoNoHarm) {
    constexpr std::string_view kBytes("\0\"\\{],9- \xC3", 10);
    const std::string json = test::ReadFile(HIERFIT_SMALL_DOCUMENT);
    int documents = 0;
    for (std::size_t i = 0; i < json.size(); ++i) {
        std::string changed = json;
        changed[i] = kBytes[i % kBytes.size()];
        const auto result = ReadJson(changed);
        if (const auto* document = std::get_if<document::Document>(&result)) {
            ++documents;
            const std::string written = WriteJson(*document);
            const auto again = ReadJson(written);
            ASSERT_TRUE(std::holds_alternative<document::Document>(again)) << changed;
            EXPECT_EQ(WriteJson(std::get<document::Document>(again)), written);
        }
    }
    EXPECT_GT(documents, 100);
}

}  // namespace
}  // namespace hierfit::report
