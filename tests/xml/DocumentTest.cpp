#include "Parsed.h"

namespace hierfit::test {
namespace {

std::string Shown(const std::string& text) { return ShowTree(*Parsed(text), {"a", "b", "xmlns", "p"}); }

TEST(Document, HoldsNamesAttributesAndTexts) {
    const std::pair<const char*, const char*> cases[] = {
        {"<r><x/><y/><x/></r>", "r\nr/x[1]\nr/y\nr/x[2]\n"},
        {"<r>one<x>two</x>three<x/>four</r>", "r \"onethreefour\"\nr/x[1] \"two\"\nr/x[2]\n"},
        {"<r>\n  <x> </x>\n</r>", "r\nr/x \" \"\n"},
        {"<r>a&lt;&#x41;&amp;<![CDATA[<b>&]]><!-- c --><?p i?></r>", "r \"a<A&<b>&\"\n"},
        {"<r a='&quot;x&#10;y&apos;'/>", "r [a=\"x\ny']\n"},
        {"<p:r xmlns:p='u' xmlns='v'><p:x p:a='1'/><q:x q:b='2'/></p:r>", "r\nr/x[1] [a=1]\nr/x[2] [b=2]\n"},
        {"<xmlns><x: a:b:a='1'/></xmlns>", "xmlns\nxmlns/x: [a=1]\n"},
        {"<r p:a='first' a='second'/>", "r [a=second]\n"},
        {"<r>\r\none\rtwo</r>", "r \"\none\ntwo\"\n"},
    };
    for (const auto& [text, tree] : cases) EXPECT_EQ(Shown(text), tree) << text;
}

TEST(Document, ReadsEncodings) {
    const std::string utf8 = "<r a='\xC3\xA4'>\xE2\x82\xAC</r>";
    const std::string declared = "<?xml version='1.0' encoding='UTF-16'?><r a='x'/>";
    const std::pair<std::string, const char*> cases[] = {
        {utf8, "r [a=\xC3\xA4] \"\xE2\x82\xAC\"\n"},
        {"\xEF\xBB\xBF" + utf8, "r [a=\xC3\xA4] \"\xE2\x82\xAC\"\n"},
        {"<?xml version='1.0' encoding='iso-8859-1'?><r a='\xE4'/>", "r [a=\xC3\xA4]\n"},
        {Utf16(declared, false), "r [a=x]\n"},
        {Utf16(declared, true), "r [a=x]\n"},
    };
    for (const auto& [text, tree] : cases) EXPECT_EQ(Shown(text), tree) << text;
}

std::string PositionsOf(const xml::Document& document) {
    std::string text;
    for (xml::Document::Node node = 0; node < document.Size(); ++node) {
        const auto [line, column] = document.PositionOf(node);
        text += (node > 0 ? " " : "") + std::to_string(line) + ':' + std::to_string(column);
    }
    return text;
}

TEST(Document, KnowsTheLineAndCharacterOfEachElement) {
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

TEST(Document, FindsAmongThousandsOfNames) {
    std::string text = "<r>";
    const auto name = [](int number) { return "long-name-" + std::to_string(number); };
    for (int i = 0; i < 3000; ++i) text += "<" + name(i) + " a-" + name(i) + "='v'/>";
    const auto document = Parsed(text + "</r>");
    for (const int i : {0, 1, 255, 256, 2999}) {
        const xml::Document::Node node = document->FirstChild(0, name(i));
        ASSERT_EQ(node, static_cast<xml::Document::Node>(i + 1));
        EXPECT_EQ(document->Attribute(node, "a-" + name(i)), "v");
        EXPECT_EQ(document->Attribute(node, "a-" + name(i + 1)), std::nullopt);
    }
}

}  // namespace
}  // namespace hierfit::test
