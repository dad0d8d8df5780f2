#include "host/ViZEditor.h"
#include "host/XDocument.h"
#include "host/XViZTemplate.h"
#include "host/chart/specification/ReadSpecification.h"
#include "tests/chart/ChartRun.h"
#include "tests/language/TemporaryFolder.h"

namespace hierfit::test {

namespace {

using language::test::TemporaryFolder;

constexpr const char* kChart = "<chart version=\"1\" template=\"T\"><plot arrange=\"free\"/></chart>";

bool Send(const std::string& xml) {
    XDocument document(xml);
    document.SetDescription(ChartString("D"));
    return document.SendChart(true, false, false);
}

TEST(SendTest, ChartHoldsWhatWasSentAndEveryCall) {
    ChartRun run;
    VarDataProcessor processor;
    processor.AddDataSource("s", 2);
    processor.AddVariable("s", "x", nullptr);
    XDocument document(kChart);
    document.SetChartData(&processor);
    XGraph graph = document.getExternalGraph();
    graph.getVariable("x", 0).setKESTVariable(nullptr);
    graph.getVariable("x", 1).setCategorical(false);
    graph.getVariable("absent", 0);
    graph.getVariable("x", 0).addRelabel(1, ChartString("one"));
    processor.SetVariableValue("s", "x", 2, 5);  // written late, sent all the same
    EXPECT_TRUE(document.SendChart(true, false, true));

    const auto& chart = std::get<document::Chart>(run->GetDocument().fItems.front().fContent);
    EXPECT_EQ(chart.fSendArguments, (std::array<bool, 3>{true, false, true}));
    EXPECT_EQ(chart.fvData, (std::vector<document::ChartSource>{{"s", 2, {{"x", {{}, {}, 5.0}}}}}));
    using Arguments = std::vector<document::ChartCall::Argument>;
    const Arguments relabel{std::string("1"), std::string("one")};
    const std::vector<document::ChartSetting> expected{{"x", 0, {{"setKESTVariable", {}}, {"addRelabel", relabel}}},
                                                       {"x", 1, {{"setCategorical", Arguments{false}}}},
                                                       {"absent", 0, {}}};
    EXPECT_EQ(chart.fvSettings, expected);
}

TEST(SendTest, WhatIsUnknownOrLackingIsToldOnceInARun) {
    const std::string chart =
        "<chart version='1' template='T'><plot arrange='free' hue='1'><dots/><dots/><color of='color'/>"
        "<points source='s' x='x' y='gone'/><points source='s' x='lost' y='unwritten'/>"
        "<points source='none' x='a' y='b'/><bars source='s' x='x' y='counts'/></plot>"
        "<inset at='anchor'><chart><plot><bars x='X' y='Y'/></plot></chart><stream>"
        "[{\"source\":\"i\",\"rows\":0,\"variables\":[{\"name\":\"Y\",\"values\":[1]}]}]</stream></inset></chart>";
    ChartRun run;
    VarDataProcessor processor;
    processor.AddDataSource("s", 1);
    processor.AddVariable("s", "x", nullptr);
    processor.AddVariable("s", "unwritten", nullptr);
    processor.SetVariableValue("s", "x", 0, 1);
    for (int time = 0; time < 2; ++time) {
        XDocument document(chart);
        document.SetChartData(&processor);
        EXPECT_TRUE(document.SendChart(true, false, false));
    }
    EXPECT_EQ(run.Diagnostics(),
              "chart T: unknown attribute \"hue\" of plot\nchart T: unknown element \"dots\" in plot\n"
              "chart T: its data hold no variable \"gone\"\nchart T: its data hold no variable \"lost\"\n"
              "chart T: its data hold no variable \"counts\"\nchart T: its data hold no variable \"color\"\n"
              "chart T: its data hold no variable \"X\"\n");
}

TEST(SendTest, WhatIsNoChartIsLeftOutAndSaysWhere) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "it has no XML"},
        {"<chart>\n <plot></chart>", "line 2, column 10 of its XML: mismatched tag"},
        {"<graph/>", "line 1, column 1 of its XML: element \"chart\" expected"},
        {"<!DOCTYPE chart><chart/>", "line 1, column 1 of its XML: document type declarations are not read"},
        {"\n  <chart version=\"2\"/>", "line 2, column 3 of its XML: version 1 expected"},
        {"<chart>" + std::string(std::size_t{16} << 20U, ' ') + "</chart>", "its XML is larger than 16 MiB"},
    };
    for (const auto& [xml, reason] : cases) {
        ChartRun run;
        EXPECT_FALSE(Send(xml));
        EXPECT_EQ(run.Diagnostics(), "chart \"D\" was left out: " + reason + "\n");
        EXPECT_TRUE(run->GetDocument().fItems.empty());
    }
    EXPECT_FALSE(Send(kChart)) << "without a run";
}

TEST(SendTest, TemplatesThatAreNoneConvertToNothing) {
    const TemporaryFolder folder;
    folder.Write("GLMMEmMeans.xml", "no chart");
    folder.Write("Own.xml", "<chart version=\"1\" template=\"Own\"><plot/></chart><!-- -->");
    context::Settings settings;
    settings.fTemplateFolder = folder.Path("");
    ChartRun run(settings);
    const auto convert = [](const char* name) {
        XViZTemplate chart;
        chart.setTemplateInternalName(name);
        chart.addLabel(0, "a<b=\"c\"\n");
        chart.addLabel(1, "no title");
        chart.addVariable("s", "v", true, "", "src", nullptr, "");
        std::string xml = "before";
        std::string second = "before";
        chart.convert(xml, second);
        EXPECT_EQ(second, "");
        return xml;
    };
    EXPECT_EQ(convert("Absent"), "");
    EXPECT_EQ(convert("GLMMEmMeans"), "");
    EXPECT_EQ(convert("Own"),
              "<chart version=\"1\" template=\"Own\"><plot/>"
              "  <title>a&lt;b&#61;&quot;c&quot;&#10;</title>\n"
              "  <field slot=\"s\" name=\"v\" source=\"src\" role=\"factor\"/>\n</chart><!-- -->");
    EXPECT_EQ(run.Diagnostics(),
              "there is no chart template Absent.xml\nchart template GLMMEmMeans.xml holds no chart\n");
}

TEST(SendTest, HistogramIsMergedWhereAllThreeCanBeRead) {
    const std::string histogram = "<?xml version=\"1.0\"?><!-- </chart> --><chart version=\"1\"><plot/></chart>";
    const std::string stream = R"([{"source":"s","rows":0,"variables":[{"name":"</chart>&","values":["]]>"]}]}])";
    ChartRun run;
    const auto merge = [](const std::string& graph, const std::string& inner, const std::string& data) {
        return ViZEditor::GetInstance().EmbedHistogramInGraph(graph, inner, data.data(), static_cast<int>(data.size()),
                                                              9);
    };
    EXPECT_EQ(merge(kChart, histogram, "[]"), "") << "not started";
    ChartRun::StartEditor();
    const auto merged = chart::ReadSpecification(merge(kChart, histogram, stream));
    EXPECT_EQ(std::get<chart::Reading>(merged).fvRemarks,
              std::vector<std::string>{"attribute fieldType of inset cannot be \"9\""});
    EXPECT_EQ(std::get<chart::Reading>(merged).fSpecification.fInset.value().fvData.size(), 1U);
    const std::array<std::string, 3> cases[] = {
        {kChart, histogram, "["},       {kChart, "<chart>", stream}, {kChart, "<graph/>", stream},
        {kChart, "", stream},           {"", histogram, stream},     {"<chart><plot></chart>", histogram, stream},
        {"</chart>", histogram, stream}};
    for (const auto& [graph, inner, data] : cases) EXPECT_EQ(merge(graph, inner, data), "") << graph << inner << data;
}

TEST(SendTest, MachineMayRefuseToStart) {
    ChartRun run;
    run->fMachineRefuses = true;
    KestJVM machine = KestJVM::GetInstance();
    EXPECT_FALSE(machine.StartJVM() || machine.IsStarted() || machine.AttachCurrentThread(nullptr));
    EXPECT_FALSE(ViZEditor::GetInstance().StartEditorHeadless(machine.GetEnv()));
    EXPECT_FALSE(ViZEditor::GetInstance().IsStartedHeadless());
}

}  // namespace

}  // namespace hierfit::test
