#include "host/pivot/text/PatternExpansion.h"

#include <string>
#include <vector>

namespace hierfit {
namespace {

/// Arguments in short: a text, or texts between "(" and ")" for a sublist.
using Arguments = std::vector<const char*>;

std::vector<document::Argument> MakeArguments(const Arguments& texts) {
    std::vector<document::Argument> arguments;
    bool isInSublist = false;
    for (const std::string text : texts) {
        const document::Text argument{text, document::StringSource{text, false}};
        if (text == "(")
            arguments.push_back({true, {}});
        else if (isInSublist && text != ")")
            arguments.back().fvTexts.push_back(argument);
        else if (text != ")")
            arguments.push_back({false, {argument}});
        isInSublist = text == "(" || (isInSublist && text != ")");
    }
    return arguments;
}

struct PatternCase {
    const char* fPattern;
    Arguments fArguments;
    const char* fWords;
};

const PatternCase kCases[] = {
    // Marks.
    {"^2 of ^1, ^2", {"a", "b"}, "b of a, b"},
    {"^1 and ^2", {"a"}, "a and ^2"},
    {"^", {"a"}, "^"},
    {"^0 ^a ^^1 %1", {"x"}, "^0 ^a ^x %1"},
    {"^1 - ^2", {"^2", "^1[:^1:]1"}, "^2 - ^1[:^1:]1"},
    // Lists.
    {"[%1:\n^1:]1", {"(", "a", "b", "c", ")"}, "a\nb\nc"},
    {"[%1=%2:,^1=^2:]1", {"(", "x", "1", "y", "2", ")"}, "x=1,y=2"},
    {"[%2 of %1:; ^2 of ^1:]1", {"(", "x", "1", "y", "2", ")"}, "1 of x; 2 of y"},
    {"[:^1:]1", {"(", "a", "b", ")"}, "ab"},
    {"[%1::]1", {"(", "a", "b", ")"}, "a"},
    {"[%1:, ^1:]1 and [%1:, ^1:]1", {"(", "a", "b", ")"}, "a, b and a, b"},
    {"[%1%:, ^1%:]1", {"(", "5", "10", ")"}, "5%, 10%"},
    {"[%1:, ^1:]1", {"(", "%1", "^1", ")"}, "%1, ^1"},
    // Items that lack texts, parts that lack marks.
    {"[%1=%2:,^1=^2:]1", {"(", "x", "1", "y", ")"}, "x=1,y=^2"},
    // Lists without a sublist and sublists without a list.
    {"a[%1:, ^1:]2b", {"(", "x", ")"}, "ab"},
    {"a[%1:, ^1:]1b", {"(", ")"}, "ab"},
    {"Structure ^1", {"UN", "(", "hidden", ")"}, "Structure UN"},
    // What only looks like a list.
    {"[^1]", {"a"}, "[a]"},
    {"[a:b:]0 ^1", {"x"}, "[a:b:]0 x"},
    {"[%1:x:]:]1", {"(", "a", "b", ")"}, "ax:]"},
};

TEST(PatternExpansion, FillsMarksAndLists) {
    for (const PatternCase& test : kCases) {
        EXPECT_EQ(pivot::ExpandPattern(test.fPattern, MakeArguments(test.fArguments)), test.fWords) << test.fPattern;
    }
}

TEST(PatternExpansion, IsLinear) {
    EXPECT_EQ(pivot::ExpandPattern(std::string(200'000, '['), {}).size(), 200'000u);
    std::string colons = "[";
    for (int i = 0; i < 100'000; ++i) colons += ":]";
    EXPECT_EQ(pivot::ExpandPattern(colons, {}).size(), colons.size());
}

}  // namespace
}  // namespace hierfit
