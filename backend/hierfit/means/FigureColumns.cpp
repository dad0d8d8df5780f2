#include "hierfit/means/FigureColumns.h"

#include "hierfit/store/MissingToken.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

void CheckColumns(const std::vector<FigureColumn>& columns, const std::string& table, std::size_t nRows) {
    for (const FigureColumn& column : columns) {
        const std::size_t nFigures = column.fpFigures->fvValues.size();
        if (nFigures == nRows) continue;
        Diagnose(table + ": column \"" + column.fName + "\" has " + std::to_string(nFigures) + " figures for " +
                 std::to_string(nRows) + " rows");
    }
}

}  // namespace

FigureColumns::FigureColumns(BpPivotTable& table, const BuildSettings& settings, double sysMis,
                             std::vector<FigureColumn> columns, const Coordinates& lower, const Coordinates& upper)
    : fStatistics(StatisticsDimension(table)),
      fConfidence(ConfidenceName(kConfidenceInterval, settings)),
      fSysMis(sysMis),
      fvColumns(std::move(columns)),
      fvBounds{{"Lower", &lower, BpProcedure::Coefficient()}, {"Upper", &upper, BpProcedure::Coefficient()}} {}

void FigureColumns::Row(std::size_t row) {
    Cells(fStatistics, fvColumns, row);
    BpGroup bounds = ConfidenceGroup(fStatistics, fConfidence);
    Cells(bounds, fvBounds, row);
}

void FigureColumns::Cells(BpGroup& group, const std::vector<FigureColumn>& columns, std::size_t row) const {
    for (const FigureColumn& column : columns) {
        const std::vector<std::string>& figures = column.fpFigures->fvValues;
        if (row < figures.size()) NumberCell(group, column.fName, Figure(figures[row]), column.fFormat);
    }
}

double FigureColumns::Figure(const std::string& text) const {
    return text == kMissingToken ? fSysMis : String2Double(text);
}

void FigureColumns::Check(const std::string& table, std::size_t nRows) const {
    CheckColumns(fvColumns, table, nRows);
    CheckColumns(fvBounds, table, nRows);
}

}  // namespace hierfit
