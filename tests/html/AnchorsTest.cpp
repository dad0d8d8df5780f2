#include "report/html/Anchors.h"

#include <gtest/gtest.h>

#include "Documents.h"

namespace hierfit::report::html {

namespace {

using document::Heading;
using document::Item;
using test::MakeTable;
using test::Words;

document::Text MakePattern(const std::string& words, const std::string& pattern, const std::string& argument) {
    return {words, document::PatternSource{pattern, true, {{false, {Words(argument)}}}}};
}

TEST(Anchors, ComeFromSourcesAndDiffer) {
    Anchors anchors;
    const Item table{MakeTable("Fixed Coefficients", {}, {})};
    Item translated = table;
    std::get<document::Table>(translated.fContent).fSubtype.fWords = "Feste Koeffizienten";
    EXPECT_EQ(anchors.Name(table), "FixedCoefficients-1");
    EXPECT_EQ(anchors.Name(translated), "FixedCoefficients-2");

    const Item pattern{Heading{MakePattern("Means of dose", "Estimated Means: ^1", "dose"), {}}};
    EXPECT_EQ(anchors.Name(pattern), "Estimated-Means-dose-1");

    EXPECT_EQ(anchors.Name({Heading{Words("\"><script>"), {}}}), "script-1");
    EXPECT_EQ(anchors.Name({Heading{Words("\u05D0"), {}}}), "Section-1");
    EXPECT_EQ(anchors.Name({Heading{Words("95% level"), {}}}), "Section-95-level-1");
    EXPECT_EQ(anchors.Name({document::Message{Words("Text"), 2, 1}}), "Message-1");

    // A title that looks like another's anchor gets one of its own.
    EXPECT_EQ(anchors.Name({Heading{Words("FixedCoefficients-1"), {}}}), "FixedCoefficients-1-1");
}

TEST(Anchors, AreShort) { EXPECT_LE(MakeSlug(std::string(10000, 'x')).size(), 64u); }

}  // namespace

}  // namespace hierfit::report::html
