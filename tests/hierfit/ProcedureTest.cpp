#include <gtest/gtest.h>

#include <map>

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
        EXPECT_EQ(run.Diagnostics(), "the procedure was started without its output, its data source or its metadata\n");
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

/// Whether a document with a piece cut out or changed is read; otherwise it must fail with its one error, and the host
/// knows the place.
bool IsRead(const std::string& pmml, const std::string& statXml) {
    ProcedureRun run(pmml);
    if (run.Run(statXml)) return true;
    EXPECT_EQ(Draw(run.GetItems()), "message 2 3 StatXML parsing error ...\n");
    EXPECT_TRUE(run.HasMiss() || !run.Diagnostics().empty()) << statXml;
    return false;
}

/// The document without the last element or attribute of each name, such as "Counts" and "Counts.totalFreq".
std::map<std::string, std::string> CutLasts(const std::string& xml) {
    std::map<std::string, std::string> cuts;
    for (std::size_t begin = xml.find("<StatXML"); begin != std::string::npos; begin = xml.find('<', begin + 1)) {
        const std::string tag = xml.substr(begin, xml.find('>', begin) + 1 - begin);
        const std::string name = tag.substr(1, tag.find_first_of(" />", 1) - 1);
        if (name.empty()) continue;
        const std::string end = tag.ends_with("/>") ? "/>" : "</" + name + ">";
        cuts[name] = std::string(xml).erase(begin, xml.find(end, begin) + end.size() - begin);
        for (std::size_t equals = tag.find("=\""); equals != std::string::npos; equals = tag.find("=\"", equals + 1)) {
            const std::size_t blank = tag.rfind(' ', equals);
            const std::string attribute = name + "." + tag.substr(blank + 1, equals - blank - 1);
            cuts[attribute] = std::string(xml).erase(begin + blank, tag.find('"', equals + 2) + 1 - blank);
        }
    }
    return cuts;
}

const char* const kDispensable =
    "Array.n Array.type Attribute Attribute.name Attribute.value BivariateData Coordinates Coordinates.feature "
    "Coordinates.field Coordinates.statistic CoordinatesGroup CoordinatesGroup.description Covariate DataGroup "
    "DataGroup.description Factor Factor.nest FieldInfo Label MapEntry.name Matrix.description ModelTestStats "
    "ModelTestStats.description ModelTestStats.testID ModelTestStats.testType MultivariateData Parameter "
    "Parameter.value ParameterEstimates ParameterEstimates.block PrintableList PrintableList.isKey "
    "PrintableList.mapId PrintableList.pattern RegressionParameter Statistic StringMap.mapId StructuredData "
    "UnivariateData Value Value.value ";

TEST(Procedure, NeedsAllButAFewElementsAndAttributes) {
    std::map<std::string, bool> mayLack;
    for (const char* example : {"bacteria", "chickweight"}) {
        for (const auto& [name, statXml] : CutLasts(ReadExample(example, "model.statxml"))) {
            const bool isRead = IsRead(ReadExample(example, "model.pmml"), statXml);
            mayLack.emplace(name, true).first->second &= isRead;
        }
    }
    std::string names;
    for (const auto& [name, isRead] : mayLack) names += isRead ? name + " " : "";
    EXPECT_EQ(names, kDispensable);
}

}  // namespace
}  // namespace hierfit::test
