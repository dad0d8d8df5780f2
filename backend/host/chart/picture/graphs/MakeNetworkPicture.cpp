#include <algorithm>
#include <unordered_map>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/MarkNumbers.h"
#include "host/chart/picture/graphs/ReadNetwork.h"
#include "host/chart/picture/histogram/Histogram.h"

namespace hierfit::chart {

namespace {

using document::NetworkLink;
using document::NetworkNode;
using document::NetworkPicture;

Histogram ReadInset(const Specification& specification) {
    if (!specification.fInset || specification.fInset->fpChart == nullptr) return {};
    const Inset& inset = *specification.fInset;
    const std::vector<VariableSetting> noSettings;
    const ShownData data(*inset.fpChart, inset.fvData, noSettings);
    Histogram histogram = ReadHistogram(*inset.fpChart, data, inset.fFieldType);
    histogram.fLabel = LabelOfNamed(histogram.fLabel);
    return histogram;
}

void NameTarget(const Histogram& histogram, document::NetworkTarget& target) {
    target.fName = CutName(target.fName.empty() ? histogram.fLabel : LabelOfNamed(target.fName));
    if (target.fTip.empty()) target.fTip = target.fName;
    if (target.fTip.empty()) target.fTip = Translated("Unknown");  // a mark must have a name
}

/// The nodes, with the columns that say anything.
document::ChartTable ShowNodes(const Network& network) {
    const std::vector<std::string> titles = {Translated("Node"), network.fTypes.Classes().fTitle,
                                             network.fWeights.Title(), network.fSigns.Classes().fTitle};
    std::vector<std::size_t> used = {0};
    for (std::size_t column = 1; column < titles.size(); ++column) {
        if (!titles[column].empty()) used.push_back(column);
    }
    document::ChartTable table;
    table.fKeys = used.size() > 1 ? 1 : 0;
    table.fvColumns = Pick(titles, used);
    for (const std::vector<std::string>& row : network.fvRows) table.fvRows.push_back(Pick(row, used));
    return table;
}

/// Empty where widths tell nothing.
std::string WidthSentence(const Network& network) {
    const std::vector<NetworkLink>& links = network.fPicture.fvLinks;
    const std::string& title = network.fWeights.Title();
    if (links.empty() || title.empty()) return {};
    const std::string thinnest = network.fWeights.WordsOf(links.back().fWeight);
    const std::string widest = network.fWeights.WordsOf(links.front().fWeight);
    if (thinnest == widest) return " " + Translated("Width of the lines: ^1, ^2.", {title, widest});
    return " " + Translated("Width of the lines: ^1, from ^2 to ^3.", {title, thinnest, widest});
}

std::string Sentence(const Specification& specification, const Network& network, const Histogram& histogram) {
    const NetworkPicture& picture = network.fPicture;
    std::string sentence =
        Translated("Diagram: ^1. Target: ^2. Nodes: ^3.",
                   {TitleInWords(specification), picture.fTarget.fName, std::to_string(picture.fvNodes.size())});
    sentence += WidthSentence(network);
    if (histogram.fBins.fvBins.empty()) return sentence;
    return sentence + " " + HistogramSentence(histogram);
}

/// A sentence with the names that several nodes have, in order of appearance; empty where all differ.
std::string CommonNamesNote(const std::vector<NetworkNode>& nodes) {
    constexpr int kMostNames = 5;
    std::unordered_map<std::string_view, int> counts;
    std::string names;
    int common = 0;
    for (const NetworkNode& node : nodes) {
        if (node.fName.empty() || ++counts[node.fName] != 2) continue;
        if (++common <= kMostNames) names += (names.empty() ? "" : ", ") + node.fName;
    }
    if (common > kMostNames) return Translated("Nodes of the same name: ^1 and others.", {names});
    return common == 0 ? std::string() : Translated("Nodes of the same name: ^1.", {names});
}

std::vector<std::string> Notes(const std::vector<NetworkNode>& nodes, const Thinning& thinning) {
    std::vector<std::string> notes;
    if (std::string note = CommonNamesNote(nodes); !note.empty()) notes.push_back(std::move(note));
    thinning.AddNote(notes);
    return notes;
}

/// Leaves some of very many nodes, and the links that come from one of these.
void ThinNodes(NetworkPicture& picture) {
    const Thinning thinning(picture.fvNodes.size());
    if (!thinning.IsNeeded()) return;
    std::vector<int> anew;
    int next = 0;
    for (std::size_t node = 0; node < picture.fvNodes.size(); ++node) {
        anew.push_back(thinning.Keeps(node) ? next++ : -1);
    }
    thinning.Thin(picture.fvNodes);
    for (NetworkLink& link : picture.fvLinks) {
        if (link.fNode) link.fNode = anew[static_cast<std::size_t>(*link.fNode)];
    }
    std::erase_if(picture.fvLinks, [](const NetworkLink& link) { return link.fNode == -1; });
}

/// Leaves out the classes that no mark is of.
std::vector<std::size_t> NumberTypes(std::size_t count, std::vector<NetworkNode>& nodes) {
    std::vector<int*> numbers;
    for (NetworkNode& node : nodes) {
        if (node.fType) numbers.push_back(&*node.fType);
    }
    return NumberAnew(count, numbers);
}

std::vector<std::size_t> NumberSigns(std::size_t count, std::vector<NetworkLink>& links) {
    std::vector<int*> numbers;
    for (NetworkLink& link : links) {
        if (link.fSign) numbers.push_back(&*link.fSign);
    }
    return NumberAnew(count, numbers);
}

void SetClasses(const Network& network, NetworkPicture& picture) {
    picture.fWeights = network.fWeights.Show(picture.fvLinks);
    picture.fTypes = network.fTypes.Classes();
    const auto types = NumberTypes(picture.fTypes.fvWords.size(), picture.fvNodes);
    picture.fTypes.fvWords = Pick(picture.fTypes.fvWords, types);
    picture.fvKinds = Pick(network.fTypes.Kinds(), types);
    picture.fSigns = network.fSigns.Classes();
    const std::size_t count = picture.fSigns.fvWords.size();
    const auto signs = NumberSigns(count, picture.fvLinks);
    picture.fSigns.fvWords = Pick(picture.fSigns.fvWords, signs);
    picture.fIsLastNegative = network.fSigns.IsLastNegative() && !signs.empty() && signs.back() == count - 1;
}

NetworkPicture Draw(const Plot& plot, const Network& network, const Histogram& histogram) {
    NetworkPicture picture = network.fPicture;
    if (picture.fvNodes.empty()) picture.fvLinks.clear();
    ThinNodes(picture);
    Thinning(picture.fvLinks.size()).Thin(picture.fvLinks);
    SetClasses(network, picture);
    const document::PictureAxis x = AxisWithin(plot.fX, {});
    picture.fLowX = x.fLow;
    picture.fHighX = x.fHigh;
    if (!histogram.fBins.fvBins.empty()) picture.fHistogram = ShowHistogram(histogram);
    return picture;
}

}  // namespace

document::Picture MakeNetworkPicture(const PictureContext& context) {
    Network network(context);
    const Histogram histogram = ReadInset(context.fSpecification);
    const NetworkPicture& read = network.fPicture;
    NameTarget(histogram, network.fPicture.fTarget);
    document::Picture picture;
    picture.fvNotes = Notes(read.fvNodes, Thinning(std::max(read.fvNodes.size(), read.fvLinks.size())));
    picture.fSentence = Sentence(context.fSpecification, network, histogram);
    if (!read.fvNodes.empty()) picture.fvTables.push_back(ShowNodes(network));
    if (!histogram.fBins.fvBins.empty()) picture.fvTables.push_back(ShowBins(histogram));
    picture.fContent = Draw(context.fSpecification.fPlot, network, histogram);
    return picture;
}

}  // namespace hierfit::chart
