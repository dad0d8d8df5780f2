#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/layout/Grid.h"

namespace hierfit::report::html {

/// Ids of a table's header cells, by which its data cells name theirs. They are needed where a side has more than one
/// level of headers; `scope` says enough elsewhere.
class HeaderIds {
  public:
    /// The prefix is the table's own on its page.
    HeaderIds(std::string prefix, const Grid& grid);

    bool AreNeeded() const { return fAreNeeded; }

    /// Appends the id of a header cell, by its index on its side.
    void AppendRowId(std::string& out, std::size_t header) const { AppendId(out, 'r', header); }
    void AppendColumnId(std::string& out, std::size_t header) const { AppendId(out, 'c', header); }

    /// The ids of all headers of a column of data, each after a blank.
    std::string_view OfColumn(int column) const { return fvColumns[static_cast<std::size_t>(column)]; }

  private:
    void AppendId(std::string& out, char side, std::size_t header) const;
    void AddToColumns(const HeaderCell& cell, std::size_t header);

    std::string fPrefix;
    bool fAreNeeded;
    std::vector<std::string> fvColumns;
};

/// Whether a header cell has nothing to say. Such a one is no header for those who listen to a page.
bool IsBlank(const HeaderCell& cell);

}  // namespace hierfit::report::html
