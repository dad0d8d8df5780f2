#include "Parsed.h"
#include "tests/support/ExampleFile.h"

namespace hierfit::test {
namespace {

constexpr std::size_t kMebibyte = std::size_t{1} << 20U;

std::string Nested(std::size_t depth) { return Repeated("<a>", depth) + Repeated("</a>", depth); }

std::string WithAttributes(int count) {
    std::string text = "<a";
    for (int i = 0; i < count; ++i) text += " a" + std::to_string(i) + "=''";
    return text + "/>";
}

/// The first line of the error.
std::string Reason(const std::string& text) {
    const std::string error = ErrorOf(text);
    return error.substr(0, error.find('\n'));
}

TEST(Limits, HoldExactly) {
    const std::string mebibytes(16 * kMebibyte, 'x');
    std::string names = "<a>\n";
    for (int i = 0; i < 100'001; ++i) names += "<b" + std::to_string(i) + "/>";
    const std::pair<std::string, const char*> cases[] = {
        {Nested(256), "read"},
        {Nested(257), "1:769 elements are nested deeper than 256 levels"},
        {WithAttributes(1000), "read"},
        {WithAttributes(1001), "1:1 an element has more than 1,000 attributes"},
        {"<a b='" + mebibytes + "'/>", "read"},
        {"<a b='" + mebibytes + "x'/>", "1:1 an attribute value is longer than 16 MiB"},
        {'<' + mebibytes + "x/>", "1:1 a name is longer than 16 MiB"},
        {"<a " + mebibytes + "x=''/>", "1:1 a name is longer than 16 MiB"},
        {"<a>\n" + Repeated("<b/>", 5'000'000) + "</a>", "2:19999997 the document has more than 5 million elements"},
        {std::string(256 * kMebibyte + 1, ' '), "1:1 the document is larger than 256 MiB"},
        {names + "</a>", "2:888891 the document has more than 100,000 different names"},
        // Huge nonsense ends soon.
        {Repeated("<a>", 1'000'000), "1:769 elements are nested deeper than 256 levels"},
        {WithAttributes(3'000'000), "1:1 an element has more than 1,000 attributes"},
        {std::string(50'000'000, '<'), "1:2 not well-formed (invalid token)"},
        {"<a>" + std::string(5'000'000, '\r'), "5000000:1 no element found"},
    };
    for (const auto& [text, reason] : cases) EXPECT_EQ(Reason(text), reason) << text.substr(0, 100);
    EXPECT_EQ(Parsed("<a>" + Repeated("x<b/>", 200'000) + "</a>")->Text(0).size(), 200'000U) << "in linear time";
}

// Names and values are measured where they stand, whatever stands around them.
TEST(Limits, SeeMarkupAsItIs) {
    const std::string blanks(6000, ' ');
    const std::string many = WithAttributes(1001);
    const std::pair<std::string, const char*> cases[] = {
        {"<a><!--" + many + "--><![CDATA[" + many + "]]><?p " + many + "?></a>", "read"},
        {"<a><!-- <!DOCTYPE x> --><![CDATA[<!DOCTYPE x>]]><?p <!DOCTYPE x>?></a>", "read"},
        {"<a>" + blanks + "<b c='>" + Repeated("\"", 1001) + "'/></a>", "read"},
        {"<a>\n" + many + "</a>", "2:1 an element has more than 1,000 attributes"},
        {Utf16("<a>\n" + many + "</a>", false), "2:1 an element has more than 1,000 attributes"},
        {Utf16("<a>\n" + many + "</a>", true), "2:1 an element has more than 1,000 attributes"},
        {Utf16("<a>\n<!-- '<--><![CDATA['<]]>" + WithAttributes(1000) + "</a>", true), "read"},
        // Two halves of characters look like the markup.
        {Utf16("<a>", false) + 'A' + Utf16("<!DOCTYPE", false).substr(2) + '\1' + Utf16("</a>", false).substr(2),
         "read"},
        {"<a></b>" + many, "1:6 mismatched tag"},
        {"<a/>" + many, "1:5 an element has more than 1,000 attributes"},
        {"<a>" + Repeated("<b c='" + blanks, 500), "1:6010 not well-formed (invalid token)"},
        {"<a/><!DOCTYPE a>", "1:5 document type declarations are not read"},
        {"<a>]\r<!DOCTYPE a>", "2:1 document type declarations are not read"},
    };
    for (const auto& [text, reason] : cases) EXPECT_EQ(Reason(text), reason) << text.substr(0, 100);
}

}  // namespace
}  // namespace hierfit::test
