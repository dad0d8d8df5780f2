#include "tests/hierfit/ChartCase.h"

#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"

namespace hierfit::test {

namespace {

class Words : public context::Translator {
  public:
    std::optional<std::string_view> Find(std::string_view key) const override {
        for (const auto& [word, text] : kTexts) {
            if (word == key) return text;
        }
        return std::nullopt;
    }

  private:
    static constexpr std::pair<std::string_view, std::string_view> kTexts[] = {
        {"Simple Higher", "^1: ^2 > ^3"},
        {"Simple Lower", "^1: ^2 < ^3"},
        {"Simple Same", "^1: ^2 ~ ^3"},
        {"Deviation Higher", "^1: ^2 up"},
        {"Deviation Lower", "^1: ^2 down"},
        {"Deviation Same", "^1: ^2 same"},
        {"Horizontal Line Simple", "^1 at ^2 = ^3 (^3)"},
    };
};

/// The fields of the samples, two values of "a" and one of "b" with labels.
std::string LabelledPmml() {
    std::string pmml = SamplePmml();
    for (const auto& [from, to] :
         {std::pair{"<Value value=\"1\"/><Value value=\"2\"/><Value value=\"3\"/>",
                    "<Value value='1' displayValue='one'/><Value value='2' displayValue='two'/>"},
          std::pair{"<Value value=\"lo\"/>", "<Value value='lo' displayValue='Low'/>"}}) {
        pmml.replace(pmml.find(from), std::string(from).size(), to);
    }
    return pmml;
}

const Words kWords;

std::string DrawCharts(const std::list<document::Item>& items) {
    std::string drawn;
    for (const document::Item& item : items) {
        if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) drawn += DrawChart(*chart);
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) {
            drawn += "heading " + DrawText(heading->fTitle) + "\n" + DrawCharts(heading->fItems);
        }
    }
    return drawn;
}

void CheckXml(const std::string& xml, const ChartCase& one) {
    std::size_t place = 0;
    for (const std::string& text : one.fvXmlHolds) {
        const std::size_t found = xml.find(text, place);
        EXPECT_NE(found, std::string::npos) << text;
        if (found != std::string::npos) place = found;
    }
    for (const std::string& text : one.fvXmlLacks) EXPECT_EQ(xml.find(text), std::string::npos) << text;
}

}  // namespace

ChartStage::ChartStage() : fRun(LabelledPmml(), &kWords) {
    fStats.SetMetaData(fRun.GetMetaData());
    BuildSettings& settings = *fStats.CreateBuildSettings();
    settings.fTargetIndex = Index("y");
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
        effect.fvFieldIndex.push_back(Index(field));
        effect.fvNestingLevels.push_back(0);
    }
    return effect;
}

CFStatVariableValue ChartStage::Value(const std::string& field, const std::string& text) {
    CFStatVariableValue value;
    value.SetCompleteValue(text, fRun.GetDataSource()->GetVariable(Index(field)), 0);
    return value;
}

std::string XmlOfCharts(const std::list<document::Item>& items) {
    std::string xml;
    for (const document::Item& item : items) {
        if (const auto* chart = std::get_if<document::Chart>(&item.fContent)) xml += chart->fXml;
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) xml += XmlOfCharts(heading->fItems);
    }
    return xml;
}

void CheckChart(const ChartCase& one) {
    SCOPED_TRACE(one.fName);
    ChartStage stage;
    one.fFill(stage);
    HFITChartOutput charts(&stage.fRun.GetOutput(), stage.fRun.GetDataSource(), &stage.fStats);
    one.fBuild(stage, charts);
    const std::list<document::Item>& items = stage.fRun.GetDocument().fItems;
    const std::string drawn = DrawCharts(items);
    if (one.fDrawn) {
        EXPECT_EQ(drawn.empty() ? "" : "\n" + drawn, one.fDrawn);
    }
    CheckXml(XmlOfCharts(items), one);
    EXPECT_EQ(stage.fRun.Diagnostics(), one.fDiagnostics);
}

}  // namespace hierfit::test
