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

}  // namespace
}  // namespace hierfit::report
