#include "hierfit/charts/ChartText.h"
#include "host/chart/specification/ChartMarkup.h"
#include "tests/chart/ChartRun.h"
#include "tests/chart/PatchedCharts.h"
#include "tests/xml/Parsed.h"

namespace hierfit::test {

namespace {

/// A label as words of the chart: without what XML cannot hold.
std::string Cleaned(const std::string& label) {
    if (label.find('\x02') != std::string::npos) return "a]]>z";
    if (label.find('\xFF') != std::string::npos) return "a\uFFFD\uFFFDz\uFFFD\uFFFD\uFFFD";
    return label.starts_with("a\xEF\xBF\xBE") ? "az" : label;
}

/// Elements and words, and the attributes that hold words.
std::string TreeOf(const PatchedChart& chart) {
    return ShowTree(*Parsed(chart::MakePlainXml(chart.fXml)), {"slot", "title", "label", "y"});
}

TEST(PatchTest, LabelsThatLookLikeMarkupOrMarkersStayWords) {
    const ChartRun run;
    ChartRun::StartEditor();
    const auto plain = MakePatchedCharts("@@");
    for (const std::string& label : HostileLabels()) {
        const auto charts = MakePatchedCharts(label);
        for (std::size_t i = 0; i < charts.size(); ++i) {
            if (IsTakenForMarker(charts[i].fName, label)) continue;
            std::string expected = TreeOf(plain[i]);
            ReplaceAll(expected, "@@", Cleaned(label));
            EXPECT_EQ(TreeOf(charts[i]), expected) << charts[i].fName << ", label: " << label;
        }
    }
}

}  // namespace

}  // namespace hierfit::test
