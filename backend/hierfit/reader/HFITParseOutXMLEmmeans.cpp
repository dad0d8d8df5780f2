#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"
#include "host/Conversions.h"
#include "host/Diagnose.h"

namespace hierfit {

bool HFITParseOutXML::ParseDataGroups(SDOMXMLIterator* dataGroupElmIter) {
    for (SDOMXMLWrapper& element : Elements(dataGroupElmIter)) {
        const std::string description = AttributeText(element, "description");
        if (description == "Emmeans") {
            if (!fpStats->GetEmmeansEstimates()) fpStats->CreateEmmeansEstimates();
            SDOMXMLWrapper* data = FirstElement(element, "MultivariateData");
            EstimateData estimates;
            if (!data || !ParseEmmeansEstimates(data, &estimates)) return false;
            fpStats->GetEmmeansEstimates()->push_back(std::move(estimates));
        } else if (description == "customEmmeans") {
            if (!fpStats->GetCustomEmmeans()) fpStats->CreateCustomEmmeans();
            EmmeansData block;
            if (!ParseCustomEmmeans(&element, &block)) return false;
            fpStats->GetCustomEmmeans()->push_back(std::move(block));
        }
    }
    return true;
}

bool HFITParseOutXML::ParseCustomEmmeans(SDOMXMLWrapper* emmeansCustomElm, EmmeansData* record) {
    bool ok = ReadContinuousLabels(*emmeansCustomElm, &record->fvLabels);
    if (const SDOMXMLWrapper* statistic = FirstElement(*emmeansCustomElm, "Statistic")) {
        // It decides alone: a label that cannot be read counts only where a block has no statistic.
        if (!ok) Diagnose(*emmeansCustomElm, "a continuous predictor cannot be read, and those behind it are left out");
        ok = ReadEmmeansIndex(*statistic, &record->fEmmeansIndex);
    }
    return ok && ReadEmmeansTables(*emmeansCustomElm, record) && ReadOverallTests(*emmeansCustomElm, record) &&
           ReadEmmeansMessages(*emmeansCustomElm, record);
}

bool HFITParseOutXML::ReadContinuousLabels(const SDOMXMLWrapper& block, std::vector<EmmeansLabel>* labels) {
    const SDOMXMLWrapper* list = FirstElement(block, "Label/PrintableList");
    if (!list) return true;
    const Elements entries(*list, "PrintableList");
    if (entries.Empty()) return false;
    for (const SDOMXMLWrapper& entry : entries) {
        EmmeansLabel label;
        const bool ok = ReadContinuousLabel(entry, &label);
        const bool isKnown = fDataSource->FindVarIndex(label.fPattern, 0) >= 0;
        if (isKnown) labels->push_back(std::move(label));
        if (!ok) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadContinuousLabel(const SDOMXMLWrapper& entry, EmmeansLabel* record) {
    if (!entry.GetAttribute("pattern", record->fPattern)) return false;
    const SDOMXMLWrapper* value = FirstElement(entry, "PrintableList");
    std::string text;
    if (!value || !value->GetAttribute("pattern", text)) return false;
    const int index = fDataSource->FindVarIndex(record->fPattern, 0);
    return index >= 0 && record->fValue.SetCompleteValue(text, fDataSource->GetVariable(index), 0);
}

bool HFITParseOutXML::ReadEmmeansIndex(const SDOMXMLWrapper& statistic, int* index) {
    std::string name;
    std::string value;
    if (!statistic.GetAttribute("name", name) || !statistic.GetAttribute("value", value)) return false;
    if (name == "EMMEANSIndex") *index = IntegerOr(value, -1);
    return true;
}

bool HFITParseOutXML::ReadEmmeansTables(const SDOMXMLWrapper& block, EmmeansData* record) {
    const Elements tables(block, "MultivariateData");
    if (tables.Empty()) return false;
    for (SDOMXMLWrapper& table : tables) {
        std::string description;
        if (!table.GetAttribute("description", description)) return false;
        if (description == "estimates" && !ParseEmmeansEstimates(&table, &record->fEstimates)) return false;
        if (description == "contrasts" && !ParseEmmeansContrasts(&table, &record->fContrasts)) return false;
    }
    return true;
}

bool HFITParseOutXML::ReadOverallTests(const SDOMXMLWrapper& block, EmmeansData* record) {
    for (SDOMXMLWrapper& element : Elements(block, "ModelTestStats")) {
        OverallTest test;
        if (!ParseOverallTest(&element, &test)) return false;
        record->fvOverallTests.push_back(std::move(test));
    }
    return true;
}

bool HFITParseOutXML::ReadEmmeansMessages(const SDOMXMLWrapper& block, EmmeansData* record) {
    SDOMXMLIterator* messages = nullptr;
    return !block.GetElementIterator("Message", &messages, true) ||
           ParseWarningMessages(messages, &record->fvWarningList);
}

bool HFITParseOutXML::ParseOverallTest(SDOMXMLWrapper* emmeansOverallTestElm, OverallTest* record) {
    record->fTestID = IntegerOr(AttributeText(*emmeansOverallTestElm, "testID"), -1);
    SDOMXMLWrapper* segment = FirstElement(*emmeansOverallTestElm, "SegmentInfo");
    if (segment && !ReadFieldInfo(segment, &record->fSegment)) return false;
    const SDOMXMLWrapper* figures = FirstElement(*emmeansOverallTestElm, "FTest");
    if (!figures) return false;

    const std::pair<const char*, double*> attributes[] = {
        {"fStatistic", &record->fFStatistic}, {"sig", &record->fSig}, {"df1", &record->fDf1}, {"df2", &record->fDf2}};
    for (const auto& [name, figure] : attributes) {
        std::string text;
        const bool isThere = figures->GetAttribute(name, text);
        *figure = NumberOr(text, fSysMis);
        if (!isThere) return false;
    }
    return true;
}

}  // namespace hierfit
