#include "Parsed.h"

namespace hierfit::test {
namespace {

std::string PositionsOf(const xml::Document& document) {
    std::string text;
    for (xml::Document::Node node = 0; node < document.Size(); ++node) {
        const auto [line, column] = document.PositionOf(node);
        text += (node > 0 ? " " : "") + std::to_string(line) + ':' + std::to_string(column);
    }
    return text;
}

TEST(Position, CountsLinesAndCharacters) {
    const std::string latin = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    const std::pair<std::string, const char*> cases[] = {
        {"\n\n <a>\n\n\n\t<b\n c='1'/><b/></a>", "3:2 6:2 7:9"},
        {"<a>\r\n<b/>\r\n\r\n <b/></a>", "1:1 2:1 4:2"},
        {"<a>\r\n<b/>\r<b/>\n\r<b/></a>", "1:1 2:1 3:1 5:1"},
        {"\xEF\xBB\xBF<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80<b/></a>", "1:1 1:7"},
        {"<a>\r\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80<b/></a>", "1:1 2:4"},
        {latin + "\r<a>\xE4\xE4<b/></a>", "2:1 2:6"},
        {Utf16("<a>\n <b/>\r\n<b/></a>", false), "1:1 2:2 3:1"},
        {Utf16("<a>\n <b/>\r\n<b/></a>", true), "1:1 2:2 3:1"},
        {Utf16("<a>", true) + std::string("\xD8\x3D\xDE\x00\x0A\x0A", 6) + Utf16("<b/></a>", true).substr(2),
         "1:1 1:6"},
    };
    for (const auto& [text, positions] : cases) EXPECT_EQ(PositionsOf(*Parsed(text)), positions) << text;
}

}  // namespace
}  // namespace hierfit::test
