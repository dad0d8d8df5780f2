#include <cmath>
#include <limits>

#include "host/SystemMissing.h"
#include "host/context/RunContext.h"
#include "host/data/VariableSource.h"

namespace hierfit {
namespace {

KEST_Format F(std::uint8_t decimals) { return {8, KEST_FormatType::Numeric, decimals}; }

constexpr KEST_Format kA8{8, KEST_FormatType::String, 0};

TEST(ToString, ShowsValuesInTheirFormat) {
    struct Case {
        OBS fValue;
        KEST_Format fFormat;
        const char* fText;
    };
    const Case cases[] = {
        {OBS(2.5), F(2), "2.50"},
        {OBS(-2.5), F(0), "-2"},
        {OBS(0.005), F(2), "0.01"},
        {OBS(-0.004), F(2), "0.00"},
        {OBS(-0.0), F(0), "0"},
        {OBS(-0.006), F(2), "-0.01"},
        {OBS(123456789.125), F(2), "123456789.12"},
        {OBS(1e36), F(2), "1000000000000000042420637374017961984.00"},
        {OBS(1e38), F(2), "1e+38"},
        {OBS(-1.5e300), F(2), "-1.5e+300"},
        {OBS(0.1), F(40), "0.1"},
        {OBS(kSystemMissing), F(2), "."},
        {OBS(), kA8, "."},
        {OBS(std::nan("")), F(2), "."},
        {OBS(-std::numeric_limits<double>::infinity()), F(2), "."},
        {OBS(0.1), kA8, "0.1"},
        {OBS(-0.0), kA8, "0"},
        {OBS(3.0), kA8, "3"},
        {OBS("  two words  "), kA8, "  two words"},
        {OBS("12.50 "), F(0), "12.50"},
        {OBS("   "), kA8, ""},
    };
    for (const auto& [value, format, text] : cases) EXPECT_EQ(ToString(&value, format), text);
    EXPECT_EQ(ToString(nullptr, F(2)), "");
}

TEST(ValueLabelMap, FindsByTheValuesType) {
    KEST_ValueLabels labels;
    labels.fOfNumbers = {{1, "one"}, {0, "none"}, {0.2, "some"}};
    labels.fOfTexts = {{"1", "text one"}, {"", "blank"}};
    const KEST_ValueLabelMap map(labels);
    EXPECT_STREQ(map.GetLabel(1.0), "one");
    EXPECT_STREQ(map.GetLabel(-0.0), "none");
    EXPECT_STREQ(map.GetLabel(std::string("1")), "text one");
    EXPECT_STREQ(map.GetLabel(std::string()), "blank");
    EXPECT_EQ(map.GetLabel(2.0), nullptr);
    EXPECT_EQ(map.GetLabel(std::nan("")), nullptr);
    const OBS number(0.2);
    const OBS text("1");
    EXPECT_STREQ(map.GetLabel(&number), "some");
    EXPECT_STREQ(map.GetLabel(&text), "text one");
    EXPECT_EQ(map.GetLabel(static_cast<const OBS*>(nullptr)), nullptr);
}

std::vector<KEST_VariableDefinition> MakeDefinitions() {
    std::vector<KEST_VariableDefinition> definitions(3);
    definitions[0].fName = "dose";
    definitions[0].fLabel = "Dose (mg)";
    definitions[1].fName = "Dose";
    definitions[1].fFormat = kA8;
    definitions[1].fMeasurementLevel = 1;
    definitions[2].fName = "dose";
    return definitions;
}

TEST(VariableSource, FindsVariablesByNameAndIndex) {
    const data::VariableSource source(MakeDefinitions());
    EXPECT_EQ(source.FindVarIndex("dose", 0), 0);
    EXPECT_EQ(source.FindVarIndex("Dose", 0), 1);
    EXPECT_EQ(source.FindVarIndex("DOSE", 0), -1);
    EXPECT_EQ(source.GetVariable(-1), nullptr);
    EXPECT_EQ(source.GetVariable(3), nullptr);
    EXPECT_STREQ(source.GetVariable(0)->GetLabel(), "Dose (mg)");
    EXPECT_EQ(source.GetVariable(1)->GetLabel(), nullptr);
    EXPECT_TRUE(source.GetVariable(1)->IsString());
    EXPECT_FALSE(source.GetVariable(2)->IsString());
}

TEST(VariableSource, RemembersAnUnknownNameWithTheElementTouchedLast) {
    context::RunContext run({}, nullptr, "");
    const context::RunContext::Activation activation(run);
    const data::VariableSource source(MakeDefinitions());
    run.Touch(7);
    source.FindVarIndex("dose", 0);
    EXPECT_EQ(run.GetMiss(), nullptr);
    source.FindVarIndex("Treatmnt", 0);
    ASSERT_NE(run.GetMiss(), nullptr);
    EXPECT_EQ(run.GetMiss()->fKind, context::Miss::Kind::Field);
    EXPECT_EQ(run.GetMiss()->fName, "Treatmnt");
    EXPECT_EQ(run.GetMiss()->fNode, 7U);
}

}  // namespace
}  // namespace hierfit
