#include "host/chart/view/Drawing.h"
#include "host/chart/view/circle/CircleLayout.h"
#include "host/chart/view/circle/PairwiseMarks.h"
#include "host/chart/view/circle/ReadPairwise.h"
#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/ViewExpressions.h"
#include "host/chart/view/text/WrapText.h"

namespace hierfit::chart {

namespace {

std::vector<std::vector<std::string>> NamesOf(const Pairwise& pairwise) {
    std::vector<std::vector<std::string>> names;
    for (const PairwisePanel& panel : pairwise.fvPanels) names.push_back(panel.fvNames);
    return names;
}

std::vector<LevelTexts> Texts(const Pairwise& pairwise, const CircleLayout& layout, const Panels& panels) {
    std::vector<LevelTexts> texts = {
        {expression::kTypeNames, {KeepBlanks(pairwise.fRestInWords), KeepBlanks(pairwise.fSetOffInWords)}}};
    panels.AddTexts(texts, layout.Width(), layout.Height());
    return texts;
}

std::string Sentence(const Specification& specification, const Pairwise& pairwise) {
    std::size_t nodes = 0;
    std::size_t lines = 0;
    std::size_t setOff = 0;
    for (const PairwisePanel& panel : pairwise.fvPanels) {
        nodes += panel.fvNames.size();
        lines += panel.fvLinks.size();
        for (const PairwiseLink& link : panel.fvLinks) setOff += link.fIsSetOff ? 1 : 0;
    }
    return Translated("Graph of pairs: ^1. Nodes: ^2. Lines: ^3; ^4: ^5.",
                      {TitleInWords(specification), std::to_string(nodes), std::to_string(lines),
                       pairwise.fSetOffInWords, std::to_string(setOff)});
}

std::vector<std::string> KeyColumns(const Pairwise& pairwise, const Panels& panels) {
    std::vector<std::string> columns = panels.Titles();
    const std::string node = TitleOr(pairwise.fNodeTitle, Translated("Node"));
    columns.push_back(Translated("^1 (first)", {node}));
    columns.push_back(Translated("^1 (second)", {node}));
    return columns;
}

document::ChartTable ShowPairs(const Pairwise& pairwise, const Panels& panels) {
    document::ChartTable table;
    table.fvColumns = KeyColumns(pairwise, panels);
    table.fKeys = static_cast<int>(table.fvColumns.size());
    for (const std::string& title : pairwise.fvFigureTitles) {
        table.fvColumns.push_back(TitleOr(title, Translated("Series")));
    }
    table.fvColumns.push_back(Translated("E62317"));
    for (const PairwisePanel& panel : pairwise.fvPanels) {
        for (const PairwiseLink& link : panel.fvLinks) {
            std::vector<std::string>& row = table.fvRows.emplace_back(panels.WordsUnderTitles(panel.fPlace));
            row.push_back(panel.fvNames[link.fFrom]);
            row.push_back(panel.fvNames[link.fTo]);
            row.insert(row.end(), link.fvFigures.begin(), link.fvFigures.end());
            row.push_back(link.fIsSetOff ? pairwise.fSetOffInWords : pairwise.fRestInWords);
        }
    }
    return table;
}

}  // namespace

Drawing MakeCircleDrawing(const ViewContext& context) {
    const Panels panels = PairwisePanels(context);
    const Pairwise pairwise = ReadPairwise(context, panels);
    const CircleLayout layout(NamesOf(pairwise), panels.Columns());
    Drawing drawing;
    drawing.fView =
        panels.Arrange(PairwiseLayers(pairwise, layout), PairwiseValues(pairwise, layout, panels), layout.Height());
    drawing.fvTexts = Texts(pairwise, layout, panels);
    drawing.fWidth = layout.Width() * static_cast<double>(panels.Columns());
    drawing.fShown = {Sentence(context.fSpecification, pairwise), {ShowPairs(pairwise, panels)}};
    return drawing;
}

}  // namespace hierfit::chart
