#include <map>

#include "hierfit/charts/ChartText.h"
#include "tests/chart/ChartRun.h"
#include "tests/chart/Describe.h"
#include "tests/chart/PatchedCharts.h"

namespace hierfit::test {

namespace {

/// A label as words of the chart: without what XML cannot hold.
std::string Cleaned(const std::string& label) {
    if (label.find('\x02') != std::string::npos) return "a]]>z";
    if (label.find('\xFF') != std::string::npos) return "a\uFFFD\uFFFDz\uFFFD\uFFFD\uFFFD";
    return label.starts_with("a\xEF\xBF\xBE") ? "az" : label;
}

constexpr const char* kPlain = "@@";

TEST(PatchTest, LabelsThatLookLikeMarkupOrMarkersStayWords) {
    ChartRun run;
    ChartRun::StartEditor();
    const auto plain = MakePatchedCharts(kPlain);
    for (const std::string& label : HostileLabels()) {
        const auto charts = MakePatchedCharts(label);
        for (std::size_t i = 0; i < charts.size(); ++i) {
            const std::string description = DescribeXml(charts[i].fXml);
            if (IsTakenForMarker(charts[i].fName, label)) continue;
            std::string expected = DescribeXml(plain[i].fXml);
            ReplaceAll(expected, kPlain, Cleaned(label));
            EXPECT_EQ(description, expected) << charts[i].fName << ", label: " << label;
        }
    }
    EXPECT_EQ(run.Diagnostics(), "");
}

/// Lines of a description that begin in a certain way.
std::size_t CountLines(const std::string& description, const std::string& begin) {
    std::size_t count = description.starts_with(begin) ? 1 : 0;
    for (std::size_t at = 0; (at = description.find("\n" + begin, at)) != std::string::npos; ++at) ++count;
    return count;
}

TEST(PatchTest, PatchesMeanWhatTheyAreFor) {
    const ChartRun run;
    ChartRun::StartEditor();
    std::map<std::string, std::string> charts;
    for (const auto& [name, xml] : MakePatchedCharts(kPlain)) charts[name] = DescribeXml(xml);

    // Charts, the begin of lines, and how many there are.
    const std::tuple<const char*, const char*, std::size_t> cases[] = {
        {"histogram normal", "bars x=X y=Y bins=30\n", 1},
        {"histogram normal", "curve normal\n", 1},
        {"histogram gamma", "curve gamma first=2.5\n", 1},  // what is not finite is not given
        {"predicted true", "plot 0 square margin=0 x>=-0.5 x<=1000000 y>=-0.5 y<=1000000 diagonal\n", 1},
        {"predicted true", "legend id=legendStyle hidden of=Transparency\n", 1},
        {"predicted false", "legend id=legendStyle of=Transparency\n", 1},
        {"predicted false", "field slot=Transparency name=Transparency source=source0 title=@@ label=@@ format=F40.2\n",
         1},
        {"means 1", "legend", 0},
        {"means 2", "legend id=legend of=effect2\n", 1},
        {"means 2", "title words=@@\n", 1},
        {"custom 1", "plot 1 pairs margin=0 width=99\n", 1},
        {"custom 1", "legend", 0},
        {"custom 1", "panels", 0},
        {"custom 2", "plot 1 pairs margin=0 width=75 color=effect2\n", 1},
        {"custom 2", "panels", 0},
        {"custom 3", "panels wrap=3 effect3 columns\n", 1},
        {"custom 3", "title words=Estimates\n", 1},
        {"custom 3", "popup targetValue words=@@\n", 1},
        {"diagram 0 true", "plot 0 margin=0 id=graphStyle x>=0 x<=2 y>=1 y<=1\n", 1},
        {"diagram 1 true", "plot 0 margin=0 id=graphStyle x<=2 y>=1 y<=1\n", 1},
        {"diagram 8 true", "plot 0 margin=30 id=graphStyle x<=10.6667 y>=1 y<=8\n", 1},
        {"diagram 9 true", "plot 0 margin=0 id=graphStyle x<=12 y>=1 y<=9\n", 1},
        {"diagram 40 true", "legend id=legendStyle hidden of=Weight2\n", 1},
        {"diagram 40 false", "legend id=legendStyle of=Weight2\n", 1},
        {"diagram 40 false", "heading words=@@\n", 1},
        {"diagram 40 false", "legend id=significances of=Weight high=8 low=2\n", 1},
        {"diagram 40 false", "inset at=anchor type=2 sources=1 (\n", 1},
        {"diagram 40 false", "curve gamma first=2.5\n", 1},
        {"pairwise 0", "panels", 0},
        {"pairwise 1", "panels wrap=0 facet1 columns\n", 1},
        {"pairwise 2", "panels wrap=0 facet1 facet2 columns rows\n", 1},
        {"levels 0 0", "guide", 0},
        {"levels 1 0", "guide 0 unless false\n", 1},
        {"levels 2 2", "guide 1.25 unless facet1!=&quot;@@1&quot;||facet2!=&quot;@@&quot;\n", 1},
        {"levels 100 1", "guide", 100},
        {"levels 101 1", "guide", 100},
    };
    for (const auto& [chart, line, count] : cases) {
        EXPECT_EQ(CountLines(charts.at(chart), line), count) << chart << ": " << line << charts.at(chart);
    }
    for (const auto& [chart, description] : charts) EXPECT_EQ(CountLines(description, "remark"), 0U) << description;
}

}  // namespace

}  // namespace hierfit::test
