#include "report/html/SafeSvg.h"

namespace hierfit::report::html {
namespace {

TEST(SafeSvg, KeepsShapesAndPrefixesIds) {
    const std::string svg = R"-(<svg width="1"><defs><clipPath id="clip0"><rect x="0"/></clipPath></defs>)-"
                            R"-(<g clip-path="url(#clip0)" aria-label="url(http://x &lt;a&gt; id=">)-"
                            R"-(<text>id="a" onclick="</text></g></svg>)-";
    EXPECT_EQ(MakeSafeSvg(svg, {}), svg);
    std::string expected = svg;
    expected.replace(expected.find("clip0"), 5, "c-clip0").replace(expected.find("#clip0"), 6, "#c-clip0");
    EXPECT_EQ(MakeSafeSvg(svg, "c-"), expected);
    EXPECT_EQ(MakeSafeSvg(std::string("<svg a=\"\x1B\">\0</svg>", 18), {}), "<svg a=\"\u241B\">\u2400</svg>");
    EXPECT_EQ(MakeSafeSvg("<svg a=\"\xEF\xBF\xBE\">\xEF\xBF\xBF\xEF\xBF\xBC</svg>", {}),
              "<svg a=\"\uFFFD\">\uFFFD\uFFFC</svg>");
}

TEST(SafeSvg, RefusesWhatIsMore) {
    for (const char* svg : {"", "<g/>", " <svg/>", "<svg", "<svg a=\"x"}) EXPECT_FALSE(MakeSafeSvg(svg, {})) << svg;
    for (const std::string content : {"< /svg>", "<script></script>", "<foreignObject/>", "<a/>", "<image/>", "<use/>",
                                      "<SCRIPT/>", "<!-- -->", "<?x?>"}) {
        EXPECT_FALSE(MakeSafeSvg("<svg>" + content + "</svg>", {})) << content;
    }
    for (const std::string attribute :
         {"onload=\"x\"", "OnLoad=\"x\"", "href=\"x\"", "xlink:href=\"x\"", "xlink:HREF=\"x\"", "x:href=\"x\"",
          "style=\"x\"", "STYLE=\"x\"", "src=\"x\"", "fill=\"url(x)\"", "fill=\" url(x)\"", "fill=\"URL(x)\"",
          "fill=\"url(#x) Url(x)\"", "fill=\"\\75rl(x)\"", "a=x", "a='x'", "a=\"<\"", "a"}) {
        EXPECT_FALSE(MakeSafeSvg("<svg " + attribute + "/>", {})) << attribute;
    }
}

}  // namespace
}  // namespace hierfit::report::html
