#include "host/chart/view/levels/LevelsWords.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/chart/view/parts/ChartWords.h"
#include "host/chart/view/parts/Numbers.h"

namespace hierfit::chart {

namespace {

void AddLine(std::string& text, const std::string& line) {
    if (!text.empty()) text += '\n';
    text += line;
}

void AddNamed(std::string& text, const std::string& name, const std::string& words) {
    AddLine(text, name.empty() ? words : Translated("^1: ^2", {name, words}));
}

/// A panel's words, which hold the variable's name where they have a prefix.
void AddPanel(std::string& text, const ShownVariable* variable, const std::string& words) {
    if (variable == nullptr) return;
    const bool isNamed = variable->Setting() != nullptr && !variable->Setting()->fPrefix.empty();
    AddNamed(text, isNamed ? std::string() : variable->Name(), words);
}

std::string Figure(const LevelsMarks& marks, double number) { return marks.fpMean->Figure(number); }

std::string RangeFigure(const LevelsMarks& marks, double number) {
    return marks.fpRange != nullptr ? marks.fpRange->Figure(number) : Figure(marks, number);
}

void AddPlace(std::string& text, const LevelsMarks& marks, const LevelsItems& items, const LevelsItem& item) {
    AddNamed(text, marks.fXName, items.fX.Text(item.fX));
    if (marks.fpColor != nullptr) AddNamed(text, marks.fColorName, items.fColors.Text(item.fColor));
    const Panels& panels = items.fPanels;
    if (panels.HasHeadings()) AddPanel(text, panels.AcrossVariable(), panels.Across().Text(item.fPlace.fAcross));
    if (panels.HasTwoVariables()) AddPanel(text, panels.DownVariable(), panels.Down().Text(item.fPlace.fDown));
}

/// What the data tells of an item; empty where it has no words of its own.
std::string GivenTip(const LevelsMarks& marks, const LevelsItem& item) {
    return item.fTipRow ? WordsAt(marks.fpTip, *item.fTipRow) : std::string();
}

/// The factors of the chart, joined as in titles.
std::string Factors(const LevelsMarks& marks, const LevelsItems& items) {
    std::string factors = TitleOr(marks.fXTitle, Translated("Level"));
    const auto add = [&](const ShownVariable* variable) {
        if (variable != nullptr && !variable->Label().empty()) factors += " * " + variable->Label();
    };
    add(marks.fpColor);
    add(items.fPanels.AcrossVariable());
    add(items.fPanels.DownVariable());
    return factors;
}

std::string Sentence(const LevelsMarks& marks, const LevelsItems& items) {
    const std::string what = Translated(marks.fIsContrast ? "Contrasts of ^1 by ^2" : "Means of ^1 by ^2",
                                        {marks.fMeanTitle, Factors(marks, items)});
    if (items.fvItems.empty()) return Translated("Chart: ^1. No values.", {what});
    const auto [least, greatest] =
        std::minmax_element(items.fvItems.begin(), items.fvItems.end(),
                            [](const LevelsItem& a, const LevelsItem& b) { return a.fMean < b.fMean; });
    const std::string count = fmt::format("{}", items.fvItems.size());
    const std::string low = Figure(marks, least->fMean);
    const std::string high = Figure(marks, greatest->fMean);
    if (!marks.fIsContrast) return Translated("Chart: ^1. Points: ^2, from ^3 to ^4.", {what, count, low, high});
    const auto setOff = std::count_if(items.fvItems.begin(), items.fvItems.end(),
                                      [](const LevelsItem& item) { return item.fIsSetOff; });
    return Translated("Chart: ^1. Points: ^2, from ^3 to ^4. Significant: ^5.",
                      {what, count, low, high, fmt::format("{}", setOff)});
}

/// What tells which mean a row is about.
std::vector<std::string> KeyColumns(const LevelsMarks& marks, const LevelsItems& items) {
    std::vector<std::string> columns = items.fPanels.Titles();
    columns.push_back(TitleOr(marks.fXTitle, Translated("Level")));
    if (marks.fpColor != nullptr) columns.push_back(TitleOr(marks.fColorName, Translated("Series")));
    return columns;
}

void AddFigureColumns(const LevelsMarks& marks, std::vector<std::string>& columns) {
    if (marks.fIsContrast) columns.push_back(Translated("Reference"));
    columns.push_back(marks.fMeanName);
    if (marks.fpRange != nullptr) {
        columns.push_back(Translated("Lower"));
        columns.push_back(Translated("Upper"));
    }
    if (marks.fpMark != nullptr) columns.push_back(Translated("E62317"));
}

std::vector<std::string> Cells(const LevelsMarks& marks, const LevelsItems& items, const LevelsItem& item) {
    std::vector<std::string> cells = items.fPanels.WordsUnderTitles(item.fPlace);
    cells.push_back(items.fX.Text(item.fX));
    if (marks.fpColor != nullptr) cells.push_back(items.fColors.Text(item.fColor));
    if (marks.fIsContrast) cells.push_back(item.fBase ? Figure(marks, *item.fBase) : std::string());
    cells.push_back(Figure(marks, item.fMean));
    if (marks.fpRange != nullptr) {
        cells.push_back(item.fRange ? RangeFigure(marks, item.fRange->fLow) : std::string());
        cells.push_back(item.fRange ? RangeFigure(marks, item.fRange->fHigh) : std::string());
    }
    if (marks.fpMark != nullptr) cells.push_back(Translated(item.fIsSetOff ? "Significant" : "Not Significant"));
    return cells;
}

}  // namespace

std::string LevelsTip(const LevelsMarks& marks, const LevelsItems& items, const LevelsItem& item) {
    std::string tip = GivenTip(marks, item);
    if (tip.empty()) AddPlace(tip, marks, items, item);
    AddNamed(tip, marks.fMeanName, Figure(marks, item.fMean));
    if (item.fRange) {
        AddLine(tip, Translated("Confidence Interval: ^1 to ^2",
                                {RangeFigure(marks, item.fRange->fLow), RangeFigure(marks, item.fRange->fHigh)}));
    }
    return tip;
}

document::ChartShown ShowLevels(const LevelsMarks& marks, const LevelsItems& items) {
    document::ChartTable table;
    table.fvColumns = KeyColumns(marks, items);
    table.fKeys = static_cast<int>(table.fvColumns.size());
    AddFigureColumns(marks, table.fvColumns);
    table.fvRows.reserve(items.fvItems.size());
    for (const LevelsItem& item : items.fvItems) table.fvRows.push_back(Cells(marks, items, item));
    return {Sentence(marks, items), {std::move(table)}};
}

}  // namespace hierfit::chart
