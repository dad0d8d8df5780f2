#include "host/chart/view/circle/ReadPairwise.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

/// One without references where there is none.
Mark MarkOf(const ViewContext& context, Mark::Kind kind) {
    const Mark* mark = context.fSpecification.fPlot.Find(kind);
    return mark == nullptr ? Mark{} : *mark;
}

/// Two levels' numbers, of the values that panels are for.
using PanelKey = std::pair<std::size_t, std::size_t>;

/// Where levels of one numbering stand in another.
std::vector<std::optional<std::size_t>> Match(const Levels& from, const Levels& to) {
    std::map<document::ChartValue, std::size_t> places;
    for (std::size_t level = 0; level < to.Count(); ++level) places.emplace(to.Value(level), level);
    std::vector<std::optional<std::size_t>> matched(from.Count());
    for (std::size_t level = 0; level < from.Count(); ++level) {
        const auto place = places.find(from.Value(level));
        if (place != places.end()) matched[level] = place->second;
    }
    return matched;
}

/// The panels of nodes, in the numbering of another source's panels.
class NodePanels {
  public:
    NodePanels(const ViewContext& context, std::string_view source, const Panels& panels)
        : fOwn(context, source),
          fAcross(Match(fOwn.Across(), panels.Across())),
          fDown(Match(fOwn.Down(), panels.Down())) {}

    std::optional<PanelKey> At(std::size_t row) const {
        const auto own = fOwn.At(row);
        if (!own) return std::nullopt;
        const auto across = fOwn.HasHeadings() ? fAcross[own->fAcross] : std::optional<std::size_t>(0);
        const auto down = fOwn.HasTwoVariables() ? fDown[own->fDown] : std::optional<std::size_t>(0);
        return across && down ? std::optional(PanelKey(*across, *down)) : std::nullopt;
    }

    /// The panel's values as texts, in the order in which they lead the keys of nodes.
    std::string KeyAt(std::size_t row) const {
        std::string across = TextAt(fOwn.AcrossVariable(), row);
        std::string down = TextAt(fOwn.DownVariable(), row);
        return fOwn.IsSwapped() ? down + across : across + down;
    }

  private:
    static std::string TextAt(const ShownVariable* variable, std::size_t row) {
        return variable == nullptr ? std::string() : ShownVariable::Key(variable->At(row));
    }

    Panels fOwn;
    std::vector<std::optional<std::size_t>> fAcross;
    std::vector<std::optional<std::size_t>> fDown;
};

/// A node's key without its panel's, which leads it; a key that is a number has lost its leading zeros.
std::string WithoutPanel(const std::string& key, std::string panel) {
    if (key.starts_with(panel) && key.size() > panel.size()) return key.substr(panel.size());
    panel.erase(0, panel.find_first_not_of('0'));
    return key.starts_with(panel) && key.size() > panel.size() ? key.substr(panel.size()) : key;
}

/// What lines are read from; a variable is null where there is none.
struct LinkData {
    const ShownVariable* fpFrom;
    const ShownVariable* fpTo;
    const ShownVariable* fpWeight;
    const ShownVariable* fpMark;
    const ShownVariable* fpTip;
    std::vector<const ShownVariable*> fvFigures;
    std::vector<std::string> fvFigureTitles;

    LinkData(const ViewContext& context, const Mark& mark) {
        const auto find = [&](const std::string& reference) { return context.fData.Find(mark.fSource, reference); };
        fpFrom = find(mark.fFrom);
        fpTo = find(mark.fTo);
        fpWeight = find(mark.fWeight);
        fpMark = find(mark.fMark);
        fpTip = find(mark.fTip);
        for (const Popup& popup : context.fSpecification.fvPopups) {
            const ShownVariable* figure = find(popup.fOf);
            if (figure == nullptr) continue;
            fvFigures.push_back(figure);
            fvFigureTitles.push_back(CutName(InWords(popup.fWords)));
        }
    }

    std::size_t Rows() const {
        return fpFrom == nullptr || fpTo == nullptr ? 0 : std::min(fpFrom->Rows(), fpTo->Rows());
    }
};

/// Three decimals, or two digits where those would be no more than zero.
std::string FigureInWords(std::optional<double> figure) {
    if (!figure) return {};
    const bool isShown = *figure == 0 || std::abs(*figure) >= 0.0005;
    return isShown ? fmt::format("{:.3f}", *figure) : fmt::format("{:.2g}", *figure);
}

PairwiseLink ReadLink(const LinkData& data, std::size_t row, std::size_t from, std::size_t to) {
    const double weight = PlaceableAt(data.fpWeight, row).value_or(0);
    PairwiseLink link{from, to, weight > 0 ? std::min(1 / weight, 1.0) : 0, false, WordsAt(data.fpTip, row), {}};
    link.fIsSetOff = PlaceableAt(data.fpMark, row).value_or(0) == 1;
    for (std::size_t at = 0; at < data.fvFigures.size(); ++at) {
        const std::string figure = FigureInWords(PlaceableAt(data.fvFigures[at], row));
        if (!figure.empty()) link.fTip += "\n" + data.fvFigureTitles[at] + " = " + figure;
        link.fvFigures.push_back(figure);
    }
    return link;
}

/// Fills the graphs of the panels from the nodes and then from the lines.
class PairwiseReader {
  public:
    explicit PairwiseReader(Pairwise& pairwise) : fPairwise(pairwise) {}

    void AddNodes(const ShownVariable& node, const NodePanels& panels) {
        fPairwise.fNodeTitle = node.Name();
        const Levels levels(&node);
        std::vector<std::optional<std::size_t>> firstRows(levels.Count());
        for (std::size_t row = node.Rows(); row-- > 0;) {
            if (const auto level = levels.At(row)) firstRows[*level] = row;
        }
        for (std::size_t level = levels.Count(); level-- > 0;) {
            const auto key = panels.At(*firstRows[level]);
            if (!key) continue;
            const document::ChartValue& value = levels.Value(level);
            const std::string panel = panels.KeyAt(*firstRows[level]);
            const bool isPlain = panel.empty() || node.IsLabelled(value);
            AddNode(*key, value,
                    isPlain ? levels.Text(level) : CutName(WithoutPanel(ShownVariable::Key(value), panel)));
        }
    }

    void AddLinks(const LinkData& data, const Panels& panels) {
        for (std::size_t row = 0; row < data.Rows(); ++row) {
            const auto from = fPlaces.find(data.fpFrom->At(row));
            const auto to = fPlaces.find(data.fpTo->At(row));
            if (from == fPlaces.end() || to == fPlaces.end()) continue;
            const PanelKey& key = from->second.fPanel;
            const auto told = panels.HasHeadings() ? panels.At(row) : std::nullopt;
            const bool isElsewhere = told && PanelKey(told->fAcross, told->fDown) != key;
            if (isElsewhere || to->second.fPanel != key) continue;
            fFound[key].fvLinks.push_back(ReadLink(data, row, from->second.fNode, to->second.fNode));
        }
    }

    void Finish() {
        for (auto& [key, panel] : fFound) fPairwise.fvPanels.push_back(std::move(panel));
    }

  private:
    /// A node's panel and its place in it.
    struct NodePlace {
        PanelKey fPanel;
        std::size_t fNode;
    };

    void AddNode(const PanelKey& key, const document::ChartValue& value, const std::string& name) {
        PairwisePanel& panel = fFound[key];
        panel.fPlace = {key.first, key.second};
        fPlaces.emplace(value, NodePlace{key, panel.fvNames.size()});
        panel.fvNames.push_back(name);
    }

    Pairwise& fPairwise;
    std::map<PanelKey, PairwisePanel> fFound;
    std::map<document::ChartValue, NodePlace> fPlaces;
};

void SetWords(const Specification& specification, const std::string& reference, const LinkData& data,
              Pairwise& pairwise) {
    pairwise.fvFigureTitles = data.fvFigureTitles;
    if (data.fpMark == nullptr) return;
    const Legend* legend = FindLegend(specification, reference);
    pairwise.fHasLegend = legend != nullptr;
    pairwise.fMarkTitle = legend == nullptr ? data.fpMark->Label() : LegendTitleOr(*legend, data.fpMark->Label());
    pairwise.fSetOffInWords = data.fpMark->Words(1.0);
    pairwise.fRestInWords = data.fpMark->Words(0.0);
}

}  // namespace

Panels PairwisePanels(const ViewContext& context) {
    Panels ofLinks(context, MarkOf(context, Mark::Kind::Links).fSource);
    return ofLinks.HasHeadings() ? std::move(ofLinks) : Panels(context, MarkOf(context, Mark::Kind::Points).fSource);
}

Pairwise ReadPairwise(const ViewContext& context, const Panels& panels) {
    const Mark links = MarkOf(context, Mark::Kind::Links);
    const Mark nodes = MarkOf(context, Mark::Kind::Points);
    const LinkData data(context, links);
    Pairwise pairwise;
    SetWords(context.fSpecification, links.fMark, data, pairwise);
    PairwiseReader reader(pairwise);
    const ShownVariable* node = context.fData.Find(nodes.fSource, nodes.fNode);
    if (node != nullptr) reader.AddNodes(*node, NodePanels(context, nodes.fSource, panels));
    reader.AddLinks(data, Panels(context, links.fSource));
    reader.Finish();
    return pairwise;
}

}  // namespace hierfit::chart
