#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/docx/table/TablePlan.h"
#include "report/layout/FlatNames.h"
#include "report/layout/Grid.h"

namespace hierfit::report::docx {

/// The header rows of a table, for any part of its columns. It points into grid and plan.
class HeaderRows {
  public:
    HeaderRows(const Grid& grid, const TablePlan& plan);

    void Append(std::string& out, const TablePart& part) const;

  private:
    void AppendRow(std::string& out, const TablePart& part, int row) const;
    void AppendCorner(std::string& out, const TablePart& part, int row) const;
    void AppendHeader(std::string& out, const TablePart& part, const HeaderCell& header, int row) const;
    bool IsLast(int row) const { return row + 1 == fRows; }

    const Grid& fGrid;
    const TablePlan& fPlan;
    int fRows;
    std::vector<std::vector<const HeaderCell*>> fvLevels;  ///< for each level the headers on it, from left to right
};

/// The rows of data of one part of a table.
class BodyRows {
  public:
    /// Rows that stay together with what follows them stand on one page with it.
    BodyRows(const Grid& grid, const TablePlan& plan, const TablePart& part, bool stayTogether);

    void Append(std::string& out);

  private:
    /// What a column's cells begin with.
    struct Starts {
        std::string fText;    ///< before a text's direction
        std::string fFigure;  ///< all up to its run
    };

    Starts MakeStarts(std::size_t column) const;
    void AppendRowHeaders(std::string& out, int row);
    void AppendRowHeader(std::string& out, const HeaderCell& header, bool isFirst) const;
    void AppendJoined(std::string& out);
    void AppendCell(std::string& out, int column, const DataCell& cell) const;

    const Grid& fGrid;
    const TablePlan& fPlan;
    const TablePart& fPart;
    std::string_view fKeep;
    std::vector<Starts> fvStarts;
    std::size_t fNext = 0;                  ///< row header
    std::vector<const HeaderCell*> fvOpen;  ///< by level
    RowLabels fLabels;
};

}  // namespace hierfit::report::docx
