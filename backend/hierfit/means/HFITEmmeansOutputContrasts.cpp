#include "hierfit/charts/HFITChartOutput.h"
#include "hierfit/means/FigureColumns.h"
#include "hierfit/means/HFITEmmeansOutput.h"
#include "hierfit/tables/MessageKeys.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

namespace {

constexpr const char* kTitles[] = {"Pairwise Contrasts", "Deviation Contrasts", "Simple Contrasts"};
constexpr const char* kCompareDimensions[] = {"^1 Pairwise Contrasts", "^1 Deviation Contrasts", "^1 Simple Contrasts"};

void AdjustmentCaption(BpPivotTable& table, int adjustment) {
    const BpString approximate = Translated("Confidence interval bounds are approximate.");
    switch (adjustment) {
        case PAdjustment::LSD:
            table.Caption(Translated("Least Significant significance adjust"));
            break;
        case PAdjustment::SEQBONFERRONI:
            table.Caption(TwoLines(Translated("Sequential Bonferroni significance adjust"), approximate));
            break;
        case PAdjustment::SEQSIDAK:
            table.Caption(TwoLines(Translated("Sequential Sidak significance adjust"), approximate));
            break;
        default:
            break;
    }
}

/// A deviation is from the mean of all levels: there is no second level.
bool IsDeviation(const ContrastData& contrasts) { return contrasts.fContrastKind == ContrastKind::DEVIATION; }

std::vector<FigureColumn> Figures(const ContrastData& contrasts) {
    return {{"Contrast Estimate", &contrasts.fContrastEstimate, BpProcedure::Coefficient()},
            {"Std. Error", &contrasts.fStdErr, BpProcedure::Coefficient()},
            {"t", &contrasts.fTTest, BpProcedure::Coefficient()},
            {"df", &contrasts.fDf, BpProcedure::Count()},
            {"Adj. Sig.", &contrasts.fAdjustedSig, BpProcedure::Coefficient()}};
}

}  // namespace

bool HFITEmmeansOutput::PrintContrasts(BpHeading& heading, const EmmeansData& block) {
    const ContrastData& contrasts = block.fContrasts;
    if (contrasts.fvFactorCoords.empty()) {
        // A message of the block stands in for what it does not hold.
        if (SpecOf(block).fContrastType < ContrastType::NONE && block.fvWarningList.empty())
            Diagnose(NameOfTable("Contrasts", block) + " is left out: the block has no contrasts");
        return true;
    }
    if (contrasts.fContrastKind < 0 || contrasts.fContrastKind >= ContrastKind::OTHER) {
        Diagnose(NameOfTable("Contrasts", block) + " is left out: it does not say which kind of contrasts it holds");
        return false;
    }
    int position = 0;
    if (FindWarning(block.fvWarningList, kGLMM_C19_1, position)) {
        ReportRefusedContrasts(block, block.fvWarningList[static_cast<std::size_t>(position)]);
        return true;
    }
    if (CanPrintContrasts(block)) PrintContrastTable(heading, block);
    return true;
}

void HFITEmmeansOutput::ReportRefusedContrasts(const EmmeansData& block, const WarningMessage& message) const {
    const std::vector<std::string>& parameters = message.fWarningParameters;
    if (parameters.size() != 1) {
        Diagnose(NameOfTable("Contrasts", block) + ": the message that refuses it has " +
                 std::to_string(parameters.size()) + " parameters, not one");
    }
    const std::string parameter = parameters.empty() ? "" : parameters.front();
    ReportRefusal(block, fpStats->Translate(kGLMM_C19_1, parameter.c_str()));
}

bool HFITEmmeansOutput::CanPrintContrasts(const EmmeansData& block) const {
    const std::vector<Coordinates>& factorCoords = block.fContrasts.fvFactorCoords;
    const EmmeansSpec& spec = SpecOf(block);
    const std::size_t nFactor = factorCoords.size();
    const std::string name = NameOfTable("Contrasts", block);
    if (nFactor < 2 || spec.fFactors.fvFieldIndex.size() + 1 != nFactor) {
        Diagnose(name + " is left out: its factor columns are not those of the effect");
        return false;
    }
    for (std::size_t i = 0; i < nFactor; ++i) {
        const bool isCompareColumn = i + 2 >= nFactor;
        if ((factorCoords[i].fField == spec.fCompareFactor) == isCompareColumn) continue;
        Diagnose(name + " is left out: not the last two of its factor columns are those of the compare factor \"" +
                 unicode::Excerpt(spec.fCompareFactor) + "\"");
        return false;
    }
    return AreKnown(factorCoords, name);
}

void HFITEmmeansOutput::PrintContrastTable(BpHeading& heading, const EmmeansData& block) {
    const ContrastData& contrasts = block.fContrasts;
    const std::vector<Coordinates>& factorCoords = contrasts.fvFactorCoords;
    const std::size_t nFactor = factorCoords.size();
    const std::size_t nOther = nFactor - 2;
    const auto kind = static_cast<std::size_t>(contrasts.fContrastKind);

    BpPivotTable table = heading.PivotTable(Translated(kTitles[kind]), Plain("Contrasts"), true);
    AdjustmentCaption(table, fpBuildSettings->fPAdjustment);
    const KEST_Variable* compare = FindVariable(SpecOf(block).fCompareFactor);
    std::vector<Factor> factors;
    for (std::size_t i = 0; i < nOther; ++i) {
        factors.push_back(MakeFactor(table, FindVariable(factorCoords[i].fField), nFactor - 1 - i));
    }
    // Left to find its place behind the other factors by itself.
    BpDimension terms =
        table.Dimension(Composite(kCompareDimensions[kind], BpVariable(compare, BpShow::InText)), BpSort::AsIssued);
    FigureColumns columns(table, *fpBuildSettings, fSysMis, Figures(contrasts), contrasts.fCILower, contrasts.fCIUpper);

    const std::string name = NameOfTable("Contrasts", block);
    const std::size_t nRows = CountRows(factorCoords, IsDeviation(contrasts) ? nFactor - 1 : nFactor, name);
    columns.Check(name, nRows);
    for (std::size_t r = 0; r < nRows; ++r) {
        for (std::size_t j = 0; j < nOther; ++j) {
            factors[j].fDimension.Category(Level(factors[j].fpVariable, factorCoords[j].fvValues[r]));
        }
        terms.Category(ContrastOf(contrasts, compare, r));
        columns.Row(r);
    }
    HFITChartOutput(fProcedure, fDataSource, fpStats).BuildContrastChart(block);
}

BpComposite HFITEmmeansOutput::ContrastOf(const ContrastData& contrasts, const KEST_Variable* compare,
                                          std::size_t row) {
    const std::size_t nFactor = contrasts.fvFactorCoords.size();
    BpComposite contrast("^1 - ^2", true);
    contrast.Add(Level(compare, contrasts.fvFactorCoords[nFactor - 2].fvValues[row]));
    if (IsDeviation(contrasts)) {
        contrast.Add(Translated("Mean"));
    } else {
        contrast.Add(Level(compare, contrasts.fvFactorCoords[nFactor - 1].fvValues[row]));
    }
    contrast.Finish();
    return contrast;
}

}  // namespace hierfit
