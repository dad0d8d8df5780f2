#include "hierfit/reader/XmlReading.h"

#include "hierfit/store/MissingToken.h"
#include "host/Conversions.h"
#include "host/SystemMissing.h"

namespace hierfit {

Elements::Elements(const SDOMXMLWrapper& element, const char* path) {
    if (!element.GetElementIterator(path, &fpIterator, true)) fpIterator = nullptr;
}

SDOMXMLWrapper* FirstElement(const SDOMXMLWrapper& element, const char* path) {
    SDOMXMLWrapper* found = nullptr;
    return element.GetFirstElement(path, &found, true) ? found : nullptr;
}

std::string AttributeText(const SDOMXMLWrapper& element, const char* name) {
    std::string text;
    element.GetAttribute(name, text);
    return text;
}

double NumberOr(const std::string& text, double whenEmpty) { return text.empty() ? whenEmpty : String2Double(text); }

int IntegerOr(const std::string& text, int whenEmpty) { return text.empty() ? whenEmpty : String2Integer(text); }

bool ReadNumbers(const SDOMXMLWrapper& array, std::vector<double>& numbers) {
    numbers.clear();
    std::vector<std::string> tokens;
    if (!array.GetSimpleArray(tokens)) return false;
    numbers.reserve(tokens.size());
    for (const std::string& token : tokens) {
        numbers.push_back(token == kMissingToken ? kSystemMissing : String2Double(token));
    }
    return true;
}

}  // namespace hierfit
