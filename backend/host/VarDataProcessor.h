#pragma once

#include <memory>
#include <string>

#include "host/Export.h"

namespace hierfit {

namespace chart {
class DataStore;
}

/// Holds the values behind a chart: named sources, each with named variables of equally many rows. A variable's type
/// follows from the calls that write it; rows count from 0 and come into being when they are written.
class HIERFIT_EXPORT VarDataProcessor {
  public:
    /// Handle of one variable.
    struct _varinfo {
        int fSource = -1;
        int fVariable = -1;
    };

    VarDataProcessor();
    ~VarDataProcessor();
    VarDataProcessor(const VarDataProcessor&) = delete;
    VarDataProcessor& operator=(const VarDataProcessor&) = delete;

    /// A row count of 0 leaves the count open.
    bool AddDataSource(const std::string& source, int rows);

    /// Adds a variable to a source; false when there is no such source. The handle may be null.
    bool AddVariable(const std::string& source, const std::string& name, _varinfo* variable);

    bool SetVariableValue(const _varinfo& variable, int row, double value);
    bool SetVariableValue(const std::string& source, const std::string& name, int row, double value);
    bool SetStringVariableValue(const _varinfo& variable, int row, const std::string& value);
    bool SetStringVariableValue(const std::string& source, const std::string& name, int row, const std::string& value);

    /// The data as a stream and its length in bytes. The caller frees the stream with `delete[]`.
    char* GetDataStream(int* length) const;

  private:
    friend class XDocument;
    std::shared_ptr<chart::DataStore> fpStore;
};

}  // namespace hierfit
