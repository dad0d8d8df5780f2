#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"
#include "host/unicode/Excerpt.h"

namespace hierfit {

bool HFITParseOutXML::ReadStructuredData(SDOMXMLIterator* iterator, StructuredData* record) {
    for (SDOMXMLWrapper& element : Elements(iterator)) {
        std::string description;
        if (!element.GetAttribute("description", description)) return false;
        if (description == "firstSubjectRecordsForDataStructure") {
            if (!ReadFirstSubjectRecords(&element, record)) return false;
        } else if (description == "randomEffectCovariances") {
            RandEffCovars randEffCovars;
            if (!ReadRandomEffectCovariances(&element, &randEffCovars)) return false;
            record->fvRandEffCovars.push_back(std::move(randEffCovars));
        }
    }
    return true;
}

bool HFITParseOutXML::ReadFirstSubjectRecords(SDOMXMLWrapper* element, StructuredData* record) {
    const SDOMXMLWrapper* counts = FirstElement(*element, "Counts");
    std::string totalFreq;
    if (!counts || !counts->GetAttribute("totalFreq", totalFreq)) return false;
    record->fTotalFreq = String2Integer(totalFreq);

    SDOMXMLWrapper* segment = FirstElement(*element, "SegmentData/SegmentInfo");
    if (!segment || !ReadFieldInfo(segment, &record->fSubjectData)) return false;
    const SDOMXMLWrapper* data = FirstElement(*element, "SegmentData/MultivariateData");
    if (!data) return false;
    for (const SDOMXMLWrapper& group : Elements(*data, "CoordinatesGroup")) {
        if (!ReadRecordColumns(group, record)) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadRecordColumns(const SDOMXMLWrapper& group, StructuredData* record) {
    const std::string description = AttributeText(group, "description");
    if (description != "repeatedMeasures" && description != "target") {
        Diagnose(group, "a group of columns is described \"" + unicode::Excerpt(description) +
                            "\", not \"repeatedMeasures\" or \"target\"");
        return false;
    }
    const Elements columns(group, "Coordinates");
    if (columns.Empty()) return false;
    for (SDOMXMLWrapper& column : columns) {
        if (description == "target") {
            if (!ReadTargetColumn(column, record)) return false;
        } else {
            RepeatMeasVar repeatMeasVarStruct;
            if (!ReadRepeatedMeasure(&column, &repeatMeasVarStruct)) return false;
            record->fvRepeatedMeasures.push_back(std::move(repeatMeasVarStruct));
        }
    }
    return true;
}

bool HFITParseOutXML::ReadTargetColumn(const SDOMXMLWrapper& column, StructuredData* record) {
    std::string field;
    if (!column.GetAttribute("field", field)) return false;
    const int index = fDataSource->FindVarIndex(field, 0);
    const SDOMXMLWrapper* array = FirstElement(column, "Array");
    if (!array) return false;

    // The target's own type holds for all columns of its group.
    std::vector<CFStatVariableValue> values;
    if (!ReadValues(*array, TargetVariable(*array), &values)) return false;
    std::vector<CFStatVariableValue>* stored = nullptr;
    if (index == fpBuildSettings->fTargetIndex)
        stored = &record->fvTargetValues;
    else if (index == fpBuildSettings->fTrialsIndex)
        stored = &record->fvTrialsValues;
    if (stored) stored->insert(stored->end(), values.begin(), values.end());
    return true;
}

bool HFITParseOutXML::ReadRandomEffectCovariances(SDOMXMLWrapper* element, RandEffCovars* record) {
    const SDOMXMLWrapper* statistic = FirstElement(*element, "Statistic");
    if (!statistic || !statistic->GetAttribute("name", record->fStatName)) return false;
    record->fStatistic = NumberOr(AttributeText(*statistic, "value"), fSysMis);

    const SDOMXMLWrapper* rowColLabels = FirstElement(*element, "MatrixLabels/RowColLabels");
    if (!rowColLabels || !ReadEffectLabels(*rowColLabels, &record->fvLabels)) return false;

    const Elements segments(*element, "SegmentData");
    if (segments.Empty()) return false;
    for (const SDOMXMLWrapper& segment : segments) {
        SDOMXMLWrapper* info = FirstElement(segment, "SegmentInfo");
        SubjectData subject;
        if (!info || !ReadFieldInfo(info, &subject)) return false;
        record->fSimpleSubjects.push_back(std::move(subject));

        SDOMXMLWrapper* matrix = FirstElement(segment, "Matrix");
        if (!matrix || !ReadMatrix(matrix, &record->fMatrixValues.emplace_back())) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadEffectLabels(const SDOMXMLWrapper& rowColLabels, std::vector<std::string>* labels) {
    bool ok = false;  // the last label decides
    for (const SDOMXMLWrapper& label : Elements(rowColLabels, "Label")) {
        SDOMXMLWrapper* printable = FirstElement(label, "PrintableList");
        PrintableList list;
        ok = printable && ReadPrintableList(printable, &list);
        if (ok) fpStats->PrintableText(list, labels->emplace_back());
    }
    return ok;
}

}  // namespace hierfit
