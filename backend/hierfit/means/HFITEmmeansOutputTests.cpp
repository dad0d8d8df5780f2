#include <algorithm>

#include "hierfit/means/HFITEmmeansOutput.h"
#include "hierfit/tables/TableParts.h"
#include "host/Diagnose.h"

namespace hierfit {

namespace {

void TestCells(BpDimension& statistics, const OverallTest& test) {
    NumberCell(statistics, "F", test.fFStatistic, BpProcedure::Coefficient());
    NumberCell(statistics, "df1", test.fDf1, BpProcedure::Count());
    NumberCell(statistics, "df2", test.fDf2, BpProcedure::Count());
    NumberCell(statistics, "Sig.", test.fSig, BpProcedure::Coefficient());
}

}  // namespace

bool HFITEmmeansOutput::PrintOverallTests(BpHeading& heading, const EmmeansData& block) {
    if (block.fvOverallTests.empty() || !CanPrintOverallTests(block)) return true;
    const std::vector<int>& fields = block.fvOverallTests.front().fSegment.fSubjectIndices;

    BpPivotTable table = heading.PivotTable(Translated("Overall Test Results"), Plain("OverallTestResults"), true);
    std::vector<Factor> factors;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        factors.push_back(MakeFactor(table, fDataSource->GetVariable(fields[i]), fields.size() - i));
    }
    BpDimension statistics = StatisticsDimension(table);
    for (const OverallTest& test : block.fvOverallTests) {
        if (test.fSegment.fSubjectIndices != fields) {
            Diagnose(NameOfTable("Overall Test Results", block) +
                     ": a test is left out, since its fields are not those of the first test");
            continue;
        }
        for (std::size_t j = 0; j < fields.size(); ++j) {
            const OBS* level = test.fSegment.fSubjectValues[j].GetObsValue();
            factors[j].fDimension.Category(BpDataValue(factors[j].fpVariable, level, BpPreference::AsHeader));
        }
        TestCells(statistics, test);
    }
    return true;
}

bool HFITEmmeansOutput::CanPrintOverallTests(const EmmeansData& block) const {
    const EmmeansSpec& spec = SpecOf(block);
    const std::vector<int>& fields = block.fvOverallTests.front().fSegment.fSubjectIndices;
    const int compare = fDataSource->FindVarIndex(spec.fCompareFactor, 0);
    const bool hasCompare = std::find(fields.begin(), fields.end(), compare) != fields.end();
    if (!hasCompare && fields.size() + 1 == spec.fFactors.fvFieldIndex.size()) return true;
    Diagnose(NameOfTable("Overall Test Results", block) +
             " is left out: its fields are not the effect's factors without the compare factor");
    return false;
}

}  // namespace hierfit
