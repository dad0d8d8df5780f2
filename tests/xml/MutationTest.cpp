#include <algorithm>
#include <random>

#include "Parsed.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

/// Bytes that mean something to an XML reader.
constexpr char kSpice[] = "<>/&;\"'=!?[]-:# \n\r\t\0\xC3\xA4\xFF\xFEx";

std::string Mutate(std::string text, std::mt19937& random) {
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (std::size_t edits = 1 + below(4); edits > 0 && !text.empty(); --edits) {
        const std::string pieces[] = {"", text.substr(below(text.size()), below(40)), {kSpice[below(sizeof kSpice)]}};
        text.replace(below(text.size()), below(2) * below(40), pieces[below(3)]);
    }
    return text;
}

bool IsWellFormedUtf8(const std::string& text) {
    return xml::Document::Parse("<a><![CDATA[" + text + "]]></a>").index() == 0;
}

// What a mutation does to a document cannot be told beforehand; that it ends well, with a place inside the text and an
// excerpt that can be shown, can.
TEST(Mutation, AnyTextEndsWell) {
    std::mt19937 random(20240501);
    const std::string utf8 = ReadExample("wine", "model.pmml");
    const std::string sources[] = {utf8, Utf16(utf8.substr(utf8.find("<PMML")), false),
                                   Utf16(utf8.substr(utf8.find("<PMML")), true), Replaced(utf8, "UTF-8", "ISO-8859-1")};
    int read = 0;
    for (int i = 0; i < 4000; ++i) {
        const std::string text = Mutate(sources[i % 4], random);
        const auto result = xml::Document::Parse(text);
        if (const auto* error = std::get_if<xml::ParseError>(&result)) {
            ASSERT_GE(std::min(error->fLine, error->fColumn), 1);
            ASSERT_LE(static_cast<std::size_t>(error->fLine), text.size() + 1);
            ASSERT_TRUE(IsWellFormedUtf8(error->fExcerpt)) << error->fExcerpt;
            ASSERT_LE(error->fExcerpt.size(), 700U);
        } else {
            const auto& document = *std::get<0>(result);
            const auto last = static_cast<xml::Document::Node>(document.Size() - 1);
            ASSERT_GE(std::min(document.PositionOf(last).fLine, document.PositionOf(last).fColumn), 1);
            ++read;
        }
    }
    EXPECT_GT(read, 100);
}

}  // namespace
}  // namespace hierfit::test
