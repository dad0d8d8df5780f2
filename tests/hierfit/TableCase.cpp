#include "tests/hierfit/TableCase.h"

#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"

namespace hierfit::test {

namespace {

/// Calls an operation with each heading, table and message.
template <class Operation>
void Walk(const std::list<document::Item>& items, Operation operation) {
    for (const document::Item& item : items) {
        operation(item);
        if (const auto* heading = std::get_if<document::Heading>(&item.fContent)) Walk(heading->fItems, operation);
    }
}

const document::Table* TableOf(const document::Item& item, const std::string& subtype) {
    const auto* table = std::get_if<document::Table>(&item.fContent);
    return table && table->fSubtype.fWords == subtype ? table : nullptr;
}

std::string DrawTables(const std::list<document::Item>& items, const std::string& subtype) {
    std::string drawn;
    Walk(items, [&](const document::Item& item) {
        if (const document::Table* table = TableOf(item, subtype)) drawn += DrawTable(*table);
        if (!subtype.empty() || std::holds_alternative<document::Table>(item.fContent)) return;
        const auto* heading = std::get_if<document::Heading>(&item.fContent);
        drawn += heading ? "heading " + DrawText(heading->fTitle) + "\n" : DrawItems({item});
    });
    return drawn;
}

}  // namespace

void CheckTable(const TableCase& one) {
    SCOPED_TRACE(one.fName);
    ProcedureRun run(SamplePmml());
    ASSERT_TRUE(run.Run(one.fSample.Text())) << run.Diagnostics();
    const std::string drawn = DrawTables(run.GetDocument().fItems, one.fSubtype);
    EXPECT_EQ(drawn.empty() ? "" : "\n" + drawn, one.fDrawn);
    EXPECT_NE(run.Diagnostics().find(one.fDiagnostics), std::string::npos) << run.Diagnostics();
}

std::string DrawCells(const Sample& sample, const std::string& subtype) {
    ProcedureRun run(SamplePmml());
    EXPECT_TRUE(run.Run(sample.Text())) << run.Diagnostics();
    std::string drawn;
    Walk(run.GetDocument().fItems, [&](const document::Item& item) {
        const document::Table* table = TableOf(item, subtype);
        if (!table) return;
        for (const document::Cell& cell : table->fvCells) {
            drawn += DrawText(cell.fContent);
            for (const document::Text& note : cell.fvNotes) drawn += "*" + DrawText(note);
            drawn += " ";
        }
    });
    return drawn;
}

}  // namespace hierfit::test
