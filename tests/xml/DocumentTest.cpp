#include <string_view>

#include "Parsed.h"

namespace hierfit::test {
namespace {

using xml::Document;
using Node = Document::Node;

/// The tree as text, attributes in brackets, element texts in quotes.
std::string Shown(const Document& document) {
    std::string text;
    for (Node node = 0; node < document.Size(); ++node) {
        text += document.PathOf(node);
        for (const std::string_view name : {"a", "b", "xmlns", "p"}) {
            if (auto value = document.Attribute(node, name))
                text += " [" + std::string(name) + '=' + std::string(*value) + ']';
        }
        if (!document.Text(node).empty()) text += " \"" + std::string(document.Text(node)) + '"';
        text += '\n';
    }
    return text;
}

TEST(Document, HoldsNamesAttributesAndTexts) {
    const std::pair<const char*, const char*> cases[] = {
        {"<r/>", "r\n"},
        {"<r><x/><y/><x/></r>", "r\nr/x[1]\nr/y\nr/x[2]\n"},
        {"<r a='1' b=''/>", "r [a=1] [b=]\n"},
        {"<r>one<x>two</x>three<x/>four</r>", "r \"onethreefour\"\nr/x[1] \"two\"\nr/x[2]\n"},
        {"<r>\n  <x> </x>\n</r>", "r\nr/x \" \"\n"},
        {"<r>a&lt;&#x41;&amp;<![CDATA[<b>&]]><!-- c --><?p i?></r>", "r \"a<A&<b>&\"\n"},
        {"<r a='&quot;x&#10;y&apos;'/>", "r [a=\"x\ny']\n"},
        {"<p:r xmlns:p='u' xmlns='v'><p:x p:a='1'/><q:x q:b='2'/></p:r>", "r\nr/x[1] [a=1]\nr/x[2] [b=2]\n"},
        {"<xmlns><x: a:b:a='1'/></xmlns>", "xmlns\nxmlns/x: [a=1]\n"},
        {"<r p:a='first' a='second'/>", "r [a=second]\n"},
        {"<r>\r\none\rtwo</r>", "r \"\none\ntwo\"\n"},
    };
    for (const auto& [text, tree] : cases) EXPECT_EQ(Shown(*Parsed(text)), tree) << text;
}

TEST(Document, ReadsEncodings) {
    const std::string utf8 = "<r a='\xC3\xA4'>\xE2\x82\xAC</r>";
    const std::string tree = "r [a=\xC3\xA4] \"\xE2\x82\xAC\"\n";
    EXPECT_EQ(Shown(*Parsed(utf8)), tree);
    EXPECT_EQ(Shown(*Parsed("\xEF\xBB\xBF" + utf8)), tree);
    EXPECT_EQ(Shown(*Parsed("<?xml version='1.0' encoding='iso-8859-1'?><r a='\xE4'/>")), "r [a=\xC3\xA4]\n");
    const std::string declared = "<?xml version='1.0' encoding='UTF-16'?><r a='x'/>";
    EXPECT_EQ(Shown(*Parsed(Utf16(declared, false))), "r [a=x]\n");
    EXPECT_EQ(Shown(*Parsed(Utf16(declared, true))), "r [a=x]\n");
}

TEST(Document, FindsAmongThousandsOfNames) {
    std::string text = "<r>";
    for (int i = 0; i < 3000; ++i)
        text += "<n" + std::to_string(i) + " long-attribute-name-" + std::to_string(i) + "='v'/>";
    const auto document = Parsed(text + "</r>");
    for (const int i : {0, 1, 255, 256, 2999}) {
        const Node node = document->FirstChild(0, "n" + std::to_string(i));
        ASSERT_EQ(node, static_cast<Node>(i + 1));
        EXPECT_EQ(document->Attribute(node, "long-attribute-name-" + std::to_string(i)), "v");
        EXPECT_EQ(document->Attribute(node, "long-attribute-name-" + std::to_string(i + 1)), std::nullopt);
    }
}

}  // namespace
}  // namespace hierfit::test
