#include "host/XDocument.h"
#include "host/chart/specification/ChartMarkup.h"
#include "host/chart/specification/Fragments.h"
#include "tests/chart/ChartRun.h"
#include "tests/chart/Describe.h"
#include "tests/language/TemporaryFolder.h"

namespace hierfit::test {

namespace {

using language::test::TemporaryFolder;

std::string InPlot(const std::string& xml) { return "<chart version='1'><plot>" + xml + "</plot></chart>"; }
std::string InChart(const std::string& xml) { return "<chart version='1'><plot/>" + xml + "</chart>"; }

TEST(SpecificationTest, ReadsWhatIsRightAndNamesWhatIsNot) {
    const std::string plot = "chart\nplot 0 margin=0\n";
    const std::pair<std::string, std::string> cases[] = {
        {"<chart/>", plot},
        {"<chart version='1'><plot arrange='spiral' rows='x' width='75' margin-bottom='-1px' "
         "square='1'/></chart>",
         plot +
             "remark: attribute arrange of plot cannot be \"spiral\"\nremark: attribute rows of plot cannot be \"x\"\n"
             "remark: attribute width of plot cannot be \"75\"\nremark: attribute margin-bottom of plot cannot be "
             "\"-1px\"\n"
             "remark: attribute square of plot cannot be \"1\"\n"},
        {InPlot("<span of='y' min='1e999' max=' 7 '/><span of='x' min='inf' max='-nan'/>"),
         "chart\nplot 0 margin=0 y<=7\nremark: attribute min of span cannot be \"1e999\"\n"},
        {InPlot("<points x='a'/><points node='n'/><links from='a'/><names x='a' y='b'/>"),
         plot + "mark 0 node=n\nremark: points without x y is left out\nremark: links without x y x2 y2 is left out\n"
                "remark: names without x y text is left out\n"},
        {InPlot("<stems x='a' y='b' weight='w'/><ranges x='a' of='b'/>"),
         plot + "mark 5 x=a y=b\nmark 4 x=a of=b\nremark: unknown attribute \"weight\" of stems\n"},
        {InPlot("<curve><distributionStatistic distribution='cauchy'/></curve><bars x='a' y='b'><binStatistic "
                "binCount='-1'/></bars>"),
         plot + "bars x=a y=b\nremark: attribute distribution of distributionStatistic cannot be \"cauchy\"\n"
                "remark: attribute binCount of binStatistic cannot be \"-1\"\n"},
        {InPlot("<lineGuide y='nan'><unless>a</unless></lineGuide><lineGuide y='1'><unless>b</unless></lineGuide>"),
         plot + "guide 1 unless b\n"},
        {InPlot("<legend/><plot/>"),
         plot + "remark: unknown element \"legend\" in plot\nremark: unknown element \"plot\" in plot\n"},
        {InChart("<plot square='true'/><title>a</title><title>b</title>"),
         plot + "title words=a\nremark: more than 1 of element plot\nremark: more than 1 of element title\n"},
        {InChart("<facetLayout wrap='0'><facetLevel depth='9' along='rows'/></facetLayout>"),
         plot + "remark: attribute wrap of facetLayout cannot be \"0\"\nremark: attribute depth of facetLevel cannot "
                "be \"9\"\n"},
        {InChart("<facetLayout><facetLevel depth='2' along='rows'/></facetLayout><faceting><variableReference "
                 "name='f'/></faceting>"),
         plot + "panels wrap=0 f columns rows\n"},
        {InChart("<field slot='s' role='both' format='F2.9' label='a&#10;b'/>"),
         plot + "field slot=s label=a\nb\nremark: attribute role of field cannot be \"both\"\n"
                "remark: attribute format of field cannot be \"F2.9\"\n"},
        {InChart("<legend><heading lookup='Type'/><entry value='1'>one</entry></legend><axisTitle "
                 "of='y'>t</axisTitle>"),
         plot + "legend\nheading lookup=Type\nentry 1 words=one\ny title words=t\n"},
        {InChart("<inset at='anchor' fieldType='2'><chart><inset/></chart><stream>[]</stream></inset><inset/>"),
         plot + "inset at=anchor type=2 sources=0 (\n" + "chart\nplot 0 margin=0\n" +
             ")\nremark: unknown element \"inset\" in chart\nremark: an inset cannot be read\n"},
        {InChart("<use fragment='../x'/>"), plot + "remark: fragment \"../x\" cannot be used\n"},
        {InChart("<" + std::string(100, 'x') + "/>"),
         plot + "remark: unknown element \"" + std::string(60, 'x') + "...\" in chart\n"},
    };
    const ChartRun run;
    for (const auto& [xml, description] : cases) EXPECT_EQ(DescribeXml(xml), description) << xml;
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
        DescribeXml(repeat(piece, kBytes));
    }
    for (const char* piece : {"<points node=\"n\"/>", "<lineGuide y=\"1\"/>", "<x/>"}) {
        const std::string description = DescribeXml(InPlot(repeat(piece, kBytes)));
        EXPECT_LT(description.size(), 500'000U);
    }
    DescribeXml(InChart(repeat("<legend/><field/>", kBytes)));
}

}  // namespace

}  // namespace hierfit::test
