#include <algorithm>

#include "Parsed.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

using namespace std::string_literals;

TEST(ParseError, SaysReasonPlaceAndLine) {
    const std::string filler(200, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {"", "1:1 no element found\n\n^"},
        {" \n", "2:1 no element found\n\n^"},
        {"hello", "1:1 syntax error\nhello\n^"},
        {"<a>\n  <b>\n  </c>\n</a>", "3:5 mismatched tag\n  </c>\n    ^"},
        {"<a b='1' b='2'/>", "1:10 duplicate attribute\n<a b='1' b='2'/>\n         ^"},
        {"<a b='1", "1:1 unclosed token\n<a b='1\n^"},
        {"<a>&nbsp;</a>", "1:4 undefined entity\n<a>&nbsp;</a>\n   ^"},
        {"<a>"s + '\0' + "</a>", "1:4 not well-formed (invalid token)\n<a>\xEF\xBF\xBD</a>\n   ^"},
        {"<a>\x7F\xC2\x9B</b>", "1:8 mismatched tag\n<a>\xEF\xBF\xBD\xEF\xBF\xBD</b>\n       ^"},
        {"<a>\xC3\xA4\xFF</a>", "1:5 not well-formed (invalid token)\n<a>\xC3\xA4\xEF\xBF\xBD</a>\n    ^"},
        {"<a>\xED\xA0\x80</a>",
         "1:4 not well-formed (invalid token)\n<a>\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD</a>\n   ^"},
        {"\t\xE2\x80\xAE<a>\t</b>\r\n</a>", "1:2 not well-formed (invalid token)\n \xEF\xBF\xBD<a> </b>\n ^"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\xE4</b>", "2:7 mismatched tag\n<a>\xC3\xA4</b>\n      ^"},
        {"<?xml version='1.0' encoding='EBCDIC'?><a/>",
         "1:31 unknown encoding\n<?xml version='1.0' encoding='EBCDIC'?><a/>\n                              ^"},
        {Utf16("<a>\n<b></c></a>", false), "2:6 mismatched tag\n<b></c></a>\n     ^"},
        {Utf16("<a>\n<b></c></a>", true), "2:6 mismatched tag\n<b></c></a>\n     ^"},
        {"<a>" + filler + "</b>" + filler + "</a>", "1:206 mismatched tag\n..." + filler.substr(0, 58) + "</b>" +
                                                        filler.substr(0, 38) + "...\n" + std::string(63, ' ') + '^'},
        {"<!-- c -->\n<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>",
         "2:1 document type declarations are not read\n<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>\n^"},
        {Utf16("<!DOCTYPE a>", true), "1:1 document type declarations are not read\n<!DOCTYPE a>\n^"},
    };
    for (const auto& [text, error] : cases) EXPECT_EQ(ErrorOf(text), error) << text;
}

TEST(ParseError, NoTruncatedDocumentIsRead) {
    const std::string text = ReadExample("sleepstudy", "model.pmml");
    const std::size_t end = text.rfind('>');
    for (std::size_t size = 0; size <= end; ++size) ASSERT_NE(ErrorOf(text.substr(0, size)), "read") << size;
    EXPECT_EQ(ErrorOf(text), "read");
}

// What a changed byte does to a document cannot be told beforehand; that it ends well, with a place inside the text and
// an excerpt that can be shown, can.
TEST(ParseError, AnyTextEndsWell) {
    constexpr char kSpice[] = "<>/&;\"'=!?[]-:# \n\r\t\0\xC3\xA4\xFF\xFEx";  // means something to a reader
    const std::string utf8 = ReadExample("wine", "model.pmml");
    const std::string root = utf8.substr(utf8.find("<PMML"));
    const std::string latin = Replaced(utf8, "UTF-8", "ISO-8859-1");
    for (const std::string& whole : {utf8, Utf16(root, false), Utf16(root, true), latin}) {
        for (std::size_t at = 0; at < whole.size(); ++at) {
            std::string text = whole;
            text[at] = kSpice[at % sizeof kSpice];
            const auto result = xml::Document::Parse(text);
            const auto* error = std::get_if<xml::ParseError>(&result);
            if (!error) continue;
            ASSERT_GE(std::min(error->fLine, error->fColumn), 1);
            ASSERT_LE(static_cast<std::size_t>(error->fLine), text.size() + 1);
            ASSERT_EQ(ErrorOf("<a><![CDATA[" + error->fExcerpt + "]]></a>"), "read") << error->fExcerpt;
            ASSERT_LE(error->fExcerpt.size(), 700U);
        }
    }
}

}  // namespace
}  // namespace hierfit::test
