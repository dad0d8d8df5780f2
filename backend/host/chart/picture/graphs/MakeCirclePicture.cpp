#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/chart/picture/MarkNumbers.h"
#include "host/chart/picture/graphs/ReadPairwise.h"

namespace hierfit::chart {

namespace {

using document::CirclePanel;

std::size_t CountLinks(const std::vector<PairwisePanel>& panels) {
    std::size_t count = 0;
    for (const PairwisePanel& panel : panels) count += panel.fGraph.fvLinks.size();
    return count;
}

std::size_t CountSetOff(const std::vector<PairwisePanel>& panels) {
    std::ptrdiff_t count = 0;
    for (const auto& panel : panels)
        count += std::ranges::count_if(panel.fGraph.fvLinks, &document::CircleLink::fIsSetOff);
    return static_cast<std::size_t>(count);
}

std::string Sentence(const Specification& specification, const Pairwise& pairwise) {
    std::size_t nodes = 0;
    for (const PairwisePanel& panel : pairwise.fvPanels) nodes += panel.fGraph.fvNodes.size();
    return Translated(
        "Graph of pairs: ^1. Nodes: ^2. Lines: ^3; ^4: ^5.",
        {TitleInWords(specification), std::to_string(nodes), std::to_string(CountLinks(pairwise.fvPanels)),
         pairwise.fEmphasis.fSetOff, std::to_string(CountSetOff(pairwise.fvPanels))});
}

std::vector<std::string> KeyColumns(const Pairwise& pairwise, const Panels& panels) {
    std::vector<std::string> columns = panels.Titles();
    const std::string node = TitleOr(pairwise.fNodeTitle, Translated("Node"));
    columns.push_back(Translated("^1 (first)", {node}));
    columns.push_back(Translated("^1 (second)", {node}));
    return columns;
}

void AddRows(const PairwisePanel& panel, const Pairwise& pairwise, const Panels& panels, document::ChartTable& table) {
    const CirclePanel& graph = panel.fGraph;
    for (std::size_t at = 0; at < graph.fvLinks.size(); ++at) {
        const document::CircleLink& link = graph.fvLinks[at];
        std::vector<std::string>& row = table.fvRows.emplace_back(panels.WordsUnderTitles(graph.fPlace));
        row.push_back(graph.fvNodes[static_cast<std::size_t>(link.fFrom)].fName);
        row.push_back(graph.fvNodes[static_cast<std::size_t>(link.fTo)].fName);
        row.insert(row.end(), panel.fvFigures[at].begin(), panel.fvFigures[at].end());
        row.push_back(link.fIsSetOff ? pairwise.fEmphasis.fSetOff : pairwise.fEmphasis.fRest);
    }
}

document::ChartTable ShowPairs(const Pairwise& pairwise, const Panels& panels) {
    document::ChartTable table;
    table.fvColumns = KeyColumns(pairwise, panels);
    table.fKeys = static_cast<int>(table.fvColumns.size());
    for (const std::string& title : pairwise.fvFigureTitles) {
        table.fvColumns.push_back(TitleOr(title, Translated("Series")));
    }
    table.fvColumns.push_back(Translated("E62317"));
    for (const PairwisePanel& panel : pairwise.fvPanels) AddRows(panel, pairwise, panels, table);
    return table;
}

document::CirclePicture Draw(Pairwise& pairwise, const Panels& panels, const Thinning& thinning) {
    document::CirclePicture picture;
    picture.fEmphasis = pairwise.fEmphasis;
    std::size_t links = 0;
    std::vector<document::PanelPlace*> places;
    for (PairwisePanel& panel : pairwise.fvPanels) {
        const std::size_t first = links;
        links += panel.fGraph.fvLinks.size();
        thinning.Thin(panel.fGraph.fvLinks, first);
        places.push_back(&panel.fGraph.fPlace);
    }
    picture.fPanels = panels.Show(places);
    const std::size_t setOff = CountSetOff(pairwise.fvPanels);
    if (setOff == 0) picture.fEmphasis.fSetOff.clear();
    if (setOff == CountLinks(pairwise.fvPanels)) picture.fEmphasis.fRest.clear();
    for (PairwisePanel& panel : pairwise.fvPanels) picture.fvPanels.push_back(std::move(panel.fGraph));
    return picture;
}

}  // namespace

document::Picture MakeCirclePicture(const PictureContext& context) {
    const Panels panels = PairwisePanels(context);
    Pairwise pairwise = ReadPairwise(context, panels);
    const Thinning thinning(CountLinks(pairwise.fvPanels));
    document::Picture picture;
    thinning.AddNote(picture.fvNotes);
    picture.fSentence = Sentence(context.fSpecification, pairwise);
    picture.fvTables.push_back(ShowPairs(pairwise, panels));
    picture.fContent = Draw(pairwise, panels, thinning);
    return picture;
}

}  // namespace hierfit::chart
