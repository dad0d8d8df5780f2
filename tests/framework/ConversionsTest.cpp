#include <climits>
#include <limits>

#include "host/CFStatVariableValue.h"
#include "host/Conversions.h"
#include "host/SystemMissing.h"
#include "host/framework/SimpleArray.h"

namespace hierfit {
namespace {

TEST(Conversions, ReadNumbers) {
    struct Case {
        const char* fText;
        double fNumber;
    };
    const Case cases[] = {
        {"1", 1},
        {"-2.5e3", -2500},
        {"+.5", 0.5},
        {"5.", 5},
        {" \t\r\n7 \n", 7},
        {"0.1", 0.1},
        {"1E-3", 0.001},
        {"5e-324", 5e-324},
        {"1e-400", 0},
        {"-0.00000000000000000000000000000000000000000000000000e-400", 0},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(String2Double(text), number) << text;
    const std::string tiny = "0." + std::string(400, '0') + '1';
    EXPECT_EQ(String2Double(tiny), 0);
    const std::string huge(400, '9');
    for (const std::string& text : {std::string(),
                                    std::string("1e400"),
                                    std::string("-1e400"),
                                    huge,
                                    std::string(" "),
                                    std::string("1 2"),
                                    std::string("1,5"),
                                    std::string("0x10"),
                                    std::string("nan"),
                                    std::string("-inf"),
                                    std::string("infinity"),
                                    std::string("1e"),
                                    std::string("--1"),
                                    std::string("+-1"),
                                    std::string("-+1"),
                                    std::string("."),
                                    std::string("e5"),
                                    std::string("- 1"),
                                    std::string("1\0", 2),
                                    std::string("1\xC2\xA0"),
                                    std::string("__MISSING__")}) {
        EXPECT_EQ(String2Double(text), kSystemMissing) << text;
    }
}

TEST(Conversions, ReadIntegers) {
    struct Case {
        const char* fText;
        int fNumber;
    };
    const Case cases[] = {
        {"12", 12},
        {"-3", -3},
        {"+4", 4},
        {" 5\n", 5},
        {"007", 7},
        {"2147483647", INT_MAX},
        {"2147483648", INT_MAX},
        {"+99999999999999999999", INT_MAX},
        {"-2147483648", INT_MIN},
        {"-99999999999999999999", INT_MIN},
        {"", 0},
        {"3.0", 0},
        {"1e3", 0},
        {"x", 0},
        {"+-1", 0},
        {"++1", 0},
        {"- 1", 0},
        {"1 2", 0},
        {"0x1", 0},
        {"+", 0},
        {"99999999999999999999x", 0},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(String2Integer(text), number) << text;
}

TEST(Conversions, ReadRomanNumerals) {
    struct Case {
        const char* fText;
        int fNumber;
    };
    const Case cases[] = {
        {"I", 1},     {"ii", 2},   {"III", 3},  {"iV", 4},         {"IX", 9},           {"XIV", 14},
        {"XLII", 42}, {"XC", 90},  {"CD", 400}, {"MCMXCIV", 1994}, {"MMMCMXCIX", 3999}, {"MMMDCCCLXXXVIII", 3888},
        {"", 0},      {"IIII", 0}, {"IM", 0},   {"VX", 0},         {"IVI", 0},          {"IXI", 0},
        {"MMMM", 0},  {"CMCM", 0}, {"3", 0},    {"I ", 0},         {"IIIb", 0},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(Roman2Integer(text), number) << text;
    EXPECT_EQ(Roman2Integer(std::string(1'000'000, 'M')), 0);
}

TEST(SimpleArray, SplitsAsPmmlDoes) {
    struct Case {
        const char* fText;
        std::vector<std::string> fTokens;
    };
    const Case cases[] = {
        {"", {}},
        {" \n\t ", {}},
        {"1 2\n3", {"1", "2", "3"}},
        {" ab  \"a b\"   \"with \\\"quotes\\\" \" ", {"ab", "a b", "with \"quotes\" "}},
        {"\"\" x \"\"", {"", "x", ""}},
        {"5\" a\\b \\\"c", {"5\"", "a\\b", "\\\"c"}},
        {"\"a\"\"b\"c", {"a", "b", "c"}},
        {"\"a\\b\" \"\\\"\"", {"a\\b", "\""}},
        {"\"a\nb\"", {"a\nb"}},
        {"\xC3\xA4 \"\xE2\x82\xAC \"", {"\xC3\xA4", "\xE2\x82\xAC "}},
    };
    for (const auto& [text, expected] : cases) {
        std::vector<std::string> tokens{"before"};
        EXPECT_TRUE(framework::SplitSimpleArray(text, tokens)) << text;
        EXPECT_EQ(tokens, expected) << text;
    }
    for (const char* text : {"\"", "a \"b", "\"a\\\"", "a \"b\" \""}) {
        std::vector<std::string> tokens{"before"};
        EXPECT_FALSE(framework::SplitSimpleArray(text, tokens)) << text;
        EXPECT_TRUE(tokens.empty()) << text;
    }
}

KEST_Variable MakeVariable(bool isString) {
    KEST_VariableDefinition definition;
    definition.fName = "dose";
    if (isString) definition.fFormat = {8, KEST_FormatType::String, 0};
    return KEST_Variable(definition);
}

TEST(StatVariableValue, LoadsByTheVariablesType) {
    const KEST_Variable text = MakeVariable(true);
    const KEST_Variable number = MakeVariable(false);
    CFStatVariableValue value(" 2.50");
    EXPECT_EQ(value.GetObsValue(), nullptr);
    ASSERT_TRUE(value.LoadObsValue(&number, 0));
    EXPECT_EQ(value.GetObsValue()->Number(), 2.5);
    EXPECT_EQ(value.GetStringValue(), " 2.50");

    const CFStatVariableValue copy = value;
    ASSERT_TRUE(value.LoadObsValue(&text, 0));
    EXPECT_EQ(value.GetObsValue()->Text(), " 2.50");
    EXPECT_EQ(copy.GetObsValue()->Number(), 2.5);

    EXPECT_FALSE(value.SetCompleteValue("2.5 mg", &number, 0));
    EXPECT_EQ(value.GetObsValue(), nullptr);
    EXPECT_TRUE(value.SetCompleteValue("", &text, 0));
    EXPECT_FALSE(value.SetCompleteValue("", &number, 0));
    EXPECT_FALSE(value.SetCompleteValue("1e400", &number, 0));
    EXPECT_TRUE(value.SetCompleteValue("3", &number, 0));
    EXPECT_FALSE(value.LoadObsValue(nullptr, 0));
    EXPECT_EQ(value.GetObsValue(), nullptr);
    value.SetStringValue("4");
    EXPECT_EQ(value.GetStringValue(), "4");
}

}  // namespace
}  // namespace hierfit
