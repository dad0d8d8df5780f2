#include "report/text/BlockWriter.h"

#include <algorithm>

#include "report/text/VisibleText.h"

namespace hierfit::report {

namespace {

constexpr std::string_view kRule = "\xE2\x94\x80";  // a light horizontal line

int CountLines(const CellLines& lines) { return static_cast<int>(lines.fvLines.size()); }

const std::string& LineOf(const CellLines& lines, int line) { return lines.fvLines[static_cast<std::size_t>(line)]; }

}  // namespace

BlockWriter::BlockWriter(const Grid& grid, const TablePlan& plan, Block block, Sink& sink)
    : fGrid(grid), fPlan(plan), fBlock(block), fSink(sink) {
    int start = plan.StartOfData();
    for (int column = block.fFirst; column < block.fEnd; ++column) {
        fvStarts.push_back(start);
        start += plan.Column(column).fWidth + plan.GetGap();
    }
    fWidth = std::max(start - plan.GetGap(), 0);
}

void BlockWriter::Write() {
    WriteRule();
    if (WriteHeaders()) WriteRule();
    WriteRows();
    WriteRule();
}

void BlockWriter::WriteRule() {
    fSink.PutRule(0, fWidth, kRule);
    fSink.EndLine();
}

int BlockWriter::HeightOf(const std::vector<Label>& labels) {
    int height = 0;
    for (const Label& label : labels) height = std::max(height, CountLines(*label.fpLines));
    return height;
}

bool BlockWriter::WriteHeaders() {
    for (int level = 0; level < fGrid.fColumnLevels; ++level) WriteHeaderLevel(level);
    if (fGrid.fColumnLevels > 0) return true;
    const std::vector<Label> corner = ListCorner();
    const int height = HeightOf(corner);
    for (int line = 0; line < height; ++line) {
        PutCorner(corner, line, height);
        fSink.EndLine();
    }
    return height > 0;
}

void BlockWriter::WriteHeaderLevel(int level) {
    const bool isLast = level == fGrid.fColumnLevels - 1;
    const std::vector<Heading> headings = ListHeadings(level);
    const std::vector<Label> corner = isLast ? ListCorner() : std::vector<Label>();
    int height = HeightOf(corner);
    for (const Heading& heading : headings) height = std::max(height, CountLines(heading.fLines));
    for (int line = 0; line < height; ++line) {
        PutCorner(corner, line, height);
        for (const Heading& heading : headings) PutHeading(heading, line, height, isLast);
        fSink.EndLine();
    }
    if (!isLast && height > 0) WriteHeaderRules(headings);
}

void BlockWriter::WriteHeaderRules(const std::vector<Heading>& headings) {
    for (const Heading& heading : headings) {
        if (heading.fLines.fvLines.empty()) continue;
        fSink.PutRule(StartOf(heading.fColumns.fFirst), fPlan.WidthOf(heading.fColumns), kRule);
    }
    fSink.EndLine();
}

std::vector<BlockWriter::Heading> BlockWriter::ListHeadings(int level) const {
    const std::vector<std::size_t>& indices = fPlan.HeadersAt(level);
    const auto isBefore = [this](std::size_t index) {
        const HeaderCell& header = fGrid.fvColumnHeaders[index];
        return header.fFirst + header.fSpan <= fBlock.fFirst;
    };
    std::vector<Heading> headings;
    for (auto next = std::partition_point(indices.begin(), indices.end(), isBefore); next != indices.end(); ++next) {
        const HeaderCell& header = fGrid.fvColumnHeaders[*next];
        if (header.fFirst >= fBlock.fEnd) break;
        const Block columns{std::max(header.fFirst, fBlock.fFirst),
                            std::min(header.fFirst + header.fSpan, fBlock.fEnd)};
        headings.push_back({&header, fPlan.ColumnHeader(*next), columns});
        headings.back().fLines.Wrap(RoomFor(headings.back()));
    }
    return headings;
}

// A header cut off by the end of the block is wrapped again. A long word may stand out at the right where there is
// room.
int BlockWriter::RoomFor(const Heading& heading) const {
    const int width = fPlan.WidthOf(heading.fColumns);
    if (heading.fColumns.fEnd < fBlock.fEnd) return width;
    const int rest = fPlan.GetLimit() - StartOf(heading.fColumns.fFirst);
    return std::max(width, std::min(heading.fLines.WidestWord(), rest));
}

std::vector<BlockWriter::Label> BlockWriter::ListCorner() const {
    std::vector<Label> labels;
    for (std::size_t i = 0; i < fGrid.fvCorner.size(); ++i) {
        labels.push_back({&fPlan.Corner(i), fPlan.StartOfLevel(fGrid.fvCorner[i].fLevel)});
    }
    return labels;
}

// Headers stand on the lowest of the lines that their level has.
void BlockWriter::PutCorner(const std::vector<Label>& labels, int line, int height) {
    for (const Label& label : labels) {
        const int own = line - (height - CountLines(*label.fpLines));
        if (own >= 0) fSink.PutAt(label.fStart, Role::Header, LineOf(*label.fpLines, own));
    }
}

void BlockWriter::PutHeading(const Heading& heading, int line, int height, bool isLast) {
    const int own = line - (height - CountLines(heading.fLines));
    if (own < 0) return;
    const std::string& text = LineOf(heading.fLines, own);
    const int room = std::max(fPlan.WidthOf(heading.fColumns) - MeasureWidth(text), 0);
    const bool isCentred = !isLast || heading.fpHeader->fSpan > 1;
    const bool isText = fPlan.Column(heading.fColumns.fFirst).fIsText;
    const int indent = isCentred ? room / 2 : isText ? 0 : room;
    fSink.PutAt(StartOf(heading.fColumns.fFirst) + indent, Role::Header, text);
}

void BlockWriter::WriteRows() {
    std::size_t next = 0;
    std::vector<RowLabel> labels;
    for (int row = 0; row < fGrid.fRows; ++row) {
        std::erase_if(labels, [row](const RowLabel& label) { return label.fEndRow <= row; });
        for (; next < fGrid.fvRowHeaders.size() && fGrid.fvRowHeaders[next].fFirst == row; ++next) {
            const HeaderCell& header = fGrid.fvRowHeaders[next];
            labels.push_back({&fPlan.RowHeader(next), fPlan.StartOfLevel(header.fLevel), row + header.fSpan});
        }
        WriteRow(row, labels);
    }
}

// The lines of a label run on beside the rows that it covers; the last of these waits for its end.
void BlockWriter::WriteRow(int row, std::vector<RowLabel>& labels) {
    int height = 1;
    for (const RowLabel& label : labels) {
        if (label.fEndRow == row + 1) height = std::max(height, CountLines(*label.fpLines) - label.fNextLine);
    }
    for (int column = fBlock.fFirst; column < fBlock.fEnd; ++column) {
        height = std::max(height, CountLines(fPlan.Cell(row, column)));
    }
    for (int line = 0; line < height; ++line) {
        for (RowLabel& label : labels) PutLabel(label);
        for (int column = fBlock.fFirst; column < fBlock.fEnd; ++column) PutCell(row, column, line);
        fSink.EndLine();
    }
}

void BlockWriter::PutLabel(RowLabel& label) {
    if (label.fNextLine == CountLines(*label.fpLines)) return;
    fSink.PutAt(label.fStart, Role::Plain, LineOf(*label.fpLines, label.fNextLine++));
}

void BlockWriter::PutCell(int row, int column, int line) {
    const CellLines& cell = fPlan.Cell(row, column);
    if (line >= CountLines(cell)) return;
    const DataColumn& data = fPlan.Column(column);
    const NumberRoom& room = data.RoomOf(cell);
    const int margin = data.fIsText ? 0 : data.fWidth - room.Width();
    const int indent = cell.fIsNumber ? margin + room.fLeft - cell.fLeft : 0;
    fSink.PutAt(StartOf(column) + indent, Role::Plain, LineOf(cell, line));
}

}  // namespace hierfit::report
