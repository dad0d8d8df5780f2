#include <algorithm>
#include <cmath>

#include "tests/chart/picture/PictureFaults.h"

namespace hierfit::chart {

namespace {

using document::NetworkPicture;
using Texts = std::vector<std::string>;

TEST(NetworkPictureTest, ShowsTheTargetAloneWithoutNodes) {
    for (const int nodes : {0, 2}) {
        Sample sample = DiagramSample(nodes, true);
        if (nodes > 0) ValuesOf(sample, "pointSource", "X").assign(2, std::nan(""));
        EXPECT_TRUE(Make(sample).fvTables.empty());
        EXPECT_FALSE(Draw<NetworkPicture>(sample).fHistogram);
        AddInset(sample);
        const document::Picture picture = Make(sample);
        const auto& network = std::get<NetworkPicture>(picture.fContent);
        EXPECT_TRUE(network.fvLinks.empty() && network.fTypes.fvWords.empty() && network.fSigns.fvWords.empty());
        EXPECT_EQ(network.fTarget.fName, "Average reaction time (ms)");
        EXPECT_EQ(network.fHistogram.value().fvBins.size(), 8U);
        EXPECT_EQ(picture.fvTables.at(0).fvRows.size(), 8U);
        sample.fSpecification.fInset->fvData.clear();
        EXPECT_FALSE(Draw<NetworkPicture>(sample).fHistogram) << "no box without bins";
    }
}

TEST(NetworkPictureTest, ListsTheWeightsThatOccurBetweenTheLimits) {
    const std::vector<std::tuple<double, double, std::vector<double>>> cases = {
        {1, 9, {1, 5, 9}}, {4, 9, {5, 9}}, {9, 9, {9}}, {8, 3, {}}};
    for (const auto& [low, high, weights] : cases) {
        Sample sample = DiagramSample(3, false);  // of the weights 1, 5 and 9
        sample.fSpecification.fvLegends[0].fLow = low;
        sample.fSpecification.fvLegends[0].fHigh = high;
        std::vector<double> listed;
        const auto picture = Draw<NetworkPicture>(sample);
        for (const document::WeightEntry& entry : picture.fWeights.fvEntries) listed.push_back(entry.fWeight);
        EXPECT_EQ(listed, weights);
        EXPECT_EQ(picture.fWeights.fLow, 1);
        EXPECT_EQ(picture.fWeights.fHigh, 9);
        sample.fSpecification.fvLegends.erase(sample.fSpecification.fvLegends.begin());
        EXPECT_TRUE(Draw<NetworkPicture>(sample).fWeights.fvEntries.empty());
    }
}

TEST(NetworkPictureTest, ExplainsOnlyWhatOccurs) {
    Sample sample = DiagramSample(6, true);
    auto& types = ValuesOf(sample, "pointSource", "Type");
    types = {"ordinal", "unknown", "ordinal", "intercept", "strange", "ordinal"};
    ValuesOf(sample, "pointSource", "X")[3] = {};
    ValuesOf(sample, "edgeSource", "Weight2") = {"Negative", "Positive", "Zero", "Positive", "Positive", "Zero"};
    ValuesOf(sample, "edgeSource", "FromX")[2] = ValuesOf(sample, "edgeSource", "FromX")[5] = {};
    const auto picture = Draw<NetworkPicture>(sample);
    using enum document::NodeKind;
    EXPECT_EQ(picture.fTypes, (document::PictureClasses{"Type", {"Ordinal", "Unknown", "strange"}, true}));
    EXPECT_EQ(picture.fvKinds, (std::vector{Ordinal, Unknown, Unknown}));
    EXPECT_EQ(picture.fvNodes.back().fType, 0);
    EXPECT_EQ(picture.fSigns.fvWords, (Texts{"Positive", "Negative"}));
    EXPECT_TRUE(picture.fIsLastNegative);
    ValuesOf(sample, "edgeSource", "FromX")[0] = {};
    EXPECT_FALSE(Draw<NetworkPicture>(sample).fIsLastNegative) << "none is drawn";
    ValuesOf(sample, "edgeSource", "Weight2").assign(6, "Positive");
    const auto positive = Draw<NetworkPicture>(sample);
    EXPECT_FALSE(positive.fIsLastNegative);
    EXPECT_EQ(positive.fSigns, (document::PictureClasses{"Coefficient Estimate", {"Positive"}, true}));
}

TEST(NetworkPictureTest, LeavesOutWhatHasNoPlace) {
    Sample sample = DiagramSample(5, true);
    ValuesOf(sample, "pointSource", "X")[0] = std::nan("");
    ValuesOf(sample, "pointSource", "Y")[4] = {};
    ValuesOf(sample, "edgeSource", "ToY")[1] = {};
    ValuesOf(sample, "edgeSource", "Weight")[2] = {};
    const document::Picture picture = Make(sample);
    const auto& network = std::get<NetworkPicture>(picture.fContent);
    EXPECT_EQ(network.fvNodes.size(), 3U);
    std::vector<std::pair<double, std::optional<int>>> links;
    for (const document::NetworkLink& link : network.fvLinks) links.emplace_back(link.fWeight, link.fNode);
    const decltype(links) expected = {{8, {}}, {4, 2}, {1, {}}, {1, 1}};
    EXPECT_EQ(links, expected) << "a line without a weight is the thinnest";
    EXPECT_EQ(picture.fvTables.at(0).fvRows[1], (Texts{"factor=2", "Ordinal", "", "Negative"}));
}

TEST(NetworkPictureTest, SaysThatNodesCannotBeToldApart) {
    Sample sample = DiagramSample(14, true);
    auto& names = ValuesOf(sample, "pointSource", "Nodes");
    EXPECT_EQ(Make(sample).fvNotes, Texts{"Nodes of the same name: week*[site=\"North\"]."});
    for (std::size_t at = 0; at < names.size(); ++at) names[at] = std::string(1, static_cast<char>('a' + at % 7));
    EXPECT_EQ(Make(sample).fvNotes, Texts{"Nodes of the same name: a, b, c, d, e and others."});
    names.assign(14, "");
    EXPECT_TRUE(Make(sample).fvNotes.empty());
}

TEST(NetworkPictureTest, DrawsOfVeryManyNodesSomeWithTheirLinks) {
    const document::Picture picture = Make(DiagramSample(25000, true));
    const auto& network = std::get<NetworkPicture>(picture.fContent);
    EXPECT_EQ(network.fvNodes.size(), 20000U);
    EXPECT_EQ(network.fvLinks.size(), 20000U);
    for (const document::NetworkLink& link : network.fvLinks) {
        ASSERT_EQ(network.fvNodes.at(static_cast<std::size_t>(link.fNode.value())).fY, link.fY);
    }
    EXPECT_EQ(picture.fvNotes.back(), "20000 of 25000 marks are drawn.");
    EXPECT_EQ(picture.fvTables.at(0).fvRows.size(), 25000U);
}

TEST(NetworkPictureTest, SurvivesEqualAndEndlessNumbers) {
    for (const double number : {0.0, 1e300, -1e300, 1e301, std::numeric_limits<double>::infinity(), std::nan("")}) {
        Sample samples[] = {DiagramSample(9, true), ScatterSample(9)};
        for (Sample& sample : samples) {
            for (document::ChartSource& source : sample.fvData) {
                for (auto& [name, values] : source.fvVariables) {
                    const bool areNumbers = std::holds_alternative<double>(values.front());
                    if (areNumbers) std::ranges::fill(values, document::ChartValue(number));
                }
            }
            sample.fSpecification.fvLegends.clear();
            Make(sample);
        }
    }
}

}  // namespace

}  // namespace hierfit::chart
