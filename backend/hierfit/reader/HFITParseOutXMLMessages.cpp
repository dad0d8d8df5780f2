#include "hierfit/reader/HFITParseOutXML.h"
#include "hierfit/reader/XmlReading.h"

namespace hierfit {

bool HFITParseOutXML::ParseWarningMessages(SDOMXMLIterator* iterator, std::vector<WarningMessage>* list) {
    for (const SDOMXMLWrapper& warningMsgElm : Elements(iterator)) {
        const SDOMXMLWrapper* printable = FirstElement(warningMsgElm, "PrintableList");
        WarningMessage message;
        if (!printable || !printable->GetAttribute("pattern", message.fPattern)) return false;
        if (message.fPattern.empty()) continue;

        bool ok = true;  // the last value decides
        for (const SDOMXMLWrapper& printableValue : Elements(*printable, "PrintableValue")) {
            std::string value;
            ok = printableValue.GetAttribute("value", value);
            if (!value.empty()) message.fWarningParameters.push_back(value);
        }
        list->push_back(std::move(message));
        if (!ok) return false;
    }
    return true;
}

}  // namespace hierfit
