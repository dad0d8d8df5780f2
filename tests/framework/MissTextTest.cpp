#include "host/framework/MissText.h"

#include "host/CFStatVariableValue.h"
#include "host/SDOMXMLWrapper.h"
#include "host/context/RunContext.h"
#include "host/data/VariableSource.h"

namespace hierfit {
namespace {

constexpr const char* kText =
    "<StatXML>\n"
    " <M>\n"
    "  <Statistic name='x'/><Statistic/>\n"
    "  <Array>1 \"2</Array>\n"
    " </M>\n"
    "</StatXML>";

/// A run with a document and a data source of one numeric variable.
class MissText : public testing::Test {
  protected:
    MissText() { fRoot.LoadFromString(kText); }

    SDOMXMLWrapper& At(const char* path) {
        SDOMXMLWrapper* element = nullptr;
        EXPECT_TRUE(fRoot.GetFirstElement(path, &element, true));
        return *element;
    }

    /// Text and place, such as "text @1:2".
    std::string Described() const {
        const auto diagnostic = framework::DescribeMiss(fRun);
        if (!diagnostic) return "none";
        EXPECT_EQ(diagnostic->fLevel, 3);
        if (!diagnostic->fPlace) return diagnostic->fText;
        EXPECT_EQ(diagnostic->fPlace->fSource, 1);
        return diagnostic->fText + " @" + std::to_string(diagnostic->fPlace->fLine) + ':' +
               std::to_string(diagnostic->fPlace->fColumn);
    }

    context::RunContext fRun{{}, nullptr, ""};
    context::RunContext::Activation fActivation{fRun};
    SDOMXMLWrapper fRoot;
    data::VariableSource fSource{{{.fName = "dose", .fLabel = {}, .fFormat = {}, .fValueLabels = {}}}};
    std::string fText;
    SDOMXMLWrapper* fpElement = nullptr;
    SDOMXMLIterator* fpIterator = nullptr;
    std::vector<std::string> fvTokens;
};

TEST_F(MissText, TellsEachKindWithItsPlace) {
    EXPECT_EQ(Described(), "none");
    At("M/Statistic").GetAttribute("value", fText);
    EXPECT_EQ(Described(), "StatXML/M/Statistic[1]: attribute \"value\" expected @3:3");
    fRoot.GetFirstElement("X/Y", &fpElement, true);
    EXPECT_EQ(Described(), "StatXML: element \"X/Y\" expected @1:1");
    fRoot.GetFirstElement("M/MatrixLabels/RowColLabels", &fpElement, true);
    EXPECT_EQ(Described(), "StatXML/M: element \"MatrixLabels/RowColLabels\" expected @2:2");
    At("M").GetElementIterator("Statistic/Z", &fpIterator, true);
    EXPECT_EQ(Described(), "StatXML/M/Statistic[2]: element \"Z\" expected @3:24");
    At("M/Array").GetSimpleArray(fvTokens);
    EXPECT_EQ(Described(), "StatXML/M/Array: the array's quotes do not close @4:3");
    At("M/Statistic").GetAttribute("name", fText);
    fSource.FindVarIndex("Treatmnt", 0);
    EXPECT_EQ(Described(), "StatXML/M/Statistic[1]: \"Treatmnt\" is no field of the data source @3:3");
    CFStatVariableValue("abc").LoadObsValue(fSource.GetVariable(0), 0);
    EXPECT_EQ(Described(), "StatXML/M/Statistic[1]: \"abc\" is no value of variable \"dose\" @3:3");
}

TEST_F(MissText, AnUnknownFieldOutlivesTheLoadThatItSpoils) {
    CFStatVariableValue value("1");
    value.LoadObsValue(fSource.GetVariable(fSource.FindVarIndex("Treatmnt", 0)), 0);
    EXPECT_EQ(Described(), "StatXML: \"Treatmnt\" is no field of the data source @1:1");
}

TEST_F(MissText, ADiagnosticSettlesTheMissBeforeIt) {
    fRoot.GetAttribute("value", fText);
    fRun.AddDiagnostic(2, "told", std::nullopt);
    EXPECT_EQ(Described(), "none");
}

TEST_F(MissText, AMissOfAnotherDocumentHasNoPlace) {
    At("M/Array").GetAttribute("value", fText);
    SDOMXMLWrapper other;
    other.LoadFromString("<a/>");
    EXPECT_EQ(Described(), "attribute \"value\" expected");
}

}  // namespace
}  // namespace hierfit
