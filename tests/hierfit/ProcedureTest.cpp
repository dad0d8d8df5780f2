#include <gtest/gtest.h>

#include "tests/hierfit/Drawing.h"
#include "tests/hierfit/ProcedureRun.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

TEST(Procedure, TakesOnePairOfDocuments) {
    const std::string statXml = Sample().Text();
    struct Case {
        std::vector<std::string> fvPmml;
        std::vector<StatXMLBlock> fvBlocks;
        std::string fSummary;
        bool fIsRead;
    } cases[] = {
        {{kSamplePmml}, {{statXml}}, "", true},
        {{}, {{statXml}}, "", false},
        {{kSamplePmml}, {}, "", false},
        {{kSamplePmml, kSamplePmml}, {{statXml}}, "", false},
        {{kSamplePmml}, {{statXml}}, "x", false},
        {{kSamplePmml}, {{statXml}, {statXml}}, "", false},
        {{"no document"}, {{statXml}}, "", false},
    };
    for (Case& one : cases) {
        ProcedureRun run;
        const std::unique_ptr<CFProcCustom> procedure = run.MakeProcedure();
        EXPECT_TRUE(procedure->AcceptRun(nullptr, nullptr));
        EXPECT_EQ(procedure->ProcessDocuments(one.fvPmml, one.fvBlocks, one.fSummary), one.fIsRead);
        EXPECT_EQ(run.GetItems().empty(), !one.fIsRead);
    }
}

TEST(Procedure, RefusesToRunWithoutWhatTheHostGives) {
    for (const int missing : {0, 1, 2}) {
        ProcedureRun run;
        const std::unique_ptr<CFProcCustom> procedure = run.MakeProcedure();
        if (missing == 0) procedure->fProcedure = nullptr;
        if (missing == 1) procedure->fDataSource = nullptr;
        if (missing == 2) procedure->fMetaData = nullptr;
        EXPECT_FALSE(procedure->ProduceOutput(kSamplePmml, {Sample().Text()}));
        EXPECT_TRUE(run.GetItems().empty());
        EXPECT_FALSE(run.Diagnostics().empty());
    }
}

TEST(Procedure, ReplacesItsRecordsInASecondRun) {
    ProcedureRun run;
    const std::unique_ptr<CFProcCustom> procedure = run.MakeProcedure();
    EXPECT_TRUE(procedure->ProduceOutput(kSamplePmml, {Sample().Text()}));
    std::list<document::Item> twice = run.GetItems();
    twice.insert(twice.end(), run.GetItems().begin(), run.GetItems().end());
    EXPECT_TRUE(procedure->ProduceOutput(kSamplePmml, {Sample().Text()}));
    EXPECT_EQ(run.GetItems(), twice);
}

/// A document with a piece cut out or changed is read, or it fails with its one error and the host knows the place.
void CheckMutilated(const std::string& pmml, const std::string& statXml) {
    ProcedureRun run(pmml);
    if (run.Run(statXml)) return;
    EXPECT_EQ(Draw(run.GetItems()), "message 2 3 StatXML parsing error ...\n");
    EXPECT_TRUE(run.HasMiss() || !run.Diagnostics().empty()) << statXml;
}

TEST(Procedure, SurvivesMutilatedDocuments) {
    const std::string pmml = ReadExample("cbpp", "model.pmml");
    const std::string statXml = ReadExample("cbpp", "model.statxml");
    for (std::size_t end = statXml.find("/>"); end != std::string::npos; end = statXml.find("/>", end + 1)) {
        std::string text = statXml;
        const std::size_t begin = text.rfind('<', end);
        CheckMutilated(pmml, text.erase(begin, end + 2 - begin));
    }
    for (std::size_t value = statXml.find("=\""); value != std::string::npos; value = statXml.find("=\"", value + 1)) {
        std::string text = statXml;
        CheckMutilated(pmml, text.insert(value + 2, value % 2 == 0 ? "9" : "-"));
    }
}

}  // namespace
}  // namespace hierfit::test
