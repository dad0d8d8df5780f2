#include "host/chart/picture/graphs/ReadPairwise.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/Numbers.h"

namespace hierfit::chart {

namespace {

/// One without references where there is none.
Mark MarkOf(const PictureContext& context, Mark::Kind kind) {
    const Mark* mark = context.fSpecification.fPlot.Find(kind);
    return mark == nullptr ? Mark{} : *mark;
}

using document::CircleLink;
using document::PanelPlace;

/// In which panels stand: by the level across, then by the one down.
struct PanelOrder {
    bool operator()(const PanelPlace& a, const PanelPlace& b) const {
        return std::pair(a.fAcross, a.fDown) < std::pair(b.fAcross, b.fDown);
    }
};

/// Where levels of one numbering stand in another.
std::vector<std::optional<int>> Match(const Levels& from, const Levels& to) {
    std::map<document::ChartValue, int> places;
    for (std::size_t level = 0; level < to.Count(); ++level) places.emplace(to.Value(level), static_cast<int>(level));
    std::vector<std::optional<int>> matched(from.Count());
    for (std::size_t level = 0; level < from.Count(); ++level) {
        const auto place = places.find(from.Value(level));
        if (place != places.end()) matched[level] = place->second;
    }
    return matched;
}

/// The panels of nodes, in the numbering of another source's panels.
class NodePanels {
  public:
    NodePanels(const PictureContext& context, std::string_view source, const Panels& panels)
        : fOwn(context, source),
          fAcross(Match(fOwn.Across(), panels.Across())),
          fDown(Match(fOwn.Down(), panels.Down())) {}

    std::optional<PanelPlace> At(std::size_t row) const {
        const auto own = fOwn.At(row);
        if (!own) return std::nullopt;
        const auto across = fOwn.HasHeadings() ? fAcross[static_cast<std::size_t>(own->fAcross)] : std::optional(0);
        const auto down = fOwn.HasTwoVariables() ? fDown[static_cast<std::size_t>(own->fDown)] : std::optional(0);
        return across && down ? std::optional(PanelPlace{*across, *down}) : std::nullopt;
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
    std::vector<std::optional<int>> fAcross;
    std::vector<std::optional<int>> fDown;
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

    LinkData(const PictureContext& context, const Mark& mark) {
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

/// The figures of a line, in words.
std::vector<std::string> FiguresOf(const LinkData& data, std::size_t row) {
    std::vector<std::string> figures;
    for (const ShownVariable* figure : data.fvFigures) figures.push_back(FigureInWords(PlaceableAt(figure, row)));
    return figures;
}

CircleLink ReadLink(const LinkData& data, std::size_t row, const std::vector<std::string>& figures) {
    const double weight = PlaceableAt(data.fpWeight, row).value_or(0);
    CircleLink link;
    link.fShare = weight > 0 ? std::min(1 / weight, 1.0) : 0;
    link.fIsSetOff = PlaceableAt(data.fpMark, row).value_or(0) == 1;
    link.fTip = WordsAt(data.fpTip, row);
    for (std::size_t at = 0; at < figures.size(); ++at) {
        if (!figures[at].empty()) link.fTip += "\n" + data.fvFigureTitles[at] + " = " + figures[at];
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
        std::vector<std::size_t> firstRows(levels.Count());
        for (std::size_t row = node.Rows(); row-- > 0;) {
            if (const auto level = levels.At(row)) firstRows[*level] = row;
        }
        for (std::size_t level = levels.Count(); level-- > 0;) {
            const document::ChartValue& value = levels.Value(level);
            const auto place = panels.At(firstRows[level]);
            if (place) AddNode(*place, value, node, panels.KeyAt(firstRows[level]));
        }
        NameNodes();
    }

    void AddLinks(const LinkData& data, const Panels& panels) {
        for (std::size_t row = 0; row < data.Rows(); ++row) {
            const NodePlace* from = Find(data.fpFrom->At(row));
            const NodePlace* to = Find(data.fpTo->At(row));
            if (from == nullptr || to == nullptr || from->fpPanel != to->fpPanel) continue;
            PairwisePanel& panel = from->fpPanel->fShown;
            const auto told = panels.HasHeadings() ? panels.At(row) : std::nullopt;
            if (told && *told != panel.fGraph.fPlace) continue;
            panel.fvFigures.push_back(FiguresOf(data, row));
            CircleLink& link = panel.fGraph.fvLinks.emplace_back(ReadLink(data, row, panel.fvFigures.back()));
            link.fFrom = from->fNode;
            link.fTo = to->fNode;
        }
    }

    void Finish() {
        for (auto& [place, panel] : fFound) fPairwise.fvPanels.push_back(std::move(panel.fShown));
    }

  private:
    /// A panel while it is filled: the names of its nodes, and the values behind these where they differ.
    struct Filling {
        PairwisePanel fShown;
        std::vector<std::string> fvNames;
        std::vector<std::string> fvValues;
    };

    /// A node's panel and its number in it.
    struct NodePlace {
        Filling* fpPanel;
        int fNode;
    };

    void AddNode(const PanelPlace& place, const document::ChartValue& value, const ShownVariable& node,
                 const std::string& panelKey) {
        Filling& panel = fFound[place];
        panel.fShown.fGraph.fPlace = place;
        fPlaces.emplace(value, NodePlace{&panel, static_cast<int>(panel.fvNames.size())});
        const std::string own = CutName(WithoutPanel(ShownVariable::Key(value), panelKey));
        const bool isPlain = panelKey.empty() || node.IsLabelled(value);
        panel.fvNames.push_back(isPlain ? node.Words(value) : node.InFormat(own));
        panel.fvValues.push_back(own == panel.fvNames.back() ? std::string() : own);
    }

    /// The place of the node of that value, or null: a number that is no figure has none.
    const NodePlace* Find(const document::ChartValue& value) const {
        const double* number = std::get_if<double>(&value);
        if (number != nullptr && !IsFigure(*number)) return nullptr;
        const auto place = fPlaces.find(value);
        return place == fPlaces.end() ? nullptr : &place->second;
    }

    void NameNodes() {
        const std::string start = fPairwise.fNodeTitle.empty() ? std::string() : fPairwise.fNodeTitle + ": ";
        for (auto& [place, panel] : fFound) {
            TellApart(panel.fvNames, panel.fvValues);
            for (const std::string& name : panel.fvNames) panel.fShown.fGraph.fvNodes.push_back({name, start + name});
        }
    }

    Pairwise& fPairwise;
    std::map<PanelPlace, Filling, PanelOrder> fFound;
    std::map<document::ChartValue, NodePlace> fPlaces;
};

void SetWords(const Specification& specification, const std::string& reference, const LinkData& data,
              Pairwise& pairwise) {
    pairwise.fvFigureTitles = data.fvFigureTitles;
    if (data.fpMark == nullptr) return;
    pairwise.fEmphasis = {data.fpMark->Words(1.0), data.fpMark->Words(0.0),
                          FindLegend(specification, reference) != nullptr};
}

}  // namespace

Panels PairwisePanels(const PictureContext& context) {
    Panels ofLinks(context, MarkOf(context, Mark::Kind::Links).fSource);
    return ofLinks.HasHeadings() ? std::move(ofLinks) : Panels(context, MarkOf(context, Mark::Kind::Points).fSource);
}

Pairwise ReadPairwise(const PictureContext& context, const Panels& panels) {
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
