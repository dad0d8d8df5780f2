#include "host/CFStatVariableValue.h"
#include "host/Diagnose.h"
#include "host/SDOMXMLWrapper.h"
#include "host/context/RunContext.h"
#include "host/data/VariableSource.h"
#include "host/framework/MissText.h"

namespace hierfit {
namespace {

constexpr const char* kText =
    "<s:R xmlns:s='u'>\n"
    "  <B n='1'/>\n"
    "  <P><B n='2'/></P>\n"
    "  <P><S v='a'/><T/><S v='b'/></P>\n"
    "  <P><S v='c'/><A>1 \"2</A></P>\n"
    "</s:R>";

/// A run with a document and a data source of one numeric variable.
class Wrapper : public testing::Test {
  protected:
    Wrapper() { EXPECT_EQ(fRoot.LoadFromString(kText), &fRoot); }

    SDOMXMLWrapper& At(const char* path) {
        SDOMXMLWrapper* element = nullptr;
        EXPECT_TRUE(fRoot.GetFirstElement(path, &element, true));
        return *element;
    }

    /// The look-up that failed last, with its place, such as "text @1:2".
    std::string Miss() const {
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
    std::string fText = "unchanged";
    SDOMXMLWrapper* fpElement = nullptr;
    SDOMXMLIterator* fpIterator = nullptr;
    std::vector<std::string> fvTokens;
};

std::string ValuesOf(SDOMXMLIterator* iterator) {
    std::string values;
    for (SDOMXMLWrapper* element = nullptr; iterator->Next(&element);) {
        std::string value = "-";
        element->GetAttribute("v", value);
        values += value;
    }
    return values;
}

TEST_F(Wrapper, FindsElementsAndAttributes) {
    ASSERT_TRUE(fRoot.GetFirstElement("P/B", &fpElement, true));
    EXPECT_FALSE(fpElement->GetAttribute("N", fText));
    EXPECT_FALSE(fRoot.GetAttribute("s", fText));
    EXPECT_EQ(fText, "unchanged");
    EXPECT_TRUE(fpElement->GetAttribute("n", fText));
    EXPECT_EQ(fText, "2");
    SDOMXMLWrapper* const before = fpElement;
    for (const char* path : {"R", "S", "P/R", "p", "", "/", "P/", "/P", "P//B", "B/n"}) {
        EXPECT_FALSE(fRoot.GetFirstElement(path, &fpElement, true)) << path;
    }
    EXPECT_EQ(fpElement, before);
}

TEST_F(Wrapper, TakesTheFirstBranchThatLeadsOn) {
    EXPECT_FALSE(fRoot.GetElementIterator("P/R", &fpIterator, true));
    EXPECT_EQ(fpIterator, nullptr);
    ASSERT_TRUE(fRoot.GetElementIterator("P/S", &fpIterator, true));
    EXPECT_EQ(ValuesOf(fpIterator), "ab");
    EXPECT_EQ(ValuesOf(fpIterator), "");
    ASSERT_TRUE(fRoot.GetElementIterator("P", &fpIterator, true));
    std::string values;
    while (fpIterator->Next(&fpElement)) {
        SDOMXMLIterator* inner = nullptr;
        values += (fpElement->GetElementIterator("S", &inner, true) ? ValuesOf(inner) : "none") + " ";
    }
    EXPECT_EQ(values, "none ab c ");
}

TEST_F(Wrapper, AnswersWithoutADocument) {
    SDOMXMLWrapper root;
    EXPECT_EQ(root.LoadFromString("<a>\n </b>"), nullptr);
    fvTokens = {"x"};
    EXPECT_FALSE(root.GetFirstElement("a", &fpElement, true));
    EXPECT_FALSE(root.GetElementIterator("a", &fpIterator, true));
    EXPECT_FALSE(root.GetAttribute("a", fText));
    EXPECT_FALSE(root.GetSimpleArray(fvTokens));
    EXPECT_TRUE(fvTokens.empty());
    Diagnose(root, "left out");
    Diagnose(At("P/B"), "left out");
    Diagnose("a table is left out");
    const std::vector<document::Diagnostic> expected = {
        {3, "mismatched tag\n </b>\n   ^", document::Place{1, 2, 4}},
        {2, "left out", std::nullopt},
        {2, "R/P[1]/B: left out", document::Place{1, 3, 6}},
        {2, "a table is left out", std::nullopt},
    };
    EXPECT_EQ(fRun.GetDocument().fvDiagnostics, expected);
}

TEST_F(Wrapper, ElementsHandedOutStayGood) {
    std::vector<SDOMXMLWrapper*> elements;
    for (int i = 0; i < 5000; ++i) elements.push_back(&At("B"));
    for (const SDOMXMLWrapper* element : elements) {
        ASSERT_TRUE(element->GetAttribute("n", fText));
        ASSERT_EQ(fText, "1");
    }
}

TEST_F(Wrapper, TellsEachKindOfMissWithItsPlace) {
    EXPECT_EQ(Miss(), "none");
    At("P/S").GetAttribute("w", fText);
    EXPECT_EQ(Miss(), "R/P[2]/S[1]: attribute \"w\" expected @4:6");
    fRoot.GetFirstElement("X/Y", &fpElement, true);
    EXPECT_EQ(Miss(), "R: element \"X/Y\" expected @1:1");
    fRoot.GetFirstElement("P/T/Z", &fpElement, true);
    EXPECT_EQ(Miss(), "R/P[3]: element \"T/Z\" expected @5:3");
    At("P/A").GetSimpleArray(fvTokens);
    EXPECT_EQ(Miss(), "R/P[3]/A: the array's quotes do not close @5:16");
}

TEST_F(Wrapper, TellsUnknownFieldsAndValuesWithTheElementTouchedLast) {
    At("P/B").GetAttribute("n", fText);
    fSource.FindVarIndex("Dose", 0);
    EXPECT_EQ(Miss(), "R/P[1]/B: \"Dose\" is no field of the data source @3:6");
    At("P/A").GetSimpleArray(fvTokens);
    fSource.FindVarIndex("Dose", 0);
    EXPECT_EQ(Miss(), "R/P[3]/A: \"Dose\" is no field of the data source @5:16");
    At("P").GetElementIterator("B", &fpIterator, true);
    CFStatVariableValue("abc").LoadObsValue(fSource.GetVariable(fSource.FindVarIndex("dose", 0)), 0);
    EXPECT_EQ(Miss(), "R/P[1]: \"abc\" is no value of variable \"dose\" @3:3");
    // The load that an unknown field spoils is no miss of its own.
    CFStatVariableValue("1").LoadObsValue(fSource.GetVariable(fSource.FindVarIndex("Dose", 0)), 0);
    EXPECT_EQ(Miss(), "R/P[1]: \"Dose\" is no field of the data source @3:3");
    fRun.AddDiagnostic(2, "told", std::nullopt);
    EXPECT_EQ(Miss(), "none");
}

TEST_F(Wrapper, AMissOfAnotherDocumentHasNoPlace) {
    At("P/A").GetAttribute("value", fText);
    SDOMXMLWrapper other;
    other.LoadFromString("<a/>");
    EXPECT_EQ(Miss(), "attribute \"value\" expected");
}

}  // namespace
}  // namespace hierfit
