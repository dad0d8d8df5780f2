#include "host/VarDataProcessor.h"

#include <limits>

#include "host/chart/data/DataStore.h"
#include "host/chart/data/DataStream.h"

namespace hierfit {

VarDataProcessor::VarDataProcessor() : fpStore(std::make_shared<chart::DataStore>()) {}

VarDataProcessor::~VarDataProcessor() = default;

bool VarDataProcessor::AddDataSource(const std::string& source, int rows) { return fpStore->AddSource(source, rows); }

bool VarDataProcessor::AddVariable(const std::string& source, const std::string& name, _varinfo* variable) {
    const _varinfo added = fpStore->AddVariable(source, name);
    if (variable) *variable = added;
    return added.fSource >= 0;
}

bool VarDataProcessor::SetVariableValue(const _varinfo& variable, int row, double value) {
    return fpStore->Write(variable, row, value);
}

bool VarDataProcessor::SetVariableValue(const std::string& source, const std::string& name, int row, double value) {
    return SetVariableValue(fpStore->Find(source, name), row, value);
}

bool VarDataProcessor::SetStringVariableValue(const _varinfo& variable, int row, const std::string& value) {
    return fpStore->Write(variable, row, value);
}

bool VarDataProcessor::SetStringVariableValue(const std::string& source, const std::string& name, int row,
                                              const std::string& value) {
    return SetStringVariableValue(fpStore->Find(source, name), row, value);
}

char* VarDataProcessor::GetDataStream(int* length) const {
    std::string json = chart::WriteDataStream(fpStore->Snapshot());
    if (json.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) json.clear();
    auto* stream = new char[json.size()];
    json.copy(stream, json.size());
    if (length) *length = static_cast<int>(json.size());
    return stream;
}

}  // namespace hierfit
