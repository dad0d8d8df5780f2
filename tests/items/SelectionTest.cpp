#include "report/items/Selection.h"

#include "report/items/Entries.h"
#include "tests/support/TableSketch.h"

namespace hierfit::report::items {

namespace {

using document::Document;
using document::Heading;
using document::Item;
using document::Message;
using test::MakeText;

Item Table(const char* subtype) { return {test::SketchTable(std::string("title ") + subtype)}; }

/// Two tables of a kind, one of them under a heading under a heading, and a message.
Document MakeDocument() {
    Heading inner{MakeText("Inner"), {}};
    inner.fItems.push_back(Table("Effects"));
    inner.fItems.push_back(Table("Means"));
    Heading outer{MakeText("Outer"), {}};
    outer.fItems.push_back({std::move(inner)});
    outer.fItems.push_back(Table("Means"));
    Document document;
    document.fItems.push_back(Table("Effects"));
    document.fItems.push_back({std::move(outer)});
    document.fItems.push_back({Message{MakeText("Text"), 2, 1}});
    return document;
}

/// Names with as many dots before each as there are headings around it.
std::string Outline(const Document& document) {
    std::string outline;
    for (const Entry& entry : ListEntries(document)) {
        if (!outline.empty()) outline += ' ';
        outline.append(static_cast<std::size_t>(entry.fDepth), '.').append(entry.fAnchor);
    }
    return outline;
}

TEST(Selection, KeepsWhatIsNamedInOrderAndUnderItsName) {
    const std::string all = "Effects-1 Outer-1 .Inner-1 ..Effects-2 ..Means-1 .Means-2 Message-1";
    const std::pair<const char*, std::string> cases[] = {
        {"", all},
        {"Effects-2", "Outer-1 .Inner-1 ..Effects-2"},
        {"Means", "Outer-1 .Inner-1 ..Means-1 .Means-2"},
        {"Message-1, Effects-1 ,,", "Effects-1 Message-1"},
        {"Outer,Outer-1,Effects,Message", all},
    };
    for (const auto& [names, outline] : cases) {
        Document document = MakeDocument();
        EXPECT_FALSE(Select(document, SplitNames(names))) << names;
        EXPECT_EQ(Outline(document), outline) << names;
        // What is left can be chosen again by the same names.
        EXPECT_FALSE(Select(document, SplitNames(names))) << names;
        EXPECT_EQ(Outline(document), outline) << names;
    }
}

TEST(Selection, TellsTheNearestOfWhatThereIs) {
    Document document = MakeDocument();
    const auto unknown = Select(document, {"Effects-1", "maens"});
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->fName, "maens");
    EXPECT_EQ(unknown->fvNearest.front(), "Means-1");
    EXPECT_EQ(document, MakeDocument());

    for (int i = 0; i < 20; ++i) document.fItems.push_back(Table("Means"));
    const std::string text = Describe(*Select(document, {std::string(10000, 'x')}));
    EXPECT_LT(text.size(), 500u);
    EXPECT_NE(text.find(" and 15 more"), std::string::npos) << text;
}

}  // namespace

}  // namespace hierfit::report::items
