#include <optional>

#include "hierfit/charts/ChartLabels.h"
#include "hierfit/charts/ChartState.h"
#include "hierfit/charts/ChartText.h"
#include "hierfit/charts/ContrastGroup.h"
#include "hierfit/charts/HFITChartOutput.h"
#include "host/Diagnose.h"
#include "host/XViZTemplate.h"

namespace hierfit {

namespace {

constexpr const char* kSource = "source";
constexpr const char* kFacets[] = {"facet1", "facet2"};

using Handle = VarDataProcessor::_varinfo;

/// The texts of one kind of chart.
struct KindTexts {
    const char* fTitle;
    const char* fCaption;
    const char* fHigher;
    const char* fLower;
    const char* fSame;

    const char* Tip(bool isSignificant, bool isHigher) const {
        if (!isSignificant) return fSame;
        return isHigher ? fHigher : fLower;
    }
};

constexpr KindTexts kDeviation{"Deviation Contrasts", "Horizontal Line Deviation", "Deviation Higher",
                               "Deviation Lower", "Deviation Same"};
constexpr KindTexts kSimple{"Simple Contrasts", "Horizontal Line Simple", "Simple Higher", "Simple Lower",
                            "Simple Same"};

/// A variable of the chart's data. Those that are no figures are factors in the template.
struct Column {
    const char* fName;
    bool fIsFactor;
};
constexpr Column kColumns[] = {{"value", false},   {"category", true},    {"type", true},   {kFacets[0], true},
                               {kFacets[1], true}, {"confMargin", false}, {"tooltip", true}};

struct Handles {
    explicit Handles(VarDataProcessor& processor)
        : fValue(AddVariable(processor, kSource, kColumns[0].fName)),
          fCategory(AddVariable(processor, kSource, kColumns[1].fName)),
          fType(AddVariable(processor, kSource, kColumns[2].fName)),
          fFacets{AddVariable(processor, kSource, kColumns[3].fName),
                  AddVariable(processor, kSource, kColumns[4].fName)},
          fMargin(AddVariable(processor, kSource, kColumns[5].fName)),
          fTooltip(AddVariable(processor, kSource, kColumns[6].fName)) {}

    Handle fValue;
    Handle fCategory;
    Handle fType;
    Handle fFacets[2];
    Handle fMargin;
    Handle fTooltip;
};

/// The label of a level, or the level itself; empty without a variable.
std::string LabelOrLevel(const KEST_Variable* variable, const std::string& level) {
    if (!variable) return "";
    const char* label = LabelOfText(*variable, level);
    return label ? label : level;
}

/// The variables by which levels and panels are shown; null where the data lacks one.
struct Variables {
    const KEST_Variable* fpCompare;
    const KEST_Variable* fpFacets[2];

    bool IsString(const KEST_Variable* variable) const { return variable && variable->IsString(); }
};

/// What the two rows of a contrast show: the line's height and the level's mean, each with one limit.
struct Level {
    std::string fText;
    std::array<std::string, 2> fvFacetValues;
    double fValues[2];
    double fMargins[2];
    bool fIsSignificant;
    std::string fTooltip;
};

void WriteLevel(VarDataProcessor& processor, const Handles& handles, const Variables& variables, int row,
                const Level& level) {
    for (const int i : {0, 1}) {
        const int at = row + i;
        processor.SetVariableValue(handles.fValue, at, level.fValues[i]);
        SetByType(processor, handles.fCategory, at, variables.IsString(variables.fpCompare), level.fText);
        processor.SetVariableValue(handles.fType, at, level.fIsSignificant ? 1.0 : 0.0);
        for (const std::size_t j : {0, 1}) {
            SetByType(processor, handles.fFacets[j], at, variables.IsString(variables.fpFacets[j]),
                      level.fvFacetValues[j]);
        }
        processor.SetVariableValue(handles.fMargin, at, level.fMargins[i]);
        processor.SetStringVariableValue(handles.fTooltip, at, level.fTooltip);
    }
}

std::string ConvertTemplate() {
    XViZTemplate viz;
    viz.setTemplateInternalName("GLMMSimpleContrasts");
    for (const Column& column : kColumns) {
        viz.addVariable(column.fName, column.fName, column.fIsFactor, "", kSource, nullptr, "");
    }
    std::string xml;
    std::string unused;
    viz.convert(xml, unused);
    return xml;
}

/// One panel needs no panels, and one panel variable no second one.
void CutFacets(std::string& xml, const ContrastGroups& groups) {
    if (groups.empty()) return;
    const std::array<std::string, 2>& facets = groups.begin()->second.fvFacetValues;
    if (facets[0].empty()) {
        RemoveFacetingBlock(xml);
    } else if (facets[1].empty()) {
        RemoveSecondFacet(xml);
    }
}

void LabelVariables(XDocument& document, const Variables& variables) {
    try {
        XGraph graph = document.getExternalGraph();
        if (variables.fpCompare) LabelVariable(graph, "category", 0, *variables.fpCompare);
        for (const std::size_t i : {0, 1}) {
            const KEST_Variable* variable = variables.fpFacets[i];
            if (!variable) continue;
            XVariable shown = LabelVariable(graph, kFacets[i], 0, *variable);
            shown.setFormatBasedOnKESTVariable(variable);
            ChartString prefix = VariableDisplayName(*variable);
            prefix += ChartString(" = ");
            shown.SetFormatPrefix(prefix);
        }
    } catch (...) {  // the chart goes out without what is not labelled yet
        NoteDropped();
    }
}

}  // namespace

/// A chart of deviation or simple contrasts on its way: two rows for each contrast, and a line for each panel.
class HFITChartOutput::LevelContrasts {
  public:
    LevelContrasts(const HFITChartOutput& charts, const EmmeansData& block)
        : fCharts(charts),
          fBlock(block),
          fRows(block.fContrasts),
          fIsSimple(block.fContrasts.fContrastKind == ContrastKind::SIMPLE),
          fTexts(fIsSimple ? kSimple : kDeviation),
          fVariables{charts.FindVariable(fRows.Reference().fField), {FacetVariable(0), FacetVariable(1)}},
          fReference(fIsSimple ? LabelOrLevel(fVariables.fpCompare, EntryOf(fRows.Reference(), 0)) : ""),
          fMeans(MakeMeansByLevels(block)) {
        fProcessor.AddDataSource(kSource, 0);
        fHandles.emplace(fProcessor);
    }

    void WriteRows();
    void Send();

  private:
    const KEST_Variable* FacetVariable(std::size_t i) const {
        return fRows.HasPanel(i) ? fCharts.FindVariable(fRows.PanelField(i)) : nullptr;
    }

    Level MakeLevel(std::size_t i, double mean);

    /// The panel of a row. Its first row decides the height of its line.
    const ContrastGroup& GroupOf(std::size_t i, double mean);
    std::string MakeXml() const;

    const HFITChartOutput& fCharts;
    const EmmeansData& fBlock;
    ContrastRows fRows;
    bool fIsSimple;
    const KindTexts& fTexts;
    Variables fVariables;
    std::string fReference;  ///< in words; empty for deviations
    std::unordered_map<std::string, std::string> fMeans;
    ContrastGroups fGroups;
    VarDataProcessor fProcessor;
    std::optional<Handles> fHandles;
};

void HFITChartOutput::LevelContrasts::WriteRows() {
    int row = 0;
    for (std::size_t i = 0; i < fRows.Compared().fvValues.size(); ++i) {
        const auto mean = fMeans.find(LevelKey(fRows, i));
        if (mean == fMeans.end()) {
            Diagnose(std::string("chart \"") + fTexts.fTitle + "\": a level is left out: the block has no mean for it");
            continue;
        }
        WriteLevel(fProcessor, *fHandles, fVariables, row, MakeLevel(i, ParseNumber(mean->second)));
        row += 2;
    }
}

Level HFITChartOutput::LevelContrasts::MakeLevel(std::size_t i, double mean) {
    const ContrastData& contrasts = fBlock.fContrasts;
    const ContrastGroup& group = GroupOf(i, mean);
    const double base = group.fBase;
    const std::string& text = fRows.Compared().fvValues[i];
    const bool isSignificant = ParseNumber(EntryOf(contrasts.fAdjustedSig, i)) < contrasts.fAdjustedSigLevel;
    const char* tip = fTexts.Tip(isSignificant, mean - base > 0);
    return {.fText = text,
            .fvFacetValues = group.fvFacetValues,
            .fValues = {base, mean},
            .fMargins = {ParseNumber(EntryOf(contrasts.fCILower, i)) + base,
                         ParseNumber(EntryOf(contrasts.fCIUpper, i)) + base},
            .fIsSignificant = isSignificant,
            .fTooltip = fCharts.ContrastTooltip(tip, LabelOrLevel(fVariables.fpCompare, text), fReference)};
}

const ContrastGroup& HFITChartOutput::LevelContrasts::GroupOf(std::size_t i, double mean) {
    const std::string key = fRows.PanelLevel(0, i) + fRows.PanelLevel(1, i);
    const auto [group, isNew] = fGroups.try_emplace(key);
    if (isNew) {
        group->second.fvFacetValues = {fRows.PanelLevel(0, i), fRows.PanelLevel(1, i)};
        group->second.fBase = mean - ParseNumber(EntryOf(fBlock.fContrasts.fContrastEstimate, i));
    }
    return group->second;
}

std::string HFITChartOutput::LevelContrasts::MakeXml() const {
    std::string xml = ConvertTemplate();
    ReplaceFirst(xml, "TitleText", fCharts.LookUpText(fTexts.fTitle).toUTF8());
    ReplaceFirst(xml, "CaptionText", fCharts.ContrastCaption(fTexts.fCaption, fRows.Compared().fField, fReference));
    ReplaceFirst(xml, "FootnoteText", fCharts.MakeAdjustmentFootnote(fBlock).toUTF8());
    FillLineGuides(xml, fGroups);
    CutFacets(xml, fGroups);
    return xml;
}

void HFITChartOutput::LevelContrasts::Send() {
    const std::string xml = MakeXml();
    try {
        XDocument document(xml);
        document.setEditor(2);
        document.setLanguage();
        LabelVariables(document, fVariables);
        document.SetChartData(&fProcessor);
        document.SetDescription(fCharts.LookUpText(fTexts.fTitle));
        document.SendChart(true, false, false);
    } catch (...) {  // the chart is missing then, and nothing else
        NoteDropped();
    }
}

void HFITChartOutput::BuildLevelContrastsChart(const EmmeansData& block) {
    LevelContrasts chart(*this, block);
    chart.WriteRows();
    chart.Send();
}

}  // namespace hierfit
