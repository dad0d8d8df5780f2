#pragma once

#include <string>
#include <vector>

#include "hierfit/store/HFITOutputStats.h"
#include "host/BpProcedure.h"
#include "host/CFStatVariableValue.h"
#include "host/KEST_DataSource.h"

namespace hierfit {

/// Prints the estimated marginal means: the grand means, then a section for each block. It owns nothing but a scratch
/// value: output, data source and store outlive it. What contradicts itself is left out, and the host is told.
class HFITEmmeansOutput {
  public:
    HFITEmmeansOutput(BpProcedure* procedure, KEST_DataSource* dataSource, HFITOutputStats* stats);

    /// The whole stage; no output when there are no blocks.
    void Run();

    /// Tells which requests for means no block answers.
    void DiagnoseUnanswered() const;

    void PrintGrandMeans();
    void PrintBlock(const EmmeansData& block);
    bool PrintEstimates(BpHeading& heading, const EmmeansData& block);
    bool PrintContrasts(BpHeading& heading, const EmmeansData& block);
    bool PrintOverallTests(BpHeading& heading, const EmmeansData& block);

    /// The heading of the block that answers a request, or of the grand means for a negative index.
    BpComposite MakeTitle(int index) const;

    /// True, with the position of the first message of that key, when there is one.
    static bool FindWarning(const std::vector<WarningMessage>& list, const std::string& key, int& position);

    /// The effect of a request, from the labels of its variables or else their names.
    void EffectText(const EmmeansSpec& spec, std::string& text) const;

  private:
    /// A row dimension, and the variable whose levels are its categories.
    struct Factor {
        BpDimension fDimension;
        const KEST_Variable* fpVariable;
    };

    /// Adds the dimension of a factor to the rows.
    static Factor MakeFactor(BpPivotTable& table, const KEST_Variable* variable, std::size_t index);

    /// The level that a text names, to be selected in a factor's dimension.
    BpDataValue Level(const KEST_Variable* variable, const std::string& text);

    /// Null when the data has no such variable.
    const KEST_Variable* FindVariable(const std::string& name) const;

    const EmmeansSpec& SpecOf(const EmmeansData& block) const;
    BpComposite ContinuousCaption(const std::vector<EmmeansLabel>& labels) const;
    void PrintContrastTable(BpHeading& heading, const EmmeansData& block);
    BpComposite ContrastOf(const ContrastData& contrasts, const KEST_Variable* compare, std::size_t row);

    /// Reports that the back-end refused a part of the block.
    static void ReportRefusal(const EmmeansData& block, const std::string& text);
    void ReportRefusedContrasts(const EmmeansData& block, const WarningMessage& message) const;

    // Whether a table's data fits together. Where it does not, the host is told, with the table's name.
    static std::string NameOfTable(const char* table, const EmmeansData& block);
    bool AreKnown(const std::vector<Coordinates>& factorCoords, const std::string& table) const;
    bool CanPrintContrasts(const EmmeansData& block) const;
    bool CanPrintOverallTests(const EmmeansData& block) const;

    /// The rows for which the first columns all have a value.
    static std::size_t CountRows(const std::vector<Coordinates>& factorCoords, std::size_t nColumns,
                                 const std::string& table);

    double fSysMis;
    BpProcedure* fProcedure;
    KEST_DataSource* fDataSource;
    HFITOutputStats* fpStats;
    BuildSettings* fpBuildSettings;
    std::vector<EmmeansData>* fpCustomEmmeans;
    CFStatVariableValue fValue;  ///< scratch for converting one level
};

}  // namespace hierfit
