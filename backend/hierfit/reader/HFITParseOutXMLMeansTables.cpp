#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"

namespace hierfit {

namespace {

constexpr std::array<std::string_view, 4> kFeatures = {"observed", "frequency", "statistic", "fields"};
constexpr std::array<std::string_view, ContrastKind::OTHER> kContrastKinds = {"pairwiseContrast", "deviationContrast",
                                                                              "simpleContrast"};

/// A statistic column of a table under the name that the document gives it.
template <class Table>
struct NamedColumn {
    std::string_view fStatistic;
    Coordinates Table::*fpColumn;
};

constexpr NamedColumn<EstimateData> kEstimateColumns[] = {
    {"mean", &EstimateData::fMean},
    {"stdErr", &EstimateData::fStdErr},
    {"confIntervalLower", &EstimateData::fCILower},
    {"confIntervalUpper", &EstimateData::fCIUpper},
};

constexpr NamedColumn<ContrastData> kContrastColumns[] = {
    {"contrastEstimate", &ContrastData::fContrastEstimate},
    {"stdErr", &ContrastData::fStdErr},
    {"tTest", &ContrastData::fTTest},
    {"df", &ContrastData::fDf},
    {"adjustedSig", &ContrastData::fAdjustedSig},
    {"confIntervalLower", &ContrastData::fCILower},
    {"confIntervalUpper", &ContrastData::fCIUpper},
};

/// Keeps a column that was read under its statistic, in place of an earlier one; other statistics are dropped.
template <class Table, std::size_t n>
void Store(Table& table, const NamedColumn<Table> (&columns)[n], Coordinates&& column) {
    for (const NamedColumn<Table>& known : columns) {
        if (known.fStatistic != column.fStatistic) continue;
        table.*known.fpColumn = std::move(column);
        return;
    }
}

}  // namespace

bool HFITParseOutXML::ParseEmmeansEstimates(SDOMXMLWrapper* emmeansEstiElm, EstimateData* record) {
    if (const SDOMXMLWrapper* group = FirstElement(*emmeansEstiElm, "CoordinatesGroup")) {
        ReadFactorColumns(*group, &record->fvFactorCoords);
    }
    const Elements columns(*emmeansEstiElm, "Coordinates");
    if (columns.Empty()) return false;
    for (SDOMXMLWrapper& element : columns) {
        Coordinates column;
        if (!ParseCoordinates(&element, &column)) return false;
        Store(*record, kEstimateColumns, std::move(column));
    }
    return true;
}

bool HFITParseOutXML::ParseEmmeansContrasts(SDOMXMLWrapper* emmeansContrastElm, ContrastData* record) {
    if (const SDOMXMLWrapper* statistic = FirstElement(*emmeansContrastElm, "Statistic")) {
        ReadAdjustedSigLevel(*statistic, record);
    }
    if (const SDOMXMLWrapper* group = FirstElement(*emmeansContrastElm, "CoordinatesGroup")) {
        record->fContrastKind = IndexOf(kContrastKinds, AttributeText(*group, "description"));
        ReadFactorColumns(*group, &record->fvFactorCoords);
    }
    const Elements columns(*emmeansContrastElm, "Coordinates");
    if (columns.Empty()) return false;
    for (SDOMXMLWrapper& element : columns) {
        Coordinates column;
        if (!ParseCoordinates(&element, &column)) return false;
        Store(*record, kContrastColumns, std::move(column));
    }
    return true;
}

void HFITParseOutXML::ReadAdjustedSigLevel(const SDOMXMLWrapper& statistic, ContrastData* record) {
    std::string value;
    if (AttributeText(statistic, "name") != "adjustedSigLevel" || !statistic.GetAttribute("value", value)) return;
    record->fAdjustedSigLevel = NumberOr(value, fSysMis);
}

void HFITParseOutXML::ReadFactorColumns(const SDOMXMLWrapper& group, std::vector<Coordinates>* columns) {
    for (SDOMXMLWrapper& element : Elements(group, "Coordinates")) {
        if (!ParseCoordinates(&element, &columns->emplace_back())) return;
    }
}

bool HFITParseOutXML::ParseCoordinates(SDOMXMLWrapper* coordinatesElm, Coordinates* record) {
    record->fFeature = IndexOf(kFeatures, AttributeText(*coordinatesElm, "feature"));
    coordinatesElm->GetAttribute("field", record->fField);
    coordinatesElm->GetAttribute("statistic", record->fStatistic);
    const SDOMXMLWrapper* array = FirstElement(*coordinatesElm, "Array");
    return array && array->GetSimpleArray(record->fvValues);
}

}  // namespace hierfit
