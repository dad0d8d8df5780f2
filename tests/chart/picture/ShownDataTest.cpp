#include "host/chart/picture/ShownData.h"

#include <limits>

#include "host/SystemMissing.h"
#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Levels.h"
#include "host/data/VariableSource.h"
#include "tests/chart/ChartRun.h"

namespace hierfit::chart {
namespace {

using document::ChartValue;

const KEST_Format kNoDecimals{8, KEST_FormatType::Numeric, 0};

KEST_Variable Labelled() {
    return KEST_Variable({"arm", "Arm", kNoDecimals, 1, {{{1.0, "Placebo"}, {2.0, "Dose"}}, {{"a", "Letter"}}}});
}

TEST(ShownVariable, PutsValuesIntoWords) {
    const KEST_Variable variable = Labelled();
    VariableSetting plain, valueLabels, relabels, both;
    valueLabels.fpVariable = both.fpVariable = &variable;
    valueLabels.fUsesValueLabels = both.fUsesValueLabels = true;
    relabels.fvLabels = {{"1", "first"}, {"007", "seven"}, {"1", "last"}, {"00", "zero"}};
    both.fvLabels = {{"1", "given"}};
    both.fPrefix = "Arm = ";
    Field field{};
    field.fFormat = KEST_Format{40, KEST_FormatType::Numeric, 2};
    const std::vector<std::tuple<const VariableSetting*, const Field*, ChartValue, std::string>> cases = {
        {nullptr, nullptr, std::monostate(), ""}, {nullptr, nullptr, 1.5, "1.5"},
        {nullptr, nullptr, kSystemMissing, "."},  {&plain, &field, 1e6, "1000000.00"},
        {&valueLabels, &field, 3.0, "3"},  // the variable's format counts
        {&valueLabels, &field, "a", "Letter"},    {&relabels, &field, "01", "last"},
        {&relabels, &field, 7.0, "seven"},        {&relabels, &field, "70", "70"},
        {&relabels, &field, 0.0, "zero"},         {&both, &field, 1.0, "Arm = given"},
        {&both, &field, 2.0, "Arm = Dose"},       {&both, &field, "z", "Arm = z"},
    };
    const document::ChartVariable data{"arm", {}};
    for (const auto& [setting, itsField, value, words] : cases) {
        EXPECT_EQ(ShownVariable(data, itsField, setting).Words(value), words);
    }
}

TEST(ShownVariable, ShowsFiguresWithDecimalsInCommon) {
    using Figures = std::vector<std::string>;
    const KEST_Format twoDecimals{8, KEST_FormatType::Numeric, 2};
    const std::tuple<std::vector<ChartValue>, std::optional<KEST_Format>, Figures> cases[] = {
        {{9.4404, 14.0, 14.927}, kNoDecimals, {"9.44", "14.00", "14.93"}},
        {{0.76766, 0.95}, std::nullopt, {"0.768", "0.950"}},
        {{0.0123, 140.25}, std::nullopt, {"0.01", "140.25"}},
        {{2e-7, 3e-9}, std::nullopt, {"2e-07", "3e-09"}},
        {{50.5, 126.0}, twoDecimals, {"50.50", "126.00"}},
        {{0.00001, 140.25, kSystemMissing}, std::nullopt, {"1e-05", "140.25", "."}},
        {{2.5e10, 1.25}, std::nullopt, {"25000000000", "1.25"}},
    };
    for (const auto& [values, format, expected] : cases) {
        const document::ChartVariable data{"x", values};
        Field field{};
        field.fFormat = format;
        const ShownVariable variable(data, &field, nullptr);
        Figures figures;
        for (const ChartValue& value : values) figures.push_back(variable.Figure(std::get<double>(value)));
        EXPECT_EQ(figures, expected);
    }
}

TEST(CutCharacters, CountsCharacters) {
    const std::tuple<std::string, std::size_t, std::string> cases[] = {
        {"ääää", 4, "ääää"}, {"ääää", 3, "ää\u2026"}, {"", 3, ""}, {"a\xff\xff\xff", 3, "a\uFFFD\u2026"}};
    for (const auto& [text, count, cut] : cases) EXPECT_EQ(CutCharacters(text, count), cut);
    EXPECT_EQ(CutName(std::string(1'000'000, 'w')).size(), 119 + std::string("\u2026").size());
}

TEST(ShownData, FindsBySlotThenByNameWithinTheSource) {
    Specification specification;
    specification.fvFields.push_back({"y", "target", "", false, "", "Label of y", {}});
    const std::vector<document::ChartSource> data = {
        {"one", 0, {{"x", {1.0}}, {"target", {2.0}}, {"empty", {std::monostate()}}}},
        {"two", 0, {{"x", {3.0}}}},
        {"three", 0, {{"x", {4.0}}}}};
    VariableSetting second;
    second.fName = "x";
    second.fIndex = 1;
    second.fLabel = "second x";
    const std::vector<VariableSetting> settings = {second};
    const ShownData shown(specification, data, settings);
    EXPECT_EQ(shown.Find("", "x")->NumberAt(0), 1.0);
    EXPECT_EQ(shown.Find("", "x")->Label(), "");
    EXPECT_EQ(shown.Find("two", "x")->Label(), "second x");
    EXPECT_EQ(shown.Find("three", "x")->Label(), "");
    EXPECT_EQ(shown.Find("", "y")->Label(), "Label of y");
    for (const char* missing : {"", "empty", "z"}) EXPECT_EQ(shown.Find("", missing), nullptr) << missing;
    EXPECT_EQ(shown.Find("two", "target"), nullptr);
}

TEST(Levels, KeepValuesApartInOrderOfAppearance) {
    const KEST_Variable variable = Labelled();
    VariableSetting setting;
    setting.fvLabels = {{"1", "same"}, {"2", "same"}};
    const document::ChartVariable data{"x", {2.0, "b", 1.0, 2.0, "2", std::monostate(), kSystemMissing, ""}};
    const ShownVariable shown(data, nullptr, &setting);
    const Levels levels(&shown);
    EXPECT_EQ(levels.Texts(), (std::vector<std::string>{"same (2)", "b", "same (1)", "same (2)", ""}));
    const std::vector<std::optional<std::size_t>> rows = {0, 1, 2, 0, 3, {}, {}, 4, {}};
    for (std::size_t row = 0; row < rows.size(); ++row) EXPECT_EQ(levels.At(row), rows[row]) << row;
}

TEST(RunVariables, GiveLabelsAndFormatsToTheirNames) {
    const data::VariableSource source({{"yield", "Yield (t)", kNoDecimals, 3, {}}, {"dose", {}, kNoDecimals, 3, {}}});
    test::ChartRun run;
    run->SetDataSource(&source);
    EXPECT_EQ(LabelOfNamed("yield"), "Yield (t)");
    for (const char* name : {"dose", "absent", ""}) EXPECT_EQ(LabelOfNamed(name), name);
    VariableSetting setting;
    setting.fLabel = "dose";
    EXPECT_EQ(ShownVariable({"effect1", {}}, nullptr, &setting).Words(2.6), "3");
}

}  // namespace
}  // namespace hierfit::chart
