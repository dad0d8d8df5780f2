#include <sstream>

#include "host/MCPMMLParser.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

/// The variables that a list holds, such as "dose:2/3", or "error".
std::string Variables(const std::string& text, const std::vector<std::string>& names = {}) {
    MCPMMLParser parser;
    std::istringstream stream(text);
    MCVarList list;
    if (parser.ParseToDOM(stream).IsError()) return "error";
    if (parser.FillVarList(&list, names, false).IsError()) return list.Size() == 0 ? "unknown" : "unknown, but filled";
    std::string variables;
    for (int i = 0; i < list.Size(); ++i) {
        std::string name;
        list.GetVarAt(i)->GetName(name);
        variables += (i > 0 ? " " : "") + name + ':' + std::to_string(list.GetVarAt(i)->GetKind()) + '/' +
                     std::to_string(list.GetVarAt(i)->GetCategoryCount());
    }
    return variables;
}

TEST(PmmlParser, ListsTheVariablesOfTheModel) {
    const std::string oats = ReadExample("oats", "model.pmml");
    EXPECT_EQ(Variables(oats), "yield:1/0 nitro:3/4 Variety:2/3 Block:2/6");
    EXPECT_EQ(Variables(oats, {"Block", "yield"}), "Block:2/6 yield:1/0");
    EXPECT_EQ(Variables(oats, {"Block", "plot"}), "unknown");
    EXPECT_EQ(Variables(Replaced(oats, "name=\"yield\"", "name=\"yeild\"")), "error");
    EXPECT_EQ(Variables(oats.substr(0, oats.size() / 2)), "error");
    EXPECT_EQ(Variables(""), "error");
}

TEST(PmmlParser, FailsWithoutADocument) {
    MCPMMLParser parser;
    MCVarList list;
    EXPECT_TRUE(parser.FillVarList(&list, {}, false).IsError());
    std::istringstream good(ReadExample("oats", "model.pmml"));
    EXPECT_FALSE(parser.ParseToDOM(good).IsError());
    EXPECT_TRUE(parser.FillVarList(nullptr, {}, false).IsError());
    std::istringstream bad("<PMML/>");
    EXPECT_TRUE(parser.ParseToDOM(bad).IsError());
    EXPECT_TRUE(parser.FillVarList(&list, {}, false).IsError());
}

}  // namespace
}  // namespace hierfit::test
