#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/VarDataProcessor.h"
#include "host/document/Chart.h"

namespace hierfit::chart {

/// The values behind a chart while they are written. A handle is found in constant time, a name by hash. Rows come into
/// being as they are written, but no row so far out that memory would have no proportion to what was written. Texts are
/// held up to a bound for all of them.
class DataStore {
  public:
    using Handle = VarDataProcessor::_varinfo;

    /// False for a name that there is already and for a row count that no memory holds.
    bool AddSource(const std::string& name, int rows);

    /// The variable's handle: a new one's, or that of the one that the source has already. It is no handle where there
    /// is no such source.
    Handle AddVariable(const std::string& source, const std::string& name);

    /// The variable of a source, or no handle.
    Handle Find(const std::string& source, const std::string& name) const;

    /// False for no handle, and for a row or a text that is refused.
    bool Write(const Handle& variable, int row, document::ChartValue value);

    /// All values so far; the variables of a source are equally long.
    std::vector<document::ChartSource> Snapshot() const;

  private:
    struct Source {
        document::ChartSource fContent;  ///< each variable as long as it was written
        std::unordered_map<std::string, int> fVariables;
        std::size_t fRows;  ///< announced or written
    };

    bool IsVariable(const Handle& variable) const;
    bool MakeRow(Source& source, int row);
    bool HasRoom(std::size_t cells) const;
    bool Refuse(const std::string& what);

    std::vector<Source> fvSources;
    std::unordered_map<std::string, int> fSources;
    std::size_t fAnnounced = 0;  ///< cells of announced rows
    std::size_t fCells = 0;      ///< rows times variables, over all sources
    std::size_t fWritten = 0;
    std::size_t fTextBytes = 0;
    bool fHasRefused = false;
};

}  // namespace hierfit::chart
