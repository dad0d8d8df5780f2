#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "hierfit/store/EffectNaming.h"
#include "hierfit/tables/TableParts.h"
#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {
namespace {

class Texts : public testing::Test {
  protected:
    ProcedureRun fRun;
    HFITOutputStats fStats;
};

TEST_F(Texts, NamesOfLinksDependOnTheDistribution) {
    using D = DistributionOfTarget;
    using L = LinkFunctionType;
    const std::tuple<int, int, const char*, const char*> cases[] = {
        {L::LOGIT, D::NOMINAL, "Generalized logit", ""},
        {L::LOGIT, D::ORDINAL, "Cumulative logit", ""},
        {L::CAUCHIT, D::BINOMIAL, "Unknown", ""},
        {L::CAUCHIT, D::ORDINAL, "Cumulative Cauchit", ""},
        {L::LOG, D::NOMINAL, "Unknown", ""},
        {L::POWER, D::OTHER, "Power", "Power(^1)"},
        {L::POWER, D::ORDINAL, "Unknown", ""},
        {L::OTHER, D::NORMAL, "Unknown", ""},
    };
    for (const auto& [link, distribution, text, pattern] : cases) {
        EXPECT_EQ(fStats.LinkText(link, distribution, false), text);
        EXPECT_EQ(LinkPattern(link, distribution), pattern);
    }
}

TEST(EffectNames, OpenABracketWhereTheLevelRises) {
    const std::tuple<std::vector<int>, Strings, const char*> cases[] = {
        {{0, 1, 0}, {"a", "b", "c"}, "a(b * c)"},
        {{0, 1, 2}, {"a", "b", "c"}, "a(b(c))"},
        {{5, 1}, {"a", "b"}, "a(b)"},
        {{0}, {"a", "b", "c"}, "a * b * c"},
    };
    for (const auto& [levels, fields, name] : cases) {
        EffectStruct effect;
        effect.fvNestingLevels = levels;
        EXPECT_EQ(EffectName(effect, fields), name);
    }
}

FactorTerm Factor(const char* field, const char* value, bool nest = false) {
    return {field, -1, CFStatVariableValue(value), nest};
}

TEST_F(Texts, TermsArePutTogether) {
    const std::pair<RegressionParameter, const char*> cases[] = {
        {{{}, {}, true, "x"}, "Intercept"},
        {{{}, {}, false, "x"}, ""},
        {{{{"a", 0, 0}}, {}, false, ""}, "a"},
        {{{{"a", 0, 3}, {"b", 0, 1}}, {}, false, ""}, "a*a*a*b"},
        {{{}, {Factor("b", "1")}, false, ""}, "b=1"},
        {{{}, {Factor("b", "1"), Factor("c", "2")}, false, ""}, "[b=1]*[c=2]"},
        {{{}, {Factor("b", ""), Factor("c", "3", true), Factor("d", "4", true)}, false, ""}, "[b]([c=3]([d=4]))"},
        {{{{"a", 0, 2}}, {Factor("b", "1")}, false, ""}, "a*a*[b=1]"},
        {{{{"a", 0, 1}}, {Factor("b", "1", true)}, false, ""}, "a([b=1])"},
    };
    for (const auto& [term, expected] : cases) {
        std::string text = "before";
        EXPECT_TRUE(fStats.RegressionParameterText(term, text));
        EXPECT_EQ(text, expected);
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
    StringMap map;
    map.fMapId = 3;
    map.Append({"P", {{{"a", 0, std::numeric_limits<int>::max()}}, {}, false, ""}});
    maps.Append(std::move(map));
    for (const int mapId : {3, 1}) {
        EXPECT_FALSE(fStats.PrintableText(Pattern("P", {}, mapId), text)) << "the document's labels are too long";
        EXPECT_EQ(text, "P");
    }
    EXPECT_EQ(fRun.Diagnostics(), "the labels of model terms are too long, and those that follow are left empty\n");
}

TEST_F(Texts, CovarianceParametersAreLabelled) {
    RandomSpec withIntercept;
    withIntercept.fIntercept = true;
    withIntercept.fvEffectList.push_back({{"a", "b"}, {0, 1}, {0, 1}});
    RandomSpec without = withIntercept;
    without.fIntercept = false;
    fStats.CreateBuildSettings()->fvRandomSpecs = {withIntercept, without};
    const std::tuple<PrintableList, int, const char*, const char*> cases[] = {
        {Pattern("Variance "), -1, "Variance ", ""},
        {Pattern("UN (^1,^2)", {"2", "1"}), 0, "UN (2,1)", "2|1|"},
        {Pattern("^1^2^3", {"1", "2", "3"}), 0, "", "1|2|3|"},
        {Pattern("VarOfEffect", {"0"}), 0, "VarOfEffect", "Intercept|"},
        {Pattern("VarOfEffect", {"1"}), 0, "VarOfEffect", "a(b)|"},
        {Pattern("VarOfEffect", {"0"}), 1, "VarOfEffect", "a(b)|"},
        {Pattern("VarOfEffect", {"-3"}), 1, "VarOfEffect", ""},
        {Pattern("VarOfEffect", {"0", "0"}), 0, "VarOfEffect", ""},
        {Pattern("VarOfEffect", {"2"}), 0, "", ""},
        {Pattern("VarOfEffect", {"0"}), -1, "", ""},
        {Pattern("VarOfEffect", {"0"}), 2, "", ""},
    };
    for (const auto& [list, block, expected, expectedArgs] : cases) {
        std::string key;
        Strings args;
        std::string label;
        fStats.CovarianceParameterLabel(list, block, key, args, label);
        EXPECT_EQ(label, expected);
        EXPECT_EQ(Join(args, "", "|"), expectedArgs);
        EXPECT_EQ(key, list.fMapId == -1 ? list.fPattern : "");
    }
    EXPECT_EQ(fRun.Diagnostics(),
              R"(a covariance parameter of random effect block 1 has no label, since there is no effect 2
a covariance parameter of the residual has no label, since there is no effect 0
a covariance parameter of random effect block 3 has no label, since there is no effect 0
)");
}

TEST(LongLabels, AreCutBetweenCharacters) {
    const std::string a(255, 'a');
    const std::string umlaut = "\xC3\xA4";
    const std::string umlauts = Join(Strings(255, umlaut), "", "");
    const std::pair<std::string, std::string> cases[] = {
        {"", "''"},
        {a, "'" + a + "'"},
        {a + "a", "[:^1:]1(['" + a + "'; 'a'])"},
        {umlauts + umlauts + umlaut, "[:^1:]1(['" + umlauts + "'; '" + umlauts + "'; '" + umlaut + "'])"},
    };
    for (const auto& [label, drawn] : cases) {
        const ProcedureRun run;
        EXPECT_EQ(DrawText(*LabelCell(label)->GetText()), drawn);
    }
}

}  // namespace
}  // namespace hierfit::test
