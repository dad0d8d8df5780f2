#include "report/text/TableText.h"

#include "report/text/BlockWriter.h"
#include "report/text/TablePlan.h"
#include "report/text/VisibleText.h"

namespace hierfit::report {

namespace {

void WriteTexts(const std::vector<document::Text>& texts, int width, Sink& sink) {
    for (const document::Text& text : texts) sink.WriteParagraph(Role::Plain, "", MakeVisible(text.fWords), width);
}

}  // namespace

void WriteTable(const document::Table& table, int width, Sink& sink) {
    const Grid grid = MakeGrid(table);
    const std::unique_ptr<const TablePlan> plan = MakePlan(grid, width);
    sink.WriteParagraph(Role::Title, "", MakeVisible(table.fTitle.fWords), width);
    for (const Block& block : plan->MakeBlocks()) {
        if (block.fFirst > 0) sink.PartItems();
        BlockWriter(grid, *plan, block, sink).Write();
    }
    WriteTexts(table.fvCaptions, width, sink);
    WriteTexts(table.fvNotes, width, sink);
    for (const Note& note : grid.fvNotes) {
        sink.WriteParagraph(Role::Plain, note.fLetter + ". ", MakeVisible(note.fpText->fWords), width);
    }
}

}  // namespace hierfit::report
