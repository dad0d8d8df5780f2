#include "host/Diagnose.h"
#include "host/SDOMXMLWrapper.h"
#include "host/context/RunContext.h"

namespace hierfit {
namespace {

constexpr const char* kText =
    "<s:R xmlns:s='u'>\n"
    "  <B n='1'/>\n"
    "  <P><B n='2'/></P>\n"
    "  <P><S v='a'/><T/><S v='b'/></P>\n"
    "  <P><S v='c'/></P>\n"
    "</s:R>";

std::string ValuesOf(SDOMXMLIterator* iterator) {
    std::string values;
    for (SDOMXMLWrapper* element = nullptr; iterator->Next(&element);) {
        std::string value = "-";
        element->GetAttribute("v", value);
        values += value;
    }
    return values;
}

TEST(Wrapper, FindsElementsAndAttributes) {
    SDOMXMLWrapper root;
    ASSERT_EQ(root.LoadFromString(kText), &root);
    SDOMXMLWrapper* element = nullptr;
    std::string text = "unchanged";
    ASSERT_TRUE(root.GetFirstElement("P/B", &element, true));
    EXPECT_TRUE(element->GetAttribute("n", text));
    EXPECT_EQ(text, "2");
    EXPECT_FALSE(element->GetAttribute("N", text));
    EXPECT_FALSE(root.GetAttribute("s", text));
    EXPECT_EQ(text, "2");

    SDOMXMLWrapper* const before = element;
    for (const char* path : {"R", "S", "P/R", "p", "", "/", "P/", "/P", "P//B", "B/n"}) {
        EXPECT_FALSE(root.GetFirstElement(path, &element, true)) << path;
    }
    EXPECT_EQ(element, before);
}

TEST(Wrapper, TakesTheFirstBranchThatLeadsOn) {
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString(kText), nullptr);
    SDOMXMLIterator* iterator = nullptr;
    EXPECT_FALSE(root.GetElementIterator("P/R", &iterator, true));
    EXPECT_EQ(iterator, nullptr);
    ASSERT_TRUE(root.GetElementIterator("P/S", &iterator, true));
    EXPECT_EQ(ValuesOf(iterator), "ab");
    ASSERT_TRUE(root.GetElementIterator("P", &iterator, true));
    SDOMXMLWrapper* part = nullptr;
    SDOMXMLIterator* inner = nullptr;
    ASSERT_TRUE(iterator->Next(&part));
    EXPECT_FALSE(part->GetElementIterator("S", &inner, true));
    ASSERT_TRUE(iterator->Next(&part));
    ASSERT_TRUE(part->GetElementIterator("S", &inner, true));
    EXPECT_EQ(ValuesOf(inner), "ab");
    EXPECT_EQ(ValuesOf(inner), "");
    ASSERT_TRUE(iterator->Next(&part));
    EXPECT_FALSE(iterator->Next(&part));
}

TEST(Wrapper, AnswersWithoutADocument) {
    SDOMXMLWrapper root;
    EXPECT_EQ(root.LoadFromString("<a>"), nullptr);
    SDOMXMLWrapper* element = nullptr;
    SDOMXMLIterator* iterator = nullptr;
    std::string text;
    std::vector<std::string> tokens{"x"};
    EXPECT_FALSE(root.GetFirstElement("a", &element, true));
    EXPECT_FALSE(root.GetElementIterator("a", &iterator, true));
    EXPECT_FALSE(root.GetAttribute("a", text));
    EXPECT_FALSE(root.GetSimpleArray(tokens));
    EXPECT_TRUE(tokens.empty());
    Diagnose(root, "told to nobody");
}

TEST(Wrapper, ElementsHandedOutStayGood) {
    SDOMXMLWrapper root;
    ASSERT_NE(root.LoadFromString("<a><b v='1'/></a>"), nullptr);
    std::vector<SDOMXMLWrapper*> elements(5000);
    for (SDOMXMLWrapper*& element : elements) ASSERT_TRUE(root.GetFirstElement("b", &element, true));
    for (const SDOMXMLWrapper* element : elements) {
        std::string value;
        ASSERT_TRUE(element->GetAttribute("v", value));
        ASSERT_EQ(value, "1");
    }
}

TEST(Diagnose, TellsTheRun) {
    context::RunContext run({}, nullptr, "");
    const context::RunContext::Activation activation(run);
    SDOMXMLWrapper root;
    EXPECT_EQ(root.LoadFromString("<a>\n </b>"), nullptr);
    EXPECT_EQ(run.GetLastXml(), nullptr);
    ASSERT_NE(root.LoadFromString(kText), nullptr);
    EXPECT_NE(run.GetLastXml(), nullptr);
    SDOMXMLWrapper* element = nullptr;
    ASSERT_TRUE(root.GetFirstElement("P/B", &element, true));
    Diagnose(*element, "left out");
    Diagnose("a table is left out");
    const std::vector<document::Diagnostic> expected = {
        {3, "mismatched tag\n </b>\n   ^", document::Place{1, 2, 4}},
        {2, "R/P[1]/B: left out", document::Place{1, 3, 6}},
        {2, "a table is left out", std::nullopt},
    };
    EXPECT_EQ(run.GetDocument().fvDiagnostics, expected);
}

}  // namespace
}  // namespace hierfit
