#include <climits>
#include <limits>

#include "host/CFStatVariableValue.h"
#include "host/Conversions.h"
#include "host/SystemMissing.h"
#include "host/framework/SimpleArray.h"

namespace hierfit {
namespace {

using Tokens = std::vector<std::string>;

TEST(Conversions, ReadNumbers) {
    const std::string zeros(400, '0');
    const std::pair<std::string, double> cases[] = {
        {"-2.5e3", -2500},
        {"+.5", 0.5},
        {" \t\r\n7 \n", 7},
        {"5e-324", 5e-324},
        {"1e-400", 0},
        {"-0." + zeros + "e-400", 0},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(String2Double(text), number) << text;
    for (const std::string text : {"", " ", "1e400", "-1e400", "1 2", "1,5", "0x10", "nan", "-inf", "infinity", "1e",
                                   "--1", "+-1", "-+1", ".", "e5", "- 1", "1\xC2\xA0", "__MISSING__"}) {
        EXPECT_EQ(String2Double(text), kSystemMissing) << text;
    }
    EXPECT_EQ(String2Double(std::string("1\0", 2)), kSystemMissing);
}

TEST(Conversions, ReadIntegers) {
    const std::pair<const char*, int> cases[] = {
        {"+4", 4},
        {" 5\n", 5},
        {"2147483647", INT_MAX},
        {"2147483648", INT_MAX},
        {"+99999999999999999999", INT_MAX},
        {"-2147483648", INT_MIN},
        {"-99999999999999999999", INT_MIN},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(String2Integer(text), number) << text;
    for (const char* text : {"", "3.0", "1e3", "x", "+-1", "++1", "- 1", "1 2", "0x1", "+", "99999999999999999999x"}) {
        EXPECT_EQ(String2Integer(text), 0) << text;
    }
}

TEST(Conversions, ReadRomanNumerals) {
    const std::pair<std::string, int> cases[] = {
        {"I", 1},     {"ii", 2},   {"III", 3},  {"iV", 4},         {"IX", 9},           {"XIV", 14},
        {"XLII", 42}, {"XC", 90},  {"CD", 400}, {"MCMXCIV", 1994}, {"MMMCMXCIX", 3999}, {"MMMDCCCLXXXVIII", 3888},
        {"", 0},      {"IIII", 0}, {"IM", 0},   {"VX", 0},         {"IVI", 0},          {"IXI", 0},
        {"MMMM", 0},  {"CMCM", 0}, {"3", 0},    {"I ", 0},         {"IIIb", 0},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(Roman2Integer(text), number) << text;
    EXPECT_EQ(Roman2Integer(std::string(1'000'000, 'M')), 0);
}

TEST(SimpleArray, SplitsAsPmmlDoes) {
    const std::pair<const char*, Tokens> cases[] = {
        {" \n\t ", {}},
        {" ab  \"a b\"   \"with \\\"quotes\\\" \" ", {"ab", "a b", "with \"quotes\" "}},
        {"\"\" x \"\"", {"", "x", ""}},
        {"5\" a\\b \\\"c", {"5\"", "a\\b", "\\\"c"}},
        {"\"a\"\"b\"c", {"a", "b", "c"}},
        {"\"a\nb\"", {"a\nb"}},
    };
    Tokens tokens{"before"};
    for (const auto& [text, expected] : cases) {
        EXPECT_TRUE(framework::SplitSimpleArray(text, tokens)) << text;
        EXPECT_EQ(tokens, expected) << text;
    }
    for (const char* text : {"\"", "a \"b", "\"a\\\"", "a \"b\" \""}) {
        EXPECT_FALSE(framework::SplitSimpleArray(text, tokens)) << text;
        EXPECT_TRUE(tokens.empty()) << text;
    }
}

TEST(StatVariableValue, LoadsByTheVariablesType) {
    const KEST_Variable number({.fName = "dose", .fLabel = {}, .fFormat = {}, .fValueLabels = {}});
    const KEST_Variable text(
        {.fName = "sex", .fLabel = {}, .fFormat = {8, KEST_FormatType::String, 0}, .fValueLabels = {}});
    CFStatVariableValue value(" 2.50");
    EXPECT_EQ(value.GetObsValue(), nullptr);
    ASSERT_TRUE(value.LoadObsValue(&number, 0));
    EXPECT_EQ(value.GetObsValue()->Number(), 2.5);
    EXPECT_EQ(value.GetStringValue(), " 2.50");

    const CFStatVariableValue copy = value;
    ASSERT_TRUE(value.LoadObsValue(&text, 0));
    EXPECT_EQ(value.GetObsValue()->Text(), " 2.50");
    EXPECT_EQ(copy.GetObsValue()->Number(), 2.5);

    for (const char* wrong : {"2.5 mg", "", "1e400"}) {
        EXPECT_FALSE(value.SetCompleteValue(wrong, &number, 0)) << wrong;
        EXPECT_EQ(value.GetObsValue(), nullptr);
    }
    EXPECT_TRUE(value.SetCompleteValue("", &text, 0));
    EXPECT_FALSE(value.LoadObsValue(nullptr, 0));
    EXPECT_EQ(value.GetObsValue(), nullptr);
}

}  // namespace
}  // namespace hierfit
