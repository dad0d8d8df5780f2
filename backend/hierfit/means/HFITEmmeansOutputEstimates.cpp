#include <algorithm>

#include "hierfit/means/FigureColumns.h"
#include "hierfit/means/HFITEmmeansOutput.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

bool HFITEmmeansOutput::PrintEstimates(BpHeading& heading, const EmmeansData& block) {
    const EstimateData& estimates = block.fEstimates;
    const std::vector<Coordinates>& factorCoords = estimates.fvFactorCoords;
    const std::size_t nFactor = factorCoords.size();
    const std::string name = NameOfTable("Estimates", block);
    if (nFactor == 0 || nFactor != SpecOf(block).fFactors.fvFieldIndex.size()) {
        Diagnose(name + " is left out: its factor columns are not those of the effect");
        return true;
    }
    if (!AreKnown(factorCoords, name)) return true;

    BpPivotTable table = heading.PivotTable(Translated("Estimates"), Plain("Estimates"), true);
    if (!block.fvLabels.empty()) table.Caption(ContinuousCaption(block.fvLabels));
    std::vector<Factor> factors;
    for (std::size_t i = 0; i < nFactor; ++i) {
        factors.push_back(MakeFactor(table, FindVariable(factorCoords[i].fField), nFactor - i));
    }
    FigureColumns columns(table, *fpBuildSettings, fSysMis,
                          {{"Mean", &estimates.fMean, BpProcedure::Coefficient()},
                           {"Std. Error", &estimates.fStdErr, BpProcedure::Coefficient()}},
                          estimates.fCILower, estimates.fCIUpper);

    const std::size_t nRows = CountRows(factorCoords, nFactor, name);
    columns.Check(name, nRows);
    for (std::size_t r = 0; r < nRows; ++r) {
        for (std::size_t j = 0; j < nFactor; ++j) {
            factors[j].fDimension.Category(Level(factors[j].fpVariable, factorCoords[j].fvValues[r]));
        }
        columns.Row(r);
    }
    return true;
}

BpComposite HFITEmmeansOutput::ContinuousCaption(const std::vector<EmmeansLabel>& labels) const {
    BpComposite caption("Continuous predictors fixed at [%1=%2:,^1=^2:]1", true);
    caption.Sublist();
    for (const EmmeansLabel& label : labels) {
        const KEST_Variable* variable = FindVariable(label.fPattern);
        caption.Add(BpVariable(variable, BpShow::InList));
        caption.Add(BpDataValue(variable, label.fValue.GetObsValue(), BpPreference::AsHeader));
    }
    caption.EndSublist();
    caption.Finish();
    return caption;
}

bool HFITEmmeansOutput::AreKnown(const std::vector<Coordinates>& factorCoords, const std::string& table) const {
    for (const Coordinates& column : factorCoords) {
        if (FindVariable(column.fField)) continue;
        Diagnose(table + " is left out: its factor \"" + unicode::Excerpt(column.fField) + "\" is not in the data");
        return false;
    }
    return true;
}

std::size_t HFITEmmeansOutput::CountRows(const std::vector<Coordinates>& factorCoords, std::size_t nColumns,
                                         const std::string& table) {
    std::size_t least = factorCoords.front().fvValues.size();
    std::size_t greatest = least;
    for (std::size_t i = 1; i < nColumns; ++i) {
        least = std::min(least, factorCoords[i].fvValues.size());
        greatest = std::max(greatest, factorCoords[i].fvValues.size());
    }
    if (least < greatest) {
        Diagnose(table + ": rows are left out, since the factor columns have from " + std::to_string(least) + " to " +
                 std::to_string(greatest) + " values");
    }
    return least;
}

}  // namespace hierfit
