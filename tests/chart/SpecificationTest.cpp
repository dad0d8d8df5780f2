#include "host/XDocument.h"
#include "host/chart/specification/ChartMarkup.h"
#include "host/chart/specification/Fragments.h"
#include "host/chart/specification/ReadSpecification.h"
#include "tests/chart/ChartRun.h"
#include "tests/language/TemporaryFolder.h"

namespace hierfit::test {

namespace {

using language::test::TemporaryFolder;

std::string InPlot(const std::string& xml) { return "<chart version='1'><plot>" + xml + "</plot></chart>"; }
std::string InChart(const std::string& xml) { return "<chart version='1'><plot/>" + xml + "</chart>"; }

std::vector<std::string> RemarksOf(const std::string& xml) {
    return std::get<chart::Reading>(chart::ReadSpecification(xml)).fvRemarks;
}

TEST(SpecificationTest, NamesWhatIsNotRight) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"<chart/>", {}},
        {"<chart version='1'><plot arrange='spiral' rows='x' width='75' margin-bottom='-1px' square='1'/></chart>",
         {"attribute arrange of plot cannot be \"spiral\"", "attribute rows of plot cannot be \"x\"",
          "attribute width of plot cannot be \"75\"", "attribute margin-bottom of plot cannot be \"-1px\"",
          "attribute square of plot cannot be \"1\""}},
        {InPlot("<span of='y' min='1e999' max=' 7 '/><span of='x' min='inf' max='-nan'/>"),
         {"attribute min of span cannot be \"1e999\""}},
        {InPlot("<points x='a'/><points node='n'/><links from='a'/><stems x='a' y='b' weight='w'/>"),
         {"points without x y is left out", "links without x y x2 y2 is left out",
          "unknown attribute \"weight\" of stems"}},
        {InPlot(
             "<curve><distributionStatistic distribution='cauchy'/></curve><bars><binStatistic binCount='-1'/></bars>"),
         {"attribute distribution of distributionStatistic cannot be \"cauchy\"",
          "attribute binCount of binStatistic cannot be \"-1\""}},
        {InPlot("<legend/><plot/>"), {"unknown element \"legend\" in plot", "unknown element \"plot\" in plot"}},
        {InChart("<plot/><title>a</title><title>b</title>"),
         {"more than 1 of element plot", "more than 1 of element title"}},
        {InChart("<facetLayout wrap='0'><facetLevel depth='9' along='rows'/></facetLayout>"),
         {"attribute wrap of facetLayout cannot be \"0\"", "attribute depth of facetLevel cannot be \"9\""}},
        {InChart("<field role='both' format='F2.9'/>"),
         {"attribute role of field cannot be \"both\"", "attribute format of field cannot be \"F2.9\""}},
        {InChart("<inset at='anchor'><chart><inset/></chart><stream>[]</stream></inset><inset/>"),
         {"unknown element \"inset\" in chart", "an inset cannot be read"}},
        {InChart("<use fragment='../x'/>"), {"fragment \"../x\" cannot be used"}},
        {InChart("<" + std::string(100, 'x') + "/>"), {"unknown element \"" + std::string(60, 'x') + "...\" in chart"}},
    };
    const ChartRun run;
    for (const auto& [xml, remarks] : cases) EXPECT_EQ(RemarksOf(xml), remarks) << xml;
}

TEST(SpecificationTest, KeepsWhatIsRight) {
    const auto read = chart::ReadSpecification(
        InPlot("<span of='y' min='nan' max=' 7 '/><points node='n'/><stems x='a' y='b'/>"
               "<lineGuide y='nan'><unless>a</unless></lineGuide><lineGuide y='1'><unless>b</unless></lineGuide>"
               "</plot><facetLayout><facetLevel depth='2' along='rows'/></facetLayout><faceting><variableReference "
               "name='f'/></faceting>"
               "<legend><heading lookup='Type'/><entry value='1'>one</entry></legend><axisTitle of='y'>t</axisTitle>"
               "<field slot='s' role='factor' format='F40.2' label='a&#10;b'/><title>a</title><title>b</title><plot>"));
    const chart::Specification& specification = std::get<chart::Reading>(read).fSpecification;
    const chart::Plot& plot = specification.fPlot;
    EXPECT_EQ(plot.fY.fMax, 7);
    EXPECT_FALSE(plot.fY.fMin);
    EXPECT_EQ(plot.fvLineGuides.at(0).fUnless, "b");
    EXPECT_EQ(specification.fFaceting.value().fvAlongColumns, (std::vector<bool>{true, false}));
    EXPECT_EQ(specification.fvLegends.at(0).fvEntries.at(0).fWords.fText, "one");
    EXPECT_FALSE(specification.fvAxisTitles.at(0).fIsX);
    EXPECT_TRUE(specification.fvFields.at(0).fIsFactor);
    EXPECT_EQ(specification.fvFields.at(0).fLabel, "a\nb");
    EXPECT_EQ(specification.fTitle.value().fText, "a");
}

TEST(SpecificationTest, SectionsOfWordsEndWithTheirElement) {
    const std::pair<const char*, const char*> cases[] = {
        {"<title><![CDATA[a]]>b]]></title>", "<title><![CDATA[a]]]]><![CDATA[>b]]></title>"},
        {"<title><![CDATA[]]></titl>]]></title>", "<title><![CDATA[]]]]><![CDATA[></titl>]]></title>"},
        {"<title><![CDATA[a]]>b</title>", "<title><![CDATA[a]]>b</title>"},
        {"<stream><![CDATA[a]]>b]]></stream>", "<stream><![CDATA[a]]>b]]></stream>"},
        {"<!-- <title><![CDATA[ --><a b='<![CDATA['/>", "<!-- <title><![CDATA[ --><a b='<![CDATA['/>"},
        {"<title><![CDATA[a", "<title><![CDATA[a]]>"},
        {"a\x01\tb\x1F", "a\tb"},
    };
    for (const auto& [xml, plain] : cases) EXPECT_EQ(chart::MakePlainXml(xml), plain);
}

TEST(SpecificationTest, FragmentsStandInPlaceOfTheirUse) {
    const TemporaryFolder folder;
    folder.Write("legend.xml",
                 "<?xml version='1.0'?>\n<fragment><legend id='l'/><use fragment='note'></use></fragment>");
    folder.Write("note.xml", "<fragment><footnote><![CDATA[<use fragment='note'/>]]></footnote></fragment>");
    folder.Write("empty.xml", "<fragment/>");
    folder.Write("self.xml", "<fragment><use fragment='self'/></fragment>");
    folder.Write("bush.xml", "<fragment><use fragment='bush'/><use fragment='bush'/></fragment>");
    folder.Write("broken.xml", "<fragment><legend></fragment>");
    folder.Write("other.xml", "<chart/>");
    const std::pair<const char*, const char*> cases[] = {
        {"<a/><use fragment='legend'/><b/>",
         "<a/><legend id='l'/><footnote><![CDATA[<use fragment='note'/>]]></footnote><b/>"},
        {"<use fragment='empty' />", ""},
        {"<use fragment='self'/>", "<use fragment='self'/>"},
        {"<use fragment='bush'/>", "<use fragment='bush'/>"},
        {"<use fragment='broken'/><use fragment='other'/><use fragment='absent'/><use/>",
         "<use fragment='broken'/><use fragment='other'/><use fragment='absent'/><use/>"},
        {"<use fragment='../note'/>", "<use fragment='../note'/>"},
        {"<title><![CDATA[<use fragment='note'/>]]></title>", "<title><![CDATA[<use fragment='note'/>]]></title>"},
    };
    context::Settings settings;
    settings.fTemplateFolder = folder.Path("");
    const ChartRun run(settings);
    for (const auto& [xml, expanded] : cases) {
        XDocument document(xml);
        EXPECT_TRUE(document.applyTemplates());
        EXPECT_EQ(document.AsUTF8(), expanded);
        EXPECT_TRUE(document.applyTemplates());
        EXPECT_EQ(document.AsUTF8(), expanded) << "twice";
    }
}

/// Texts that would take a reader long that goes over them again and again, or much memory one that keeps all.
TEST(SpecificationTest, LargeAndSenselessTextsAreReadInLinearTime) {
    const auto repeat = [](const std::string& piece, std::size_t bytes) {
        std::string text;
        while (text.size() < bytes) text += piece;
        return text;
    };
    constexpr std::size_t kBytes = 4'000'000;
    const ChartRun run;
    for (const char* piece : {"<title><![CDATA[", "<title><![CDATA[]]>", "<![CDATA[", "]]>", "<", "<a \"", "<!--",
                              "<use ", "<use fragment=\"a\"/>"}) {
        chart::ReadSpecification(repeat(piece, kBytes));
    }
    for (const char* piece : {"<points node=\"n\"/>", "<lineGuide y=\"1\"/>", "<x/>"}) {
        const auto read = chart::ReadSpecification(InPlot(repeat(piece, kBytes)));
        const chart::Plot& plot = std::get<chart::Reading>(read).fSpecification.fPlot;
        EXPECT_LE(plot.fvMarks.size() + plot.fvLineGuides.size(), 10'000U);
    }
    RemarksOf(InChart(repeat("<legend/><field/>", kBytes)));
}

}  // namespace

}  // namespace hierfit::test
