#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"

namespace hierfit {

namespace {

/// Position 0 stands for any other text.
constexpr std::array<std::string_view, 6> kStorages = {"integer", "real", "string", "date", "time", "timestamp"};

int StorageOf(std::string_view text) {
    const int position = IndexOf(kStorages, text);
    return position < static_cast<int>(kStorages.size()) ? position + 1 : 0;
}

constexpr int kNoMap = -1;

}  // namespace

bool HFITParseOutXML::ReadPrintableList(SDOMXMLWrapper* element, PrintableList* record) {
    element->GetAttribute("pattern", record->fPattern);
    record->fIsKey = IsTrue(AttributeText(*element, "isKey"));
    record->fMapId = IntegerOr(AttributeText(*element, "mapId"), kNoMap);
    for (SDOMXMLWrapper& child : Elements(*element, "PrintableList")) {
        PrintableList list;
        if (!ReadPrintableList(&child, &list)) return false;
        record->fvLists.push_back(std::move(list));
    }
    for (SDOMXMLWrapper& child : Elements(*element, "PrintableValue")) {
        PrintableValue value;
        if (!ReadPrintableValue(&child, &value)) return false;
        record->fvValues.push_back(std::move(value));
    }
    return true;
}

bool HFITParseOutXML::ReadPrintableValue(SDOMXMLWrapper* element, PrintableValue* record) {
    std::string storage;
    if (!element->GetAttribute("storage", storage)) return false;
    record->fStorage = StorageOf(storage);
    if (!element->GetAttribute("value", record->fValue)) return false;
    record->fIsNull = IsTrue(AttributeText(*element, "isNull"));
    element->GetAttribute("label", record->fLabel);
    return true;
}

bool HFITParseOutXML::ReadStringMaps(SDOMXMLIterator* iterator, StringMapCollect* collect) {
    bool ok = true;  // the last step decides
    for (const SDOMXMLWrapper& element : Elements(iterator)) {
        StringMap map;
        map.fMapId = IntegerOr(AttributeText(element, "mapId"), kNoMap);
        const Elements entries(element, "MapEntry");
        ok = !entries.Empty();
        for (const SDOMXMLWrapper& child : entries) {
            StringMapEntry entry;
            entry.fName = AttributeText(child, "name");
            SDOMXMLWrapper* parameter = FirstElement(child, "Label/RegressionParameter");
            ok = parameter && ReadRegressionParameter(parameter, &entry.fParam);
            if (ok) map.Append(std::move(entry));
        }
        collect->Append(std::move(map));
    }
    return ok;
}

}  // namespace hierfit
