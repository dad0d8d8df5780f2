#include "report/html/SafeSvg.h"

#include <gtest/gtest.h>

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
    for (const char* svg : {"",
                            "<g/>",
                            " <svg/>",
                            "<svg",
                            "<svg>< /svg>",
                            "<svg><script></script></svg>",
                            "<svg><foreignObject/></svg>",
                            "<svg><a/></svg>",
                            "<svg><image/></svg>",
                            "<svg><use/></svg>",
                            "<svg onload=\"x\"/>",
                            "<svg href=\"x\"/>",
                            "<svg xlink:href=\"x\"/>",
                            "<svg style=\"x\"/>",
                            "<svg xlink:HREF=\"x\"/>",
                            "<svg x:href=\"x\"/>",
                            "<svg STYLE=\"x\"/>",
                            "<svg OnLoad=\"x\"/>",
                            "<svg fill=\"url(x)\"/>",
                            "<svg fill=\" url(x)\"/>",
                            "<svg fill=\"URL(x)\"/>",
                            "<svg fill=\"url(#x) Url(x)\"/>",
                            R"-(<svg fill="\75rl(x)"/>)-",
                            "<svg a=x/>",
                            "<svg a='x'/>",
                            "<svg a=\"<\"/>",
                            "<svg a=\"x",
                            "<svg a/>",
                            "<svg><!-- --></svg>",
                            "<svg><?x?></svg>",
                            "<svg><SCRIPT/></svg>"}) {
        EXPECT_FALSE(MakeSafeSvg(svg, {})) << svg;
    }
}

}  // namespace
}  // namespace hierfit::report::html
