#include "host/chart/picture/levels/MeansWords.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/chart/picture/ChartWords.h"
#include "host/context/RunContext.h"

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
void AddPanel(std::string& text, const ShownVariable& variable, const std::string& words) {
    AddNamed(text, variable.HasPrefix() ? std::string() : variable.Name(), words);
}

std::string Figure(const Means& means, double number) { return means.fVariables.fpMean->Figure(number); }

std::string RangeFigure(const Means& means, double number) {
    const ShownVariable* range = means.fVariables.fpRange;
    return range != nullptr ? range->Figure(number) : Figure(means, number);
}

const std::string& LevelText(const Levels& levels, int level) { return levels.Text(static_cast<std::size_t>(level)); }

void AddPlace(std::string& text, const Means& means, const document::LevelMark& mark) {
    const MeansVariables& variables = means.fVariables;
    const Panels& panels = means.fPanels;
    AddNamed(text, variables.fXName, LevelText(means.fX, mark.fLevel));
    if (variables.fpColor != nullptr) AddNamed(text, variables.fColorName, LevelText(means.fColors, mark.fSeries));
    if (panels.HasHeadings()) {
        AddPanel(text, *panels.AcrossVariable(), LevelText(panels.Across(), mark.fPanel.fAcross));
    }
    if (panels.HasTwoVariables()) AddPanel(text, *panels.DownVariable(), LevelText(panels.Down(), mark.fPanel.fDown));
}

/// The factors of the chart, joined as in titles.
std::string Factors(const Means& means) {
    std::string factors = TitleOr(means.fVariables.fXTitle, Translated("Level"));
    const auto add = [&](const ShownVariable* variable) {
        if (variable != nullptr && !variable->Label().empty()) factors += " * " + variable->Label();
    };
    add(means.fVariables.fpColor);
    add(means.fPanels.AcrossVariable());
    add(means.fPanels.DownVariable());
    return factors;
}

/// What tells which mean a row is about.
std::vector<std::string> KeyColumns(const Means& means) {
    std::vector<std::string> columns = means.fPanels.Titles();
    columns.push_back(TitleOr(means.fVariables.fXTitle, Translated("Level")));
    if (means.fVariables.fpColor != nullptr) {
        columns.push_back(TitleOr(means.fVariables.fColorName, Translated("Series")));
    }
    return columns;
}

void AddFigureColumns(const MeansVariables& variables, std::vector<std::string>& columns) {
    if (variables.fIsContrast) columns.push_back(Translated("Reference"));
    columns.push_back(variables.fMeanName);
    if (variables.fpRange != nullptr) {
        columns.push_back(Translated("Lower"));
        columns.push_back(Translated("Upper"));
    }
    if (variables.fpMark != nullptr) columns.push_back(Translated("E62317"));
}

std::vector<std::string> Cells(const Means& means, const document::LevelMark& mark) {
    const MeansVariables& variables = means.fVariables;
    std::vector<std::string> cells = means.fPanels.WordsUnderTitles(mark.fPanel);
    cells.push_back(LevelText(means.fX, mark.fLevel));
    if (variables.fpColor != nullptr) cells.push_back(LevelText(means.fColors, mark.fSeries));
    if (variables.fIsContrast) cells.push_back(mark.fBase ? Figure(means, *mark.fBase) : std::string());
    cells.push_back(Figure(means, mark.fValue));
    if (variables.fpRange != nullptr) {
        cells.push_back(mark.fLow ? RangeFigure(means, *mark.fLow) : std::string());
        cells.push_back(mark.fHigh ? RangeFigure(means, *mark.fHigh) : std::string());
    }
    if (variables.fpMark != nullptr) cells.push_back(Translated(mark.fIsSetOff ? "Significant" : "Not Significant"));
    return cells;
}

/// The level of confidence in percent, in the shortest digits; empty where it is not known.
std::string Percentage() {
    const context::RunContext* run = context::RunContext::CurrentOrNull();
    const auto level = run == nullptr ? std::nullopt : run->GetConfidenceLevel();
    return level ? fmt::format("{:.10g}", *level * 100) : std::string();
}

/// A sentence with the level of confidence, and one without.
struct IntervalSentences {
    std::string_view fOfLevel;
    std::string_view fPlain;
};

constexpr IntervalSentences kOfContrasts{
    "Bars: ^1% confidence interval of the difference from the line, drawn at the mean",
    "Bars: confidence interval of the difference from the line, drawn at the mean"};
constexpr IntervalSentences kOfLine{"Band: ^1% confidence interval of the mean",
                                    "Band: confidence interval of the mean"};
constexpr IntervalSentences kOfMeans{"Bars: ^1% confidence intervals of the means",
                                     "Bars: confidence intervals of the means"};

}  // namespace

std::string MeanTip(const Means& means, const document::LevelMark& mark) {
    std::string tip = mark.fTip;
    if (tip.empty()) AddPlace(tip, means, mark);
    AddNamed(tip, means.fVariables.fMeanName, Figure(means, mark.fValue));
    if (mark.fLow) {
        AddLine(tip, Translated("Confidence Interval: ^1 to ^2",
                                {RangeFigure(means, *mark.fLow), RangeFigure(means, *mark.fHigh)}));
    }
    return tip;
}

std::string MeansSentence(const Means& means) {
    const bool isContrast = means.fVariables.fIsContrast;
    const std::string what = Translated(isContrast ? "Contrasts of ^1 by ^2" : "Means of ^1 by ^2",
                                        {means.fVariables.fMeanOf, Factors(means)});
    if (means.fvMarks.empty()) return Translated("Chart: ^1. No values.", {what});
    const auto [least, greatest] = std::ranges::minmax_element(means.fvMarks, {}, &document::LevelMark::fValue);
    const std::string count = std::to_string(means.fvMarks.size());
    const std::string low = Figure(means, least->fValue);
    const std::string high = Figure(means, greatest->fValue);
    if (!isContrast) return Translated("Chart: ^1. Points: ^2, from ^3 to ^4.", {what, count, low, high});
    const auto setOff = std::ranges::count_if(means.fvMarks, &document::LevelMark::fIsSetOff);
    return Translated("Chart: ^1. Points: ^2, from ^3 to ^4. Significant: ^5.",
                      {what, count, low, high, std::to_string(setOff)});
}

document::ChartTable MeansTable(const Means& means) {
    document::ChartTable table;
    table.fvColumns = KeyColumns(means);
    table.fKeys = static_cast<int>(table.fvColumns.size());
    AddFigureColumns(means.fVariables, table.fvColumns);
    table.fvRows.reserve(means.fvMarks.size());
    for (const document::LevelMark& mark : means.fvMarks) table.fvRows.push_back(Cells(means, mark));
    return table;
}

std::string IntervalNote(const Means& means) {
    const auto hasRange = [](const document::LevelMark& mark) { return mark.fLow.has_value(); };
    if (std::ranges::none_of(means.fvMarks, hasRange)) return {};
    const IntervalSentences& sentences = means.fVariables.fIsContrast ? kOfContrasts
                                         : means.fIsLinear            ? kOfLine
                                                                      : kOfMeans;
    const std::string level = Percentage();
    return level.empty() ? Translated(sentences.fPlain) : Translated(sentences.fOfLevel, {level});
}

}  // namespace hierfit::chart
