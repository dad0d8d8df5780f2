#include <cmath>
#include <limits>
#include <tuple>

#include "host/SystemMissing.h"
#include "host/data/VariableSource.h"

namespace hierfit {
namespace {

KEST_Format F(std::uint8_t decimals) { return {8, KEST_FormatType::Numeric, decimals}; }

constexpr KEST_Format kA8{8, KEST_FormatType::String, 0};

TEST(ToString, ShowsValuesInTheirFormat) {
    const std::tuple<OBS, KEST_Format, const char*> cases[] = {
        {OBS(2.5), F(2), "2.50"},
        {OBS(-2.5), F(0), "-2"},
        {OBS(0.005), F(2), "0.01"},
        {OBS(-0.004), F(2), "0.00"},
        {OBS(1e36), F(2), "1000000000000000042420637374017961984.00"},
        {OBS(1e38), F(2), "1e+38"},
        {OBS(0.1), F(40), "0.1"},
        {OBS(), F(2), "."},
        {OBS(std::nan("")), F(2), "."},
        {OBS(-std::numeric_limits<double>::infinity()), F(2), "."},
        {OBS(0.1), kA8, "0.1"},
        {OBS(-0.0), kA8, "0"},
        {OBS("  two words  "), kA8, "  two words"},
        {OBS("   "), kA8, ""},
    };
    for (const auto& [value, format, text] : cases) EXPECT_EQ(ToString(&value, format), text);
    EXPECT_EQ(ToString(nullptr, F(2)), "");
}

TEST(ValueLabelMap, FindsByTheValuesType) {
    const KEST_ValueLabels labels{{{1, "one"}, {0, "none"}, {0.2, "some"}}, {{"1", "text one"}, {"", "blank"}}};
    const std::pair<OBS, const char*> cases[] = {
        {OBS(1.0), "one"},  {OBS(0.2), "some"},  {OBS(-0.0), "none"},          {OBS("1"), "text one"},
        {OBS(""), "blank"}, {OBS(2.0), nullptr}, {OBS(std::nan("")), nullptr},
    };
    for (const auto& [value, label] : cases) EXPECT_STREQ(KEST_ValueLabelMap(labels).GetLabel(&value), label);
    EXPECT_EQ(KEST_ValueLabelMap(labels).GetLabel(static_cast<const OBS*>(nullptr)), nullptr);
}

TEST(VariableSource, FindsVariablesByNameAndIndex) {
    std::vector<KEST_VariableDefinition> definitions(3);
    definitions[0].fName = definitions[2].fName = "dose";
    definitions[0].fLabel = "Dose (mg)";
    definitions[1].fName = "Dose";
    definitions[1].fFormat = kA8;
    const data::VariableSource source(std::move(definitions));
    const std::pair<const char*, int> cases[] = {{"dose", 0}, {"Dose", 1}, {"DOSE", -1}};
    for (const auto& [name, index] : cases) EXPECT_EQ(source.FindVarIndex(name, 0), index) << name;
    EXPECT_EQ(source.GetVariable(-1), nullptr);
    EXPECT_EQ(source.GetVariable(3), nullptr);
    EXPECT_STREQ(source.GetVariable(0)->GetLabel(), "Dose (mg)");
    EXPECT_EQ(source.GetVariable(1)->GetLabel(), nullptr);
    EXPECT_TRUE(source.GetVariable(1)->IsString());
    EXPECT_FALSE(source.GetVariable(2)->IsString());
}

}  // namespace
}  // namespace hierfit
