#include <gtest/gtest.h>

#include "hierfit/store/EffectNaming.h"
#include "hierfit/tables/TableParts.h"
#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/hierfit/Samples.h"

namespace hierfit::test {
namespace {

class Texts : public testing::Test {
  protected:
    ProcedureRun fRun{SamplePmml()};
    HFITOutputStats fStats;
};

TEST_F(Texts, NamesOfLinksDependOnTheDistribution) {
    struct Case {
        int fLink;
        int fDistribution;
        const char* fText;
        const char* fPattern;
    };
    using D = DistributionOfTarget;
    using L = LinkFunctionType;
    const Case cases[] = {
        {L::LOGIT, D::BINOMIAL, "Logit", ""},
        {L::LOGIT, D::NOMINAL, "Generalized logit", ""},
        {L::LOGIT, D::ORDINAL, "Cumulative logit", ""},
        {L::CAUCHIT, D::BINOMIAL, "Unknown", ""},
        {L::CAUCHIT, D::ORDINAL, "Cumulative Cauchit", ""},
        {L::IDENTITY, D::ORDINAL, "Unknown", ""},
        {L::LOG, D::NOMINAL, "Unknown", ""},
        {L::POWER, D::GAMMA, "Power", "Power(^1)"},
        {L::POWER, D::OTHER, "Power", "Power(^1)"},
        {L::POWER, D::ORDINAL, "Unknown", ""},
        {L::OTHER, D::NORMAL, "Unknown", ""},
        {-1, D::NORMAL, "Unknown", ""},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(fStats.LinkText(one.fLink, one.fDistribution, false), one.fText);
        EXPECT_EQ(LinkPattern(one.fLink, one.fDistribution), one.fPattern);
    }
}

TEST(EffectNames, OpenABracketWhereTheLevelRises) {
    struct Case {
        std::vector<int> fvLevels;
        std::size_t fFields;
        const char* fName;
    };
    const Case cases[] = {
        {{}, 0, ""},
        {{0}, 1, "a"},
        {{0, 0}, 2, "a * b"},
        {{0, 1}, 2, "a(b)"},
        {{0, 1, 0}, 3, "a(b * c)"},
        {{0, 1, 2}, 3, "a(b(c))"},
        {{5, 1}, 2, "a(b)"},
        {{0}, 3, "a * b * c"},
        {{0, -1}, 2, "a * b"},
    };
    for (const Case& one : cases) {
        EffectStruct effect;
        effect.fvNestingLevels = one.fvLevels;
        const std::vector<std::string> names{"a", "b", "c"};
        EXPECT_EQ(EffectName(effect, {names.begin(), names.begin() + static_cast<std::ptrdiff_t>(one.fFields)}),
                  one.fName);
    }
}

FactorTerm Factor(const char* field, const char* value, bool nest = false) {
    return {field, -1, CFStatVariableValue(value), nest};
}

TEST_F(Texts, TermsArePutTogether) {
    struct Case {
        RegressionParameter fTerm;
        const char* fText;
    };
    const Case cases[] = {
        {{{}, {}, true, "x"}, "Intercept"},
        {{{}, {}, false, "x"}, ""},
        {{{{"a", 0, 0}}, {}, false, ""}, "a"},
        {{{{"a", 0, 3}, {"b", 0, 1}}, {}, false, ""}, "a*a*a*b"},
        {{{}, {Factor("b", "1")}, false, ""}, "b=1"},
        {{{}, {Factor("b", "")}, false, ""}, "b"},
        {{{}, {Factor("b", "1"), Factor("c", "2")}, false, ""}, "[b=1]*[c=2]"},
        {{{}, {Factor("b", "2"), Factor("c", "3", true)}, false, ""}, "[b=2]([c=3])"},
        {{{}, {Factor("b", ""), Factor("c", "3", true), Factor("d", "4", true)}, false, ""}, "[b]([c=3]([d=4]))"},
        {{{{"a", 0, 2}}, {Factor("b", "1")}, false, ""}, "a*a*[b=1]"},
        {{{{"a", 0, 1}}, {Factor("b", "1", true)}, false, ""}, "a([b=1])"},
    };
    for (const Case& one : cases) {
        std::string text = "before";
        EXPECT_TRUE(fStats.RegressionParameterText(one.fTerm, text));
        EXPECT_EQ(text, one.fText);
    }
}

PrintableList Pattern(const std::string& pattern, const Strings& arguments = {}, int mapId = -1) {
    PrintableList list;
    list.fPattern = pattern;
    list.fMapId = mapId;
    for (const std::string& argument : arguments) list.fvLists.emplace_back().fPattern = argument;
    return list;
}

TEST_F(Texts, ListsAreResolvedByTheFirstMapOfTheirNumber) {
    std::string text = "before";
    EXPECT_FALSE(fStats.PrintableText(Pattern("P", {}, 1), text));
    StringMapCollect& maps = *fStats.CreateStringMapCollect();
    for (const char* field : {"first", "second"}) {
        StringMap map;
        map.fMapId = 1;
        map.Append({"P", {{{field, 0, 1}}, {}, false, ""}});
        map.Append({"P", {{{"later", 0, 1}}, {}, false, ""}});
        maps.Append(std::move(map));
    }
    EXPECT_FALSE(fStats.PrintableText(Pattern("P", {}, 2), text));
    EXPECT_FALSE(fStats.PrintableText(Pattern("p", {}, 1), text));
    EXPECT_EQ(text, "before");
    EXPECT_TRUE(fStats.PrintableText(Pattern("P", {}, 1), text));
    EXPECT_EQ(text, "first");
    EXPECT_TRUE(fStats.PrintableText(Pattern("P"), text));
    EXPECT_EQ(text, "P");
}

TEST_F(Texts, CovarianceParametersAreLabelled) {
    RandomSpec withIntercept;
    withIntercept.fIntercept = true;
    withIntercept.fvEffectList.push_back({{"a", "b"}, {0, 1}, {0, 1}});
    RandomSpec without = withIntercept;
    without.fIntercept = false;
    fStats.CreateBuildSettings()->fvRandomSpecs = {withIntercept, without};
    struct Case {
        PrintableList fList;
        int fBlock;
        const char* fLabel;
        const char* fArgs;
    };
    const Case cases[] = {
        {Pattern("Variance "), -1, "Variance ", ""},
        {Pattern("TP rho ^1", {"2"}), -1, "TP rho 2", "2|"},
        {Pattern("UN (^1,^2)", {"2", "1"}), 0, "UN (2,1)", "2|1|"},
        {Pattern("^1", {""}), 0, "", "|"},
        {Pattern("^1^2^3", {"1", "2", "3"}), 0, "", "1|2|3|"},
        {Pattern("Variance ", {}, 1), 0, "", ""},
        {Pattern("VarOfEffect", {"0"}), 0, "VarOfEffect", "Intercept|"},
        {Pattern("VarOfEffect", {"1"}), 0, "VarOfEffect", "a(b)|"},
        {Pattern("VarOfEffect", {"0"}), 1, "VarOfEffect", "a(b)|"},
        {Pattern("VarOfEffect", {""}), 1, "VarOfEffect", ""},
        {Pattern("VarOfEffect", {"-3"}), 1, "VarOfEffect", ""},
        {Pattern("VarOfEffect", {"0", "0"}), 0, "VarOfEffect", ""},
        {Pattern("VarOfEffect", {"2"}), 0, "", ""},
        {Pattern("VarOfEffect", {"1"}), 1, "", ""},
        {Pattern("VarOfEffect", {"0"}), -1, "", ""},
        {Pattern("VarOfEffect", {"0"}), 2, "", ""},
    };
    for (const Case& one : cases) {
        std::string key;
        std::vector<std::string> args;
        std::string label;
        fStats.CovarianceParameterLabel(one.fList, one.fBlock, key, args, label);
        std::string joined;
        for (const std::string& arg : args) joined += arg + "|";
        EXPECT_EQ(label, one.fLabel);
        EXPECT_EQ(joined, one.fArgs);
        EXPECT_EQ(key, one.fList.fMapId == -1 ? one.fList.fPattern : "");
    }
    EXPECT_NE(fRun.Diagnostics().find("random effect block 2 has no label, since there is no effect 1\n"),
              std::string::npos);
}

TEST_F(Texts, LongLabelsAreCutBetweenCharacters) {
    const auto repeat = [](const std::string& character, int n) {
        std::string text;
        for (int i = 0; i < n; ++i) text += character;
        return text;
    };
    const std::string umlaut = "\xC3\xA4";
    struct Case {
        std::string fLabel;
        std::string fDrawn;
    };
    const Case cases[] = {
        {"", "''"},
        {repeat("a", 255), "'" + repeat("a", 255) + "'"},
        {repeat("a", 256), "[:^1:]1(['" + repeat("a", 255) + "'; 'a'])"},
        {repeat(umlaut, 255), "'" + repeat(umlaut, 255) + "'"},
        {repeat(umlaut, 511),
         "[:^1:]1(['" + repeat(umlaut, 255) + "'; '" + repeat(umlaut, 255) + "'; '" + umlaut + "'])"},
    };
    for (const Case& one : cases) EXPECT_EQ(DrawText(*LabelCell(one.fLabel)->GetText()), one.fDrawn);
}

}  // namespace
}  // namespace hierfit::test
