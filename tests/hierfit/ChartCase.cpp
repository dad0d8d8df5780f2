#include "tests/hierfit/ChartCase.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/hierfit/Drawing.h"

namespace hierfit::test {

namespace {

class Words : public context::Translator {
  public:
    std::optional<std::string_view> Find(std::string_view key) const override {
        static const std::map<std::string_view, std::string_view> kTexts = {
            {"Gamma", "G"},
            {"Power", "P"},
            {"Simple Higher", "^1: ^2 > ^3"},
            {"Simple Lower", "^1: ^2 < ^3"},
            {"Simple Same", "^1: ^2 ~ ^3"},
            {"Deviation Higher", "^1: ^2 up"},
            {"Deviation Lower", "^1: ^2 down"},
            {"Deviation Same", "^1: ^2 same"},
            {"Horizontal Line Simple", "^1 at ^2 = ^3 (^3)"},
        };
        const auto found = kTexts.find(key);
        return found == kTexts.end() ? std::nullopt : std::optional(found->second);
    }
};

const Words kWords;

}  // namespace

ChartStage::ChartStage() : fRun(kSamplePmml, &kWords) {
    fStats.SetMetaData(fRun.GetMetaData());
    BuildSettings& settings = *fStats.CreateBuildSettings();
    settings.fTargetIndex = 0;
    settings.fDistribution = DistributionOfTarget::GAMMA;
    settings.fLink = LinkFunctionType::POWER;
    settings.fLinkParamText = "2";
    settings.fvFixedEffectList = {Effect({"x"}), Effect({"a"}), Effect({"b", "x", "a"})};
    settings.fPAdjustment = PAdjustment::SEQSIDAK;
}

EffectStruct ChartStage::Effect(const Strings& fields) {
    EffectStruct effect;
    for (const std::string& field : fields) {
        effect.fvFieldNames.push_back(field);
        effect.fvFieldIndex.push_back(fRun.GetDataSource()->FindVarIndex(field, 0));
        effect.fvNestingLevels.push_back(0);
    }
    return effect;
}

CFStatVariableValue ChartStage::Value(const std::string& field, const std::string& text) {
    const KEST_DataSource& fields = *fRun.GetDataSource();
    CFStatVariableValue value;
    value.SetCompleteValue(text, fields.GetVariable(fields.FindVarIndex(field, 0)), 0);
    return value;
}

void CheckCharts(std::span<const ChartCase> cases) {
    for (const ChartCase& one : cases) {
        SCOPED_TRACE("case " + std::to_string(&one - cases.data()));
        ChartStage stage;
        one.fMake(stage);
        const std::string drawn = Draw(stage.fRun.GetItems(), "charts");
        EXPECT_EQ(drawn.empty(), one.fvHolds.empty()) << drawn;
        std::size_t place = 0;
        for (const std::string& text : one.fvHolds) {
            const bool isLacking = text.starts_with('!');
            const std::size_t found = isLacking ? drawn.find(text.substr(1)) : drawn.find(text, place);
            EXPECT_EQ(found == std::string::npos, isLacking) << text << "\n in \n" << drawn;
            if (!isLacking && found != std::string::npos) place = found;
        }
        EXPECT_EQ(stage.fRun.Diagnostics(), one.fDiagnostics);
    }
}

}  // namespace hierfit::test
