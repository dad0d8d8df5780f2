#include "report/csv/Records.h"

namespace hierfit::report {

void Records::Add(std::string_view field) {
    if (fFields++ > 0) fOut += ',';
    const bool isQuoted = field.find_first_of(",\"\r\n") != std::string_view::npos;
    if (!isQuoted) {
        fOut += field;
        return;
    }
    fOut += '"';
    for (const char byte : field) {
        if (byte == '"') fOut += '"';
        fOut += byte;
    }
    fOut += '"';
}

void Records::End() {
    if (fFields == 1 && fOut.size() == fBegin) fOut += "\"\"";
    fOut += '\n';
    fBegin = fOut.size();
    fFields = 0;
}

std::string JoinFields(const std::vector<std::string>& fields) {
    Records records;
    for (const std::string& field : fields) records.Add(field);
    return records.Take();
}

}  // namespace hierfit::report
