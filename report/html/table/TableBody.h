#pragma once

#include <string>
#include <vector>

#include "report/html/table/TableParts.h"

namespace hierfit::report::html {

/// Writes the rows of a table. Rows below one outermost header are a `tbody` of their own, as are those between.
class TableBody {
  public:
    explicit TableBody(TableParts& parts);

    void Append();

  private:
    void AppendGroupStart(int row);
    void AppendRowTag(std::size_t row);
    void AppendRowHeaders(int row);
    void AppendHeader(const HeaderCell& cell);
    void AppendContinuation(const HeaderCell& cell, int row);
    void SetRowIds();
    void AppendCell(int column, const DataCell& cell);
    void AppendHeadersAttribute(int column);
    void AppendContent(int column, const document::Text& text);
    void AppendFullValue(const document::Text& text);

    TableParts& fParts;
    std::string& fOut;
    const Grid& fGrid;
    std::vector<std::size_t> fvOpen;  ///< for each level the header of the present row, by index
    std::size_t fNext = 0;            ///< the first header cell that is still to be written
    bool fIsGroupOpen = false;        ///< whether the present `tbody` stands below one header
    std::string fRowIds;              ///< the ids of the present row's headers, each after a blank
};

}  // namespace hierfit::report::html
