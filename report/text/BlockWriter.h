#pragma once

#include <vector>

#include "report/text/Sink.h"
#include "report/text/TablePlan.h"

namespace hierfit::report {

/// Writes one block of a table's columns, with the row headers in front and rules about headers and rows. Grid, plan
/// and sink must outlive it.
class BlockWriter {
  public:
    BlockWriter(const Grid& grid, const TablePlan& plan, Block block, Sink& sink);

    void Write();

  private:
    // A name of row headers and where it stands on the line.
    struct Label {
        const CellLines* fpLines;
        int fStart;
    };
    // A row header, and how far it is written.
    struct RowLabel {
        const CellLines* fpLines;
        int fStart;
        int fEndRow;  ///< the row behind those that it covers
        int fNextLine = 0;
    };
    // A column header as far as it stands in the block.
    struct Heading {
        const HeaderCell* fpHeader;
        CellLines fLines;
        Block fColumns;
    };

    int StartOf(int column) const { return fvStarts[static_cast<std::size_t>(column - fBlock.fFirst)]; }
    void WriteRule();
    static int HeightOf(const std::vector<Label>& labels);

    bool WriteHeaders();
    void WriteHeaderLevel(int level);
    void WriteHeaderRules(const std::vector<Heading>& headings);
    std::vector<Heading> ListHeadings(int level) const;
    int RoomFor(const Heading& heading) const;
    std::vector<Label> ListCorner() const;
    void PutCorner(const std::vector<Label>& labels, int line, int height);
    void PutHeading(const Heading& heading, int line, int height, bool isLast);

    void WriteRows();
    void WriteRow(int row, std::vector<RowLabel>& labels);
    void PutLabel(RowLabel& label);
    void PutCell(int row, int column, int line);

    const Grid& fGrid;
    const TablePlan& fPlan;
    Block fBlock;
    Sink& fSink;
    std::vector<int> fvStarts;  ///< of the block's columns
    int fWidth = 0;
};

}  // namespace hierfit::report
