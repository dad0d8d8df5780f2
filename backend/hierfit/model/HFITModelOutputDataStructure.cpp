#include "hierfit/model/HFITModelOutput.h"
#include "hierfit/tables/MessageKeys.h"
#include "hierfit/tables/TableParts.h"
#include "host/BpError.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

namespace {

/// More records than these are not all shown.
constexpr int kShownRecords = 10;

/// Cells that the values of the first subject may take: they repeat in every record.
constexpr std::size_t kMostSubjectCells = 4'000'000;

BpString UnusedSubjectField() { return Translated("Subject field not used ..."); }

/// A dimension whose name is hidden, put in its place.
BpDimension PlacedDimension(BpPivotTable& table, const BpString& name, BpPlace place, int index, bool hideLabels) {
    BpDimension dimension = table.Dimension(name, BpSort::AsIssued);
    dimension.Position(place, index, true, hideLabels);
    return dimension;
}

/// The three dimensions, and the rows that are written through them.
class Rows {
  public:
    Rows(BpPivotTable& table, const StructuredData& data, const BuildSettings& settings, const KEST_DataSource& fields)
        : fData(data),
          fSettings(settings),
          fFields(fields),
          fRecord(PlacedDimension(table, Plain("Record"), BpPlace::Rows, 1, true)),
          fGroup(PlacedDimension(table, Plain("Data"), BpPlace::Rows, 2, false)),
          fVariables(PlacedDimension(table, Plain("Variables"), BpPlace::Columns, 1, false)) {}

    void FirstSubject() {
        fGroup.Category(Translated("Data for First Subject"));
        for (std::size_t r = 0; r < fData.fvTargetValues.size(); ++r) {
            BpCategory record = fRecord.Category(CountNumber(static_cast<double>(r)));
            Subject(record);
            RepeatedMeasures(record, r);
            Target(record, r);
        }
    }

    void FixedTrials() {
        BpCategory target = TargetGroup().Category(Variable(fSettings.fTargetIndex));
        target.Note(BpAnnotation(Composite("Number of Trials = ^1", CountNumber(fSettings.fTrialsValue))));
    }

    void Levels() {
        fGroup.Category(Translated("Total Number of Levels"));
        BpCategory levels = fRecord.Category(Plain("Levels"));
        BpGroup subjects = SubjectsGroup();
        const SubjectData& subject = fData.fSubjectData;
        for (std::size_t j = 0; j < subject.fSubjectIndices.size(); ++j) {
            subjects.Category(Variable(subject.fSubjectIndices[j]));
            levels.Cell(CountNumber(subject.fSubjectLevels[j]));
        }
        if (fData.fvRepeatedMeasures.empty()) return;
        BpGroup measures = MeasuresGroup();
        for (const RepeatMeasVar& measure : fData.fvRepeatedMeasures) {
            measures.Category(Variable(measure.fRepMeasInd));
            levels.Cell(CountNumber(measure.fLevels));
        }
    }

  private:
    void Subject(BpCategory& record) {
        BpGroup subjects = SubjectsGroup();
        const SubjectData& subject = fData.fSubjectData;
        for (std::size_t j = 0; j < subject.fSubjectIndices.size(); ++j) {
            const int index = subject.fSubjectIndices[j];
            subjects.Category(Variable(index));
            record.Cell(Value(index, subject.fSubjectValues[j], BpPreference::Plain));
        }
    }

    void RepeatedMeasures(BpCategory& record, std::size_t r) {
        if (fData.fvRepeatedMeasures.empty()) return;
        BpGroup measures = MeasuresGroup();
        for (const RepeatMeasVar& measure : fData.fvRepeatedMeasures) {
            measures.Category(Variable(measure.fRepMeasInd));
            if (r >= measure.fvValues.size()) continue;
            record.Cell(Value(measure.fRepMeasInd, measure.fvValues[r], BpPreference::Plain));
        }
    }

    void Target(BpCategory& record, std::size_t r) {
        BpGroup target = TargetGroup();
        target.Category(Variable(fSettings.fTargetIndex));
        record.Cell(Value(fSettings.fTargetIndex, fData.fvTargetValues[r], BpPreference::AsHeader));
        if (fSettings.fTrialsIndex < 0) return;
        target.Category(Variable(fSettings.fTrialsIndex));
        if (r >= fData.fvTrialsValues.size()) return;
        record.Cell(Value(fSettings.fTrialsIndex, fData.fvTrialsValues[r], BpPreference::AsHeader));
    }

    BpGroup SubjectsGroup() { return fVariables.Group(Translated("Subjects"), true, BpSort::AsIssued); }
    BpGroup MeasuresGroup() { return fVariables.Group(Translated("Repeated Measures"), true, BpSort::AsIssued); }
    BpGroup TargetGroup() { return fVariables.Group(Translated("Target"), true, BpSort::AsIssued); }

    BpVariable Variable(int index) const { return BpVariable(fFields.GetVariable(index), BpShow::AsHeader); }

    BpDataValue Value(int index, const CFStatVariableValue& value, BpPreference preference) const {
        return BpDataValue(fFields.GetVariable(index), value.GetObsValue(), preference);
    }

    const StructuredData& fData;
    const BuildSettings& fSettings;
    const KEST_DataSource& fFields;
    BpDimension fRecord;
    BpDimension fGroup;
    BpDimension fVariables;
};

void DiagnoseColumn(const std::string& column, std::size_t nValues, std::size_t nRecords) {
    if (nValues >= nRecords) return;
    Diagnose("table \"Data Structure\": " + column + " has " + std::to_string(nValues) + " values for " +
             std::to_string(nRecords) + " records, and the other cells stay empty");
}

/// Whether the table can be printed; tells what of it cannot.
bool CheckColumns(const StructuredData& data, const BuildSettings& settings) {
    const std::size_t nRecords = data.fvTargetValues.size();
    if (nRecords > kMostSubjectCells / data.fSubjectData.fSubjectNames.size()) {
        Diagnose("table \"Data Structure\" is left out: too many subject fields for so many records");
        return false;
    }
    for (const RepeatMeasVar& measure : data.fvRepeatedMeasures) {
        DiagnoseColumn("\"" + unicode::Excerpt(measure.fRepMeas) + "\"", measure.fvValues.size(), nRecords);
    }
    if (settings.fTrialsIndex >= 0) {
        DiagnoseColumn("\"" + settings.fTrials + "\"", data.fvTrialsValues.size(), nRecords);
    }
    return true;
}

}  // namespace

void HFITModelOutput::DataStructure() {
    if (!fpStats || !fpBuildSettings) return;
    const StructuredData* data = fpStats->GetStructuredData();
    const bool hasSubjects = data && !data->fSubjectData.fSubjectNames.empty();
    const bool hasUnusedField = fpStats->HasWarning(kGLMM_C26);
    if (!hasSubjects && hasUnusedField) {
        BpError(Composite("DATA_STRUCTURE:^1", UnusedSubjectField()), BpErrorShow::InOutput, BpErrorLevel::Warning);
    }
    if (!hasSubjects || !CheckColumns(*data, *fpBuildSettings)) return;

    BpPivotTable table = fProcedure->PivotTable(Translated("Data Structure"), Plain("DataStructure"), true);
    const BpComposite target = TargetNote(*fpBuildSettings, *fDataSource);
    table.Note(BpAnnotation(target));
    if (data->fTotalFreq > kShownRecords) {
        table.Caption(Composite("Only the first ^1 records are displayed.", CountNumber(kShownRecords)));
    }
    if (hasUnusedField) table.Note(BpAnnotation(TwoLines(target, UnusedSubjectField())));

    Rows rows(table, *data, *fpBuildSettings, *fDataSource);
    rows.FirstSubject();
    if (fpBuildSettings->fUseTrials && fpBuildSettings->fTrialsIndex < 0) rows.FixedTrials();
    rows.Levels();
}

}  // namespace hierfit
