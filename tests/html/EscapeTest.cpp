#include "report/markup/Escape.h"

#include "report/markup/LanguageTag.h"
#include "report/markup/PageDirection.h"

namespace hierfit::report {

namespace {

using std::string_literals::operator""s;

struct EscapeCase {
    std::string fText;
    std::string fContent;
    std::string fAttribute;  ///< empty where it is the same as the content
};

TEST(Escape, KeepsTextsTexts) {
    const EscapeCase cases[] = {
        {"<b>&amp;</b>", "&lt;b&gt;&amp;amp;&lt;/b&gt;", ""},
        {"\"a\" 'b'", "&quot;a&quot; &#39;b&#39;", ""},
        {"a\nb\r\nc\rd", "a<br>b<br>c<br>d", "a b c d"},
        {"tab\tstays", "tab\tstays", ""},
        {"\0\a\x1B[0m\x7F"s, "␀␇␛[0m␡", ""},
        {"\u00B5 ≥ 0.5 – \U0001F600, 100%", "µ ≥ 0.5 – \U0001F600, 100%", ""},
        {"\xC2\x85\xC2\x9B", "\uFFFD\uFFFD", ""},
        {"a\u202Eb\u202Cc\u2066d\u2069", "a\uFFFDb\uFFFDc\uFFFDd\uFFFD", ""},
        {"\uFDD0\uFFFE\U0010FFFF", "\uFFFD\uFFFD\uFFFD", ""},
        {"\xC3(", "\uFFFD(", ""},
        {"end \xE2\x82", "end \uFFFD\uFFFD", ""},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD", ""},
        {"\xC0\xAF", "\uFFFD\uFFFD", ""},
        {"\u05D0 < b", "<bdi>\u05D0 &lt; b</bdi>", "\u05D0 &lt; b"},
        {"\u05D0 = -2.5, 1", "<bdi>\u05D0 = <bdi dir=\"ltr\">-2.5</bdi>, 1</bdi>", "\u05D0 = -2.5, 1"},
        {"", "", ""},
    };
    for (const EscapeCase& each : cases) {
        std::string content = "before ";
        AppendText(content, each.fText);
        EXPECT_EQ(content, "before " + each.fContent);
        std::string attribute;
        AppendCharacters(attribute, each.fText);
        EXPECT_EQ(attribute, each.fAttribute.empty() ? each.fContent : each.fAttribute);
    }
}

TEST(Escape, SetsApartWhatIsForeignToThePage) {
    const std::pair<std::string, std::string> cases[] = {{"0.2 - 0.4", "<bdi dir=\"ltr\">0.2 - 0.4</bdi>"},
                                                         {"a \u05D0", "<bdi dir=\"ltr\">a \u05D0</bdi>"},
                                                         {"\u200Fa - b", "<bdi>\u200Fa - b</bdi>"},
                                                         {"", ""}};
    const PageDirection direction(true);
    for (const auto& [text, content] : cases) {
        std::string out;
        AppendText(out, text);
        EXPECT_EQ(out, content);
    }
    const PageDirection inner(false);
    EXPECT_FALSE(PageDirection::IsRightToLeft());
}

TEST(LanguageTag, TellsTheDirection) {
    for (const char* language : {"he", "ar_EG", "fa-IR", "az-Arab", "uz_Arab_AF"})
        EXPECT_TRUE(IsWrittenRightToLeft(language)) << language;
    for (const char* language : {"ku", "de", "he-Latn", "C", "heb.mo", ""})
        EXPECT_FALSE(IsWrittenRightToLeft(language)) << language;
    for (const char* language : {"", "C", "\" x", "x", "de-"}) EXPECT_EQ(MakeLanguageTag(language), "en") << language;
}

TEST(Escape, TellsWhereATextBegins) {
    const std::pair<std::string, bool> cases[] = {{"", false},        {"12 (", false},    {"a \u05D0", false},
                                                  {"\u05D0 a", true}, {"3 \u0628", true}, {"\xFF\u05D0", true},
                                                  {"\u0661 a", false}};
    for (const auto& [text, isRightToLeft] : cases) EXPECT_EQ(BeginsRightToLeft(text), isRightToLeft) << text;
}

}  // namespace

}  // namespace hierfit::report
