#include <algorithm>
#include <limits>

#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Conversions.h"

namespace hierfit {

namespace {

/// A figure of a record under the name that the document gives it.
template <class Record, class Figure>
struct NamedFigure {
    std::string_view fName;
    Figure Record::*fpFigure;
};

constexpr NamedFigure<ModelDiagnostics, double> kNumbers[] = {
    {"AICC", &ModelDiagnostics::fAICC},
    {"BIC", &ModelDiagnostics::fBIC},
    {"minus2LogLikelihood", &ModelDiagnostics::fMinus2LogLikelihood},
    {"classificationAccuracy", &ModelDiagnostics::fClassificationAccuracy},
    {"grandMean", &ModelDiagnostics::fGrandMean},
    {"grandMeanStdErr", &ModelDiagnostics::fGrandMeanStdErr},
    {"grandMeanCILower", &ModelDiagnostics::fGrandMeanCILower},
    {"grandMeanCIUpper", &ModelDiagnostics::fGrandMeanCIUpper},
};

constexpr NamedFigure<ModelDiagnostics, int> kCounts[] = {
    {"numOfCovParamOfRepeated", &ModelDiagnostics::fNumOfCovParamOfRepeated},
    {"numOfCovParamOfRandom", &ModelDiagnostics::fNumOfCovParamOfRandom},
    {"numOfColsOfFixed", &ModelDiagnostics::fNumOfColsOfFixed},
    {"numOfColsOfRandom", &ModelDiagnostics::fNumOfColsOfRandom},
    {"numOfCommonSubjects", &ModelDiagnostics::fNumOfCommonSubjects},
};

constexpr NamedFigure<TargetDistribution, double> kDistributionFigures[] = {
    {"mean", &TargetDistribution::fMean},   {"stdDeviation", &TargetDistribution::fStdDeviation},
    {"shape", &TargetDistribution::fShape}, {"rate", &TargetDistribution::fRate},
    {"r", &TargetDistribution::fR},         {"p", &TargetDistribution::fP},
};

/// The system-missing value cut down to an integer: a count whose text is empty.
constexpr int kMissingCount = std::numeric_limits<int>::min();

template <class Record, class Figure, std::size_t n>
void Store(Record& record, const NamedFigure<Record, Figure> (&figures)[n], const std::string& name, Figure figure) {
    for (const auto& known : figures) {
        if (known.fName == name) record.*known.fpFigure = figure;
    }
}

void ReadTotalFreq(const SDOMXMLWrapper& element, int& totalFreq) {
    if (const SDOMXMLWrapper* counts = FirstElement(element, "Counts")) {
        totalFreq = IntegerOr(AttributeText(*counts, "totalFreq"), 0);
    }
}

/// The vector that a column of some feature fills; null for a feature that is passed over.
std::vector<double>* ColumnOf(TargetDistribution& record, const std::string& feature) {
    if (feature == "observed") return &record.fvObserved;
    return feature == "frequency" ? &record.fvFrequency : nullptr;
}

std::vector<double>* ColumnOf(PredByObserved& record, const std::string& feature) {
    if (feature == "observed") return &record.fvObserved;
    if (feature == "statistic") return &record.fvStatistic;
    return feature == "frequency" ? &record.fvFrequency : nullptr;
}

template <class Record>
bool ReadColumn(const SDOMXMLWrapper& coordinates, Record& record) {
    std::string feature;
    if (!coordinates.GetAttribute("feature", feature)) return false;
    const SDOMXMLWrapper* array = FirstElement(coordinates, "Array");
    if (!array) return false;
    std::vector<double>* numbers = ColumnOf(record, feature);
    return !numbers || ReadNumbers(*array, *numbers);
}

void StretchAxis(PredByObserved& record, const std::vector<double>& values, bool isFirst) {
    if (values.empty()) return;
    const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
    record.fAxisMin = isFirst ? *least : std::min(record.fAxisMin, *least);
    record.fAxisMax = isFirst ? *greatest : std::max(record.fAxisMax, *greatest);
}

}  // namespace

bool HFITParseOutXML::ReadModelDiagnostics(SDOMXMLWrapper* element, ModelDiagnostics* record) {
    *record = ModelDiagnostics();
    const Elements statistics(*element, "Statistic");
    if (statistics.Empty()) return false;
    for (const SDOMXMLWrapper& statistic : statistics) {
        std::string name;
        std::string value;
        if (!statistic.GetAttribute("name", name) || !statistic.GetAttribute("value", value)) return false;
        Store(*record, kNumbers, name, NumberOr(value, fSysMis));
        Store(*record, kCounts, name, IntegerOr(value, kMissingCount));
    }

    SDOMXMLIterator* iterator = nullptr;
    if (element->GetElementIterator("UnivariateData", &iterator, true) &&
        !ReadTargetDistribution(iterator, &record->fTargetDistribution)) {
        return false;
    }
    if (element->GetElementIterator("BivariateData", &iterator, true) &&
        !ReadPredByObserved(iterator, &record->fPredByObserved)) {
        return false;
    }
    if (!element->GetElementIterator("ModelTestStats", &iterator, true)) return true;
    return ReadModelTests(iterator, fpStats->CreateEffectStatData());
}

bool HFITParseOutXML::ReadTargetDistribution(SDOMXMLIterator* iterator, TargetDistribution* record) {
    record->fTotalFreq = 0;
    record->fMean = record->fStdDeviation = 0;
    bool ok = true;  // the last column of the first complete element decides, else the last element
    for (const SDOMXMLWrapper& element : Elements(iterator)) {
        record->fShape = record->fRate = record->fR = record->fP = 0;
        ok = element.GetAttribute("description", record->fDescription);
        if (!ok || record->fDescription != "TargetDistribution") continue;
        ReadTotalFreq(element, record->fTotalFreq);

        const Elements statistics(element, "Statistic");
        ok = !statistics.Empty();
        if (!ok) continue;
        for (const SDOMXMLWrapper& statistic : statistics) {
            const double figure = NumberOr(AttributeText(statistic, "value"), 0);
            Store(*record, kDistributionFigures, AttributeText(statistic, "name"), figure);
        }

        const Elements columns(element, "Coordinates");
        ok = !columns.Empty();
        if (!ok) continue;
        for (const SDOMXMLWrapper& column : columns) ok = ReadColumn(column, *record);
        return ok;
    }
    return ok;
}

bool HFITParseOutXML::ReadPredByObserved(SDOMXMLIterator* iterator, PredByObserved* record) {
    record->fTotalFreq = 0;
    record->fAxisMin = record->fAxisMax = 0;
    for (const SDOMXMLWrapper& element : Elements(iterator)) {
        if (!element.GetAttribute("description", record->fDescription)) return false;
        if (record->fDescription != "observedByPredicted") continue;
        ReadTotalFreq(element, record->fTotalFreq);

        const Elements columns(element, "Coordinates");
        if (columns.Empty()) return false;
        for (const SDOMXMLWrapper& column : columns) {
            if (!ReadColumn(column, *record)) return false;
        }
        StretchAxis(*record, record->fvObserved, true);
        StretchAxis(*record, record->fvStatistic, false);
        return true;
    }
    return true;
}

bool HFITParseOutXML::ReadModelTests(SDOMXMLIterator* iterator, EffectStatData* record) {
    for (const SDOMXMLWrapper& element : Elements(iterator)) {
        const std::string description = AttributeText(element, "description");
        const std::string testType = AttributeText(element, "testType");
        EffectTest test;
        test.fTestType = testType.empty() ? 0 : Roman2Integer(testType);
        if (const SDOMXMLWrapper* figures = FirstElement(element, "FTest")) {
            test.fFStatistic = NumberOr(AttributeText(*figures, "fStatistic"), fSysMis);
            test.fSig = NumberOr(AttributeText(*figures, "sig"), fSysMis);
            test.fDf1 = NumberOr(AttributeText(*figures, "df1"), fSysMis);
            test.fDf2 = NumberOr(AttributeText(*figures, "df2"), fSysMis);
        }
        if (description == "correctedModel") {
            record->fCorrectedModel = test;
        } else if (description == "fixedEffect") {
            test.fTestID = IntegerOr(AttributeText(element, "testID"), 0);
            record->fvFixedEffectTests.push_back(test);
        }
    }
    return true;
}

}  // namespace hierfit
