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

}  // namespace

}  // namespace hierfit::test
